// The entry point of the Windows library. There is no state to set up or tear down. The file is empty
// elsewhere, and in the static library, whose host has an entry point of its own.
//
// MinGW's run-time library, linked in, keeps thread-local data. Windows declines the call for such a library
// and goes on to report threads to it; a build whose run-time library is a DLL of its own gets what it asks.
#if defined(_WIN32) && !defined(PAGESLICE_STATIC)

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

BOOL WINAPI DllMain(HINSTANCE hInstance, DWORD nReason, LPVOID /*pReserved*/) {
    if (nReason == DLL_PROCESS_ATTACH) {
        DisableThreadLibraryCalls(hInstance); // nothing here is kept for a thread
    }
    return TRUE;
}

#endif
