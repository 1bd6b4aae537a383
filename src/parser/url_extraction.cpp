#include <climits>
#include <cstddef>
#include <memory>

#include "pageslice/html_parser.h"
#include "parser/page_size.h"
#include "parser/tag_scanner.h"
#include "scan/tag_walk.h"
#include "tags/tag_img.h"

namespace {

// A list's size is an int. What does not fit, or stands in a page too large for ints, gives a list without
// a buffer.
int nListSize(std::size_t n, const text& page) noexcept {
    return n > INT_MAX || nPageSize(page) > INT_MAX ? 0 : static_cast<int>(n);
}

} // namespace

void HtmlParser::GetUrlLists(UrlList** ppImages, UrlList** ppLinks) {
    if (m_bInitialized == 0) {
        InitializeHtmlFile();
    }
    auto pImages = std::make_unique<UrlList>(nFindLengthOfImageUrls());
    FillImageUrls(pImages.get());
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

int HtmlParser::nFindLengthOfImageUrls() const noexcept {
    std::size_t n = 0;
    tag_img record;
    const char* p = m_tPage.m_pStart;
    while ((p = bGetNextImageTag(p, record)) != nullptr) {
        // An image without a source counts two bytes, which stay unused.
        n += static_cast<std::size_t>(record.m_urlSrc.GetLength()) + 1;
    }
    return nListSize(n, m_tPage);
}

void HtmlParser::FillImageUrls(UrlList* pList) const noexcept {
    tag_img record;
    const char* p = m_tPage.m_pStart;
    while ((p = bGetNextImageTag(p, record)) != nullptr) {
        pList->bAddUrl(record.m_urlSrc);
    }
}

int HtmlParser::nFindLengthOfLinkUrls() const noexcept {
    std::size_t n = 0;
    for (const auto& [anchor, tLinkText] : m_urlMap) {
        n += static_cast<std::size_t>(anchor.m_urlHref.GetLength()) + 1;
    }
    return nListSize(n, m_tPage);
}

void HtmlParser::FillLinkUrls(UrlList* pList) const noexcept {
    for (const auto& [anchor, tLinkText] : m_urlMap) {
        pList->bAddUrl(anchor.m_urlHref);
    }
}

const char* HtmlParser::bGetNextImageTag(const char* p, tag_img& record) const noexcept {
    TagWalk walk(p, m_tPage);
    const char* pVisited = nullptr;
    while (const char* const pOpen = walk.pNext()) {
        if (pOpen == pVisited) {
            continue; // seen before, and no image tag
        }
        pVisited = pOpen;
        const text tName = tGetTagName(pOpen, m_tPage);
        const int nCode = nGetTagCode(tName);
        if (nCode == TAG_IMG) {
            return record.pParse(tName.m_pEnd + 1, m_tPage);
        }
        if (nCode == TAG_NONE) {
            return nullptr;
        }
    }
    return nullptr;
}

int HtmlParser::bIsImageInPage(url& source) const noexcept {
    tag_img record;
    const char* p = m_tPage.m_pStart;
    while ((p = bGetNextImageTag(p, record)) != nullptr) {
        if (record.m_urlSrc == source) {
            return 1;
        }
    }
    return 0;
}
