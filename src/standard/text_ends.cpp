// SPDX-License-Identifier: MIT
#include "standard/text_ends.h"

#include <algorithm>
#include <cstddef>

#include "standard/ascii.h"

namespace pageslice::standard {
namespace {

constexpr std::string_view COMMENT_OPEN = "<!--";
constexpr std::string_view SCRIPT = "script";

bool ends_with(std::string_view s, std::string_view end) noexcept {
    return s.size() >= end.size() && s.substr(s.size() - end.size()) == end;
}

// Whether that name stands at p and ends there as a tag's does.
bool is_tag_name(const char* p, const char* end, std::string_view name) noexcept {
    const std::string_view rest = between(p, end);
    if (rest.size() <= name.size() || !starts_folded(rest, name)) {
        return false;
    }
    const char next = rest[name.size()];
    return is_space(next) || next == '/' || next == '>';
}

// What the page's end leaves of a comment: an end that was begun is no text.
std::string_view cut_off(std::string_view text) noexcept {
    for (const std::string_view end : {"--!", "--", "-"}) {
        if (ends_with(text, end)) {
            return text.substr(0, text.size() - end.size());
        }
    }
    return text;
}

} // namespace

marked_text read_comment(const char* open, markup_map& map) noexcept {
    const char* const begin = open + COMMENT_OPEN.size();
    const char* const end = map.end();
    for (const char* close = map.next_close(begin); close != end; close = map.next_close(close + 1)) {
        const std::string_view text = between(begin, close);
        if (text.empty() || text == "-") {
            return {between(begin, begin), close + 1};
        }
        for (const std::string_view mark : {"--", "--!"}) {
            if (ends_with(text, mark)) {
                return {text.substr(0, text.size() - mark.size()), close + 1};
            }
        }
    }
    return {cut_off(between(begin, end)), end};
}

marked_text read_bogus_comment(const char* text, markup_map& map) noexcept {
    const char* const close = map.next_close(text);
    return {between(text, close), close == map.end() ? close : close + 1};
}

marked_text read_cdata(const char* text, markup_map& map) noexcept {
    const char* const end = map.end();
    for (const char* close = map.next_close(text); close != end; close = map.next_close(close + 1)) {
        if (const std::string_view inside = between(text, close); ends_with(inside, "]]")) {
            return {inside.substr(0, inside.size() - 2), close + 1};
        }
    }
    return {between(text, end), end};
}

const char* find_raw_end(const char* p, std::string_view name, markup_map& map) noexcept {
    const char* const end = map.end();
    for (p = map.next_open(p); p != end; p = map.next_open(p + 1)) {
        if (end - p > 1 && p[1] == '/' && is_tag_name(p + 2, end, name)) {
            return p;
        }
    }
    return end;
}

// "<!--" hides the script's own end tag from a script tag on, up to the next one's end or to "-->".
const char* find_script_end(const char* p, markup_map& map) noexcept {
    const char* const end = map.end();
    enum { PLAIN, ESCAPED, DOUBLY_ESCAPED } state = PLAIN;
    const char* escape_end = nullptr; // the next "-->", once "<!--" was met
    for (p = map.next_open(p); p != end; p = map.next_open(p + 1)) {
        if (state != PLAIN && escape_end < p) {
            state = PLAIN;
        }
        if (end - p > 1 && p[1] == '/' && is_tag_name(p + 2, end, SCRIPT)) {
            if (state != DOUBLY_ESCAPED) {
                return p;
            }
            state = ESCAPED;
        } else if (state == PLAIN && between(p, end).substr(0, COMMENT_OPEN.size()) == COMMENT_OPEN) {
            state = ESCAPED;
            const std::string_view dashes = between(p + 2, end);
            escape_end = p + 2 + std::min(dashes.find("-->"), dashes.size());
        } else if (state == ESCAPED && is_tag_name(p + 1, end, SCRIPT)) {
            state = DOUBLY_ESCAPED;
        }
    }
    return end;
}

} // namespace pageslice::standard
