// SPDX-License-Identifier: MIT
// Which character encoding a page is in. Nothing is converted here, and nothing is allocated.
#ifndef PAGESLICE_STANDARD_ENCODING_H
#define PAGESLICE_STANDARD_ENCODING_H

#include <string_view>

namespace pageslice::standard {

// The name that the Encoding Standard gives the encoding of a label ("latin1" is "windows-1252"), empty when
// it knows no such label. White space around the label and the case of its letters do not count. The name is
// a constant, with a NUL after its last character.
std::string_view encoding_of_label(std::string_view label) noexcept;

// The name of the encoding that browsers read this page in when `label` came with it from outside, as in an
// HTTP header; a label that is empty or unknown counts as none. Never empty. In this order, as the HTML
// Standard has it:
//   - a byte order mark at the page's start, which is stronger than any label;
//   - the label from outside;
//   - what the page's first 1024 bytes declare in a meta tag or an XML declaration;
//   - windows-1252.
// Reads no byte from the 1025th on. Takes time linear in what it reads.
std::string_view sniff_encoding(std::string_view page, std::string_view label) noexcept;

} // namespace pageslice::standard

#endif
