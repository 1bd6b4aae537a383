#include "scan/tag_bounds.h"

const char* pFindTagEnd(const char* p, const text& page) noexcept {
    if (p == nullptr) {
        return nullptr;
    }
    bool bQuoted = false;
    for (; p <= page.m_pEnd; ++p) {
        if (*p == '"') {
            bQuoted = !bQuoted;
        } else if (*p == '>' && !bQuoted) {
            return p;
        }
    }
    return nullptr;
}

const char* pFindEndBeforeTag(const char* p, const char* pLower) noexcept {
    if (p == nullptr || pLower == nullptr) {
        return nullptr;
    }
    while (p > pLower && *p != '<') {
        --p;
    }
    return p > pLower ? p - 1 : nullptr;
}
