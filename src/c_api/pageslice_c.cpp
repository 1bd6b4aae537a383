#include "pageslice/pageslice_c.h"

#include <climits>
#include <cstring>
#include <memory>
#include <new>
#include <string>
#include <vector>

#include "output/output_text.h"
#include "output/plain_text.h"
#include "pageslice/html_parser.h"
#include "parser/image_walk.h"
#include "text/byte_count.h"

static_assert(PAGESLICE_ALIGN_UNKNOWN == ALIGN_UNKNOWN && PAGESLICE_ALIGN_TOP == ALIGN_TOP &&
                  PAGESLICE_ALIGN_MIDDLE == ALIGN_MIDDLE && PAGESLICE_ALIGN_BOTTOM == ALIGN_BOTTOM &&
                  PAGESLICE_ALIGN_LEFT == ALIGN_LEFT && PAGESLICE_ALIGN_RIGHT == ALIGN_RIGHT &&
                  PAGESLICE_ALIGN_CENTER == ALIGN_CENTER,
              "both interfaces give an alignment the same number");

namespace pageslice {
namespace {

// The codes say all there is to say: nothing here throws anything but what a lack of memory throws.
template <class Call>
int guarded(Call call) noexcept {
    try {
        return call();
    } catch (...) {
        return PAGESLICE_NO_MEMORY;
    }
}

text page_text(const char* html, std::size_t size) {
    return size == 0 ? text() : text(html, html + (size - 1), 0);
}

pageslice_slice slice_of(const text& t) noexcept {
    const std::size_t size = nByteCount(t);
    return {size == 0 ? nullptr : t.m_pStart, size};
}

pageslice_slice slice_of(const pageslice_image* image) noexcept {
    return image->src;
}

pageslice_slice slice_of(const UrlMap::value_type* entry) noexcept {
    return slice_of(entry->first.m_urlHref);
}

pageslice_link link_of(const UrlMap::value_type& entry) noexcept {
    const tag_a& anchor = entry.first;
    return {slice_of(anchor.m_urlHref), slice_of(entry.second),  slice_of(anchor.m_tName),
            slice_of(anchor.m_tRel),    slice_of(anchor.m_tRev), slice_of(anchor.m_tTitle)};
}

pageslice_image image_of(const tag_img& image) noexcept {
    return {slice_of(image.m_urlSrc),
            slice_of(image.m_urlLowSrc),
            slice_of(image.m_altText),
            slice_of(image.m_urlUseMap),
            image.m_nWidth,
            image.m_nHeight,
            image.m_nBorder,
            image.m_nHSpace,
            image.m_nVSpace,
            image.m_align,
            image.m_bIsMap};
}

int copy_out(const char* result, std::size_t size, char* buffer, std::size_t capacity,
             std::size_t* length) noexcept {
    *length = size;
    if (buffer == nullptr || capacity <= size) {
        return PAGESLICE_TOO_SMALL;
    }
    std::memcpy(buffer, result, size);
    buffer[size] = '\0';
    return PAGESLICE_OK;
}

// `room` holds the page's size and one byte more.
std::size_t convert(const text& page, char* room) noexcept {
    OutputText out;
    out.SetBufferUnfilled(room, room + nByteCount(page));
    WritePlainText(page, out);
    *out.m_pCurrent = '\0';
    return static_cast<std::size_t>(out.m_pCurrent - room);
}

bool lacks_bytes(const char* p, std::size_t size) noexcept {
    return p == nullptr && size != 0;
}

} // namespace
} // namespace pageslice

