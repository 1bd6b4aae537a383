// SPDX-License-Identifier: MIT
#ifndef PAGESLICE_TAGS_PARSE_ATTRIBUTES_H
#define PAGESLICE_TAGS_PARSE_ATTRIBUTES_H

#include <algorithm>

#include "pageslice/records.h"
#include "scan/tag_bounds.h"
#include "tags/attribute_scanner.h"
#include "tags/attribute_tables.h"

namespace pageslice {

// The loop that all records share: from q on, scans name after name until the tag's '>' or the page's end.
// The record, cleared, receives what its table lists; an empty value stores nothing. Gives the position where
// the last name scan started, or null when a value ran to the end of the page.
template <class Record, class Table>
const char* pParseAttributes(Record& record, const Table& table, const char* q, const text& page) noexcept {
    table.Clear(record);
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
        if (!table.bTakesValue(name.nCode)) {
            table.Store(record, name.nCode, text());
            continue;
        }
        text value;
        q = pScanValue(q, pPageEnd, value);
        if (value.m_pStart != nullptr) {
            table.Store(record, name.nCode, value);
        }
        if (q == nullptr) {
            return nullptr;
        }
    }
}

// After the rest of the tag word: only the space and '>' end it.
inline const char* pSkipTagWord(const char* p, const text& page) noexcept {
    while (p != nullptr && p <= page.m_pEnd && *p != ' ' && *p != '>') {
        ++p;
    }
    return p;
}

// The '<' that opens the tag around p; null where none stands before p above the page's first character.
inline const char* pFindOpen(const char* p, const text& page) noexcept {
    const char* const pBefore = pFindEndBeforeTag(std::min(p, page.m_pEnd), page.m_pStart);
    return pBefore == nullptr ? nullptr : pBefore + 1;
}

// Sets record.m_tTag to the tag from its '<' to where the scan stopped (q), and gives q. Null, and a cleared
// m_tTag, when q is null or the '<' is, or stands on the page's first character.
inline const char* pSetTag(tag& record, const char* pOpen, const char* q, const text& page) noexcept {
    if (q == nullptr || pOpen == nullptr || pOpen == page.m_pStart) {
        record.m_tTag.Clear();
        return nullptr;
    }
    record.m_tTag.Set(pOpen, std::min(q, page.m_pEnd), 0);
    return q;
}

} // namespace pageslice

#endif
