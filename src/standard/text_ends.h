// SPDX-License-Identifier: MIT
// Where comments and the text of elements with a text mode of their own end, by the HTML Standard.
#ifndef PAGESLICE_STANDARD_TEXT_ENDS_H
#define PAGESLICE_STANDARD_TEXT_ENDS_H

#include <string_view>

#include "standard/markup_map.h"

namespace pageslice::standard {

// One past the end of a piece of markup, and what stands in it.
struct marked_text {
    std::string_view text;
    const char* end;
};

// The comment whose "<!--" stands at `open`; it ends with the page where nothing else ends it.
marked_text read_comment(const char* open, markup_map& map) noexcept;

// What the standard calls a bogus comment: from `text` on up to the next '>'.
marked_text read_bogus_comment(const char* text, markup_map& map) noexcept;

// The CDATA section whose text begins there.
marked_text read_cdata(const char* text, markup_map& map) noexcept;

// The '<' of the end tag that closes an element's text, which begins at p; the page's end when none does. The
// element's name is given in small letters.
const char* find_raw_end(const char* p, std::string_view name, markup_map& map) noexcept;
const char* find_script_end(const char* p, markup_map& map) noexcept;

} // namespace pageslice::standard

#endif
