// SPDX-License-Identifier: MIT
#include "url/standard_path.h"

#include <cstddef>

#include "text/string_utils.h"
#include "url/percent_encode.h"

namespace pageslice::url_parts {
namespace {

using std::size_t;
using std::string_view;

constexpr size_t DRIVE_SIZE = 2;
constexpr size_t LONGEST_DOTS = 6; // "%2e%2e"

// How many dots a segment is made of, "%2e" being one, too; 0 when it has anything else or more than two.
unsigned count_dots(string_view segment) noexcept {
    unsigned dots = 0;
    while (!segment.empty()) {
        const bool encoded =
            segment.size() >= 3 && segment[0] == '%' && segment[1] == '2' && nFoldAscii(segment[2]) == 'e';
        if ((!encoded && segment[0] != '.') || ++dots > 2) {
            return 0;
        }
        segment.remove_prefix(encoded ? 3 : 1);
    }
    return dots;
}

} // namespace

bool is_drive(string_view in) noexcept {
    return in.size() == DRIVE_SIZE && bIsAsciiLetter(in[0]) && (in[1] == ':' || in[1] == '|');
}

bool starts_with_drive(string_view in) noexcept {
    return is_drive(in.substr(0, DRIVE_SIZE)) &&
           (in.size() == DRIVE_SIZE || in[DRIVE_SIZE] == '/' || in[DRIVE_SIZE] == '\\');
}

string_view drive_of(string_view path) noexcept {
    const string_view first = path.substr(0, 1 + DRIVE_SIZE);
    const bool found = first.size() == 1 + DRIVE_SIZE && is_drive(first.substr(1)) && first.back() == ':' &&
                       (path.size() == first.size() || path[first.size()] == '/');
    return found ? first : string_view();
}

void path_writer::shorten() noexcept {
    const string_view path(m_start, static_cast<size_t>(m_out - m_start));
    if (path.empty() || (m_scheme == url_scheme::file && drive_of(path).size() == path.size())) {
        return;
    }
    m_out = m_start + path.rfind('/');
}

// Writes up to the next slash, takes that away from `text` with the slash, and gives it as it was read.
string_view path_writer::write_segment(string_view& text) noexcept {
    const byte_set slashes = is_special(m_scheme) ? SLASH | BACKSLASH : SLASH;
    const char* const first = text.data();
    for (;;) {
        size_t n = 0;
        for (; n < text.size() && (sets_of(text[n]) & (PATH | slashes)) == 0; ++n) {
            m_out[n] = text[n];
        }
        m_out += n;
        text.remove_prefix(n);
        if (text.empty() || (sets_of(text[0]) & slashes) != 0) {
            return {first, static_cast<size_t>(text.data() - first)};
        }
        m_out = encode_character(text, m_out);
    }
}

void path_writer::mend_drive(char* segment) noexcept {
    const string_view written(segment + 1, static_cast<size_t>(m_out - segment) - 1);
    if (m_scheme == url_scheme::file && segment == m_start && is_drive(written)) {
        segment[DRIVE_SIZE] = ':';
    }
}

void path_writer::write(string_view text) noexcept {
    for (bool more = true; more;) {
        char* const segment = m_out;
        *m_out++ = '/';
        const string_view read = write_segment(text);
        more = !text.empty();
        text.remove_prefix(more ? 1 : 0);
        const unsigned dots = read.size() <= LONGEST_DOTS ? count_dots(read) : 0;
        if (dots == 0) {
            mend_drive(segment);
            continue;
        }
        m_out = segment;
        if (dots == 2) {
            shorten();
        }
        if (!more) {
            *m_out++ = '/';
        }
    }
}

} // namespace pageslice::url_parts
