// SPDX-License-Identifier: MIT
#include "scan/tag_bounds.h"

#include "scan/primitives.h"

inline namespace pageslice_v1 {

using namespace pageslice;

const char* pFindTagEnd(const char* p, const text& page) noexcept {
    if (p == nullptr || p > page.m_pEnd) {
        return nullptr;
    }
    return *p == '>' ? p : Scan().FindTagEnd(p, page.m_pEnd + 1, false);
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

} // namespace pageslice_v1
