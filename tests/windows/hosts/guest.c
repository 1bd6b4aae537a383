/* SPDX-License-Identifier: MIT */
/* The DLL as a guest of hosts that were not made with it in mind: they know it by name at run time only, as
   C# and Delphi do, with structures written down once more, packed, byte by byte; they load and free it over
   and over, meet it first in a hundred threads at once, and call it with stacks that are aligned to 4 bytes,
   as 32-bit Windows allows. */
#include <windows.h>

#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#define THREADS 100
#define LOADS 1000

#pragma pack(push, 1)
typedef struct {
    const char* data;
    size_t size;
} slice;

typedef struct {
    int32_t rules;
#ifdef _WIN64
    int32_t gap;
#endif
    slice url;
    slice encoding;
    size_t most[5]; /* links, images, cells, items, bytes of the index */
} options;

typedef struct {
    slice texts[6];     /* src, lowsrc, alt, usemap, srcset, element */
    int32_t numbers[7]; /* width, height, border, hspace, vspace, align, is_map */
#ifdef _WIN64
    int32_t gap;
#endif
} image;
#pragma pack(pop)

static struct {
    HMODULE module;
    int(__cdecl* open_with)(const char* html, size_t html_size, const options* o, size_t o_size, void** page);
    int(__cdecl* get_title)(const void* page, slice* title);
    int(__cdecl* get_image)(const void* page, size_t index, image* image, size_t image_size);
    int(__cdecl* get_plain_text)(const void* page, char* buffer, size_t capacity, size_t* length);
    void(__cdecl* close)(void* page);
} dll;

static char html[20000];
static int faults;

static int expect(int is_true, const char* what) {
    if (!is_true) {
        printf("%s\n", what);
        ++faults;
    }
    return is_true;
}

static void find(HMODULE module, const char* name, void* place) {
    const FARPROC found = GetProcAddress(module, name);
    if (found == NULL) {
        printf("no %s\n", name);
        exit(1);
    }
    memcpy(place, &found, sizeof found);
}

static void load(void) {
    dll.module = LoadLibraryA("pageslice.dll");
    find(dll.module, "pageslice_open_with", &dll.open_with);
    find(dll.module, "pageslice_get_title", &dll.get_title);
    find(dll.module, "pageslice_get_image", &dll.get_image);
    find(dll.module, "pageslice_get_plain_text", &dll.get_plain_text);
    find(dll.module, "pageslice_close", &dll.close);
}

/* An exception flies inside the library where the page exceeds a limit. Returns what went wrong, or null. */
static __attribute__((noinline)) const char* read_page(void) {
    char text[sizeof html];
    options o;
    image found;
    slice title;
    size_t length = 0;
    void* page = NULL;
    memset(&o, 0, sizeof o);
    o.most[4] = 1;
    if (dll.open_with(html, sizeof html, &o, sizeof o, &page) != -6 || page != NULL)
        return "limit";
    o.most[4] = 0;
    o.url.data = "http://h/";
    o.url.size = 9;
    if (dll.open_with(html, sizeof html, &o, sizeof o, &page) != 0)
        return "open";
    if (dll.get_title(page, &title) != 0 || title.size != 4 || memcmp(title.data, "Home", 4) != 0)
        return "title";
    if (dll.get_image(page, 0, &found, sizeof found) != 0 || found.texts[0].size != 1 ||
        *found.texts[0].data != 'i' || found.numbers[0] != 7 || found.numbers[1] != -1 ||
        found.numbers[6] != 1)
        return "image";
    if (dll.get_plain_text(page, text, sizeof text, &length) != 0 || strlen(text) != length || length < 9000)
        return "plain text";
    dll.close(page);
    return NULL;
}

static DWORD WINAPI read_when_told(void* told) {
    WaitForSingleObject(told, INFINITE);
    return read_page() != NULL;
}

static void read_in_threads(void) {
    HANDLE threads[THREADS];
    const HANDLE told = CreateEventA(NULL, TRUE, FALSE, NULL);
    int i;
    load();
    for (i = 0; i < THREADS; ++i)
        threads[i] = CreateThread(NULL, 0, read_when_told, told, 0, NULL);
    SetEvent(told);
    for (i = 0; i < THREADS; ++i) {
        DWORD code = 1;
        WaitForSingleObject(threads[i], INFINITE);
        expect(GetExitCodeThread(threads[i], &code) && code == 0, "a thread failed");
        CloseHandle(threads[i]);
    }
    CloseHandle(told);
    FreeLibrary(dll.module);
}

