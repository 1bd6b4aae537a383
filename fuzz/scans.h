// SPDX-License-Identifier: MIT
// The scan implementations by name, best last, for whoever goes through all of them.
#ifndef PAGESLICE_FUZZ_SCANS_H
#define PAGESLICE_FUZZ_SCANS_H

#include "scan/primitives.h"

namespace invariants {

inline const char* const SCANS[] = {"portable", "sse2", "avx2", "avx512"};

// Makes one of them the current one; false where build or processor lack it, and then the current one stays.
inline bool Use(const char* pScan) {
    const pageslice::ScanPrimitives* const pPrimitives = pageslice::pFindScan(pScan);
    if (pPrimitives != nullptr)
        pageslice::UseScan(*pPrimitives);
    return pPrimitives != nullptr;
}

} // namespace invariants

#endif
