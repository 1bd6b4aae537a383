#include <cstddef>
#include <cstdint>

#include "pageslice/records.h"
#include "tags/attribute_scan.h"
#include "text/word_table.h"

namespace {

constexpr int LONGEST_NAME = 7;

// Closed by a mark, so that NULs behind a word do not pass for the zeros behind a shorter one.
constexpr std::uint64_t WORD_MARK = 1;

constexpr WordTable<20>
    ATTRIBUTE_WORDS({{"src\1", ATTR_SRC},         {"lowsrc\1", ATTR_LOWSRC},  {"alt\1", ATTR_ALT},
                     {"align\1", ATTR_ALIGN},     {"height\1", ATTR_HEIGHT},  {"width\1", ATTR_WIDTH},
                     {"border\1", ATTR_BORDER},   {"hspace\1", ATTR_HSPACE},  {"vspace\1", ATTR_VSPACE},
                     {"usemap\1", ATTR_USEMAP},   {"ismap\1", ATTR_ISMAP},    {"name\1", ATTR_NAME},
                     {"href\1", ATTR_HREF},       {"rel\1", ATTR_REL},        {"rev\1", ATTR_REV},
                     {"title\1", ATTR_TITLE},     {"valign\1", ATTR_VALIGN},  {"nowrap\1", ATTR_NOWRAP},
                     {"rowspan\1", ATTR_ROWSPAN}, {"colspan\1", ATTR_COLSPAN}});

} // namespace

int nGetNameCode(const char* p, const char* pLast, const char* pPageEnd) noexcept {
    const std::ptrdiff_t n = pLast - p + 1;
    if (n == 1 && *p == '>') {
        return ATTR_TAG_END;
    }
    if (n < 1 || n > LONGEST_NAME) {
        return ATTR_UNKNOWN;
    }
    const std::uint64_t nWord = nLoadWord(p, static_cast<std::size_t>(pPageEnd - p));
    return ATTRIBUTE_WORDS.nFind(nFirstBytes(nWord, static_cast<std::size_t>(n)) | WORD_MARK << (8 * n),
                                 ATTR_UNKNOWN);
}

text tag::tGetAttributeName(const char* p, const text& page) const noexcept {
    if (p == nullptr || page.m_pEnd == nullptr) {
        return text();
    }
    const char* const pStart = pSkipClass(p, page.m_pEnd + 1, BEFORE_NAME);
    const char* const pLast = pFindLastOfName(pStart, page.m_pEnd + 1);
    return pLast == nullptr ? text() : text(pStart, pLast, 0);
}

const char* tag::pGetAttributeValue(const char* p, text& value, const text& page) const noexcept {
    if (p == nullptr || page.m_pEnd == nullptr) {
        value.Clear();
        return nullptr;
    }
    return pScanValue(p, page.m_pEnd + 1, value);
}

int tag::nGetAttributeCode(text name) const noexcept {
    if (name.m_pStart == nullptr || name.m_pEnd == nullptr) {
        return ATTR_NONE;
    }
    return nGetNameCode(name.m_pStart, name.m_pEnd, name.m_pEnd + 1);
}
