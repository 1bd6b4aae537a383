// SPDX-License-Identifier: MIT
// Character references (&amp;, &#8364;) as the HTML Standard reads them, and values decoded to UTF-8.
// Nothing is allocated, and no byte outside what is passed in is read.
#ifndef PAGESLICE_TEXT_CHARACTER_REFERENCES_H
#define PAGESLICE_TEXT_CHARACTER_REFERENCES_H

#include <cstddef>
#include <string_view>

namespace pageslice {

// What one reference stands for.
struct character_reference {
    std::size_t size = 0; // its bytes from the '&' on; 0: this '&' opens no reference and stands for itself
    char32_t first = 0;   // never a surrogate, never above U+10FFFF
    char32_t second = 0;  // 0 for all but a few names, which stand for two characters
};

// The reference at the start of `in`, whose first byte is taken to be its '&'. Looks at no more bytes than
// the reference has, or than the longest name; only a number is read to its last digit. In an attribute's
// value a name without ';' is no reference before a letter, a digit or '='.
character_reference read_reference(std::string_view in, bool in_attribute) noexcept;

// Writes a character, which is no surrogate, as one to four bytes of UTF-8. Gives the position after them.
char* write_utf8(char32_t character, char* out) noexcept;

// Where a value stands: what its NULs become depends on that.
enum class value_kind {
    text,      // between tags: they stay, for it is the tree's builder that may drop them
    attribute, // U+FFFD, and names without ';' may be no references
    rcdata,    // in title or textarea: U+FFFD
    raw,       // in script, style or a comment: U+FFFD, and there are no references
    cdata      // in a CDATA section: they stay, and there are no references
};

// The most bytes that decoding these gives: no reference grows by more than a fifth, only a NUL to three
// bytes. SIZE_MAX when that does not fit.
std::size_t decoded_bound(std::string_view in, value_kind kind) noexcept;

// Writes a value's characters to `out`, which has room for decoded_bound() bytes and does not overlap `in`;
// gives the position after them. References become UTF-8, CR and CR LF become LF, NUL what value_kind says;
// all other bytes stay as they are, so that the result is in UTF-8 when the page is. A CR or NUL that is
// written as a reference is not changed further. Linear time.
char* decode_references(std::string_view in, value_kind kind, char* out) noexcept;

} // namespace pageslice

#endif
