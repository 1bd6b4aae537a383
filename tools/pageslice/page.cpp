#include "page.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "output/output_text.h"
#include "output/plain_text.h"
#include "pageslice/html_parser.h"
#include "parser/image_walk.h"
#include "text/byte_count.h"

namespace pageslice {
namespace {

Slice sliceOf(const text& t) {
    return Slice(t.m_pStart, nByteCount(t));
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
    explicit PageReader(Page& filled) : page(filled) {
        Load(textOf(page.bytes), page.url.c_str(), 1);
        page.title = keep(m_tTitle);
        for (const auto& [anchor, linkText] : m_urlMap) {
            const Slice href = sliceOf(anchor.m_urlHref);
            page.links.push_back({href, keep(linkText), absolute(href, page.url)});
        }
        // The map has an order of its own; people read links in the page's.
        std::sort(page.links.begin(), page.links.end(),
                  [](const Link& a, const Link& b) { return a.href.data() < b.href.data(); });
        for (const text& item : m_vListItems) {
            page.items.push_back(keep(item));
        }
        for (const text& cell : m_vCellTexts) {
            page.cells.push_back(keep(cell));
        }
        collectImages();
    }

    std::size_t sumOfTexts() const { return sum; }

private:
    Slice keep(const text& captured) {
        const Slice slice = sliceOf(captured);
        sum += slice.size();
        return slice;
    }

    // The walk that GetUrlLists makes, for the places and the other attributes that its lists do not hold.
    void collectImages() {
        ImageWalk walk(m_tPage, m_imageTrail);
        for (tag_img tag; walk.pNext(tag) != nullptr;) {
            if (tag.m_urlSrc.IsEmpty() == 0) {
                const Slice src = sliceOf(tag.m_urlSrc);
                page.images.push_back(
                    {src, sliceOf(tag.m_altText), tag.m_nWidth, tag.m_nHeight, absolute(src, page.url)});
            }
        }
    }

    Page& page;
    std::size_t sum = 0;
};

std::string plainText(std::string_view bytes) {
    std::string result(bytes.size() + 1, '\0');
    OutputText sink;
    sink.SetBufferUnfilled(result.data(), result.data() + bytes.size());
    WritePlainText(textOf(bytes), sink);
    result.resize(static_cast<std::size_t>(sink.m_pCurrent - sink.m_pBufStart)); // NULs of the page count
    return result;
}

} // namespace

Page readPage(std::string file, std::string url, std::string_view bytes, bool withText) {
    constexpr std::size_t SHORT_TEXT = 80;
    constexpr std::size_t FREE_BYTES = std::size_t{1} << 20;
    Page page;
    page.file = std::move(file);
    page.url = std::move(url);
    page.bytes = bytes;
    const PageReader reader(page);
    if (withText) {
        page.text = plainText(bytes);
    }
    if (reader.sumOfTexts() / 8 > bytes.size() + FREE_BYTES) {
        page.textLimit = SHORT_TEXT;
    }
    return page;
}

} // namespace pageslice
