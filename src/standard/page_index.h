// SPDX-License-Identifier: MIT
// What a page holds by the HTML Standard's tokens: title, base, links, images, table cells and list items, in
// the order of the page. There is no tree: elements end where their end tags, or the tags that the standard
// lets end them, stand; nothing is moved to where a browser would move it.
#ifndef PAGESLICE_STANDARD_PAGE_INDEX_H
#define PAGESLICE_STANDARD_PAGE_INDEX_H

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "standard/text_outline.h"
#include "text/index_limits.h"

namespace pageslice::standard {

// Records say where tags stand; what these hold is read again when it is asked for.
struct link_record {
    const char* open;     // the '<' of the start tag
    const char* text_end; // one past the text after it; null for an area, which has none
};

struct item_record {
    const char* open;
    const char* text_end;
};

struct cell_record {
    const char* open;
    const char* text_end;
    std::uint32_t table;
    std::uint32_t row;
    std::uint32_t column;
};

struct page_index {
    explicit page_index(std::string_view page) noexcept : outline(page) {}

    std::string_view title; // null data() for none
    std::string_view base;  // the first base's href
    std::vector<link_record> links;
    std::vector<const char*> images; // the '<' of each
    bool all_have_source = true;     // src; else those that have are listed once more
    std::vector<const char*> images_with_source;
    std::vector<cell_record> cells;
    std::vector<item_record> items;
    text_outline outline;
};

// Linear in the page. Throws std::bad_alloc and limit_exceeded.
page_index index_page(std::string_view page, const index_limits& limits);

} // namespace pageslice::standard

#endif
