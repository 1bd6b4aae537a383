// SPDX-License-Identifier: MIT
// The entry point of the Windows library. There is no state of its own to set up or tear down. The file is
// empty elsewhere, and in the static library, whose host has an entry point of its own.
//
// MinGW's run-time library, linked in, keeps thread-local data. Windows declines the call for such a library
// and goes on to report threads to it; a build whose run-time library is a DLL of its own gets what it asks.
#if defined(_WIN32) && !defined(PAGESLICE_STATIC)

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#if defined(__MINGW32__)
namespace __gnu_cxx {
void __freeres(); // of its run-time library: gives back the memory that it keeps for exceptions when there is
                  // no other
}
#endif

BOOL WINAPI DllMain(HINSTANCE hInstance, DWORD nReason, LPVOID pReserved) {
    if (nReason == DLL_PROCESS_ATTACH) {
        DisableThreadLibraryCalls(hInstance); // nothing here is kept for a thread
    }
#if defined(__MINGW32__)
    if (nReason == DLL_PROCESS_DETACH && pReserved == nullptr) { // freed by a host that goes on
        __gnu_cxx::__freeres();
    }
#else
    static_cast<void>(pReserved);
#endif
    return TRUE;
}

#endif
