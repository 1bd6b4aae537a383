// One page and what the library found in it.
#ifndef PAGESLICE_TOOLS_PAGE_H
#define PAGESLICE_TOOLS_PAGE_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace pageslice {

// Characters of the page, in place; null data where the page has no such thing.
using Slice = std::string_view;

struct Link {
    Slice href;
    Slice text;      // with the markup inside it
    std::string url; // absolute; empty where the page's is not known
};

struct Image {
    Slice src;
    Slice alt;
    int width = -1; // -1: not given
    int height = -1;
    std::string url;
};

// Every slice points into `bytes`, which the caller keeps alive. Links, images, items and cells stand in
// the order of the page.
struct Page {
    std::string file; // as the user names it; empty for a page that comes from no file
    std::string url;  // the page's own; empty where nobody knows it
    std::string_view bytes;
    Slice title;
    std::vector<Link> links;
    std::vector<Image> images;
    std::vector<Slice> items;
    std::vector<Slice> cells;
    std::string text; // plain text; empty unless asked for

    // How many bytes of a text to print. Slices may overlap, and a hostile page makes them do so until
    // their sum is quadratic in its length; such a page gets short texts.
    std::size_t textLimit = Slice::npos;

    std::size_t offsetOf(Slice slice) const { return static_cast<std::size_t>(slice.data() - bytes.data()); }
};

// With the page's own URL, links and images become absolute too.
Page readPage(std::string file, std::string url, std::string_view bytes, bool withText);

} // namespace pageslice

#endif
