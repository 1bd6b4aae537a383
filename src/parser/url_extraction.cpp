#include <algorithm>
#include <climits>
#include <cstddef>
#include <memory>
#include <vector>

#include "pageslice/html_parser.h"
#include "parser/image_walk.h"
#include "parser/page_size.h"
#include "platform/bits.h"
#include "tags/tag_img.h"

namespace {

// A list's size is an int. What does not fit, or stands in a page too large for ints, gives a list without
// a buffer.
int nListSize(std::size_t n, const text& page) noexcept {
    return n > INT_MAX || nPageSize(page) > INT_MAX ? 0 : static_cast<int>(n);
}

constexpr int LINKS_AHEAD = 24;

// The sources of a page's image tags, in page order, an empty one for a tag without a source.
class ImageSources {
public:
    ImageSources(const text& page, ImageWalk walk) : m_page(page) {
        tag_img record;
        while (walk.pNext(record) != nullptr) {
            if (m_sources.empty()) {
                m_sources.reserve(std::max(USUAL_IMAGES, walk.nMarks() + 1));
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
        for (const text& source : m_sources) {
            list.bAddUrl(source);
        }
    }

private:
    static constexpr std::size_t USUAL_IMAGES = 64;

    const text& m_page;
    std::vector<text> m_sources;
};

} // namespace

void HtmlParser::GetUrlLists(UrlList** ppImages, UrlList** ppLinks) {
    if (m_bInitialized == 0) {
        InitializeHtmlFile();
    }
    // One walk over the page serves both the size and the entries.
    const ImageSources sources(m_tPage, ImageWalk(m_tPage, m_vImageMarks, m_tMarkedPage));
    auto pImages = std::make_unique<UrlList>(sources.nBytesNeeded());
    sources.Fill(*pImages);
    pImages->pMoveFirst();
    auto pLinks = std::make_unique<UrlList>(nFindLengthOfLinkUrls());
    FillLinkUrls(pLinks.get());
    pLinks->pMoveFirst();
    if (ppImages != nullptr) {
        *ppImages = pImages.release();
    }
    if (ppLinks != nullptr) {
        *ppLinks = pLinks.release();
    }
}

int HtmlParser::nFindLengthOfImageUrls() const {
    return ImageSources(m_tPage, ImageWalk(m_tPage, m_vImageMarks, m_tMarkedPage)).nBytesNeeded();
}

void HtmlParser::FillImageUrls(UrlList* pList) const {
    ImageSources(m_tPage, ImageWalk(m_tPage, m_vImageMarks, m_tMarkedPage)).Fill(*pList);
}

int HtmlParser::nFindLengthOfLinkUrls() const noexcept {
    std::size_t n = 0;
    for (auto it = m_urlMap.begin(); it != m_urlMap.end(); ++it) {
        n += static_cast<std::size_t>(it.Link().GetLength()) + 1;
    }
    return nListSize(n, m_tPage);
}

void HtmlParser::FillLinkUrls(UrlList* pList) const noexcept {
    // The links stand far apart in the page and in no order that the processor foresees.
    auto ahead = m_urlMap.begin();
    for (int i = 0; i < LINKS_AHEAD && ahead != m_urlMap.end(); ++i) {
        ++ahead;
    }
    for (auto it = m_urlMap.begin(); it != m_urlMap.end(); ++it) {
        if (ahead != m_urlMap.end()) {
            FetchLine(ahead.Link().m_pStart);
            ++ahead;
        }
        pList->bAddUrl(it.Link());
    }
}

const char* HtmlParser::bGetNextImageTag(const char* p, tag_img& record) const noexcept {
    return ImageWalk(p, m_tPage).pNext(record);
}

int HtmlParser::bIsImageInPage(url& source) const noexcept {
    tag_img record;
    ImageWalk walk(m_tPage, m_vImageMarks, m_tMarkedPage);
    while (walk.pNext(record) != nullptr) {
        if (record.m_urlSrc == source) {
            return 1;
        }
    }
    return 0;
}
