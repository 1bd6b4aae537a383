// SPDX-License-Identifier: MIT
// Domains beyond ASCII, by libidn2 where the build has it.
#ifndef PAGESLICE_PLATFORM_IDNA_H
#define PAGESLICE_PLATFORM_IDNA_H

#include <cstddef>

namespace pageslice {

// No domain comes out longer than this.
inline constexpr std::size_t LONGEST_ASCII_DOMAIN = 255;

// Turns a domain in UTF-8, which a NUL ends, into the ASCII form that browsers look up (UTS 46, not
// transitional), and gives its size. 0 where the build has no libidn2, and for what that refuses: by its
// stricter rules (IDNA 2008) more than browsers do, symbols and emoji above all. `ascii` has room for
// LONGEST_ASCII_DOMAIN characters and may be where the domain stands; no more than the result is written.
// Throws std::bad_alloc.
std::size_t domain_to_ascii(const char* domain, char* ascii);

} // namespace pageslice

#endif
