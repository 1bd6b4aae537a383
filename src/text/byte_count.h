// SPDX-License-Identifier: MIT
#ifndef PAGESLICE_TEXT_BYTE_COUNT_H
#define PAGESLICE_TEXT_BYTE_COUNT_H

#include <cstddef>

#include "pageslice/text.h"

namespace pageslice {

// The bytes of a slice that may be read: 0 for an empty slice, and for one whose end lies before its start.
inline std::size_t nByteCount(const text& t) noexcept {
    if (t.m_pStart == nullptr || t.m_pEnd == nullptr || t.m_pEnd < t.m_pStart) {
        return 0;
    }
    return static_cast<std::size_t>(t.m_pEnd - t.m_pStart) + 1;
}

} // namespace pageslice

#endif
