#include <cstddef>
#include <cstdint>

#include "pageslice/records.h"
#include "tags/attribute_scan.h"
#include "text/word_table.h"

namespace {

constexpr int LONGEST_WORD = 7;

constexpr WordTable<20> ATTRIBUTE_WORDS(
    {{"src", ATTR_SRC},         {"lowsrc", ATTR_LOWSRC},   {"alt", ATTR_ALT},       {"align", ATTR_ALIGN},
     {"height", ATTR_HEIGHT},   {"width", ATTR_WIDTH},     {"border", ATTR_BORDER}, {"hspace", ATTR_HSPACE},
     {"vspace", ATTR_VSPACE},   {"usemap", ATTR_USEMAP},   {"ismap", ATTR_ISMAP},   {"name", ATTR_NAME},
     {"href", ATTR_HREF},       {"rel", ATTR_REL},         {"rev", ATTR_REV},       {"title", ATTR_TITLE},
     {"valign", ATTR_VALIGN},   {"nowrap", ATTR_NOWRAP},   {"rowspan", ATTR_ROWSPAN},
     {"colspan", ATTR_COLSPAN}});

} // namespace

int nGetNameCode(const char* p, const char* pLast, const char* pPageEnd) noexcept {
    const std::ptrdiff_t n = pLast - p + 1;
    if (n == 1 && *p == '>') {
        return ATTR_TAG_END;
    }
    if (n < 1 || n > LONGEST_WORD) {
        return ATTR_UNKNOWN;
    }
    const std::uint64_t nWord = nLoadWord(p, static_cast<std::size_t>(pPageEnd - p));
    return ATTRIBUTE_WORDS.nFind(nFirstBytes(nWord, static_cast<std::size_t>(n)), ATTR_UNKNOWN);
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
