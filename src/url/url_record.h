// SPDX-License-Identifier: MIT
// Where the parts of a serialized URL stand.
#ifndef PAGESLICE_URL_URL_RECORD_H
#define PAGESLICE_URL_URL_RECORD_H

#include <cstddef>

namespace pageslice {

// Schemes that the URL Standard treats apart.
enum class url_scheme { other, http, https, ws, wss, ftp, file };

constexpr bool is_special(url_scheme scheme) noexcept {
    return scheme != url_scheme::other;
}

// Offsets into the serialized form, each where a part ends and, but for the path, the next begins.
struct url_record {
    std::size_t scheme_end = 0;    // after the ':'
    std::size_t authority_end = 0; // equal to scheme_end when there is no host, not even an empty one
    std::size_t path_start = 0;    // after the "/." that keeps a path of empty segments from being a host
    std::size_t path_end = 0;
    std::size_t query_end = 0; // a query begins with its '?'; what follows is the fragment
    url_scheme scheme = url_scheme::other;
    bool opaque_path = false;
};

} // namespace pageslice

#endif
