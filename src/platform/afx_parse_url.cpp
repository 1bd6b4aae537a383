// SPDX-License-Identifier: MIT
#include "platform/afx_parse_url.h"

#include <algorithm>
#include <string_view>

inline namespace pageslice_v1 {

namespace {

struct Service {
    std::string_view scheme;
    std::uint32_t nType;
    std::uint16_t nPort;
};

bool bSameIgnoringCase(char letter, char lower) {
    return letter == lower || (letter >= 'A' && letter <= 'Z' && letter - 'A' + 'a' == lower);
}

Service FindService(std::string_view scheme) {
    static constexpr Service SERVICES[] = {
        {"http", URL_SERVICE_HTTP, 80}, {"https", URL_SERVICE_HTTPS, 443}, {"ftp", URL_SERVICE_FTP, 21}};
    for (const Service& service : SERVICES) {
        if (std::equal(scheme.begin(), scheme.end(), service.scheme.begin(), service.scheme.end(),
                       bSameIgnoringCase)) {
            return service;
        }
    }
    return {scheme, URL_SERVICE_UNKNOWN, 0};
}

// Length of the host at the start of "host[:port]". The colons of an address in brackets are its own.
std::size_t nHostLength(std::string_view hostAndPort) {
    const std::size_t nBracket =
        hostAndPort.substr(0, 1) == "[" ? hostAndPort.find(']') : std::string_view::npos;
    return nBracket != std::string_view::npos ? nBracket + 1
                                              : std::min(hostAndPort.find(':'), hostAndPort.size());
}

struct Pieces {
    std::string_view scheme;
    std::string_view host;
    std::string_view port; // with its ':', and with whatever else stands behind the host
    std::string_view object;
};

// All pieces are empty without a scheme or without a host.
Pieces SplitUrl(std::string_view whole) {
    const std::size_t nScheme = std::min(whole.find_first_of(":/?#"), whole.size());
    if (nScheme == 0 || whole.substr(nScheme, 3) != "://") {
        return {};
    }
    const std::string_view rest = whole.substr(nScheme + 3);
    std::string_view authority = rest.substr(0, rest.find_first_of("/?#"));
    const std::string_view object = rest.substr(authority.size());
    authority.remove_prefix(authority.rfind('@') + 1); // a password may hold '@', a host cannot
    const std::size_t nHost = nHostLength(authority);
    if (nHost == 0) {
        return {};
    }
    return {whole.substr(0, nScheme), authority.substr(0, nHost), authority.substr(nHost), object};
}

// Reads ":number"; nPort keeps what it holds where no number is written. 0 for anything else.
int bParsePort(std::string_view port, std::uint16_t& nPort) {
    if (port.empty() || port == ":") {
        return 1;
    }
    if (port.front() != ':') {
        return 0;
    }
    unsigned n = 0;
    for (const char c : port.substr(1)) {
        if (c < '0' || c > '9') {
            return 0;
        }
        n = n * 10 + static_cast<unsigned>(c - '0');
        if (n > UINT16_MAX) {
            return 0;
        }
    }
    nPort = static_cast<std::uint16_t>(n);
    return 1;
}

} // namespace

int AfxParseURL(const char* pUrl, std::uint32_t& nServiceType, std::string& server, std::string& object,
                std::uint16_t& nPort) {
    const Pieces pieces = SplitUrl(pUrl == nullptr ? "" : pUrl);
    const Service service = FindService(pieces.scheme);
    nServiceType = service.nType;
    nPort = service.nPort;
    server.assign(pieces.host);
    object.assign(pieces.object);
    return pieces.host.empty() ? 0 : bParsePort(pieces.port, nPort);
}

} // namespace pageslice_v1
