// SPDX-License-Identifier: MIT
// One page as the printers see it: what the library found in it, in UTF-8.
#ifndef PAGESLICE_TOOLS_PAGE_H
#define PAGESLICE_TOOLS_PAGE_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "pageslice/page.h"

namespace program {

class Transcoder;

// Characters of the page, in place; null data where the page has no such thing.
using Slice = std::string_view;
using Link = pageslice::link;
using Image = pageslice::image;
using Cell = pageslice::cell;
using Item = pageslice::item;

// What is known of a page before it is read.
struct Source {
    std::string_view file; // as the user names it; empty for a page that comes from no file
    std::string_view url;  // the page's own; empty where nobody knows it
    pageslice::rules rules = pageslice::rules::classic;
    std::string_view encoding; // told from outside; empty where nobody tells
};

class Page {
public:
    // `pageBytes` and what `source` names stay the caller's and outlive the page. Throws Failure for a page
    // that would take more memory than its size allows.
    Page(const Source& source, std::string_view pageBytes);

    Slice file() const { return from.file; }
    bool isStandard() const { return from.rules == pageslice::rules::standard; }
    // The page that the slices point into, and where it comes from another encoding as a whole, its form in
    // UTF-8.
    std::string_view bytes() const { return html; }
    bool isConverted() const { return !converted.empty(); }
    std::string_view encoding() const { return pageEncoding; }
    // How many of those bytes were read.
    std::size_t readTo() const { return found.read_to(); }

    // Links in the order of the page, as all else.
    auto links() const { return found.links_in_page_order(); }
    auto images() const { return found.images(); }
    auto items() const { return found.list_items(); }
    auto cells() const { return found.cells(); }
    Slice title() const { return found.title(); }
    Slice url() const { return from.url; }
    // By the classic rules an image without a source is none.
    bool shows(const Image& image) const { return isStandard() || !image.src.empty(); }
    std::size_t countImages() const;

    // A slice in UTF-8, but for what is broken in a page of UTF-8; in `scratch` where it is not in the page.
    Slice utf8(Slice slice, std::string& scratch) const;
    // The plain text of a slice in UTF-8.
    Slice plain(Slice slice, std::string& scratch) const;
    // A link or a source made absolute; false where that is not known, or no URL.
    bool absolute(Slice written, std::string& result) const;
    // Whether addresses can be made absolute.
    bool hasUrls() const { return isStandard() || !from.url.empty(); }

    std::size_t offsetOf(Slice slice) const { return static_cast<std::size_t>(slice.data() - html.data()); }

    // How many bytes of a text to print. Slices may overlap, and a hostile page makes them do so until
    // their sum is quadratic in its length; such a page gets short texts.
    std::size_t textLimit() const { return limit; }
    Slice shortened(Slice slice) const { return slice.substr(0, limit); }

    // The first image whose source lies inside a slice; one without a source where there is none.
    const Image& imageIn(Slice slice) const;

private:
    void open(std::string_view encodingName);
    std::size_t sumOfTexts() const;

    Source from;
    std::string_view html;
    std::string converted;
    pageslice::page found;
    std::string_view pageEncoding;
    const Transcoder* pTranscoder = nullptr; // null for UTF-8
    std::size_t limit = Slice::npos;
    // For imageIn: to look at an image is to read its tag again, and the next text often holds the same one.
    mutable std::vector<const char*> sources = {};
    mutable Image lastImage = {};
};

} // namespace program

#endif
