// SPDX-License-Identifier: MIT
#include "pageslice/pageslice_c.h"

#include <memory>
#include <string_view>

#include "c_api/page_handle.h"
#include "c_api/results.h"
#include "standard/encoding.h"
#include "text/character_references.h"

static_assert(PAGESLICE_DECODE_TEXT == static_cast<int>(pageslice::value_kind::text) &&
                  PAGESLICE_DECODE_ATTRIBUTE == static_cast<int>(pageslice::value_kind::attribute) &&
                  PAGESLICE_DECODE_RCDATA == static_cast<int>(pageslice::value_kind::rcdata) &&
                  PAGESLICE_DECODE_RAW == static_cast<int>(pageslice::value_kind::raw) &&
                  PAGESLICE_DECODE_CDATA == static_cast<int>(pageslice::value_kind::cdata),
              "a code and a kind are the same number");

namespace pageslice {
namespace {

bool is_decoding(int kind) noexcept {
    return kind >= PAGESLICE_DECODE_TEXT && kind <= PAGESLICE_DECODE_CDATA;
}

bool are_valid(const pageslice_options& options) noexcept {
    return (options.rules == PAGESLICE_CLASSIC || options.rules == PAGESLICE_STANDARD) &&
           is_range(options.url, options.url_size) && is_range(options.encoding, options.encoding_size);
}

using Count = std::size_t (pageslice_page::*)() const noexcept;

std::size_t count(const pageslice_page* page, Count how_many) noexcept {
    return page == nullptr ? 0 : (page->*how_many)();
}

// One element of a collection, into a structure of the host.
template <class Element>
int get(const pageslice_page* page, Count how_many,
        Element (pageslice_page::*element)(std::size_t) const noexcept, std::size_t index, void* result,
        std::size_t result_size) noexcept {
    if (page == nullptr || result == nullptr) {
        return PAGESLICE_BAD_ARGUMENT;
    }
    if (index >= (page->*how_many)()) {
        return PAGESLICE_NOT_FOUND;
    }
    give((page->*element)(index), result, result_size);
    return PAGESLICE_OK;
}

int found(pageslice_slice slice, pageslice_slice* result) noexcept {
    if (slice.data == nullptr) {
        return PAGESLICE_NOT_FOUND;
    }
    *result = slice;
    return PAGESLICE_OK;
}

int put_plain_text(const pageslice_page& page, std::string_view slice, const output& out) noexcept {
    return produce(page.plain_text_bound(slice.size()), out,
                   [&](char* room) { return page.write_plain_text(slice, room); });
}

} // namespace
} // namespace pageslice

int pageslice_version(void) noexcept {
    return PAGESLICE_VERSION;
}

const char* pageslice_version_string(void) noexcept {
    return PAGESLICE_VERSION_STRING;
}

int pageslice_open(const char* html, size_t html_size, const char* url, size_t url_size,
                   pageslice_page** page) noexcept {
    pageslice_options options = {};
    options.url = url;
    options.url_size = url_size;
    return pageslice_open_with(html, html_size, &options, sizeof options, page);
}

