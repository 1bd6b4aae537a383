// SPDX-License-Identifier: MIT
// The attribute scanner on plain positions: [p, pPageEnd) is what is left of the page. The members of `tag`
// and the loop of the records share it.
#ifndef PAGESLICE_TAGS_ATTRIBUTE_SCANNER_H
#define PAGESLICE_TAGS_ATTRIBUTE_SCANNER_H

#include <cstddef>
#include <cstdint>
#include <iterator>

#include "pageslice/records.h"
#include "scan/byte_classes.h"
#include "scan/primitives.h"
#include "tags/attribute_tables.h"
#include "text/word_table.h"

namespace pageslice {

inline const char* pSkipClass(const char* p, const char* pPageEnd, ByteClass byteClass) noexcept {
    while (p < pPageEnd && bIsOfClass(*p, byteClass)) {
        ++p;
    }
    return p;
}

// The last character of the name that starts at p, which may be a delimiter by itself; null when the page
// ends before the name does.
inline const char* pFindLastOfName(const char* p, const char* pPageEnd) noexcept {
    if (p >= pPageEnd) {
        return nullptr;
    }
    const char* const pEnd = Scan().FindNameEnd(p, pPageEnd);
    if (pEnd == pPageEnd) {
        return nullptr;
    }
    return pEnd == p ? p : pEnd - 1;
}

// Words are closed by what mostly follows them, so that NULs after a word do not pass for the zeros after a
// shorter one.
inline constexpr char WORD_MARK = '=';

constexpr auto MakeAttributeKeywords() noexcept {
    Keywords<std::size(ATTRIBUTE_WORDS)> words;
    for (const AttributeWord& word : ATTRIBUTE_WORDS) {
        words.Add(word.pWord, WORD_MARK, word.nCode);
    }
    return words;
}
inline constexpr WordTable<6> ATTRIBUTE_TABLE(MakeAttributeKeywords());

// A name's last character, as above, and its attribute code.
struct NameAt {
    const char* pLast;
    int nCode;
};
NameAt ReadAnyName(const char* p, const char* pPageEnd) noexcept;

// The name that starts at p. Nearly every one is of up to seven letters and ends at '=': those are read as
// one word.
inline NameAt ReadName(const char* p, const char* pPageEnd) noexcept {
    if (pPageEnd - p >= static_cast<std::ptrdiff_t>(WORD_SIZE)) {
        const std::uint64_t nWord = nLoadWord(p, WORD_SIZE);
        const std::size_t n = nCountLetters(nWord);
        if (n > 0 && p[n] == WORD_MARK) {
            return {p + n - 1, ATTRIBUTE_TABLE.nFind(nUpToNoLetter(nWord), ATTR_UNKNOWN)};
        }
    }
    return ReadAnyName(p, pPageEnd);
}

// See tag::pGetAttributeValue.
inline const char* pScanValue(const char* p, const char* pPageEnd, text& value) noexcept {
    constexpr char QUOTE = '"';
    const bool bNearlyAlways = pPageEnd - p > 1 && p[0] == '=' && p[1] == QUOTE;
    p = bNearlyAlways ? p + 1 : pSkipClass(p, pPageEnd, BEFORE_VALUE);
    const bool bQuoted = p < pPageEnd && *p == QUOTE;
    if (bQuoted) {
        ++p;
    }
    value.Clear();
    if (p >= pPageEnd) {
        return nullptr;
    }
    const ScanPrimitives& scan = Scan();
    const char* const pEnd = (bQuoted ? scan.FindQuotedEnd : scan.FindValueEnd)(p, pPageEnd);
    if (pEnd == pPageEnd) {
        return nullptr;
    }
    if (pEnd > p) {
        value.Set(p, pEnd - 1, 0);
    }
    return bQuoted ? pEnd + 1 : pEnd;
}

} // namespace pageslice

#endif
