// SPDX-License-Identifier: MIT
#include "standard/doctype.h"

#include <cstddef>

#include "standard/ascii.h"

namespace pageslice::standard {
namespace {

constexpr std::string_view PUBLIC = "public";
constexpr std::string_view SYSTEM = "system";

void skip_spaces(std::string_view& rest) noexcept {
    while (!rest.empty() && is_space(rest.front())) {
        rest.remove_prefix(1);
    }
}

// An identifier in quotes. One that is cut off counts as far as it goes; false says so, and where there is
// none.
bool read_quoted(std::string_view& rest, std::string_view& value) noexcept {
    if (rest.empty() || (rest.front() != '"' && rest.front() != '\'')) {
        return false;
    }
    const std::size_t end = rest.find(rest.front(), 1);
    value = rest.substr(1, end == std::string_view::npos ? end : end - 1);
    rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
    return end != std::string_view::npos;
}

// Whether all went by the rules, up to where the rules stop caring: after the last identifier anything may
// come, and then the page's end too.
bool read_identifiers(std::string_view rest, doctype& found, bool& is_cut_off) noexcept {
    if (rest.empty()) {
        return true;
    }
    const bool is_public = starts_folded(rest, PUBLIC);
    if (!is_public && !starts_folded(rest, SYSTEM)) {
        return false;
    }
    rest.remove_prefix(PUBLIC.size());
    skip_spaces(rest);
    if (is_public) {
        if (!read_quoted(rest, found.public_id)) {
            return false;
        }
        skip_spaces(rest);
        if (rest.empty()) {
            return true;
        }
    }
    const bool is_whole = read_quoted(rest, found.system_id);
    skip_spaces(rest);
    is_cut_off = is_cut_off && rest.empty();
    return is_whole;
}

} // namespace

doctype read_doctype(std::string_view inside, bool is_cut_off) noexcept {
    doctype found;
    skip_spaces(inside);
    std::size_t size = 0;
    while (size < inside.size() && !is_space(inside[size])) {
        ++size;
    }
    if (size == 0) {
        found.force_quirks = true;
        return found;
    }
    found.name = inside.substr(0, size);
    inside.remove_prefix(size);
    skip_spaces(inside);
    const bool is_by_the_rules = read_identifiers(inside, found, is_cut_off);
    found.force_quirks = !is_by_the_rules || is_cut_off;
    return found;
}

} // namespace pageslice::standard
