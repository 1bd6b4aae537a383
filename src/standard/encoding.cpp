// SPDX-License-Identifier: MIT
#include "standard/encoding.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "standard/ascii.h"

namespace pageslice::standard {
namespace {

using std::string_view;

constexpr std::size_t PRESCAN_SIZE = 1024;

// A declaration that was read as ASCII cannot stand in a page in UTF-16.
string_view without_utf16(string_view name) noexcept {
    return name == "UTF-16BE" || name == "UTF-16LE" ? "UTF-8" : name;
}

string_view marked_encoding(string_view page) noexcept {
    if (page.substr(0, 3) == "\xEF\xBB\xBF") {
        return "UTF-8";
    }
    if (page.substr(0, 2) == "\xFE\xFF") {
        return "UTF-16BE";
    }
    return page.substr(0, 2) == "\xFF\xFE" ? "UTF-16LE" : string_view();
}

// The label in the content of a meta tag, as in "text/html; charset=utf-8"; empty without one.
string_view label_in_content(string_view content) noexcept {
    constexpr string_view KEY = "charset";
    for (; content.size() > KEY.size(); content.remove_prefix(1)) {
        if (!starts_folded(content, KEY)) {
            continue;
        }
        string_view value = trimmed(content.substr(KEY.size()));
        if (value.empty() || value.front() != '=') {
            continue;
        }
        value = trimmed(value.substr(1));
        if (!value.empty() && (value.front() == '"' || value.front() == '\'')) {
            const std::size_t end = value.find(value.front(), 1);
            return end == string_view::npos ? string_view() : value.substr(1, end - 1);
        }
        return value.substr(0, value.find_first_of(" \t\n\f\r;"));
    }
    return {};
}

// Walks through the page's first bytes from tag to tag, by rules simpler than those that the page is read by
// later. Where the bytes end, an unfinished tag declares nothing.
class prescan {
public:
    explicit prescan(string_view bytes) noexcept : m_bytes(bytes) {}

    // Empty when no tag declares an encoding.
    string_view declared() noexcept {
        for (; !ended(); ++m_at) {
            if (m_bytes[m_at] != '<') {
                continue;
            }
            const string_view name = read_markup();
            if (!name.empty()) {
                return name == "x-user-defined" ? "windows-1252" : without_utf16(name);
            }
        }
        return {};
    }

private:
    struct attribute {
        string_view name, value;
    };

    // What the attributes of one meta tag say; of those with the same name, the first counts.
    struct meta {
        bool has_pragma = false, has_content = false, has_charset = false;
        bool is_pragma = false;
        string_view from_content, from_charset;

        void add(const attribute& a) noexcept {
            if (is_first(a.name, "http-equiv", has_pragma)) {
                is_pragma = equal_folded(a.value, "content-type");
            } else if (is_first(a.name, "content", has_content)) {
                from_content = encoding_of_label(label_in_content(a.value));
            } else if (is_first(a.name, "charset", has_charset)) {
                from_charset = encoding_of_label(a.value);
            }
        }
        static bool is_first(string_view name, string_view wanted, bool& had) noexcept {
            return equal_folded(name, wanted) && !std::exchange(had, true);
        }
        // A charset attribute outweighs the content, even when nobody knows its label.
        string_view encoding() const noexcept {
            if (has_charset) {
                return from_charset;
            }
            return is_pragma ? from_content : string_view();
        }
    };

    bool ended() const noexcept { return m_at >= m_bytes.size(); }
    bool at(char c) const noexcept { return !ended() && m_bytes[m_at] == c; }

    template <class Condition>
    void skip_while(Condition condition) noexcept {
        while (!ended() && condition(m_bytes[m_at])) {
            ++m_at;
        }
    }

    // To the first occurrence of `s` from here on, or to the end.
    void go_to(string_view s) noexcept { m_at = std::min(m_bytes.find(s, m_at), m_bytes.size()); }