// Opens the parser's index and adds what makes each element reachable by its number.
struct pageslice_page : HtmlParser {
    pageslice_page(const text& page, const char* own_url) {
        Load(page, own_url, 1);
        links.reserve(m_urlMap.size());
        for (const UrlMap::value_type& entry : m_urlMap) {
            links.push_back(&entry);
        }
        tag_img image;
        for (ImageWalk walk(m_tPage, m_imageTrail); walk.pNext(image) != nullptr;) {
            images.push_back(pageslice::image_of(image));
        }
        for (const pageslice_image& image_found : images) {
            if (image_found.src.data != nullptr) {
                images_with_url.push_back(&image_found);
            }
        }
    }
    // The vectors of pointers point into this very object.
    pageslice_page(const pageslice_page&) = delete;
    pageslice_page& operator=(const pageslice_page&) = delete;
    ~pageslice_page() = default;

    using HtmlParser::m_pUrl;
    using HtmlParser::m_tPage;
    using HtmlParser::m_tTitle;
    using HtmlParser::m_vCellTexts;
    using HtmlParser::m_vListItems;
    std::vector<const UrlMap::value_type*> links;
    std::vector<pageslice_image> images;
    std::vector<const pageslice_image*> images_with_url;
};

namespace pageslice {
namespace {

template <class Collection>
std::size_t count(const pageslice_page* page, Collection collection) noexcept {
    return page == nullptr ? 0 : (page->*collection).size();
}

template <class Collection, class Result, class Convert>
int get(const pageslice_page* page, Collection collection, std::size_t index, Result* result,
        Convert convert) noexcept {
    if (page == nullptr || result == nullptr) {
        return PAGESLICE_BAD_ARGUMENT;
    }
    if (index >= (page->*collection).size()) {
        return PAGESLICE_NOT_FOUND;
    }
    *result = convert((page->*collection)[index]);
    return PAGESLICE_OK;
}

template <class Collection>
int get_slice(const pageslice_page* page, Collection collection, std::size_t index,
              pageslice_slice* slice) noexcept {
    return get(page, collection, index, slice, [](const auto& element) { return slice_of(element); });
}

int found(pageslice_slice slice, pageslice_slice* result) noexcept {
    if (slice.data == nullptr) {
        return PAGESLICE_NOT_FOUND;
    }
    *result = slice;
    return PAGESLICE_OK;
}

} // namespace
} // namespace pageslice

int pageslice_version(void) noexcept {
    return PAGESLICE_VERSION;
}

int pageslice_open(const char* html, size_t html_size, const char* url, size_t url_size,
                   pageslice_page** page) noexcept {
    if (page == nullptr) {
        return PAGESLICE_BAD_ARGUMENT;
    }
    *page = nullptr;
    if (pageslice::lacks_bytes(html, html_size) || pageslice::lacks_bytes(url, url_size)) {
        return PAGESLICE_BAD_ARGUMENT;
    }
    return pageslice::guarded([&] {
        const std::string own_url(url == nullptr ? "" : url, url_size);
        *page = std::make_unique<pageslice_page>(pageslice::page_text(html, html_size),
                                                 url == nullptr ? nullptr : own_url.c_str())
                    .release();
        return PAGESLICE_OK;
    });
}

void pageslice_close(pageslice_page* page) noexcept {
    delete page;
}

int pageslice_get_url(const pageslice_page* page, pageslice_slice* url) noexcept {
    if (page == nullptr || url == nullptr) {
        return PAGESLICE_BAD_ARGUMENT;
    }
    const char* const p = page->m_pUrl;
    return pageslice::found({p, p == nullptr ? 0 : std::strlen(p)}, url);
}

int pageslice_get_title(const pageslice_page* page, pageslice_slice* title) noexcept {
    if (page == nullptr || title == nullptr) {
        return PAGESLICE_BAD_ARGUMENT;
    }
    return pageslice::found(pageslice::slice_of(page->m_tTitle), title);
}

size_t pageslice_count_links(const pageslice_page* page) noexcept {
    return pageslice::count(page, &pageslice_page::links);
}

size_t pageslice_count_images(const pageslice_page* page) noexcept {
    return pageslice::count(page, &pageslice_page::images);
}

size_t pageslice_count_cells(const pageslice_page* page) noexcept {
    return pageslice::count(page, &pageslice_page::m_vCellTexts);
}