int pageslice_open_with(const char* html, size_t html_size, const pageslice_options* options,
                        size_t options_size, pageslice_page** page) noexcept {
    if (page == nullptr) {
        return PAGESLICE_BAD_ARGUMENT;
    }
    *page = nullptr;
    pageslice_options all = {};
    if (!pageslice::is_range(html, html_size) ||
        (options != nullptr && !pageslice::take(options, options_size, all)) || !pageslice::are_valid(all)) {
        return PAGESLICE_BAD_ARGUMENT;
    }
    return pageslice::guarded([&] {
        const auto open = all.rules == PAGESLICE_CLASSIC ? pageslice::open_classic : pageslice::open_standard;
        *page = open(pageslice::view(html, html_size), all).release();
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
    return page->has_url ? pageslice::found({page->url.data(), page->url.size()}, url) : PAGESLICE_NOT_FOUND;
}

int pageslice_get_title(const pageslice_page* page, pageslice_slice* title) noexcept {
    if (page == nullptr || title == nullptr) {
        return PAGESLICE_BAD_ARGUMENT;
    }
    return pageslice::found(page->title(), title);
}

int pageslice_get_read_to(const pageslice_page* page, size_t* bytes) noexcept {
    if (page == nullptr || bytes == nullptr) {
        return PAGESLICE_BAD_ARGUMENT;
    }
    *bytes = page->read_to();
    return PAGESLICE_OK;
}

int pageslice_get_base(const pageslice_page* page, pageslice_slice* base) noexcept {
    if (page == nullptr || base == nullptr) {
        return PAGESLICE_BAD_ARGUMENT;
    }
    return pageslice::found(page->base(), base);
}

int pageslice_get_encoding(const pageslice_page* page, pageslice_slice* name) noexcept {
    if (page == nullptr || name == nullptr) {
        return PAGESLICE_BAD_ARGUMENT;
    }
    *name = pageslice::slice_of(pageslice::standard::sniff_encoding(page->html, page->encoding_told));
    return PAGESLICE_OK;
}

size_t pageslice_count_links(const pageslice_page* page) noexcept {
    return pageslice::count(page, &pageslice_page::count_links);
}

size_t pageslice_count_images(const pageslice_page* page) noexcept {
    return pageslice::count(page, &pageslice_page::count_images);
}

size_t pageslice_count_cells(const pageslice_page* page) noexcept {
    return pageslice::count(page, &pageslice_page::count_cells);
}

size_t pageslice_count_items(const pageslice_page* page) noexcept {
    return pageslice::count(page, &pageslice_page::count_items);
}

size_t pageslice_count_link_urls(const pageslice_page* page) noexcept {
    return pageslice::count(page, &pageslice_page::count_links);
}

size_t pageslice_count_image_urls(const pageslice_page* page) noexcept {
    return pageslice::count(page, &pageslice_page::count_image_urls);
}

int pageslice_get_link(const pageslice_page* page, size_t index, pageslice_link* link,
                       size_t link_size) noexcept {
    return pageslice::get(page, &pageslice_page::count_links, &pageslice_page::link, index, link, link_size);
}

int pageslice_get_link_in_page_order(const pageslice_page* page, size_t index, pageslice_link* link,
                                     size_t link_size) noexcept {
    return pageslice::get(page, &pageslice_page::count_links, &pageslice_page::link_in_page_order, index,
                          link, link_size);
}

int pageslice_get_image(const pageslice_page* page, size_t index, pageslice_image* image,
                        size_t image_size) noexcept {
    return pageslice::get(page, &pageslice_page::count_images, &pageslice_page::image, index, image,
                          image_size);
}

int pageslice_get_cell(const pageslice_page* page, size_t index, pageslice_cell* cell,
                       size_t cell_size) noexcept {
    return pageslice::get(page, &pageslice_page::count_cells, &pageslice_page::cell, index, cell, cell_size);
}

int pageslice_get_item(const pageslice_page* page, size_t index, pageslice_item* item,
                       size_t item_size) noexcept {
    return pageslice::get(page, &pageslice_page::count_items, &pageslice_page::item, index, item, item_size);
}

int pageslice_get_link_url(const pageslice_page* page, size_t index, pageslice_slice* url) noexcept {
    return pageslice::get(page, &pageslice_page::count_links, &pageslice_page::link_url, index, url,
                          sizeof *url);
}

int pageslice_get_image_url(const pageslice_page* page, size_t index, pageslice_slice* url) noexcept {
    return pageslice::get(page, &pageslice_page::count_image_urls, &pageslice_page::image_url, index, url,
                          sizeof *url);
}

size_t pageslice_plain_text_bound(const pageslice_page* page, size_t size) noexcept {
    const std::size_t bound = page == nullptr ? 0 : page->plain_text_bound(size);
    return bound == pageslice::NO_BOUND ? 0 : bound;
}

int pageslice_get_plain_text(const pageslice_page* page, char* buffer, size_t capacity,
                             size_t* length) noexcept {
    const pageslice::output out{buffer, capacity, length};
    if (page == nullptr || !out.is_usable()) {
        return PAGESLICE_BAD_ARGUMENT;
    }
    return pageslice::put_plain_text(*page, page->html, out);
}

int pageslice_get_plain_text_of(const pageslice_page* page, const char* slice, size_t slice_size,
                                char* buffer, size_t capacity, size_t* length) noexcept {
    const pageslice::output out{buffer, capacity, length};
    if (page == nullptr || !pageslice::is_range(slice, slice_size) || !out.is_usable()) {
        return PAGESLICE_BAD_ARGUMENT;
    }
    return pageslice::put_plain_text(*page, pageslice::view(slice, slice_size), out);
}

int pageslice_absolute(const pageslice_page* page, const char* url, size_t url_size, char* buffer,
                       size_t capacity, size_t* length) noexcept {
    const pageslice::output out{buffer, capacity, length};
    if (page == nullptr || !pageslice::is_range(url, url_size) || !out.is_usable()) {
        return PAGESLICE_BAD_ARGUMENT;
    }
    return pageslice::guarded([&] { return page->absolute(pageslice::view(url, url_size), out); });
}

int pageslice_decode(const char* text, size_t text_size, int kind, char* buffer, size_t capacity,
                     size_t* length) noexcept {
    const pageslice::output out{buffer, capacity, length};
    if (!pageslice::is_decoding(kind) || !pageslice::is_range(text, text_size) || !out.is_usable()) {
        return PAGESLICE_BAD_ARGUMENT;
    }
    const std::string_view in = pageslice::view(text, text_size);
    const auto value = static_cast<pageslice::value_kind>(kind);
    return pageslice::produce(pageslice::decoded_bound(in, value), out,
                              [&](char* room) { return pageslice::decode_references(in, value, room); });
}

size_t pageslice_decoded_bound(const char* text, size_t text_size, int kind) noexcept {
    if (!pageslice::is_decoding(kind) || !pageslice::is_range(text, text_size)) {
        return 0;
    }
    return pageslice::decoded_bound(pageslice::view(text, text_size),
                                    static_cast<pageslice::value_kind>(kind));
}

void pageslice_release_string(char* string) noexcept {
    delete[] string;
}
