// SPDX-License-Identifier: MIT
// Lets exceptions leave the 32-bit Windows library, and fly inside it whatever its host is made of. There a
// stack is unwound by tables, and the compiler's run-time library, which each module holds a copy of, looks
// for them in its own module alone: an exception thrown here would end the host, whatever the host catches.
// Worse, where the host brings that run-time library as a DLL, this module's own tables are handed to that
// DLL, and the copy that throws here does not find even those. So the linker leads its search (--wrap)
// through here, and what the copy does not know is looked up in the module that holds the code, as other
// systems do it. On x64 the system itself knows every module's tables.
//
// A foreign frame names its module's own routine for C++ frames, which asks its own copy of the run-time
// library about the frame; and that copy is not ready before its first throw. The tables are alike in all
// modules, so this module's routine reads them instead: a frame with such a routine is handed out as a
// changed copy. The copy is in use until the unwinder calls the routine that it names, at once and in the
// same thread; this is what unlocks it.
#if defined(__MINGW32__) && defined(__i386__) && !defined(__SEH__) && !defined(__USING_SJLJ_EXCEPTIONS__) && \
    !defined(PAGESLICE_STATIC)

#define WIN32_LEAN_AND_MEAN
#include <unwind.h>
#include <windows.h>

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <cstring>

extern "C" {
_Unwind_Reason_Code __gxx_personality_v0(int, _Unwind_Action, _Unwind_Exception_Class, _Unwind_Exception*,
                                         _Unwind_Context*);
}

namespace {

constexpr std::size_t WORD = sizeof(std::uint32_t);

// The bytes of a table. Past the end there are zeros.
class Reader {
public:
    Reader(const unsigned char* pFirst, std::size_t n) noexcept : m_p(pFirst), m_pEnd(pFirst + n) {}

    const unsigned char* pHere() const noexcept { return m_p; }
    std::size_t nLeft() const noexcept { return static_cast<std::size_t>(m_pEnd - m_p); }
    void Skip(std::size_t n) noexcept { m_p += n < nLeft() ? n : nLeft(); }
    unsigned nByte() noexcept { return nLeft() != 0 ? *m_p++ : 0; }

    std::uint32_t nWord() noexcept {
        std::uint32_t n = 0;
        if (nLeft() >= WORD)
            std::memcpy(&n, m_p, WORD);
        Skip(WORD);
        return n;
    }

