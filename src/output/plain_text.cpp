#include "output/plain_text.h"

#include "scan/tag_bounds.h"

void WritePlainText(const text& page, OutputText& out) noexcept {
    if (page.m_pStart == nullptr) {
        return;
    }
    bool bSeparated = true; // so that nothing is written before the first visible character
    for (const char* p = page.m_pStart; p <= page.m_pEnd; ++p) {
        const char c = *p;
        if (c == '<') {
            p = pFindTagEnd(p, page);
            if (p == nullptr) {
                return;
            }
        }
        const bool bSeparator = c == '<' || c == '\n' || c == '\r' || c == ' ';
        if (!bSeparator) {
            out.bPutChar(c);
        } else if (!bSeparated) {
            out.bPutChar(' ');
        }
        bSeparated = bSeparator;
    }
}
