// SPDX-License-Identifier: MIT
// Counts what is allocated in this program, by whichever library: malloc itself is replaced
// (allocations.cpp). Everywhere but with the GNU C library nothing is counted.
#ifndef PAGESLICE_BENCH_ALLOCATIONS_H
#define PAGESLICE_BENCH_ALLOCATIONS_H

#include <cstddef>

namespace bench {

struct Allocations {
    std::size_t count = 0;     // allocations since ResetAllocations
    std::size_t peakBytes = 0; // the most that was held at one time, beyond what was held then
};

void ResetAllocations() noexcept;
Allocations TakeAllocations() noexcept;

// Has the process keep the memory that it releases. Else the C library gives large blocks back to the system,
// and the time to get them anew, page by page, would drown what is measured.
void KeepReleasedMemory() noexcept;

} // namespace bench

#endif
