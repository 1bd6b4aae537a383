#ifndef PAGESLICE_PARSER_PAGE_SIZE_H
#define PAGESLICE_PARSER_PAGE_SIZE_H

#include <cstddef>

#include "pageslice/text.h"

// Bytes in a page; 0 for one without a start and for one whose end lies before its start.
inline std::size_t nPageSize(const text& page) noexcept {
    if (page.m_pStart == nullptr || page.m_pEnd == nullptr || page.m_pEnd < page.m_pStart) {
        return 0;
    }
    return static_cast<std::size_t>(page.m_pEnd - page.m_pStart) + 1;
}

#endif