    // From a '<' to the last byte of what it opens. The encoding, if it is a meta tag that declares one.
    string_view read_markup() noexcept {
        const string_view rest = m_bytes.substr(m_at);
        if (starts_folded(rest, "<!--")) {
            m_at += 2; // "<!-->" is a comment already
            go_to("-->");
            m_at += 2;
        } else if (starts_folded(rest, "<meta") && rest.size() > 5 && (is_space(rest[5]) || rest[5] == '/')) {
            m_at += 5;
            return read_meta();
        } else if (opens_tag(rest)) {
            skip_while([](char c) { return !is_space(c) && c != '>'; });
            for (attribute a; read_attribute(a);) {
            }
        } else if (rest.size() > 1 && (rest[1] == '!' || rest[1] == '/' || rest[1] == '?')) {
            go_to(">");
        }
        return {};
    }

    static bool opens_tag(string_view s) noexcept {
        const std::size_t i = s.size() > 1 && s[1] == '/' ? 2 : 1;
        return s.size() > i && bIsAsciiLetter(s[i]);
    }

    string_view read_meta() noexcept {
        meta found;
        for (attribute a; read_attribute(a);) {
            found.add(a);
        }
        return ended() ? string_view() : found.encoding();
    }

    // Whether another attribute follows; if not, the tag's '>' is next, or the bytes are at their end.
    bool read_attribute(attribute& a) noexcept {
        skip_while([](char c) { return is_space(c) || c == '/'; });
        if (ended() || at('>')) {
            return false;
        }
        const std::size_t start = m_at++; // a name may begin with '='
        skip_while([](char c) { return !is_space(c) && c != '=' && c != '/' && c != '>'; });
        a = {m_bytes.substr(start, m_at - start), {}};
        skip_while(is_space);
        if (at('=')) {
            ++m_at;
            skip_while(is_space);
            a.value = read_value();
        }
        return !ended();
    }

    string_view read_value() noexcept {
        if (!at('"') && !at('\'')) {
            const std::size_t start = m_at;
            skip_while([](char c) { return !is_space(c) && c != '>'; });
            return m_bytes.substr(start, m_at - start);
        }
        const std::size_t start = m_at + 1;
        const std::size_t end = std::min(m_bytes.find(m_bytes[m_at], start), m_bytes.size());
        m_at = end + 1;
        return m_bytes.substr(start, end - start);
    }

    string_view m_bytes;
    std::size_t m_at = 0;
};

// Control characters count as blanks in an XML declaration.
constexpr bool is_blank(char c) noexcept {
    return static_cast<unsigned char>(c) <= ' ';
}

string_view skip_blanks(string_view s) noexcept {
    s.remove_prefix(static_cast<std::size_t>(std::find_if_not(s.begin(), s.end(), is_blank) - s.begin()));
    return s;
}

// What `<?xml version="1.0" encoding="..."?>` at the page's start says; empty when it says nothing.
string_view declared_by_xml(string_view bytes) noexcept {
    constexpr string_view KEY = "encoding";
    const std::size_t found = bytes.find(KEY);
    if (bytes.substr(0, 5) != "<?xml" || bytes.find('>') == string_view::npos || found == string_view::npos) {
        return {};
    }
    string_view rest = skip_blanks(bytes.substr(found + KEY.size()));
    if (rest.empty() || rest.front() != '=') {
        return {};
    }
    rest = skip_blanks(rest.substr(1));
    if (rest.empty() || (rest.front() != '"' && rest.front() != '\'')) {
        return {};
    }
    const std::size_t end = rest.find(rest.front(), 1);
    if (end == string_view::npos) {
        return {};
    }
    const string_view label = rest.substr(1, end - 1);
    const bool is_one_word = std::none_of(label.begin(), label.end(), is_blank);
    return is_one_word ? without_utf16(encoding_of_label(label)) : string_view();
}

string_view declared_encoding(string_view bytes) noexcept {
    // An XML declaration in UTF-16 gives itself away by its zeros.
    if (bytes.substr(0, 6) == string_view("<\0?\0x\0", 6)) {
        return "UTF-16LE";
    }
    if (bytes.substr(0, 6) == string_view("\0<\0?\0x", 6)) {
        return "UTF-16BE";
    }
    const string_view name = prescan(bytes).declared();
    return name.empty() ? declared_by_xml(bytes) : name;
}

} // namespace

string_view sniff_encoding(string_view page, string_view label) noexcept {
    string_view name = marked_encoding(page);
    if (name.empty()) {
        name = encoding_of_label(label);
    }
    if (name.empty()) {
        name = declared_encoding(page.substr(0, PRESCAN_SIZE));
    }
    return name.empty() ? "windows-1252" : name;
}

} // namespace pageslice::standard
