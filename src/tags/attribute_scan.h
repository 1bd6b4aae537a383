// The attribute scanner on plain positions: [p, pPageEnd) is what is left of the page. The members of `tag`
// and the loop of the records share it.
#ifndef PAGESLICE_TAGS_ATTRIBUTE_SCAN_H
#define PAGESLICE_TAGS_ATTRIBUTE_SCAN_H

#include "pageslice/text.h"
#include "scan/byte_classes.h"
#include "scan/primitives.h"

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

// The attribute code of the name from p to pLast.
int nGetNameCode(const char* p, const char* pLast, const char* pPageEnd) noexcept;

// See tag::pGetAttributeValue.
inline const char* pScanValue(const char* p, const char* pPageEnd, text& value) noexcept {
    constexpr char QUOTE = '"';
    p = pSkipClass(p, pPageEnd, BEFORE_VALUE);
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

#endif
