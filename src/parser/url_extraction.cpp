#include <algorithm>
#include <climits>
#include <cstddef>
#include <cstring>
#include <memory>
#include <vector>

#include "pageslice/html_parser.h"
#include "parser/image_walk.h"
#include "platform/bits.h"
#include "tags/tag_img.h"
#include "text/byte_count.h"

namespace {

// A list's size is an int. What does not fit, or stands in a page too large for ints, gives a list without
// a buffer.
int nListSize(std::size_t n, const text& page) noexcept {
    return n > INT_MAX || nByteCount(page) > INT_MAX ? 0 : static_cast<int>(n);
}

// URLs stand far apart in a page, links also in no order that the processor foresees: their characters are
// asked for ahead.
constexpr std::size_t URLS_AHEAD = 24;
constexpr std::uintptr_t USUAL_URL = 64;

constexpr std::size_t PIECE = 64; // bytes of a link that are copied at once

// Whether a link ends so far before the page does that whole pieces can be read. It may lie elsewhere: a
// derived class may have taken another page.
bool bHasPieces(const text& link, const text& page) noexcept {
    return link.m_pStart >= page.m_pStart && link.m_pEnd <= page.m_pEnd &&
           static_cast<std::size_t>(page.m_pEnd - link.m_pEnd) >= PIECE;
}

// Adds the links to a list. They are copied in pieces of fixed size, mostly in one. What that overwrites
// behind a link belongs to the next ones, where all have room.
void AddLinks(const UrlMap& links, const text& page, UrlList& list) noexcept {
    const std::size_t nSize = links.nLinkBytes() + links.size();
    const auto nRoom = list.m_pBuffer == nullptr || list.m_pCursor > list.m_pLast
                           ? 0
                           : static_cast<std::size_t>(list.m_pLast - list.m_pCursor) + 1;
    std::size_t nToCome = links.bHasNuls() || nSize > nRoom ? 0 : nSize;
    auto ahead = links.begin();
    for (std::size_t i = 0; i < URLS_AHEAD && ahead != links.end(); ++i) {
        ++ahead;
    }
    for (auto it = links.begin(); it != links.end(); ++it) {
        if (ahead != links.end()) {
            FetchLines<USUAL_URL>(ahead.Link().m_pStart);
            ++ahead;
        }
        const text link = it.Link();
        const auto nLength = static_cast<std::size_t>(link.m_pEnd - link.m_pStart) + 1;
        if (nToCome >= nLength + PIECE && bHasPieces(link, page)) {
            for (std::size_t i = 0; i < nLength; i += PIECE) {
                std::memcpy(list.m_pCursor + i, link.m_pStart + i, PIECE);
            }
            list.m_pCursor += nLength;
            *list.m_pCursor++ = '\0';
        } else {
            list.bAddUrl(link);
        }
        nToCome -= std::min(nToCome, nLength + 1);
    }
}

// The sources of a page's image tags, in page order, an empty one for a tag without a source.
class ImageSources {
public:
    ImageSources(const text& page, ImageWalk walk) : m_page(page) {
        tag_img record;
        while (walk.pNext(record) != nullptr) {
            if (m_sources.empty()) {
                m_sources.reserve(std::clamp(walk.nMarks() + 1, USUAL_IMAGES, MANY_IMAGES));
            }
            m_sources.push_back(record.m_urlSrc);
        }
    }

    int nBytesNeeded() const noexcept {
        std::size_t n = 0;
        for (const text& source : m_sources) {
            // An image without a source counts two bytes, which stay unused.
            n += static_cast<std::size_t>(source.GetLength()) + 1;
        }
        return nListSize(n, m_page);
    }

    void Fill(UrlList& list) const noexcept {
        for (std::size_t i = 0; i < m_sources.size(); ++i) {
            if (m_sources.size() - i > URLS_AHEAD) {
                FetchLines<USUAL_URL>(m_sources[i + URLS_AHEAD].m_pStart);
            }
            list.bAddUrl(m_sources[i]);
        }
    }

private:
    static constexpr std::size_t USUAL_IMAGES = 64;
    static constexpr std::size_t MANY_IMAGES = std::size_t{1} << 16;

    const text& m_page;
    std::vector<text> m_sources;
};

} // namespace

void HtmlParser::GetUrlLists(UrlList** ppImages, UrlList** ppLinks) {
    if (m_bInitialized == 0) {
        InitializeHtmlFile();
    }
    // One walk over the page serves both the size and the entries.
    const ImageSources sources(m_tPage, ImageWalk(m_tPage, m_imageTrail));
    auto pImages = std::make_unique<UrlList>(sources.nBytesNeeded());
    sources.Fill(*pImages);
    pImages->pMoveFirst();
    auto pLinks = std::make_unique<UrlList>(nFindLengthOfLinkUrls());
    AddLinks(m_urlMap, m_tPage, *pLinks);
    pLinks->pMoveFirst();
    if (ppImages != nullptr) {
        *ppImages = pImages.release();
    }
    if (ppLinks != nullptr) {
        *ppLinks = pLinks.release();
    }
}

int HtmlParser::nFindLengthOfImageUrls() const {
    return ImageSources(m_tPage, ImageWalk(m_tPage, m_imageTrail)).nBytesNeeded();
}

void HtmlParser::FillImageUrls(UrlList* pList) const {
    ImageSources(m_tPage, ImageWalk(m_tPage, m_imageTrail)).Fill(*pList);
}

int HtmlParser::nFindLengthOfLinkUrls() const noexcept {
    return nListSize(m_urlMap.nLinkBytes() + m_urlMap.size(), m_tPage);
}

void HtmlParser::FillLinkUrls(UrlList* pList) const noexcept {
    AddLinks(m_urlMap, m_tPage, *pList);
}

const char* HtmlParser::bGetNextImageTag(const char* p, tag_img& record) const noexcept {
    return ImageWalk(p, m_tPage).pNext(record);
}

int HtmlParser::bIsImageInPage(url& source) const noexcept {
    tag_img record;
    ImageWalk walk(m_tPage, m_imageTrail);
    while (walk.pNext(record) != nullptr) {
        if (record.m_urlSrc == source) {
            return 1;
        }
    }
    return 0;
}
