#include "parser/tag_scanner.h"

#include <cstddef>
#include <cstring>

#include "pageslice/html_parser.h"
#include "text/string_utils.h"

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
    struct Word {
        const char* pWord;
        int nLength;
        int nCode;
    };
    static constexpr Word WORDS[] = {
        {"a", 1, TAG_A},           {"p", 1, TAG_P},       {"td", 2, TAG_TD},   {"tr", 2, TAG_TR},
        {"th", 2, TAG_TH},         {"ul", 2, TAG_UL},     {"ol", 2, TAG_OL},   {"li", 2, TAG_LI},
        {"br", 2, TAG_BR},         {"hr", 2, TAG_HR},     {"img", 3, TAG_IMG}, {"!--", 3, TAG_COMMENT},
        {"pre", 3, TAG_PRE},       {"meta", 4, TAG_META}, {"html", 4, TAG_HTML}, {"table", 5, TAG_TABLE},
        {"title", 5, TAG_TITLE},   {"center", 6, TAG_CENTER},
    };
    if (tWord.m_pStart == nullptr) {
        return TAG_UNKNOWN;
    }
    const int n = tWord.GetLength();
    for (const Word& word : WORDS) {
        if (word.nLength == n && nStrNICmp(tWord.m_pStart, word.pWord, static_cast<unsigned>(n)) == 0) {
            return word.nCode;
        }
    }
    return TAG_UNKNOWN;
}

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
