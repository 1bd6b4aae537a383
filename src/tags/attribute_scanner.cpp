#include <cstddef>

#include "pageslice/records.h"
#include "text/string_utils.h"

namespace {

constexpr char QUOTE = '"';

bool bEndsName(char c) noexcept {
    return bIsWhiteSpace(c) != 0 || c == '=' || c == '>' || c == '<';
}

bool bEndsUnquotedValue(char c) noexcept {
    return bIsWhiteSpace(c) != 0 || c == '>' || c == '<';
}

} // namespace

text tag::tGetAttributeName(const char* p, const text& page) const noexcept {
    if (p == nullptr) {
        return text();
    }
    while (p <= page.m_pEnd && bIsWhiteSpace(*p) != 0) {
        ++p;
    }
    const char* const pStart = p;
    while (p <= page.m_pEnd && !bEndsName(*p)) {
        ++p;
    }
    if (p > page.m_pEnd) {
        return text();
    }
    return text(pStart, p == pStart ? p : p - 1, 0);
}

const char* tag::pGetAttributeValue(const char* p, text& value, const text& page) const noexcept {
    value.Clear();
    if (p == nullptr) {
        return nullptr;
    }
    while (p <= page.m_pEnd && (bIsWhiteSpace(*p) != 0 || *p == '=')) {
        ++p;
    }
    const bool bQuoted = p <= page.m_pEnd && *p == QUOTE;
    if (bQuoted) {
        ++p;
    }
    const char* const pStart = p;
    while (p <= page.m_pEnd && (bQuoted ? *p != QUOTE && *p != '>' : !bEndsUnquotedValue(*p))) {
        ++p;
    }
    if (p > page.m_pEnd) {
        return nullptr;
    }
    if (p > pStart) {
        value.Set(pStart, p - 1, 0);
    }
    return bQuoted ? p + 1 : p;
}

int tag::nGetAttributeCode(text name) const noexcept {
    struct Word {
        const char* pWord;
        int nLength;
        int nCode;
    };
    static constexpr Word WORDS[] = {
        {"src", 3, ATTR_SRC},         {"alt", 3, ATTR_ALT},         {"rel", 3, ATTR_REL},
        {"rev", 3, ATTR_REV},         {"name", 4, ATTR_NAME},       {"href", 4, ATTR_HREF},
        {"align", 5, ATTR_ALIGN},     {"width", 5, ATTR_WIDTH},     {"ismap", 5, ATTR_ISMAP},
        {"title", 5, ATTR_TITLE},     {"lowsrc", 6, ATTR_LOWSRC},   {"height", 6, ATTR_HEIGHT},
        {"border", 6, ATTR_BORDER},   {"hspace", 6, ATTR_HSPACE},   {"vspace", 6, ATTR_VSPACE},
        {"usemap", 6, ATTR_USEMAP},   {"valign", 6, ATTR_VALIGN},   {"nowrap", 6, ATTR_NOWRAP},
        {"rowspan", 7, ATTR_ROWSPAN}, {"colspan", 7, ATTR_COLSPAN},
    };
    if (name.m_pStart == nullptr) {
        return ATTR_NONE;
    }
    const std::ptrdiff_t n = name.m_pEnd - name.m_pStart + 1;
    if (n == 1) {
        return *name.m_pStart == '>' ? ATTR_TAG_END : ATTR_UNKNOWN;
    }
    for (const Word& word : WORDS) {
        if (word.nLength == n && nStrNICmp(name.m_pStart, word.pWord, static_cast<unsigned>(n)) == 0) {
            return word.nCode;
        }
    }
    return ATTR_UNKNOWN;
}
