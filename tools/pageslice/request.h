// SPDX-License-Identifier: MIT
// What one line of a stream asks for.
#ifndef PAGESLICE_TOOLS_REQUEST_H
#define PAGESLICE_TOOLS_REQUEST_H

#include <string_view>

#include "bytes.h"

namespace program {

struct Request {
    std::string_view html;
    std::string_view url; // empty: none was given
    std::string_view id;  // as JSON, to be handed through; empty: none was given
    bool isRepaired = false;
};

// Reads {"html": "...", "url": "...", "id": ...} in one pass and without a tree, so that no line takes more
// memory than it has bytes: the strings are decoded where they stand, which changes the line, and the request
// points into it. What is no Unicode becomes U+FFFD; only where that does not fit in place does it go to
// `repaired`. Other members are passed over without being judged. Throws Failure.
//
// Made for this: of a line of 256 MiB of opening brackets, simdjson's reader on demand takes three times the
// line besides it and RapidJSON's iterative one seven times; the first refuses a page with one broken
// character, both a lone surrogate. Where it throws, `request` holds what came before.
void readRequest(Bytes& line, Bytes& repaired, Request& request);

} // namespace program

#endif
