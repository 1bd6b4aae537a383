// SPDX-License-Identifier: MIT
// Where the compiler's run-time library keeps what each thread has thrown and caught. Its own way on Windows
// takes memory at a thread's first throw, and ends the host when there is none; and it takes one of the
// process's few slots for per-thread data, which it never gives back, so that after a thousand times loading
// and freeing the library there would be none. Data in the section for per-thread data comes and goes with
// thread and library. Since Vista, Windows sees to that for libraries that are loaded late, too.
#if defined(__MINGW32__) && !defined(PAGESLICE_STATIC)

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

extern "C" {
extern ULONG _tls_index; // this module's number, in each thread's table of such sections
extern char* _tls_start; // the section's first byte
}

namespace {

struct State { // as the run-time library declares it
    void* pCaught;
    unsigned nUncaught;
};

[[gnu::section(".tls$PAG"), gnu::used]] State g_initial = {nullptr,
                                                           0}; // never touched; each thread has a copy

State* pOfThread() noexcept {
#if defined(_WIN64)
    const auto* const pTable = reinterpret_cast<char* const*>(__readgsqword(0x58));
#else
    const auto* const pTable = reinterpret_cast<char* const*>(__readfsdword(0x2c));
#endif
    const auto nAt = reinterpret_cast<char*>(&g_initial) - reinterpret_cast<char*>(&_tls_start);
    return reinterpret_cast<State*>(pTable[_tls_index] + nAt);
}

} // namespace

// The linker takes these and leaves the run-time library's out.
extern "C" {
[[gnu::used]] State* __cxa_get_globals() noexcept {
    return pOfThread();
}

[[gnu::used]] State* __cxa_get_globals_fast() noexcept {
    return pOfThread();
}
}

#endif
