// SPDX-License-Identifier: MIT
// A page's tokens beside the model's.
#include <cstdint>

#include "fuzz/scans.h"
#include "fuzz/token_check.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pData, std::size_t n) {
    invariants::Use(invariants::SCANS[n % std::size(invariants::SCANS)]);
    invariants::CheckTokens({reinterpret_cast<const char*>(pData), n});
    return 0;
}
