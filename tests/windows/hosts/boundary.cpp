// SPDX-License-Identifier: MIT
// What comes out of the DLL when memory runs out in it: std::bad_alloc out of the classes, a code out of the
// C functions, and nothing else. The DLL's own malloc and free are replaced where it looks them up, in its
// table of imports, so that each allocation of each operation fails in turn.
#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <new>
#include <string>

#include "pageslice/page.h"
#include "pageslice/pageslice.h"

namespace {

constexpr std::size_t DOOMED = 54321; // no allocation of this size succeeds
volatile LONG g_nUntilFailure = 0;    // 1: the next allocation fails; 0: none does
volatile LONG g_nLive = 0;            // blocks of the DLL's that are not released
int g_nFaults = 0;

void* pAllocate(std::size_t n) {
    if (n == DOOMED || (g_nUntilFailure > 0 && InterlockedDecrement(&g_nUntilFailure) == 0))
        return nullptr;
    InterlockedIncrement(&g_nLive);
    return std::malloc(n);
}

void Release(void* p) {
    if (p != nullptr)
        InterlockedDecrement(&g_nLive);
    std::free(p);
}

// Puts `pReplacement` into a module's table of imports.
bool bReplaceImport(HMODULE hModule, const char* pName, const void* pReplacement) {
    auto* const pImage = reinterpret_cast<char*>(hModule);
    const auto* const pHeaders =
        reinterpret_cast<IMAGE_NT_HEADERS*>(pImage + reinterpret_cast<IMAGE_DOS_HEADER*>(pImage)->e_lfanew);
    const auto* pFrom = reinterpret_cast<IMAGE_IMPORT_DESCRIPTOR*>(
        pImage + pHeaders->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress);
    for (; pFrom->Name != 0; ++pFrom) {
        const auto* pEntry = reinterpret_cast<IMAGE_THUNK_DATA*>(pImage + pFrom->OriginalFirstThunk);
        auto* pPlace = reinterpret_cast<const void**>(pImage + pFrom->FirstThunk);
        for (; pEntry->u1.AddressOfData != 0; ++pEntry, ++pPlace) {
            const auto* const pImport =
                reinterpret_cast<IMAGE_IMPORT_BY_NAME*>(pImage + pEntry->u1.AddressOfData);
            DWORD nBefore = 0;
            if (IMAGE_SNAP_BY_ORDINAL(pEntry->u1.Ordinal) ||
                std::strcmp(reinterpret_cast<const char*>(pImport->Name), pName) != 0)
                continue;
            VirtualProtect(pPlace, sizeof *pPlace, PAGE_READWRITE, &nBefore);
            *pPlace = pReplacement;
            return VirtualProtect(pPlace, sizeof *pPlace, nBefore, &nBefore) != 0;
        }
    }
    return false;
}

void Expect(bool bTrue, const char* pWhat, long n) {
    if (!bTrue) {
        std::printf("%s (allocation %ld)\n", pWhat, n);
        ++g_nFaults;
    }
}

struct Cleanup { // has the host clean up on the exception's way
    bool& bDone;
    ~Cleanup() { bDone = true; }
};

// In a frame of its own: after a second throw out of one frame, Wine's unwinder for the Microsoft rules loses
// that frame's stack pointer.
[[gnu::noinline]] void ThrowAgain(const std::function<void()>& operation) {
    try {
        operation();
    } catch (const std::exception&) {
        throw;
    }
}

bool bThrows(const std::function<void()>& operation) {
    bool bCleaned = false;
    try {
        const Cleanup cleanup{bCleaned};
        ThrowAgain(operation);
    } catch (const std::bad_alloc&) {
        return bCleaned;
    }
    return false;
}

void FailInTurn(const char* pWhat, const std::function<void()>& operation) {
    bool bFailed = true;
    long n = 1;
    for (; bFailed; ++n) {
        const long nBefore = g_nLive;
        g_nUntilFailure = n;
        const bool bThrew = bThrows(operation);
        bFailed = g_nUntilFailure == 0;
        g_nUntilFailure = 0;
        Expect(bThrew == bFailed, pWhat, n);
        Expect(g_nLive == nBefore, (std::string(pWhat) + " leaks").c_str(), n);
    }
    Expect(n > 2, "allocates nothing", n);
}

constexpr char HTML[] = "x<title>Home</title><a href=p>t</a><img src=i><td>1</td><li>2</li>";
constexpr char ADDRESS[] = "http://a.host.with.a.long.name.that.no.string.keeps.inside/";
const text PAGE(HTML);

struct HostParser : HtmlParser { // by way of the constructors for bases
    HostParser() : HtmlParser(PAGE, ADDRESS) {}
};

void Check(int nCode) {
    if (nCode == PAGESLICE_NO_MEMORY)
        throw std::bad_alloc();
    Expect(nCode == PAGESLICE_OK || nCode == PAGESLICE_TOO_SMALL, "another code", nCode);
}

void FailClasses() {
    HtmlParser parser(PAGE, ADDRESS);
    UrlList list(9);
    FailInTurn("UrlList", [] { UrlList empty(9); });
    FailInTurn("copied UrlList", [&] { UrlList copy(list); });
    FailInTurn("assigned UrlList", [&] { list = UrlList(list); });
    FailInTurn("new UrlList", [] { delete new UrlList(9); });
    FailInTurn("pMakeCopy", [] { pageslice_release_string(PAGE.pMakeCopy()); });
    FailInTurn("tGetDomainName", [] { url::tGetDomainName(text(ADDRESS)); });
    FailInTurn("HtmlParser", [] { HostParser host; });
    FailInTurn("copied HtmlParser", [&] { HtmlParser copy(parser); });
    FailInTurn("assigned HtmlParser", [&] { HtmlParser().operator=(parser); });
    FailInTurn("Load", [] { HtmlParser().Load(PAGE, ADDRESS, 1); });
    FailInTurn("InitializeHtmlFile", [] { HtmlParser(PAGE, nullptr).InitializeHtmlFile(); });
    parser.InitializeHtmlFile();
    FailInTurn("pMakeTitleCopy", [&] { pageslice_release_string(parser.pMakeTitleCopy()); });
    FailInTurn("GetUrlLists", [] {
        HtmlParser lister(PAGE, ADDRESS); // keeps what it has indexed
        UrlList *pImages = nullptr, *pLinks = nullptr;
        lister.GetUrlLists(&pImages, &pLinks);
        delete pImages;
        delete pLinks;
    });
    FailInTurn("bConvertHtmlToPlainText", [&] {
        char* pText = nullptr;
        if (parser.bConvertHtmlToPlainText(&pText) == 0)
            throw std::bad_alloc();
        pageslice_release_string(pText);
    });
}

// The bytes of a string that the DLL filled are the host's to release: they are not counted.
void FailHostName() {
    std::string host;
    g_nUntilFailure = 1;
    Expect(bThrows([&] { url::tGetHostName(text(ADDRESS), host); }) && host.empty(), "tGetHostName", 1);
    url::tGetHostName(text(ADDRESS), host);
    Expect(host == "a.host.with.a.long.name.that.no.string.keeps.inside", "tGetHostName", 0);
}

void FailFunctions() {
    pageslice_options options = {};
    options.url = ADDRESS;
    options.url_size = std::strlen(ADDRESS);
    pageslice_page* pPage = nullptr;
    std::size_t n = 0;
    FailInTurn("pageslice_open_with", [&] {
        Check(pageslice_open_with(HTML, sizeof HTML - 1, &options, sizeof options, &pPage));
        pageslice_close(pPage);
    });
    Check(pageslice_open_with(HTML, sizeof HTML - 1, &options, sizeof options, &pPage));
    FailInTurn("pageslice_get_plain_text", [&] { Check(pageslice_get_plain_text(pPage, nullptr, 0, &n)); });
    FailInTurn("pageslice_absolute", [&] { Check(pageslice_absolute(pPage, "p", 1, nullptr, 0, &n)); });
    pageslice_close(pPage);
    options.most_index_bytes = 1;
    const int nCode = pageslice_open_with(HTML, sizeof HTML - 1, &options, sizeof options, &pPage);
    Expect(nCode == PAGESLICE_LIMIT, "limit", nCode);
}

DWORD WINAPI ThrowOften(void* pFaults) {
    for (int i = 0; i < 1000; ++i)
        if (!bThrows([] { UrlList doomed(DOOMED); }))
            InterlockedIncrement(static_cast<LONG*>(pFaults));
    return 0;
}

void ThrowInThreads() {
    LONG nFaults = 0;
    HANDLE threads[4];
    for (HANDLE& thread : threads)
        thread = CreateThread(nullptr, 0, ThrowOften, &nFaults, 0, nullptr);
    WaitForMultipleObjects(4, threads, TRUE, INFINITE);
    Expect(nFaults == 0, "threads", nFaults);
}

} // namespace

int main() {
    const HMODULE hLibrary = GetModuleHandleA("pageslice.dll");
    Expect(bReplaceImport(hLibrary, "malloc", reinterpret_cast<const void*>(&pAllocate)) &&
               bReplaceImport(hLibrary, "free", reinterpret_cast<const void*>(&Release)),
           "imports", 0);
    Expect(bThrows([] { UrlList doomed(DOOMED); }), "first throw", 0);
    FailClasses();
    FailHostName();
    FailFunctions();
    ThrowInThreads();
    std::printf("boundary: %s\n", g_nFaults == 0 ? "passed" : "FAILED");
    return g_nFaults != 0;
}
