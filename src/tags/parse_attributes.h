#ifndef PAGESLICE_TAGS_PARSE_ATTRIBUTES_H
#define PAGESLICE_TAGS_PARSE_ATTRIBUTES_H

#include <algorithm>
#include <cstddef>

#include "pageslice/records.h"
#include "scan/tag_bounds.h"
#include "tags/attribute_scanner.h"
#include "text/string_utils.h"

// The loop that all records share: from q on, scans name after name until the tag's '>' or the page's end.
// bTakesValue(code) says whether a value is read behind a name; if so, store(code, value) is called with
// every value that is not empty, otherwise with an empty slice.
// Gives the position where the last name scan started, or null when a value ran to the end of the page.
template <class TakesValue, class Store>
const char* pParseAttributes(const char* q, const text& page, TakesValue bTakesValue, Store store) {
    if (q == nullptr || page.m_pEnd == nullptr) {
        return nullptr;
    }
    const char* const pPageEnd = page.m_pEnd + 1;
    for (;;) {
        // Nearly always one space stands between them.
        const char* const pName = pSkipClass(q < pPageEnd && *q == ' ' ? q + 1 : q, pPageEnd, BEFORE_NAME);
        if (pName < pPageEnd && *pName == '>') {
            return q;
        }
        const NameAt name = ReadName(pName, pPageEnd);
        if (name.pLast == nullptr) {
            return q;
        }
        q = name.pLast + 1;
        if (!bTakesValue(name.nCode)) {
            store(name.nCode, text());
            continue;
        }
        text value;
        q = pScanValue(q, pPageEnd, value);
        if (value.m_pStart != nullptr) {
            store(name.nCode, value);
        }
        if (q == nullptr) {
            return nullptr;
        }
    }
}

// Behind the rest of the tag word: only the space and '>' end it.
inline const char* pSkipTagWord(const char* p, const text& page) noexcept {
    while (p != nullptr && p <= page.m_pEnd && *p != ' ' && *p != '>') {
        ++p;
    }
    return p;
}

// Sets record.m_tTag to the tag around p, from its '<' to where the scan stopped (q), and gives q. Null,
// and a cleared m_tTag, when q is null or no '<' stands before p above the page's first character.
inline const char* pSetTag(tag& record, const char* p, const char* q, const text& page) noexcept {
    const char* const pBefore = pFindEndBeforeTag(std::min(p, page.m_pEnd), page.m_pStart);
    if (q == nullptr || pBefore == nullptr) {
        record.m_tTag.Clear();
        return nullptr;
    }
    record.m_tTag.Set(pBefore + 1, std::min(q, page.m_pEnd), 0);
    return q;
}

// The number that a value spells, read from the value's own characters only.
inline int nNumberOf(const text& value) noexcept {
    return nParseDecimal(value.m_pStart, static_cast<std::size_t>(value.m_pEnd - value.m_pStart) + 1);
}

#endif
