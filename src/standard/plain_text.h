// SPDX-License-Identifier: MIT
// A page, or a slice of one, as the text that a person reads.
#ifndef PAGESLICE_STANDARD_PLAIN_TEXT_H
#define PAGESLICE_STANDARD_PLAIN_TEXT_H

#include <cstddef>
#include <string_view>

#include "standard/text_outline.h"

namespace pageslice::standard {

// The most bytes that the text of so many takes: what references grow by comes on top. SIZE_MAX when that
// does not fit.
std::size_t plain_text_bound(std::size_t size) noexcept;

// Writes the text to `out`, which has room for the bound and does not overlap the slice; gives the position
// after it. Left out are script, style, template, comments and the title. References are decoded; white space
// collapses, but not in pre, listing, xmp, textarea and plaintext; blocks and br begin a line; the cells of a
// row are parted by tabs. Linear; nothing is allocated.
char* write_plain_text(std::string_view html, char* out) noexcept;

// The same of a whole page whose outline is complete.
char* write_plain_text(std::string_view page, const text_outline& outline, char* out) noexcept;

// The same of a title, in which there are no tags.
char* write_title_text(std::string_view title, char* out) noexcept;

} // namespace pageslice::standard

#endif
