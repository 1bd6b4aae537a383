// SPDX-License-Identifier: MIT
/* Wine's, without what Clang, where it plays Microsoft's compiler, has built in, and with what it lacks. */
#define _InterlockedCompareExchange128 wine_InterlockedCompareExchange128
#define _InterlockedAnd64 wine_InterlockedAnd64
#define _InterlockedCompareExchangePointer wine_InterlockedCompareExchangePointer
#define _InterlockedExchangeAdd64 wine_InterlockedExchangeAdd64
#define _InterlockedExchangePointer wine_InterlockedExchangePointer
#define _InterlockedIncrement64 wine_InterlockedIncrement64
#define _InterlockedDecrement64 wine_InterlockedDecrement64
#define _InterlockedOr64 wine_InterlockedOr64
#define _InterlockedXor64 wine_InterlockedXor64
#include_next <windows.h>
#undef _InterlockedCompareExchange128
#undef _InterlockedAnd64
#undef _InterlockedCompareExchangePointer
#undef _InterlockedExchangeAdd64
#undef _InterlockedExchangePointer
#undef _InterlockedIncrement64
#undef _InterlockedDecrement64
#undef _InterlockedOr64
#undef _InterlockedXor64

#ifdef __cplusplus
extern "C"
#endif
    WINBASEAPI BOOL WINAPI
    GetProcessHandleCount(HANDLE, DWORD*);