static const char* read_with_stack_shifted_by(int bytes) {
#ifdef __i386__
    const char* result;
    __asm__ volatile(
        "movl %%esp, %%ebx\n\tandl $-64, %%esp\n\tsubl %1, %%esp\n\tcall *%2\n\tmovl %%ebx, %%esp"
        : "=a"(result)
        : "S"(bytes), "D"(&read_page)
        : "ebx", "ecx", "edx", "memory", "cc");
    return result;
#else
    (void)bytes; /* here the system aligns it to 16 */
    return read_page();
#endif
}

static void read_with_every_scan(void) {
    static const char* const scans[] = {"portable", "sse2", "avx2", "avx512"}; /* which lacks is not chosen */
    size_t i;
    int shift;
    for (i = 0; i < sizeof scans / sizeof *scans; ++i) {
        char setting[40];
        sprintf(setting, "PAGESLICE_SCAN=%s", scans[i]);
        _putenv(setting);
        load();
        for (shift = 0; shift < 64; shift += 4) {
            const char* const what = read_with_stack_shifted_by(shift);
            if (!expect(what == NULL, what))
                printf("by %s, stack shifted by %d\n", scans[i], shift);
        }
        FreeLibrary(dll.module);
    }
    _putenv("PAGESLICE_SCAN=");
}

typedef struct {
    DWORD handles;
    DWORD next_thread_slot;
    size_t heap_bytes;
} use;

static use measure(void) {
    HANDLE heaps[64];
    use now = {0, 0, 0};
    DWORD n = GetProcessHeaps(64, heaps);
    expect(n > 0 && GetProcessHandleCount(GetCurrentProcess(), &now.handles), "no counters");
    while (n-- > 0) {
        PROCESS_HEAP_ENTRY entry;
        entry.lpData = NULL;
        while (HeapWalk(heaps[n], &entry))
            now.heap_bytes += (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0 ? entry.cbData : 0;
    }
    now.next_thread_slot = TlsAlloc();
    TlsFree(now.next_thread_slot);
    return now;
}

static void load_and_free(int times) {
    for (; times > 0; --times) {
        const char* what;
        load();
        what = read_page();
        expect(what == NULL, what);
        FreeLibrary(dll.module);
        expect(GetModuleHandleA("pageslice.dll") == NULL, "stays");
    }
}

static void load_over_and_over(void) {
    use before, after;
    load_and_free(50);
    before = measure();
    load_and_free(LOADS);
    after = measure();
    printf("%d loads: %ld bytes, %ld handles, %ld thread slots more\n", LOADS,
           (long)(after.heap_bytes - before.heap_bytes), (long)(after.handles - before.handles),
           (long)(after.next_thread_slot - before.next_thread_slot));
    expect(after.heap_bytes < before.heap_bytes + LOADS, "memory grows");
    expect(after.handles <= before.handles && after.next_thread_slot == before.next_thread_slot,
           "handles grow");
}

/* Debuggers are told a thread's name by an exception. A library that answers it in their stead hides a host's
 * fault. */
static int told_names;

static LONG WINAPI see(EXCEPTION_POINTERS* what) {
    if (what->ExceptionRecord->ExceptionCode != 0x406D1388)
        return EXCEPTION_CONTINUE_SEARCH;
    ++told_names;
    return EXCEPTION_CONTINUE_EXECUTION;
}

static void keep_handlers(void) {
    ULONG_PTR name[4] = {0x1000, 0, 0, 0};
    void* const handler = AddVectoredExceptionHandler(0, see); /* the last to be asked */
    name[1] = (ULONG_PTR) "a name";
    load();
    RaiseException(0x406D1388, 0, sizeof name / sizeof *name, name);
    expect(told_names == 1, "the library handles exceptions of its host");
    FreeLibrary(dll.module);
    RemoveVectoredExceptionHandler(handler);
}

int main(void) {
    static const char start[] =
        "x<title>Home</title><img src=i width=7 ismap><a href=p>t</a><td>1</td><li>2</li>";
    memset(html, '.', sizeof html); /* a page for long sweeps */
    memcpy(html, start, sizeof start - 1);
    keep_handlers();
    read_in_threads();
    read_with_every_scan();
    load_over_and_over();
    printf("guest: %s\n", faults == 0 ? "passed" : "FAILED");
    return faults != 0;
}
