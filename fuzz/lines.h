// SPDX-License-Identifier: MIT
// A fuzz input as lines, and strings in memory of exactly their size.
#ifndef PAGESLICE_FUZZ_LINES_H
#define PAGESLICE_FUZZ_LINES_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <sstream>
#include <string>
#include <vector>

// At least nAtLeast of them, the missing ones empty.
inline std::vector<std::string> LinesOf(const std::uint8_t* pData, std::size_t n, std::size_t nAtLeast) {
    std::istringstream in(std::string(reinterpret_cast<const char*>(pData), n));
    std::vector<std::string> lines;
    for (std::string line; std::getline(in, line);)
        lines.push_back(line);
    lines.resize(std::max(lines.size(), nAtLeast));
    return lines;
}

// The characters before the first NUL, and a NUL.
inline std::vector<char> Exact(const std::string& s) {
    const char* p = s.c_str();
    return {p, p + std::string(p).size() + 1};
}

#endif
