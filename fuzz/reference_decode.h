// SPDX-License-Identifier: MIT
// Values decoded a second time, by the rules read one after the other: every name is tried, the longest
// first.
#ifndef PAGESLICE_FUZZ_REFERENCE_DECODE_H
#define PAGESLICE_FUZZ_REFERENCE_DECODE_H

#include <map>
#include <string>

#include "text/character_names.h"
#include "text/character_references.h"

namespace reference {

inline std::string Utf8(char32_t c) {
    const auto cByte = [&](unsigned nMark, unsigned nShift, unsigned nMask) {
        return static_cast<char>(nMark | (c >> nShift & nMask));
    };
    if (c < 0x80)
        return {cByte(0, 0, 0x7F)};
    if (c < 0x800)
        return {cByte(0xC0, 6, 0x1F), cByte(0x80, 0, 0x3F)};
    if (c < 0x10000)
        return {cByte(0xE0, 12, 0x0F), cByte(0x80, 6, 0x3F), cByte(0x80, 0, 0x3F)};
    return {cByte(0xF0, 18, 0x07), cByte(0x80, 12, 0x3F), cByte(0x80, 6, 0x3F), cByte(0x80, 0, 0x3F)};
}

// Every name with its ';' where it needs one, and what it stands for.
inline const std::map<std::string, std::string>& Names() {
    namespace n = pageslice::character_names;
    static const auto names = [] {
        std::map<std::string, std::string> all;
        std::string name;
        for (std::size_t i = 0, slot = 0; slot < n::COUNT; ++i) {
            if (n::NAMES[i] != ' ' && n::NAMES[i] != '!') {
                name += n::NAMES[i];
                continue;
            }
            const char32_t value = n::VALUES[slot++];
            const char32_t* const p =
                value < n::FIRST_SPECIAL ? nullptr : n::SPECIAL[value - n::FIRST_SPECIAL];
            std::string utf8 = Utf8(p == nullptr ? value : p[0]);
            utf8 += p == nullptr || p[1] == 0 ? "" : Utf8(p[1]);
            all[name + ";"] = utf8;
            if (n::NAMES[i] == '!')
                all[name] = utf8;
            name.clear();
        }
        return all;
    }();
    return names;
}

inline bool bAlphanumeric(char c) {
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

// The reference at s[i], an '&': moves i past it. An '&' that opens none stands for itself.
inline std::string Named(const std::string& s, std::size_t& i, bool bInAttribute) {
    std::size_t nWord = 0; // letters and digits, of which no name has more than 31
    while (nWord < 31 && i + 1 + nWord < s.size() && bAlphanumeric(s[i + 1 + nWord]))
        ++nWord;
    for (std::size_t n = nWord + 1; n > 0; --n) {
        const auto found = Names().find(s.substr(i + 1, n));
        if (found == Names().end() || found->first.size() != n)
            continue;
        const char next = i + 1 + n < s.size() ? s[i + 1 + n] : ' ';
        if (bInAttribute && found->first.back() != ';' && (next == '=' || bAlphanumeric(next)))
            break;
        i += 1 + n;
        return found->second;
    }
    ++i;
    return "&";
}

inline std::string Number(const std::string& s, std::size_t& i) {
    static const std::map<char32_t, char32_t> replaced = {
        {0x80, 0x20AC}, {0x82, 0x201A}, {0x83, 0x0192}, {0x84, 0x201E}, {0x85, 0x2026}, {0x86, 0x2020},
        {0x87, 0x2021}, {0x88, 0x02C6}, {0x89, 0x2030}, {0x8A, 0x0160}, {0x8B, 0x2039}, {0x8C, 0x0152},
        {0x8E, 0x017D}, {0x91, 0x2018}, {0x92, 0x2019}, {0x93, 0x201C}, {0x94, 0x201D}, {0x95, 0x2022},
        {0x96, 0x2013}, {0x97, 0x2014}, {0x98, 0x02DC}, {0x99, 0x2122}, {0x9A, 0x0161}, {0x9B, 0x203A},
        {0x9C, 0x0153}, {0x9E, 0x017E}, {0x9F, 0x0178}};
    const bool bHex = i + 2 < s.size() && (s[i + 2] == 'x' || s[i + 2] == 'X');
    const std::size_t nFirst = i + (bHex ? 3 : 2);
    const std::size_t nEnd =
        std::min(s.find_first_not_of(bHex ? "0123456789abcdefABCDEF" : "0123456789", nFirst), s.size());
    if (nEnd <= nFirst) {
        ++i;
        return "&";
    }
    double number = 0;
    for (std::size_t k = nFirst; k < nEnd; ++k)
        number = number * (bHex ? 16 : 10) + std::stoi(s.substr(k, 1), nullptr, 16);
    i = nEnd < s.size() && s[nEnd] == ';' ? nEnd + 1 : nEnd;
    if (number == 0 || number > 0x10FFFF || (number >= 0xD800 && number < 0xE000))
        return Utf8(0xFFFD);
    const auto c = static_cast<char32_t>(number);
    return Utf8(replaced.contains(c) ? replaced.at(c) : c);
}

inline std::string Decoded(const std::string& s, pageslice::value_kind kind) {
    std::string out;
    for (std::size_t i = 0; i < s.size();) {
        if (s[i] == '&') {
            out +=
                s.substr(i, 2) == "&#" ? Number(s, i) : Named(s, i, kind == pageslice::value_kind::attribute);
        } else if (s[i] == '\0') {
            out += Utf8(kind == pageslice::value_kind::text ? 0 : 0xFFFD);
            ++i;
        } else {
            out += s[i] == '\r' ? '\n' : s[i];
            i += s.substr(i, 2) == "\r\n" ? 2 : 1;
        }
    }
    return out;
}

} // namespace reference

#endif
