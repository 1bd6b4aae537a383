// SPDX-License-Identifier: MIT
// Which vector implementations this build holds, and how code is compiled for a level that the build as a
// whole does not assume.
#ifndef PAGESLICE_SCAN_VECTOR_LEVELS_H
#define PAGESLICE_SCAN_VECTOR_LEVELS_H

#include "scan/primitives.h"

// By the names of GCC and of Microsoft's compiler; Clang has one of the two sets, as the system wants it.
#if defined(__x86_64__) || (defined(_M_X64) && !defined(_M_ARM64EC))
#define PAGESLICE_HAS_SSE2 1
#define PAGESLICE_HAS_AVX 1
#elif defined(__i386__) || defined(_M_IX86)
#define PAGESLICE_HAS_SSE2 1
#endif

#define PAGESLICE_PRAGMA(x) _Pragma(#x)
#if defined(__clang__)
#define PAGESLICE_TARGET_BEGIN(levels)                                                                       \
    PAGESLICE_PRAGMA(clang attribute push(__attribute__((target(levels))), apply_to = function))
#define PAGESLICE_TARGET_END _Pragma("clang attribute pop")
#elif defined(_MSC_VER) // which compiles every level everywhere
#define PAGESLICE_TARGET_BEGIN(levels)
#define PAGESLICE_TARGET_END
#else
#define PAGESLICE_TARGET_BEGIN(levels) _Pragma("GCC push_options") PAGESLICE_PRAGMA(GCC target(levels))
#define PAGESLICE_TARGET_END _Pragma("GCC pop_options")
#endif

#if defined(PAGESLICE_HAS_SSE2)
namespace pageslice::scan_sse2 {
extern const ScanPrimitives PRIMITIVES;
}
#endif

#if defined(PAGESLICE_HAS_AVX)
namespace pageslice::scan_avx2 {
extern const ScanPrimitives PRIMITIVES;
}
namespace pageslice::scan_avx512 {
extern const ScanPrimitives PRIMITIVES;
}
#endif

#endif
