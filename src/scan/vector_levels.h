// Which vector implementations this build holds, and how code is compiled for a level that the build as a
// whole does not assume.
#ifndef PAGESLICE_SCAN_VECTOR_LEVELS_H
#define PAGESLICE_SCAN_VECTOR_LEVELS_H

#include "scan/primitives.h"

#if defined(__GNUC__) && (defined(__x86_64__) || defined(__i386__))
#define PAGESLICE_HAS_SSE2 1
#endif
#if defined(__GNUC__) && defined(__x86_64__)
#define PAGESLICE_HAS_AVX 1
#endif

#define PAGESLICE_PRAGMA(x) _Pragma(#x)
#if defined(__clang__)
#define PAGESLICE_TARGET_BEGIN(levels)                                                                       \
    PAGESLICE_PRAGMA(clang attribute push(__attribute__((target(levels))), apply_to = function))
#define PAGESLICE_TARGET_END _Pragma("clang attribute pop")
#else
#define PAGESLICE_TARGET_BEGIN(levels) _Pragma("GCC push_options") PAGESLICE_PRAGMA(GCC target(levels))
#define PAGESLICE_TARGET_END _Pragma("GCC pop_options")
#endif

#if defined(PAGESLICE_HAS_SSE2)
namespace scan_sse2 {
extern const ScanPrimitives PRIMITIVES;
}
#endif

#if defined(PAGESLICE_HAS_AVX)
namespace scan_avx2 {
extern const ScanPrimitives PRIMITIVES;
}
namespace scan_avx512 {
extern const ScanPrimitives PRIMITIVES;
}
#endif

#endif
