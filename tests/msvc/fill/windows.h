// SPDX-License-Identifier: MIT
/* As much of <windows.h> as the library asks for; Clang, playing Microsoft's compiler, does not take Wine's.
 */
#define WINAPI __stdcall
#define DLL_PROCESS_DETACH 0
#define DLL_PROCESS_ATTACH 1
#define TRUE 1
typedef int BOOL;
typedef unsigned long DWORD;
typedef void* LPVOID;
typedef struct HINSTANCE__* HINSTANCE;
extern "C" __declspec(dllimport) BOOL WINAPI DisableThreadLibraryCalls(HINSTANCE);
extern "C" BOOL WINAPI DllMain(HINSTANCE, DWORD, LPVOID);
