// SPDX-License-Identifier: MIT
// The schemes that the URL Standard treats apart, and their ports.
#ifndef PAGESLICE_URL_URL_SCHEMES_H
#define PAGESLICE_URL_URL_SCHEMES_H

#include <string_view>

#include "url/url_record.h"

namespace pageslice::url_parts {

struct scheme_rules {
    std::string_view name;
    url_scheme scheme;
    unsigned default_port;
};

// In the order of url_scheme, from which it is found again.
inline constexpr unsigned NO_PORT = 65536;
inline constexpr scheme_rules SCHEMES[] = {{"", url_scheme::other, NO_PORT},   {"http", url_scheme::http, 80},
                                           {"https", url_scheme::https, 443},  {"ws", url_scheme::ws, 80},
                                           {"wss", url_scheme::wss, 443},      {"ftp", url_scheme::ftp, 21},
                                           {"file", url_scheme::file, NO_PORT}};

} // namespace pageslice::url_parts

#endif
