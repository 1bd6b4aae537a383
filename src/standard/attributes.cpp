// SPDX-License-Identifier: MIT
#include "standard/attributes.h"

#include <cstddef>
#include <cstring>

namespace pageslice::standard {
namespace {

const char* find(char c, const char* p, const char* end) noexcept {
    return static_cast<const char*>(std::memchr(p, c, static_cast<std::size_t>(end - p)));
}

const char* skip_spaces(const char* p, const char* end) noexcept {
    while (p != end && is_space(*p)) {
        ++p;
    }
    return p;
}

// Which bytes end an attribute's name.
struct byte_set {
    constexpr byte_set() noexcept {
        for (const char c : {' ', '\t', '\n', '\f', '\r', '/', '>', '='}) {
            is_in[static_cast<unsigned char>(c)] = true;
        }
    }
    bool holds(char c) const noexcept { return is_in[static_cast<unsigned char>(c)]; }
    bool is_in[256] = {};
};
constexpr byte_set ENDS_ATTRIBUTE_NAME;

bool ends_name(char c) noexcept {
    return is_space(c) || c == '/' || c == '>';
}

// An attribute's name may begin with '=', but not go on with it.
const char* find_attribute_name_end(const char* p, const char* end) noexcept {
    for (++p; p != end && !ENDS_ATTRIBUTE_NAME.holds(*p); ++p) {
    }
    return p;
}

const char* find_unquoted_end(const char* p, const char* end) noexcept {
    while (p != end && *p != '>' && !is_space(*p)) {
        ++p;
    }
    return p;
}

} // namespace

const char* find_name_end(const char* p, const char* end) noexcept {
    while (p != end && !ends_name(*p)) {
        ++p;
    }
    return p;
}

const char* find_tag_close(const char* p, const char* end) noexcept {
    while (p != end && *p != '>') {
        if (is_space(*p) || *p == '/') {
            ++p;
            continue;
        }
        p = skip_spaces(find_attribute_name_end(p, end), end);
        if (p == end || *p != '=') {
            continue;
        }
        p = skip_spaces(p + 1, end);
        if (p == end) {
            break;
        }
        if (*p != '"' && *p != '\'') {
            p = find_unquoted_end(p, end);
            continue;
        }
        p = find(*p, p + 1, end);
        if (p == nullptr) {
            return nullptr;
        }
        ++p;
    }
    return p == end ? nullptr : p;
}

bool attribute_reader::next(attribute& found) noexcept {
    const char* p = m_at;
    while (is_space(*p) || *p == '/') {
        m_self_closing = *p++ == '/';
    }
    if (*p == '>') {
        m_at = p;
        return false;
    }
    m_self_closing = false;
    const char* const name = p++;
    while (!ENDS_ATTRIBUTE_NAME.holds(*p)) {
        ++p;
    }
    found = {between(name, p), {}};
    while (is_space(*p)) {
        ++p;
    }
    m_at = p;
    if (*p == '=') {
        found.value = read_value();
    }
    return true;
}

// The tag is whole, so that a quote has its other one.
std::string_view attribute_reader::read_value() noexcept {
    const char* p = m_at + 1;
    while (is_space(*p)) {
        ++p;
    }
    const char* const begin = p;
    if (*begin == '"' || *begin == '\'') {
        p = find(*begin, begin + 1, m_end);
        m_at = p + 1;
        return between(begin + 1, p);
    }
    while (*p != '>' && !is_space(*p)) {
        ++p;
    }
    m_at = p;
    return between(begin, p);
}

attribute find_attribute(const char* name_end, const char* end, std::string_view name) noexcept {
    attribute_reader reader(name_end, end);
    for (attribute found; reader.next(found);) {
        constexpr unsigned char ALL_BUT_CASE = 0xDF; // the same in letters of any size: a first look
        if (found.name.size() == name.size() && ((found.name[0] ^ name[0]) & ALL_BUT_CASE) == 0 &&
            equal_ignoring_case(found.name, name)) {
            return found;
        }
    }
    return {};
}

bool is_self_closing(const char* name_end, const char* close) noexcept {
    if (close == name_end || close[-1] != '/') {
        return false;
    }
    attribute_reader reader(name_end, close + 1);
    for (attribute passed; reader.next(passed);) {
    }
    return reader.is_self_closing();
}

} // namespace pageslice::standard
