// SPDX-License-Identifier: MIT
#ifndef PAGESLICE_URL_URL_LIST_FILLER_H
#define PAGESLICE_URL_URL_LIST_FILLER_H

#include <algorithm>
#include <cstddef>
#include <cstring>

#include "pageslice/text.h"
#include "pageslice/url_list.h"

inline namespace pageslice_v1 {

// Adds many URLs of a page to a list, one after the other; while it does, nobody else does. What bAddUrl
// would do comes out, but they are copied in chunks of fixed size, mostly in one. What a chunk overwrites
// after a URL belongs to the next ones, where all have room.
class UrlList::Filler {
public:
    // nBytes: what all the URLs that are to come take, each with its NUL; 0 where that is not known, or where
    // a URL may hold a NUL. All are then copied one byte after the other. The page is not copied.
    Filler(UrlList& list, const text& page, std::size_t nBytes) noexcept
        : m_list(list), m_page(page), m_nToCome(nBytes > nRoom() ? 0 : nBytes) {}

    void Add(const text& url) noexcept {
        const auto nLength = static_cast<std::size_t>(url.m_pEnd - url.m_pStart) + 1;
        if (m_nToCome < nLength + CHUNK || !bHasChunks(url)) {
            m_list.bAddUrl(url);
        } else {
            for (std::size_t i = 0; i < nLength; i += CHUNK) {
                std::memcpy(m_list.m_pCursor + i, url.m_pStart + i, CHUNK);
            }
            m_list.m_pCursor += nLength;
            *m_list.m_pCursor++ = '\0';
        }
        m_nToCome -= std::min(m_nToCome, nLength + 1);
    }

private:
    static constexpr std::size_t CHUNK = 64; // three links out of four are no longer

    std::size_t nRoom() const noexcept {
        return m_list.m_pBuffer == nullptr || m_list.m_pCursor > m_list.m_pLast
                   ? 0
                   : static_cast<std::size_t>(m_list.m_pLast - m_list.m_pCursor) + 1;
    }
    // Whether a URL ends so far before the page does that whole chunks can be read. It may lie elsewhere: a
    // class derived from the parser may have taken another page.
    bool bHasChunks(const text& url) const noexcept {
        return url.m_pStart >= m_page.m_pStart && url.m_pEnd <= m_page.m_pEnd &&
               static_cast<std::size_t>(m_page.m_pEnd - url.m_pEnd) >= CHUNK;
    }

    UrlList& m_list;
    const text& m_page;
    std::size_t m_nToCome;
};

} // namespace pageslice_v1

#endif
