// SPDX-License-Identifier: MIT
// The scanners and the record parses, from positions all over a page.
#include <cstdint>

#include "fuzz/invariants.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pData, std::size_t n) {
    const text tPage = invariants::PageOf(pData, n);
    const std::size_t nStep = n / 50 + 1; // a scan from any of them may run to the end
    for (std::size_t i = 0; i < n; i += nStep)
        invariants::CheckPosition(tPage, tPage.m_pStart + i, tPage.m_pStart + i / 2);
    return 0;
}
