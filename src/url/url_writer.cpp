// SPDX-License-Identifier: MIT
#include "url/url_writer.h"

#include <algorithm>
#include <cstring>

#include "text/digits.h"
#include "url/standard_host.h"
#include "url/standard_path.h"
#include "url/url_schemes.h"

namespace pageslice::url_parts {
namespace {

using std::size_t;
using std::string_view;

url_scheme scheme_named(string_view name) noexcept {
    for (const scheme_rules& rules : SCHEMES) {
        if (rules.name == name) {
            return rules.scheme;
        }
    }
    return url_scheme::other;
}

bool is_scheme_character(char c) noexcept {
    return is_alphanumeric(c) || c == '+' || c == '-' || c == '.';
}

} // namespace

url_writer::url_writer(string_view input, string_view base, const url_record& base_record, char* out) noexcept
    : m_rest(input), m_fragment(split_at('#', m_rest)), m_query(split_at('?', m_rest)), m_base(base),
      m_base_record(base_record), m_first(out), m_out(out) {}

url_result url_writer::write() {
    const url_result result = read_scheme() ? write_absolute() : write_reference();
    if (result == url_result::ok) {
        write_query();
        write_fragment();
    }
    return result;
}

void url_writer::append(string_view bytes) noexcept {
    m_out = std::copy(bytes.begin(), bytes.end(), m_out);
}

string_view url_writer::take_until_slash() noexcept {
    size_t n = 0;
    while (n < m_rest.size() && !is_slash(n)) {
        ++n;
    }
    const string_view taken = m_rest.substr(0, n);
    m_rest.remove_prefix(n);
    return taken;
}

void url_writer::skip_slashes() noexcept {
    while (is_slash(0)) {
        m_rest.remove_prefix(1);
    }
}

// ---- What is absolute and what is not

bool url_writer::read_scheme() noexcept {
    if (m_rest.empty() || !bIsAsciiLetter(m_rest[0])) {
        return false;
    }
    const size_t n = static_cast<size_t>(std::find_if_not(m_rest.begin(), m_rest.end(), is_scheme_character) -
                                         m_rest.begin());
    if (n == m_rest.size() || m_rest[n] != ':') {
        return false;
    }
    m_out =
        std::transform(m_rest.begin(), m_rest.begin() + static_cast<std::ptrdiff_t>(n), m_out, nFoldAscii);
    m_record.scheme = scheme_named({m_first, n});
    append(":");
    m_record.scheme_end = m_record.authority_end = position();
    m_rest.remove_prefix(n + 1);
    return true;
}

url_result url_writer::write_absolute() {
    if (m_record.scheme == url_scheme::file) {
        return write_file();
    }
    const bool marked = m_rest.substr(0, 2) == "//";
    if (is_special(m_record.scheme)) {
        // "http:page" is relative to a base of that scheme.
        if (!marked && !m_base.empty() && m_base_record.scheme == m_record.scheme) {
            return write_relative();
        }
        skip_slashes();
        return write_authority();
    }
    if (marked) {
        m_rest.remove_prefix(2);
        return write_authority();
    }
    if (is_slash(0)) {
        m_rest.remove_prefix(1);
        return write_path();
    }
    write_opaque_path();
    return url_result::ok;
}

url_result url_writer::write_reference() {
    if (m_base.empty()) {
        return url_result::not_a_url;
    }
    copy_base(m_base_record.scheme_end);
    if (m_base_record.opaque_path) {
        const bool only_fragment = m_rest.empty() && m_query.empty() && !m_fragment.empty();
        return only_fragment ? write_after_base_path() : url_result::not_a_url;
    }
    return m_record.scheme == url_scheme::file ? write_file() : write_relative();
}

url_result url_writer::write_relative() {
    if (!is_slash(0)) {
        return write_after_base_path();
    }
    if (!is_slash(1)) {
        copy_base(m_base_record.authority_end);
        m_rest.remove_prefix(1);
        return write_path();
    }
    copy_base(m_base_record.scheme_end);
    m_rest.remove_prefix(2);
    if (is_special(m_record.scheme)) {
        skip_slashes();
    }
    return write_authority();
}

// What does not begin with a slash stands beside the last segment of the base's path, if it is there at all.
url_result url_writer::write_after_base_path() noexcept {
    if (m_rest.empty()) {
        copy_base(m_query.empty() ? m_base_record.query_end : m_base_record.path_end);
        return url_result::ok;
    }
    copy_base(m_base_record.authority_end);
    if (m_record.scheme != url_scheme::file || !starts_with_drive(m_rest)) {
        append(m_base.substr(m_base_record.path_start, m_base_record.path_end - m_base_record.path_start));
        path_writer path(m_record.scheme, m_first + m_record.authority_end, m_out);
        path.shorten();
        m_out = path.end();
    }
    return write_path();
}

url_result url_writer::write_file() {
    if (is_slash(0) && is_slash(1)) {
        m_rest.remove_prefix(2);
        return write_file_host();
    }
    if (!is_file_based()) {
        append("//");
        m_record.authority_end = position();
        m_rest.remove_prefix(is_slash(0) ? 1 : 0);
        return write_path();
    }
    if (!is_slash(0)) {
        return write_after_base_path();
    }
    copy_base(m_base_record.authority_end);
    m_rest.remove_prefix(1);
    if (!starts_with_drive(m_rest)) {
        append(drive_of(
            m_base.substr(m_base_record.path_start, m_base_record.path_end - m_base_record.path_start)));
    }
    return write_path();
}

// After "file://" a drive is no host, but where the path begins.
url_result url_writer::write_file_host() {
    const string_view rest = m_rest;
    const string_view host = take_until_slash();
    append("//");
    char* const start = m_out;
    if (is_drive(host)) {
        m_rest = rest;
    } else {
        if (const url_result result = host.empty() ? url_result::ok : write_host(host, true, m_out);
            result != url_result::ok) {
            return result;
        }
        if (string_view(start, static_cast<size_t>(m_out - start)) == "localhost") {
            m_out = start;
        }
        m_rest.remove_prefix(is_slash(0) ? 1 : 0);
    }
    m_record.authority_end = position();
    return write_path();
}

// ---- Path and query

void url_writer::copy_base(size_t end) noexcept {
    m_record = m_base_record;
    m_out = m_first;
    append(m_base.substr(0, end));
}

// The rest is all of the path that is left to write, without the slash before it.
url_result url_writer::write_path() noexcept {
    path_writer path(m_record.scheme, m_first + m_record.authority_end, m_out);
    path.write(m_rest);
    m_out = path.end();
    end_path();
    return url_result::ok;
}

void url_writer::write_opaque_path() noexcept {
    m_record.opaque_path = true;
    const bool last = m_query.empty() && m_fragment.empty();
    // A space at its end would be lost with what follows.
    const bool spaced = !last && !m_rest.empty() && m_rest.back() == ' ';
    m_out = percent_encode(spaced ? m_rest.substr(0, m_rest.size() - 1) : m_rest, CONTROL, m_out);
    append(spaced ? "%20" : "");
    end_path();
}

// Without a host, a path may not look as if it began with one.
void url_writer::end_path() noexcept {
    char* const path = m_first + m_record.authority_end;
    const bool bare = m_record.authority_end == m_record.scheme_end && !m_record.opaque_path;
    m_record.path_start = m_record.authority_end;
    if (bare && m_out - path >= 2 && path[0] == '/' && path[1] == '/') {
        std::memmove(path + 2, path, static_cast<size_t>(m_out - path));
        path[1] = '.';
        m_out += 2;
        m_record.path_start += 2;
    }
    m_record.path_end = position();
}

void url_writer::write_query() noexcept {
    if (!m_query.empty()) {
        append("?");
        m_out = percent_encode(m_query.substr(1), is_special(m_record.scheme) ? SPECIAL_QUERY : QUERY, m_out);
    }
    m_record.query_end = position();
}

void url_writer::write_fragment() noexcept {
    if (!m_fragment.empty()) {
        append("#");
        m_out = percent_encode(m_fragment.substr(1), FRAGMENT, m_out);
    }
}

} // namespace pageslice::url_parts
