// SPDX-License-Identifier: MIT
// Pages longer than the longest sweep, out of short inputs: each line is a piece of a page, and its first
// character says how many times over.
#include "fuzz/invariants.h"
#include "fuzz/lines.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pData, std::size_t n) {
    const std::size_t nLongest = n % 4 == 0 ? 20000 : 9000; // the reference is slow
    std::string page;
    for (const std::string& line : LinesOf(pData, n, 0)) {
        const auto nTimes = line.empty() ? 0u : static_cast<unsigned char>(line[0]);
        for (unsigned i = nTimes * nTimes / 64; i > 0 && page.size() + line.size() < nLongest; --i)
            page.append(line, 1);
    }
    const std::vector<char> exact(page.begin(), page.end());
    invariants::CheckAnswers(
        invariants::PageOf(reinterpret_cast<const std::uint8_t*>(exact.data()), exact.size()));
    return 0;
}