    void SkipNumber() noexcept { // of any length
        while (nByte() >= 0x80) {
        }
    }

private:
    const unsigned char* m_p;
    const unsigned char* m_pEnd;
};

// How an address is written: as it is or as the distance from itself, in one word; or not at all.
constexpr unsigned ABSOLUTE_WORD = 0x00, UNSIGNED_WORD = 0x03, SIGNED_WORD = 0x0b, FROM_HERE = 0x10,
                   OMITTED = 0xff;

bool bIsUnderstood(unsigned nForm) noexcept {
    const unsigned nPlain = nForm & ~FROM_HERE;
    return nPlain == ABSOLUTE_WORD || nPlain == UNSIGNED_WORD || nPlain == SIGNED_WORD;
}

std::uint32_t nAddress(Reader& in, unsigned nForm) noexcept {
    const auto nHere = reinterpret_cast<std::uint32_t>(in.pHere());
    const std::uint32_t n = in.nWord();
    return (nForm & FROM_HERE) != 0 && n != 0 ? n + nHere : n;
}

// What frames have in common.
struct Common {
    const unsigned char* pEntry;
    unsigned nCodeForm = ABSOLUTE_WORD;        // of the address of a frame's code
    unsigned nLocalForm = OMITTED;             // of that of its table of handlers
    const unsigned char* pLocalForm = nullptr; // where that stands
    const unsigned char* pRoutine = nullptr;   // the form of the routine's address; the address follows
};

// False for what is not understood.
bool bReadCommon(Reader in, Common& common) noexcept {
    common.pEntry = in.pHere();
    in.Skip(2 * WORD); // length and mark
    const unsigned nVersion = in.nByte();
    const char* pMark = reinterpret_cast<const char*>(in.pHere());
    while (in.nByte() != 0) {
    }
    in.SkipNumber(); // units of code and data, the register of the return address
    in.SkipNumber();
    in.Skip(1);
    if (nVersion != 1 || in.nLeft() == 0 || (*pMark != 'z' && *pMark != '\0'))
        return false;
    if (*pMark == '\0')
        return true;
    in.SkipNumber(); // length of what follows
    while (*++pMark != '\0') {
        if (*pMark == 'S')
            continue;
        const unsigned char* const pHere = in.pHere();
        const unsigned nForm = in.nByte();
        if (*pMark == 'R') {
            common.nCodeForm = nForm;
        } else if (*pMark == 'L') {
            common.nLocalForm = nForm;
            common.pLocalForm = pHere;
        } else if (*pMark == 'P') {
            common.pRoutine = pHere;
            in.Skip(WORD);
        } else {
            return false;
        }
    }
    return bIsUnderstood(common.nCodeForm) &&
           (common.nLocalForm == OMITTED || bIsUnderstood(common.nLocalForm));
}

// What the run-time library calls a frame: its length, the distance back to what it has in common with
// others, the address and the length of its code, more.
struct Frame {
    const unsigned char* pEntry = nullptr;
    std::uint32_t nCode = 0;
    Common common{};
};

// The frame that `nCode` belongs to, if this is such a table and has it.
Frame findFrame(Reader table, std::uint32_t nCode) noexcept {
    const unsigned char* const pTable = table.pHere();
    const std::size_t nTable = table.nLeft();
    for (;;) {
        const unsigned char* const pEntry = table.pHere();
        const std::uint32_t nLength = table.nWord();
        if (nLength < WORD || nLength > table.nLeft())
            return {};
        Reader entry(table.pHere(), nLength);
        table.Skip(nLength);
        const auto nAt = static_cast<std::size_t>(entry.pHere() - pTable);
        const std::uint32_t nBack = entry.nWord(); // 0 in what frames have in common
        if (nBack == 0)
            continue;
        Frame frame;
        if (nBack > nAt || !bReadCommon(Reader(pTable + (nAt - nBack), nTable - (nAt - nBack)), frame.common))
            return {};
        frame.pEntry = pEntry;
        frame.nCode = nAddress(entry, frame.common.nCodeForm);
        if (nCode - frame.nCode < entry.nWord())
            return frame;
    }
}

// In an image such a section has the first eight characters of its name, or a number in place of the name.
bool bMayHoldFrames(const IMAGE_SECTION_HEADER& section) noexcept {
    return std::memcmp(section.Name, ".eh_fram", sizeof section.Name) == 0 || section.Name[0] == '/';
}

Frame findFrameInModule(void* pCode) noexcept {
    MEMORY_BASIC_INFORMATION memory;
    if (VirtualQuery(pCode, &memory, sizeof memory) == 0 || memory.Type != MEM_IMAGE)
        return {};
    const auto* const pImage = static_cast<const unsigned char*>(memory.AllocationBase);
    LONG nHeaders = 0;
    std::memcpy(&nHeaders, pImage + offsetof(IMAGE_DOS_HEADER, e_lfanew), sizeof nHeaders);
    const auto* const pHeaders = reinterpret_cast<const IMAGE_NT_HEADERS*>(pImage + nHeaders);
    const IMAGE_SECTION_HEADER* const pSections = IMAGE_FIRST_SECTION(pHeaders);
    Frame frame;
    for (int i = 0; i < pHeaders->FileHeader.NumberOfSections && frame.pEntry == nullptr; ++i)
        if (bMayHoldFrames(pSections[i]))
            frame = findFrame(Reader(pImage + pSections[i].VirtualAddress, pSections[i].Misc.VirtualSize),
                              reinterpret_cast<std::uint32_t>(pCode));
    return frame;
}

std::atomic_flag g_bCopyInUse = ATOMIC_FLAG_INIT;
unsigned char g_copy[65536]; // of what the frame has in common, then of the frame; longer ones are not found

_Unwind_Reason_Code routine(int nVersion, _Unwind_Action nActions, _Unwind_Exception_Class nClass,
                            _Unwind_Exception* pException, _Unwind_Context* pContext) {
    g_bCopyInUse.clear(std::memory_order_release);
    return __gxx_personality_v0(nVersion, nActions, nClass, pException, pContext);
}

void PutWord(unsigned char* p, std::uint32_t n) noexcept {
    std::memcpy(p, &n, WORD);
}

// The frame with this module's routine in place of its own.
const unsigned char* pCopyWithRoutine(const Frame& frame) noexcept {
    const Common& common = frame.common;
    const std::size_t nCommon = Reader(common.pEntry, WORD).nWord() + WORD;
    const std::size_t nFrame = Reader(frame.pEntry, WORD).nWord() + WORD;
    if (nCommon > sizeof g_copy || nFrame > sizeof g_copy - nCommon)
        return nullptr;
    while (g_bCopyInUse.test_and_set(std::memory_order_acquire))
        Sleep(1); // another thread throws
    std::memcpy(g_copy, common.pEntry, nCommon);
    unsigned char* const pRoutine = g_copy + (common.pRoutine - common.pEntry);
    *pRoutine = ABSOLUTE_WORD;
    PutWord(pRoutine + 1, reinterpret_cast<std::uint32_t>(&routine));

    unsigned char* const pCopy = g_copy + nCommon;
    std::memcpy(pCopy, frame.pEntry, nFrame);
    PutWord(pCopy + WORD, static_cast<std::uint32_t>(nCommon + WORD));
    if (common.nLocalForm != OMITTED) {
        Reader in(frame.pEntry, nFrame);
        in.Skip(4 * WORD);
        in.SkipNumber(); // length of what follows
        const auto nAt = in.pHere() - frame.pEntry;
        g_copy[common.pLocalForm - common.pEntry] = ABSOLUTE_WORD;
        PutWord(pCopy + nAt, nAddress(in, common.nLocalForm));
    }
    return pCopy;
}

} // namespace

struct dwarf_eh_bases { // of the run-time library
    void* pText;
    void* pData;
    void* pFunction;
};

extern "C" {
const void* __real__Unwind_Find_FDE(void* pCode, dwarf_eh_bases* pBases);

[[gnu::used]] const void* __wrap__Unwind_Find_FDE(void* pCode, dwarf_eh_bases* pBases) {
    if (const void* const pKnown = __real__Unwind_Find_FDE(pCode, pBases))
        return pKnown;
    const Frame frame = findFrameInModule(pCode);
    if (frame.pEntry == nullptr)
        return nullptr;
    *pBases = {nullptr, nullptr, reinterpret_cast<void*>(frame.nCode)};
    return frame.common.pRoutine != nullptr ? pCopyWithRoutine(frame) : frame.pEntry;
}
}

#endif
