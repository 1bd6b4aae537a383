// SPDX-License-Identifier: MIT
// The canonical form of a URL a second time, one rule after the other on a string that shrinks with every
// removal: quadratic, and short enough to be compared with the rules by eye. The library does the same in
// one pass and shares no line with it.
#ifndef PAGESLICE_FUZZ_REFERENCE_URL_H
#define PAGESLICE_FUZZ_REFERENCE_URL_H

#include <algorithm>
#include <cstddef>
#include <string>

namespace reference {

inline char cLower(char c) {
    const auto u = static_cast<unsigned char>(c);
    const bool bUpper = (u >= 'A' && u <= 'Z') || (u >= 0xC0 && u <= 0xDE && u != 0xD7);
    return bUpper ? static_cast<char>(u + 0x20) : c;
}

inline void Lower(std::string& s, std::size_t first, std::size_t end) {
    for (std::size_t i = first; i < end; ++i)
        s[i] = cLower(s[i]);
}

// One step of the path pass at the '/' at i: gives the i of the next step.
inline std::size_t nPathStep(std::string& s, std::size_t i, std::size_t root) {
    if (s.compare(i, 2, "//") == 0) {
        s.erase(i, 1);
        return i;
    }
    if (s.compare(i, 3, "/./") == 0) {
        s.erase(i, 2);
        return i;
    }
    if (s.compare(i, 4, "/../") == 0) {
        std::size_t j = i;
        while (j > root && (j == i || s[j] != '/'))
            --j;
        s.erase(j, i + 3 - j);
        return j;
    }
    return s.compare(i, 2, "/.") == 0 ? i + 2 : i + 1;
}

inline std::string Normalized(std::string s) {
    s.erase(0, s.find_first_not_of("\t\n\v\f\r "));
    s.resize(std::min(s.find_first_of("\t\n\v\f\r "), s.size()));
    std::size_t p = 0;
    if (s.find('/') != s.npos && s.find(':') < s.find('/')) {
        p = s.find(':') + 1;
        Lower(s, 0, p);
    }
    const std::size_t behind = std::min(s.find_first_not_of('/', p), s.size());
    std::size_t root = behind == p ? p : behind - 1, i = behind;
    if (behind - p == 2) {
        root = std::min(s.find('/', behind), s.size());
        Lower(s, behind, root);
        i = root + 1;
    }
    while (i < s.size())
        i = s[i] == '/' ? nPathStep(s, i, root) : i + 1;
    return s;
}

} // namespace reference

#endif
