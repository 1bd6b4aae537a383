// SPDX-License-Identifier: MIT
#include <algorithm>

#include "text/digits.h"
#include "url/standard_host.h"
#include "url/url_schemes.h"
#include "url/url_writer.h"

namespace pageslice::url_parts {
namespace {

using std::size_t;
using std::string_view;

// Where the ':' before the port stands; those in brackets belong to an address.
size_t find_port(string_view in) noexcept {
    bool bracketed = false;
    for (size_t i = 0; i < in.size(); ++i) {
        if (in[i] == ':' && !bracketed) {
            return i;
        }
        bracketed = in[i] == '[' || (bracketed && in[i] != ']');
    }
    return string_view::npos;
}

// NO_PORT when there are no digits; false for what is no port.
bool parse_port(string_view digits, unsigned& port) noexcept {
    unsigned number = 0;
    for (const char c : digits) {
        number = std::min(number * 10 + digit_value(c), NO_PORT);
        if (!is_digit(c) || number == NO_PORT) {
            return false;
        }
    }
    port = digits.empty() ? NO_PORT : number;
    return true;
}

// Whether a domain in small letters may be an IPv4 address or go through libidn2.
bool may_need_more(string_view domain) noexcept {
    const size_t dot = domain.rfind('.');
    const string_view last = dot == string_view::npos ? domain : domain.substr(dot + 1);
    return last.empty() || is_digit(last[0]) || domain.find("xn--") != string_view::npos;
}

} // namespace

// A host of a special scheme that is nothing but a domain and ends where the path begins, as nearly all are.
// False, with nothing read, when a closer look is needed.
bool url_writer::write_plain_domain() noexcept {
    size_t n = 0;
    for (; n < m_rest.size() && (sets_of(m_rest[n]) & (FORBIDDEN_DOMAIN | HIGH)) == 0; ++n) {
        m_out[n] = nFoldAscii(m_rest[n]);
    }
    const string_view domain(m_out, n);
    if (n == 0 || (n < m_rest.size() && m_rest[n] != '/') || may_need_more(domain)) {
        return false;
    }
    m_out += n;
    m_rest.remove_prefix(n);
    return true;
}

url_result url_writer::write_authority() {
    append("//");
    if (is_special(m_record.scheme) && write_plain_domain()) {
        return write_path_after_authority();
    }
    string_view host_and_port = take_until_slash();
    if (const size_t at = host_and_port.rfind('@'); at != string_view::npos) {
        write_credentials(host_and_port.substr(0, at));
        host_and_port.remove_prefix(at + 1);
        if (host_and_port.empty()) {
            return url_result::not_a_url;
        }
    }
    const url_result result = write_host_and_port(host_and_port);
    return result == url_result::ok ? write_path_after_authority() : result;
}

url_result url_writer::write_path_after_authority() noexcept {
    m_record.authority_end = position();
    if (m_rest.empty() && !is_special(m_record.scheme)) {
        end_path();
        return url_result::ok;
    }
    m_rest.remove_prefix(is_slash(0) ? 1 : 0);
    return write_path();
}

void url_writer::write_credentials(string_view credentials) noexcept {
    char* const start = m_out;
    const string_view password = split_at(':', credentials);
    m_out = percent_encode(credentials, USERINFO, m_out);
    if (password.size() > 1) {
        append(":");
        m_out = percent_encode(password.substr(1), USERINFO, m_out);
    }
    if (m_out != start) {
        append("@");
    }
}

url_result url_writer::write_host_and_port(string_view in) {
    const size_t colon = find_port(in);
    const bool has_port = colon != string_view::npos;
    const string_view host = in.substr(0, colon);
    unsigned port = NO_PORT;
    if (has_port && !parse_port(in.substr(colon + 1), port)) {
        return url_result::not_a_url;
    }
    if (host.empty()) {
        return has_port || is_special(m_record.scheme) ? url_result::not_a_url : url_result::ok;
    }
    const url_result result = write_host(host, is_special(m_record.scheme), m_out);
    if (result == url_result::ok) {
        write_port(port);
    }
    return result;
}

void url_writer::write_port(unsigned port) noexcept {
    if (port == NO_PORT || port == SCHEMES[static_cast<size_t>(m_record.scheme)].default_port) {
        return;
    }
    append(":");
    unsigned unit = 10000;
    while (unit > 1 && port / unit == 0) {
        unit /= 10;
    }
    for (; unit > 0; unit /= 10) {
        *m_out++ = static_cast<char>('0' + port / unit % 10);
    }
}

} // namespace pageslice::url_parts
