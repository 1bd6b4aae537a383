#include <cstddef>

#include "pageslice/records.h"
#include "scan/primitives.h"
#include "text/string_utils.h"
#include "text/word_table.h"

namespace {

constexpr char QUOTE = '"';
constexpr int LONGEST_WORD = 7;

constexpr WordTable<20> ATTRIBUTE_WORDS(
    {{"src", ATTR_SRC},         {"lowsrc", ATTR_LOWSRC},   {"alt", ATTR_ALT},       {"align", ATTR_ALIGN},
     {"height", ATTR_HEIGHT},   {"width", ATTR_WIDTH},     {"border", ATTR_BORDER}, {"hspace", ATTR_HSPACE},
     {"vspace", ATTR_VSPACE},   {"usemap", ATTR_USEMAP},   {"ismap", ATTR_ISMAP},   {"name", ATTR_NAME},
     {"href", ATTR_HREF},       {"rel", ATTR_REL},         {"rev", ATTR_REV},       {"title", ATTR_TITLE},
     {"valign", ATTR_VALIGN},   {"nowrap", ATTR_NOWRAP},   {"rowspan", ATTR_ROWSPAN},
     {"colspan", ATTR_COLSPAN}});

} // namespace

text tag::tGetAttributeName(const char* p, const text& page) const noexcept {
    if (p == nullptr) {
        return text();
    }
    while (p <= page.m_pEnd && bIsWhiteSpace(*p) != 0) {
        ++p;
    }
    if (p > page.m_pEnd) {
        return text();
    }
    const char* const pEnd = Scan().FindNameEnd(p, page.m_pEnd + 1);
    if (pEnd > page.m_pEnd) {
        return text();
    }
    return text(p, pEnd == p ? p : pEnd - 1, 0);
}

const char* tag::pGetAttributeValue(const char* p, text& value, const text& page) const noexcept {
    value.Clear();
    if (p == nullptr) {
        return nullptr;
    }
    while (p <= page.m_pEnd && (*p == '=' || bIsWhiteSpace(*p) != 0)) {
        ++p;
    }
    const bool bQuoted = p <= page.m_pEnd && *p == QUOTE;
    if (bQuoted) {
        ++p;
    }
    if (p > page.m_pEnd) {
        return nullptr;
    }
    const ScanPrimitives& scan = Scan();
    const char* const pEnd = (bQuoted ? scan.FindQuotedEnd : scan.FindValueEnd)(p, page.m_pEnd + 1);
    if (pEnd > page.m_pEnd) {
        return nullptr;
    }
    if (pEnd > p) {
        value.Set(p, pEnd - 1, 0);
    }
    return bQuoted ? pEnd + 1 : pEnd;
}

int tag::nGetAttributeCode(text name) const noexcept {
    if (name.m_pStart == nullptr) {
        return ATTR_NONE;
    }
    const int n = name.GetLength();
    if (n == 1 && *name.m_pStart == '>') {
        return ATTR_TAG_END;
    }
    if (n < 1 || n > LONGEST_WORD) {
        return ATTR_UNKNOWN;
    }
    return ATTRIBUTE_WORDS.nFind(nLoadWord(name.m_pStart, static_cast<std::size_t>(n)), ATTR_UNKNOWN);
}
