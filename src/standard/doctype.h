// SPDX-License-Identifier: MIT
// What a document type declaration says.
#ifndef PAGESLICE_STANDARD_DOCTYPE_H
#define PAGESLICE_STANDARD_DOCTYPE_H

#include <string_view>

namespace pageslice::standard {

// Null data() for what is not given.
struct doctype {
    std::string_view name;
    std::string_view public_id;
    std::string_view system_id;
    bool force_quirks = false;
};

// Reads what stands between "<!DOCTYPE" and the next '>', which always ends it; or up to the page's end,
// where none follows: is_cut_off. Linear.
doctype read_doctype(std::string_view inside, bool is_cut_off) noexcept;

} // namespace pageslice::standard

#endif
