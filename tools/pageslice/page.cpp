#include "page.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "output/output_text.h"
#include "output/plain_text.h"
#include "pageslice/html_parser.h"
#include "scan/tag_bounds.h"
#include "tags/tag_img.h"

namespace pageslice {
namespace {

Slice sliceOf(const text& t) {
    const bool hasCharacters = t.IsEmpty() == 0 && t.m_pStart <= t.m_pEnd;
    return Slice(t.m_pStart, hasCharacters ? static_cast<std::size_t>(t.m_pEnd - t.m_pStart) + 1 : 0);
}

text textOf(std::string_view bytes) {
    return bytes.empty() ? text() : text(bytes.data(), bytes.data() + bytes.size() - 1, 0);
}

// A NUL inside a URL ends it here, because the resolution works on C strings.
std::string absolute(Slice written, const std::string& base) {
    if (base.empty()) {
        return {};
    }
    const std::unique_ptr<char[]> resolved(url::pResolveUrl(base.c_str(), std::string(written).c_str()));
    return resolved.get();
}

// Opens the index, which the library keeps for classes derived from it.
class PageReader : private HtmlParser {
public:
    PageReader(std::string_view bytes, std::string baseUrl)
        : base(std::move(baseUrl)) {
        Load(textOf(bytes), base.c_str(), 1);
    }

    void fill(Page& page) const {
        page.title = sliceOf(m_tTitle);
        for (const auto& [anchor, linkText] : m_urlMap) {
            const Slice href = sliceOf(anchor.m_urlHref);
            page.links.push_back({href, sliceOf(linkText), absolute(href, base)});
        }
        // The map has an order of its own; people read links in the page's.
        std::sort(page.links.begin(), page.links.end(),
                  [](const Link& a, const Link& b) { return a.href.data() < b.href.data(); });
        std::transform(m_vListItems.begin(), m_vListItems.end(), std::back_inserter(page.items), sliceOf);
        std::transform(m_vCellTexts.begin(), m_vCellTexts.end(), std::back_inserter(page.cells), sliceOf);
        collectImages(page.images);
    }

private:
    // The very walk that GetUrlLists makes, but it keeps the records, for their places and their other
    // attributes.
    void collectImages(std::vector<Image>& images) const {
        text name; // of the next tag; a '>' in the text before the tag does not make it be searched again
        for (const char* p = m_tPage.m_pStart; p != nullptr && p <= m_tPage.m_pEnd;) {
            if (name.IsEmpty() != 0 || p >= name.m_pStart) {
                name = tFindNextTagName(p);
            }
            const int code = nIdentifyTagType(name);
            if (code == TAG_IMG) {
                p = addImage(name.m_pStart + 3, images);
            } else {
                const char* const pEnd = code == TAG_NONE ? nullptr : pFindTagEnd(p, m_tPage);
                p = pEnd == nullptr ? nullptr : pEnd + 1;
            }
        }
    }

    const char* addImage(const char* pBehindWord, std::vector<Image>& images) const {
        tag_img tag;
        const char* const pNext = tag.pParse(pBehindWord, m_tPage);
        if (pNext != nullptr && tag.m_urlSrc.IsEmpty() == 0) {
            const Slice src = sliceOf(tag.m_urlSrc);
            images.push_back({src, sliceOf(tag.m_altText), tag.m_nWidth, tag.m_nHeight, absolute(src, base)});
        }
        return pNext;
    }

    std::string base;
};

std::string plainText(std::string_view bytes) {
    std::string result(bytes.size() + 1, '\0');
    OutputText sink;
    sink.SetBufferUnfilled(result.data(), result.data() + bytes.size());
    WritePlainText(textOf(bytes), sink);
    result.resize(static_cast<std::size_t>(sink.m_pCurrent - sink.m_pBufStart)); // NULs of the page count
    return result;
}

std::size_t sumOfTexts(const Page& page) {
    std::size_t sum = page.title.size();
    for (const Link& link : page.links) {
        sum += link.text.size();
    }
    for (const Slice item : page.items) {
        sum += item.size();
    }
    for (const Slice cell : page.cells) {
        sum += cell.size();
    }
    return sum;
}

} // namespace

Page readPage(std::string name, std::string_view bytes, const std::string& base, bool withText) {
    constexpr std::size_t SHORT_TEXT = 80;
    constexpr std::size_t FREE_BYTES = std::size_t{1} << 20;
    Page page;
    page.name = std::move(name);
    page.bytes = bytes;
    PageReader(bytes, base).fill(page);
    if (withText) {
        page.text = plainText(bytes);
    }
    if (sumOfTexts(page) / 8 > bytes.size() + FREE_BYTES) {
        page.textLimit = SHORT_TEXT;
    }
    return page;
}

} // namespace pageslice
