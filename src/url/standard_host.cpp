// SPDX-License-Identifier: MIT
#include "url/standard_host.h"

#include <algorithm>

#include "text/string_utils.h"
#include "text/utf8.h"
#include "url/ip_address.h"
#include "url/percent_encode.h"

namespace pageslice::url_parts {
namespace {

using std::string_view;

url_result write_bracketed(string_view host, char*& out) noexcept {
    ipv6_address address;
    if (host.size() < 2 || host.back() != ']' || !parse_ipv6(host.substr(1, host.size() - 2), address)) {
        return url_result::not_a_url;
    }
    *out++ = '[';
    out = write_ipv6(address, out);
    *out++ = ']';
    return url_result::ok;
}

// The host of a scheme that is not special, of which nothing is known.
url_result write_opaque(string_view host, char*& out) noexcept {
    if ((all_sets_of(host) & FORBIDDEN_HOST) != 0) {
        return url_result::not_a_url;
    }
    out = percent_encode(host, CONTROL, out);
    return url_result::ok;
}

// Whether a label of this domain, in small letters, says that it is encoded.
bool has_encoded_label(string_view domain) noexcept {
    constexpr string_view MARK = "xn--";
    for (std::size_t i = domain.find(MARK); i != string_view::npos; i = domain.find(MARK, i + 1)) {
        if (i == 0 || domain[i - 1] == '.') {
            return true;
        }
    }
    return false;
}

// What stands in [first, last), with room for more, becomes the domain in ASCII.
url_result lower_domain(char* first, char*& last) {
    const string_view domain(first, static_cast<std::size_t>(last - first));
    const byte_set sets = all_sets_of(domain);
    if ((sets & HIGH) == 0) {
        std::transform(first, last, first, nFoldAscii);
        if (!has_encoded_label(domain)) {
            return url_result::ok;
        }
    } else if (!is_utf8(domain)) {
        return url_result::not_a_url;
    }
    if (domain.find('\0') != string_view::npos) {
        return url_result::not_a_url;
    }
    *last = '\0';
    const std::size_t size = domain_to_ascii(first, first);
    last = first + size;
    return size > 0 ? url_result::ok : url_result::needs_idna;
}

} // namespace

url_result write_host(string_view host, bool special, char*& out) {
    if (host.front() == '[') {
        return write_bracketed(host, out);
    }
    if (!special) {
        return write_opaque(host, out);
    }
    char* last = percent_decode(host, out);
    if (const url_result result = lower_domain(out, last); result != url_result::ok) {
        return result;
    }
    const string_view domain(out, static_cast<std::size_t>(last - out));
    if (domain.empty() || (all_sets_of(domain) & FORBIDDEN_DOMAIN) != 0) {
        return url_result::not_a_url;
    }
    if (!ends_in_number(domain)) {
        out = last;
        return url_result::ok;
    }
    std::uint32_t address = 0;
    if (!parse_ipv4(domain, address)) {
        return url_result::not_a_url;
    }
    out = write_ipv4(address, out);
    return url_result::ok;
}

} // namespace pageslice::url_parts
