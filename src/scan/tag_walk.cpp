#include "scan/tag_walk.h"

#include <cstddef>
#include <cstring>

#include "scan/tag_bounds.h"

TagWalk::TagWalk(const char* pFrom, const text& page) noexcept : m_page(page), m_pFrom(pFrom) {}

const char* TagWalk::pNext() noexcept {
    if (m_pOpen != nullptr) {
        if (pStepEnd() == nullptr) {
            return nullptr;
        }
        m_pFrom = m_pEnd + 1;
        m_pEnd = nullptr;
    }
    if (m_pFrom == nullptr || m_pFrom > m_page.m_pEnd) {
        return nullptr;
    }
    if (m_pOpen == nullptr || m_pOpen < m_pFrom) {
        const auto n = static_cast<std::size_t>(m_page.m_pEnd - m_pFrom) + 1;
        m_pOpen = static_cast<const char*>(std::memchr(m_pFrom, '<', n));
    }
    return m_pOpen;
}

const char* TagWalk::pStepEnd() noexcept {
    if (m_pEnd == nullptr) {
        m_pEnd = pFindTagEnd(m_pFrom, m_page);
    }
    return m_pEnd;
}

void TagWalk::ContinueBehind(const char* pEnd) noexcept {
    m_pEnd = pEnd;
}
