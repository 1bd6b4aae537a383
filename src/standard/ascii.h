// SPDX-License-Identifier: MIT
// What the HTML Standard means by ASCII white space and by comparing without regard to case.
#ifndef PAGESLICE_STANDARD_ASCII_H
#define PAGESLICE_STANDARD_ASCII_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "text/string_utils.h"

namespace pageslice::standard {

constexpr bool is_space(char c) noexcept {
    constexpr std::uint64_t SPACES = 1ULL << ' ' | 1ULL << '\t' | 1ULL << '\n' | 1ULL << '\f' | 1ULL << '\r';
    const auto byte = static_cast<unsigned char>(c);
    return byte <= ' ' && (SPACES >> byte & 1) != 0;
}

inline bool equal_folded(std::string_view s, std::string_view small_letters) noexcept {
    return std::equal(s.begin(), s.end(), small_letters.begin(), small_letters.end(),
                      [](char a, char b) { return nFoldAscii(a) == b; });
}

inline bool equal_ignoring_case(std::string_view a, std::string_view b) noexcept {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return nFoldAscii(x) == nFoldAscii(y); });
}

inline bool starts_folded(std::string_view s, std::string_view small_letters) noexcept {
    return equal_folded(s.substr(0, small_letters.size()), small_letters);
}

// The bytes from one position up to another.
inline std::string_view between(const char* begin, const char* end) noexcept {
    return {begin, static_cast<std::size_t>(end - begin)};
}

inline std::string_view trimmed(std::string_view s) noexcept {
    while (!s.empty() && is_space(s.front())) {
        s.remove_prefix(1);
    }
    while (!s.empty() && is_space(s.back())) {
        s.remove_suffix(1);
    }
    return s;
}

} // namespace pageslice::standard

#endif
