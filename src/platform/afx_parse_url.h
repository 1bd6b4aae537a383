// SPDX-License-Identifier: MIT
#ifndef PAGESLICE_PLATFORM_AFX_PARSE_URL_H
#define PAGESLICE_PLATFORM_AFX_PARSE_URL_H

#include <cstdint>
#include <string>

inline namespace pageslice_v1 {

// What a scheme means to the caller who wants to connect.
enum : std::uint32_t { URL_SERVICE_UNKNOWN = 0, URL_SERVICE_FTP, URL_SERVICE_HTTP, URL_SERVICE_HTTPS };

// Splits scheme://[user[:password]@]host[:port][/object], whatever the scheme; pUrl is NUL-terminated, may
// be null, and must not point into the two strings. A host in brackets keeps them. 1 when there is a host
// and the port, where one is written, is a number below 65536; without a scheme or a host 0, and server and
// object are empty. Where no usable port is written, the scheme's own is given, 0 for an unknown scheme.
// Linear. Throws std::bad_alloc.
int AfxParseURL(const char* pUrl, std::uint32_t& nServiceType, std::string& server, std::string& object,
                std::uint16_t& nPort);

} // namespace pageslice_v1

#endif
