// SPDX-License-Identifier: MIT
// Hosts by the URL Standard.
#ifndef PAGESLICE_URL_STANDARD_HOST_H
#define PAGESLICE_URL_STANDARD_HOST_H

#include <cstddef>
#include <string_view>

#include "platform/idna.h"
#include "url/standard_url.h"

namespace pageslice::url_parts {

// What a host may have more than it was written with, apart from what percent-encoding adds: an address in
// full, and a domain that goes through libidn2.
inline constexpr std::size_t ADDRESS_GROWTH = 48;
inline constexpr std::size_t DOMAIN_GROWTH = LONGEST_ASCII_DOMAIN + 1;

// Writes a host, which is not empty, in its serialized form and moves `out` after it. What was written
// counts only when the result is ok. Throws std::bad_alloc.
url_result write_host(std::string_view host, bool special, char*& out);

} // namespace pageslice::url_parts

#endif
