// SPDX-License-Identifier: MIT
#ifndef PAGESLICE_SCAN_PORTABLE_H
#define PAGESLICE_SCAN_PORTABLE_H

#include <cstdint>

#include "scan/primitives.h"

namespace pageslice::scan_portable {

extern const ScanPrimitives PRIMITIVES;

// Compresses 64 bytes run by run: writes those of nKeep in order, those of nBlank as spaces.
char* pCompressByRuns(const char* p, std::uint64_t nKeep, std::uint64_t nBlank, char* pOut) noexcept;

} // namespace pageslice::scan_portable

#endif
