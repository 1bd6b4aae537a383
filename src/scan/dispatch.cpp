// SPDX-License-Identifier: MIT
#include <atomic>
#include <cstdlib>
#include <cstring>

#include "scan/intrinsics.h"
#include "scan/portable.h"
#include "scan/primitives.h"
#include "scan/vector_levels.h"

namespace pageslice {

namespace {

constexpr std::size_t LEVELS = 4;

#if defined(PAGESLICE_HAS_SSE2)

struct Processor {
    bool bSse2 = false;
    bool bAvx2 = false; // and what came with it
    bool bAvx512 = false;
};

#if defined(_MSC_VER)

bool bHasAll(int nWord, unsigned nBits) noexcept {
    return (static_cast<unsigned>(nWord) & nBits) == nBits;
}

// Which registers the system keeps for each thread.
PAGESLICE_TARGET_BEGIN("xsave")
unsigned nKeptRegisters() noexcept {
    return static_cast<unsigned>(_xgetbv(0));
}
PAGESLICE_TARGET_END

// Microsoft's library has no more than the instructions to ask the processor by. The bits stand in its
// manual.
Processor AskProcessor() noexcept {
    constexpr unsigned SSE2 = 1U << 26, PCLMUL = 1U << 1, POPCNT = 1U << 23, KEEPING = 1U << 27,
                       AVX = 1U << 28;
    constexpr unsigned BMI = 1U << 3, AVX2 = 1U << 5, BMI2 = 1U << 8;
    constexpr unsigned F = 1U << 16, BW = 1U << 30, VL = 1U << 31, VBMI2 = 1U << 6;
    constexpr unsigned YMM = 0x06, ZMM = 0xe6;
    int first[4] = {}, more[4] = {}; // eax, ebx, ecx, edx
    __cpuid(first, 0);
    const int nLast = first[0];
    __cpuid(first, 1);
    if (nLast >= 7) {
        __cpuidex(more, 7, 0);
    }
    Processor found;
    found.bSse2 = bHasAll(first[3], SSE2);
    const unsigned nKept = bHasAll(first[2], KEEPING) ? nKeptRegisters() : 0;
    found.bAvx2 = (nKept & YMM) == YMM && bHasAll(first[2], PCLMUL | POPCNT | AVX) &&
                  bHasAll(more[1], BMI | AVX2 | BMI2);
    found.bAvx512 =
        found.bAvx2 && (nKept & ZMM) == ZMM && bHasAll(more[1], F | BW | VL) && bHasAll(more[2], VBMI2);
    return found;
}

#else

Processor AskProcessor() noexcept {
    __builtin_cpu_init();
    Processor found;
    found.bSse2 = __builtin_cpu_supports("sse2");
    found.bAvx2 = __builtin_cpu_supports("avx2") && __builtin_cpu_supports("bmi") &&
                  __builtin_cpu_supports("bmi2") && __builtin_cpu_supports("popcnt") &&
                  __builtin_cpu_supports("pclmul");
    found.bAvx512 = found.bAvx2 && __builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512bw") &&
                    __builtin_cpu_supports("avx512vl") && __builtin_cpu_supports("avx512vbmi2");
    return found;
}

#endif
#endif

// The levels of this build that the processor has, best first; null ends them. The portable one is always
// there.
struct Levels {
    const ScanPrimitives* p[LEVELS + 1] = {};
};

Levels AvailableLevels() noexcept {
    Levels levels;
    std::size_t n = 0;
#if defined(PAGESLICE_HAS_SSE2)
    const Processor processor = AskProcessor();
#endif
#if defined(PAGESLICE_HAS_AVX)
    if (processor.bAvx512) {
        levels.p[n++] = &scan_avx512::PRIMITIVES;
    }
    if (processor.bAvx2) {
        levels.p[n++] = &scan_avx2::PRIMITIVES;
    }
#endif
#if defined(PAGESLICE_HAS_SSE2)
    if (processor.bSse2) {
        levels.p[n++] = &scan_sse2::PRIMITIVES;
    }
#endif
    levels.p[n] = &scan_portable::PRIMITIVES;
    return levels;
}

// Runs once, and stays out of what asks for the scan again and again, which is small enough to stand inline.
#if defined(__GNUC__)
__attribute__((noinline, cold))
#endif
const ScanPrimitives&
ChooseScan() noexcept {
    const char* const pWanted = std::getenv("PAGESLICE_SCAN");
    const ScanPrimitives* const pFound = pWanted == nullptr ? nullptr : pFindScan(pWanted);
    return pFound != nullptr ? *pFound : *AvailableLevels().p[0];
}

// Empty until first use, then the same for all threads: whichever of them chooses, they choose alike.
std::atomic<const ScanPrimitives*> g_pScan{nullptr};

} // namespace

const ScanPrimitives& Scan() noexcept {
    const ScanPrimitives* p = g_pScan.load(std::memory_order_relaxed);
    if (p == nullptr) {
        p = &ChooseScan();
        g_pScan.store(p, std::memory_order_relaxed);
    }
    return *p;
}

const ScanPrimitives* pFindScan(const char* pName) noexcept {
    const Levels levels = AvailableLevels();
    for (const ScanPrimitives* const* pp = levels.p; *pp != nullptr; ++pp) {
        if (std::strcmp((*pp)->pName, pName) == 0) {
            return *pp;
        }
    }
    return nullptr;
}

void UseScan(const ScanPrimitives& primitives) noexcept {
    g_pScan.store(&primitives, std::memory_order_relaxed);
}

} // namespace pageslice
