// SPDX-License-Identifier: MIT
#include "parser/tag_scanner.h"

#include <cstddef>
#include <cstdint>
#include <cstring>

#include "pageslice/html_parser.h"
#include "parser/tag_table.h"
#include "text/byte_count.h"
#include "text/word_table.h"

namespace pageslice {

text tGetTagName(const char* pOpen, const text& page) noexcept {
    const char* p = pOpen + 1;
    while (p <= page.m_pEnd && *p == ' ') {
        ++p;
    }
    const char* const pStart = p;
    while (p <= page.m_pEnd && *p != ' ' && *p != '>') {
        ++p;
    }
    return p <= page.m_pEnd ? text(pStart, p - 1, 0) : text();
}

int nGetTagCode(const text& tName) noexcept {
    if (tName.m_pStart == nullptr) {
        return TAG_NONE;
    }
    if (tName.m_pStart <= tName.m_pEnd && *tName.m_pStart == '/') {
        return nGetWordCode(text(tName.m_pStart + 1, tName.m_pEnd, 0)) + TAG_END_OFFSET;
    }
    return nGetWordCode(tName);
}

int nGetWordCode(const text& tWord) noexcept {
    const std::size_t n = nByteCount(tWord);
    if (n < 1 || n > nLongestTagWord()) {
        return TAG_UNKNOWN;
    }
    const std::uint64_t nWord = nLoadWord(tWord.m_pStart, n);
    return TAG_WORDS.nFind(nWord | std::uint64_t{' '} << (8 * n), TAG_UNKNOWN);
}

} // namespace pageslice

inline namespace pageslice_v1 {

using namespace pageslice;

text HtmlParser::tFindNextTagName(const char* p) const noexcept {
    if (p == nullptr || p > m_tPage.m_pEnd) {
        return text();
    }
    const auto n = static_cast<std::size_t>(m_tPage.m_pEnd - p) + 1;
    const auto* const pOpen = static_cast<const char*>(std::memchr(p, '<', n));
    return pOpen == nullptr ? text() : tGetTagName(pOpen, m_tPage);
}

int HtmlParser::nIdentifyTagType(const text& tName) const noexcept {
    return nGetTagCode(tName);
}

int HtmlParser::nIdentifyTagName(const text& tWord) const noexcept {
    return nGetWordCode(tWord);
}

int HtmlParser::bFindNextTagType(const char* p, int nWanted, int nStop) const noexcept {
    constexpr int NO_TAG_CODE = 998;
    int nCode = NO_TAG_CODE;
    while (nCode != nWanted && nCode != nStop) {
        const text tName = tFindNextTagName(p);
        nCode = nIdentifyTagType(tName);
        if (nCode == TAG_NONE) {
            break;
        }
        p = tName.m_pEnd + 1;
    }
    return nCode == nWanted ? 1 : 0;
}

} // namespace pageslice_v1