size_t pageslice_count_items(const pageslice_page* page) noexcept {
    return pageslice::count(page, &pageslice_page::m_vListItems);
}

size_t pageslice_count_link_urls(const pageslice_page* page) noexcept {
    return pageslice::count(page, &pageslice_page::links);
}

size_t pageslice_count_image_urls(const pageslice_page* page) noexcept {
    return pageslice::count(page, &pageslice_page::images_with_url);
}

int pageslice_get_link(const pageslice_page* page, size_t index, pageslice_link* link) noexcept {
    return pageslice::get(page, &pageslice_page::links, index, link,
                          [](const UrlMap::value_type* entry) { return pageslice::link_of(*entry); });
}

int pageslice_get_image(const pageslice_page* page, size_t index, pageslice_image* image) noexcept {
    return pageslice::get(page, &pageslice_page::images, index, image,
                          [](const pageslice_image& element) { return element; });
}

int pageslice_get_cell(const pageslice_page* page, size_t index, pageslice_slice* cell) noexcept {
    return pageslice::get_slice(page, &pageslice_page::m_vCellTexts, index, cell);
}

int pageslice_get_item(const pageslice_page* page, size_t index, pageslice_slice* item) noexcept {
    return pageslice::get_slice(page, &pageslice_page::m_vListItems, index, item);
}

int pageslice_get_link_url(const pageslice_page* page, size_t index, pageslice_slice* url) noexcept {
    return pageslice::get_slice(page, &pageslice_page::links, index, url);
}

int pageslice_get_image_url(const pageslice_page* page, size_t index, pageslice_slice* url) noexcept {
    return pageslice::get_slice(page, &pageslice_page::images_with_url, index, url);
}

int pageslice_get_plain_text(const pageslice_page* page, char* buffer, size_t capacity,
                             size_t* length) noexcept {
    if (page == nullptr || length == nullptr) {
        return PAGESLICE_BAD_ARGUMENT;
    }
    const std::size_t page_size = nByteCount(page->m_tPage);
    if (page_size > INT_MAX) {
        return PAGESLICE_TOO_LARGE;
    }
    if (buffer != nullptr && capacity > page_size) {
        *length = pageslice::convert(page->m_tPage, buffer);
        return PAGESLICE_OK;
    }
    // Whether a smaller buffer will do shows only when all is converted.
    const std::unique_ptr<char[]> room(new (std::nothrow) char[page_size + 1]);
    if (room == nullptr) {
        return PAGESLICE_NO_MEMORY;
    }
    const std::size_t size = pageslice::convert(page->m_tPage, room.get());
    return pageslice::copy_out(room.get(), size, buffer, capacity, length);
}

int pageslice_resolve_url(const char* base, size_t base_size, const char* url, size_t url_size, char* buffer,
                          size_t capacity, size_t* length) noexcept {
    if (pageslice::lacks_bytes(base, base_size) || pageslice::lacks_bytes(url, url_size) ||
        length == nullptr) {
        return PAGESLICE_BAD_ARGUMENT;
    }
    return pageslice::guarded([&] {
        const std::string base_copy(base == nullptr ? "" : base, base_size);
        const std::string url_copy(url == nullptr ? "" : url, url_size);
        const std::unique_ptr<char[]> result(url::pResolveUrl(base_copy.c_str(), url_copy.c_str()));
        return pageslice::copy_out(result.get(), std::strlen(result.get()), buffer, capacity, length);
    });
}

int pageslice_normalize_url(const char* url, size_t url_size, char* buffer, size_t capacity,
                            size_t* length) noexcept {
    if (pageslice::lacks_bytes(url, url_size) || length == nullptr) {
        return PAGESLICE_BAD_ARGUMENT;
    }
    return pageslice::guarded([&] {
        std::string result(url == nullptr ? "" : url, url_size);
        url::NormalizeUrl(result.data());
        return pageslice::copy_out(result.data(), std::strlen(result.data()), buffer, capacity, length);
    });
}
