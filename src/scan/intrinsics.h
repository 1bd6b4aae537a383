// SPDX-License-Identifier: MIT
// The instructions of every level by name. Clang, where it plays Microsoft's compiler, holds back those that
// the build as a whole does not assume, to compile faster; its headers for each set give them.
#ifndef PAGESLICE_SCAN_INTRINSICS_H
#define PAGESLICE_SCAN_INTRINSICS_H

#include "scan/vector_levels.h"

#if defined(PAGESLICE_HAS_AVX) || (defined(_MSC_VER) && defined(PAGESLICE_HAS_SSE2))
#include <immintrin.h>
#if defined(_MSC_VER)
#include <intrin.h>
#endif
#endif

#if defined(_MSC_VER) && defined(__clang__) && defined(PAGESLICE_HAS_SSE2)
// Each needs those before it.
// clang-format off
#include <smmintrin.h>
#include <popcntintrin.h>
#include <wmmintrin.h>
#include <__wmmintrin_pclmul.h>
#include <xsaveintrin.h>
#include <avxintrin.h>
#include <avx2intrin.h>
#include <bmiintrin.h>
#include <bmi2intrin.h>
#include <avx512fintrin.h>
#include <avx512vlintrin.h>
#include <avx512bwintrin.h>
#include <avx512vlbwintrin.h>
#include <avx512vbmi2intrin.h>
#include <avx512vlvbmi2intrin.h>
// clang-format on
#endif

#endif
