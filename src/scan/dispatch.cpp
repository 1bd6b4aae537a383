#include <atomic>
#include <cstdlib>
#include <cstring>

#include "scan/portable.h"
#include "scan/primitives.h"
#include "scan/vector_levels.h"

namespace {

constexpr std::size_t LEVELS = 4;

// The levels of this build that the processor has, best first; null ends them. The portable one is always
// there.
struct Levels {
    const ScanPrimitives* p[LEVELS + 1] = {};
};

Levels AvailableLevels() noexcept {
    Levels levels;
    std::size_t n = 0;
#if defined(PAGESLICE_HAS_SSE2)
    __builtin_cpu_init();
#endif
#if defined(PAGESLICE_HAS_AVX)
    const bool bAvx2 = __builtin_cpu_supports("avx2") && __builtin_cpu_supports("bmi") &&
                       __builtin_cpu_supports("bmi2") && __builtin_cpu_supports("popcnt") &&
                       __builtin_cpu_supports("pclmul");
    if (bAvx2 && __builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512bw") &&
        __builtin_cpu_supports("avx512vl") && __builtin_cpu_supports("avx512vbmi2")) {
        levels.p[n++] = &scan_avx512::PRIMITIVES;
    }
    if (bAvx2) {
        levels.p[n++] = &scan_avx2::PRIMITIVES;
    }
#endif
#if defined(PAGESLICE_HAS_SSE2)
    if (__builtin_cpu_supports("sse2")) {
        levels.p[n++] = &scan_sse2::PRIMITIVES;
    }
#endif
    levels.p[n] = &scan_portable::PRIMITIVES;
    return levels;
}

const ScanPrimitives& ChooseScan() noexcept {
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
