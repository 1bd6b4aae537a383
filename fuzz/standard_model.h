// SPDX-License-Identifier: MIT
// A second tokenizer by the HTML Standard, for the fuzz target and the tests: its states one after the other,
// a byte at a time, with no thought of speed. Character references move no token's bounds and are left alone.
#ifndef PAGESLICE_FUZZ_STANDARD_MODEL_H
#define PAGESLICE_FUZZ_STANDARD_MODEL_H

#include <algorithm>
#include <cstddef>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "pageslice/pageslice_c.h"

namespace model {

enum class kind { text, start_tag, end_tag, comment, doctype, cdata };

// Bytes of the page. An empty span that is given stands between two bytes.
struct span {
    std::size_t begin = 0, end = 0;
    bool given = false;
};

struct attribute {
    span name, value;
};

struct token {
    kind what = kind::text;
    span bytes, name, text, public_id, system_id;
    std::vector<attribute> attributes; // of end tags too; the first of each name
    bool self_closing = false, force_quirks = false;
    bool sure = true;     // see open_elements::sure
    bool foreign = false; // of a start tag: it opens an element of svg or math
    int decoding = 0;     // of a text or comment: PAGESLICE_DECODE_...
};

inline std::string folded(std::string_view s) {
    std::string lower(s);
    for (char& c : lower)
        c = c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
    return lower;
}

inline std::string_view bytes(std::string_view page, const span& s) {
    return s.given ? page.substr(s.begin, s.end - s.begin) : std::string_view();
}

using names = std::set<std::string>;

// What a tree's builder tells its tokenizer, from the tags alone. The open elements are all that tags opened:
// no end tag is implied, none that a table or a formatting element asks for. So an HTML end tag closes the
// last element of its name, and all in it, as far as the nearest point where svg or math turned into HTML.
class open_elements {
public:
    enum class space { html, svg, math };

    [[nodiscard]] bool foreign() const { return !m_open.empty() && m_open.back().in != space::html; }

    // True for the start of an HTML element.
    bool start(const std::string& name, const token& tag, std::string_view page) {
        static const names VOID = // in the old elements too
            {"area", "base",  "basefont", "bgsound", "br",   "col",   "embed",  "frame", "hr", "image",
             "img",  "input", "keygen",   "link",    "meta", "param", "source", "track", "wbr"};
        bool html = !foreign() || enters_html(name);
        if (!html && breaks_out(name, tag, page)) {
            leave();
            html = true;
        }
        space in = html ? space::html : m_open.back().in;
        if (html && (name == "svg" || name == "math"))
            in = name == "svg" ? space::svg : space::math;
        if (in == space::html ? !VOID.contains(name) && !outermost(name) : !tag.self_closing)
            m_open.push_back({name, in, turns_html(name, in, tag, page)});
        const auto outside = std::ranges::find_if_not(m_open, of_html) - m_open.begin();
        m_sure = m_sure && m_open.size() - static_cast<std::size_t>(outside) < 96;
        return in == space::html;
    }

    void end(const std::string& name) {
        const bool breaks = foreign() && (name == "p" || name == "br"), through = foreign() && !breaks;
        if (breaks)
            leave();
        for (auto e = m_open.rbegin(); through && e != m_open.rend() && e->in != space::html; ++e)
            if (e->name == name)
                return close(e);
        auto e = m_open.rbegin();
        while (e != m_open.rend() && !hides(*e) && (e->in != space::html || e->name != name))
            ++e;
        if (outermost(name) || (e != m_open.rend() && hides(*e)))
            return;
        const bool found = e != m_open.rend();
        m_sure = m_sure && (!through || (!m_loose && (found || std::ranges::none_of(m_open, of_html))));
        m_loose = m_loose || !found;
        if (found)
            close(e);
    }

    // Outside of svg and math the library counts elements by their names and keeps none, and inside it keeps
    // so many. Both agree on an end tag that reaches from the inside out when all before closed just one
    // element.
    [[nodiscard]] bool sure() const { return m_sure; }

private:
    struct element {
        std::string name;
        space in;
        bool point; // start tags in it are HTML
    };

    static bool outermost(const std::string& name) { // which close nothing
        return name == "html" || name == "head" || name == "body";
    }

    static bool hides(const element& e) { // what is open around it from HTML end tags
        return e.point || (e.in == space::math && e.name == "annotation-xml");
    }

    static bool of_html(const element& e) { return e.in == space::html; }

    void close(std::vector<element>::reverse_iterator last) {
        m_loose = m_loose || std::any_of(m_open.rbegin(), last, of_html);
        m_open.erase(std::prev(last.base()), m_open.end());
    }

    void leave() {
        while (foreign() && !m_open.back().point)
            m_open.pop_back();
    }

    [[nodiscard]] bool enters_html(const std::string& name) const {
        const element& last = m_open.back();
        if (last.in == space::math && last.name == "annotation-xml" && name == "svg")
            return true;
        const bool glyph = name == "mglyph" || name == "malignmark";
        return last.point && !(glyph && last.in == space::math && last.name != "annotation-xml");
    }

    static bool turns_html(const std::string& name, space in, const token& tag, std::string_view page) {
        static const names SVG = {"foreignobject", "desc", "title"}, MATH = {"mi", "mo", "mn", "ms", "mtext"};
        if (in == space::math && name == "annotation-xml")
            for (const attribute& a : tag.attributes)
                if (folded(bytes(page, a.name)) == "encoding") {
                    const auto value = folded(bytes(page, a.value));
                    return value == "text/html" || value == "application/xhtml+xml";
                }
        return in != space::html && (in == space::svg ? SVG : MATH).contains(name);
    }

    static bool breaks_out(const std::string& name, const token& tag, std::string_view page) {
        // clang-format off
        static const names TAGS = {
            "b", "big", "blockquote", "body", "br", "center", "code", "dd", "div", "dl", "dt", "em", "embed",
            "h1", "h2", "h3", "h4", "h5", "h6", "head", "hr", "i", "img", "li", "listing", "menu", "meta",
            "nobr", "ol", "p", "pre", "ruby", "s", "small", "span", "strong", "strike", "sub", "sup",
            "table", "tt", "u", "ul", "var"};
        // clang-format on
        static const names FONT = {"color", "face", "size"};
        return TAGS.contains(name) ||
               (name == "font" && std::ranges::any_of(tag.attributes, [&](const attribute& a) {
                    return FONT.contains(folded(bytes(page, a.name)));
                }));
    }

    std::vector<element> m_open;
    bool m_sure = true, m_loose = false;
};

class tokenizer {
public:
    explicit tokenizer(std::string_view page) : m_page(page) {}

    std::vector<token> read() {
        for (;; ++m_at) {
            const int c = m_at < m_page.size() ? static_cast<unsigned char>(m_page[m_at]) : END;
            while (!consume(c))
                ;
            if (c == END)
                return m_tokens;
        }
    }

private:
    static constexpr int END = -1;

    // Where states differ in errors alone, in the quote they wait for or in how many dashes or brackets
    // came, they are one.
    // clang-format off
    enum class state {
        data, raw, script, plaintext, tag_open, end_tag_open, tag_name, raw_less_than, raw_end_tag_open,
        raw_end_tag_name, script_less_than, script_escape_start, script_escaped, script_escaped_less_than,
        script_double_escape_start, script_double_escaped, script_double_escaped_less_than,
        script_double_escape_end, before_attribute_name, attribute_name, after_attribute_name, before_value,
        value_quoted, value_unquoted, self_closing, bogus_comment, markup_declaration,
        comment_start, comment_start_dash, comment, comment_end_dash, comment_end, comment_end_bang,
        before_doctype_name, doctype_name, after_doctype_name, before_id, id, after_public_id, after_system_id,
        bogus_doctype, cdata
    };
    // clang-format on

    static bool space(int c) { return c == ' ' || c == '\n' || c == '\t' || c == '\f' || c == '\r'; }
    static bool letter(int c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
    std::string name_of(const span& s) const { return folded(bytes(m_page, s)); }
    bool follows(std::string_view lower) const { return folded(m_page.substr(m_at, lower.size())) == lower; }

    bool consumed(state next) { return m_state = next, true; }
    bool again(state next) { return m_state = next, false; }

    void text(std::size_t begin, std::size_t end) {
        if (m_tokens.empty() || m_tokens.back().what != kind::text || m_tokens.back().bytes.end != begin) {
            m_tokens.emplace_back().bytes = {begin, end, true};
            m_tokens.back().decoding = m_decoding;
            m_tokens.back().sure = m_elements.sure();
        }
        m_tokens.back().bytes.end = end;
        m_tokens.back().text = m_tokens.back().bytes;
    }
    bool text_to(state next) { // the byte at hand
        text(m_at, m_at + 1);
        return consumed(next);
    }
    bool back(state next) { // no markup after all
        text(m_start, m_at);
        return again(next);
    }

    void open(kind what) {
        m_token = {};
        m_token.what = what;
        m_token.sure = m_elements.sure();
        m_token.name = m_token.text = {m_at, m_at, true};
        m_token.decoding = what == kind::cdata ? PAGESLICE_DECODE_CDATA : PAGESLICE_DECODE_RAW;
    }
    void close(std::size_t end) {
        m_token.bytes = {m_start, end, true};
        m_tokens.push_back(m_token);
        m_text = state::data;
        m_decoding = PAGESLICE_DECODE_TEXT;
    }
    // Ends a comment or doctype, at the page's end too.
    bool emit() {
        close(std::min(m_at + 1, m_page.size()));
        return m_at < m_page.size() ? consumed(state::data) : again(state::data);
    }
    bool emit_tag() {
        using enum state;
        static const std::map<std::string, state> TEXTS = {
            {"style", raw},    {"xmp", raw},   {"iframe", raw},    {"noembed", raw},        {"noframes", raw},
            {"textarea", raw}, {"title", raw}, {"script", script}, {"plaintext", plaintext}};
        const std::string name = name_of(m_token.name);
        bool html = false;
        if (m_token.what == kind::end_tag)
            m_elements.end(name);
        else
            html = m_elements.start(name, m_token, m_page);
        m_token.foreign = m_token.what == kind::start_tag && !html;
        close(m_at + 1);
        if (html) {
            m_last_start = name;
            m_text = TEXTS.contains(name) ? TEXTS.at(name) : state::data;
            m_decoding = name == "title" || name == "textarea" ? PAGESLICE_DECODE_RCDATA
                         : m_text != state::data               ? PAGESLICE_DECODE_RAW
                                                               : PAGESLICE_DECODE_TEXT;
        }
        return consumed(m_text);
    }

    // The attribute counts from when its name is read; a later one of that name does not.
    void close_attribute() {
        const std::string name = name_of(m_attribute.name);
        for (const attribute& a : m_token.attributes)
            if (name_of(a.name) == name)
                return;
        m_token.attributes.push_back(m_attribute);
    }
    bool close_value(state next) {
        m_attribute.value.end = m_at;
        close_attribute();
        return consumed(next);
    }
    bool comment_back() { // what was read is part of the comment
        m_token.text.end = m_at;
        return again(state::comment);
    }

    bool consume(int c) {
        using enum state;
        if (m_state <= plaintext)
            return consume_text(c);
        if (m_state < before_attribute_name)
            return m_state < script_less_than ? consume_tag(c) : consume_script(c);
        if (m_state < bogus_comment)
            return c != END ? consume_attribute(c) : again(data); // the tag is none
        return m_state < before_doctype_name ? consume_comment(c)
               : m_state < cdata             ? consume_doctype(c)
                                             : consume_cdata(c);
    }

    bool consume_text(int c) {
        using enum state;
        if (c == END)
            return true;
        if (c != '<' || m_state == plaintext)
            return text_to(m_state);
        m_start = m_at;
        m_back = m_state;
        return consumed(m_state == data ? tag_open : m_state == raw ? raw_less_than : script_less_than);
    }

    bool consume_tag(int c) {
        using enum state;
        switch (m_state) {
        case tag_open:
            open(c == '?' ? kind::comment : kind::start_tag);
            if (c == '!' || c == '/')
                return consumed(c == '!' ? markup_declaration : end_tag_open);
            return letter(c) ? again(tag_name) : c == '?' ? again(bogus_comment) : back(data);
        case end_tag_open:
            open(letter(c) ? kind::end_tag : kind::comment);
            if (c == '>')
                return consumed(data);
            return letter(c) ? again(tag_name) : c == END ? back(data) : again(bogus_comment);
        case tag_name:
            m_token.name.end = m_at;
            if (space(c) || c == '/' || c == '>')
                return again(before_attribute_name);
            return c != END || again(data);
        case raw_less_than: return c == '/' ? consumed(raw_end_tag_open) : back(m_back);
        case raw_end_tag_open: open(kind::end_tag); return letter(c) ? again(raw_end_tag_name) : back(m_back);
        default: // raw_end_tag_name
            m_token.name.end = m_at;
            if (letter(c))
                return true;
            if ((space(c) || c == '/' || c == '>') && name_of(m_token.name) == m_last_start)
                return again(tag_name);
            return back(m_back);
        }
    }

    bool consume_script(int c) {
        using enum state;
        switch (m_state) {
        case script_less_than:
            if (c != '!')
                return c == '/' ? consumed(raw_end_tag_open) : back(script);
            text(m_start, m_at);
            m_count = 0;
            return text_to(script_escape_start);
        case script_escape_start:
            if (c != '-')
                return again(script);
            return text_to(++m_count == 2 ? script_escaped : script_escape_start);
        case script_escaped:
        case script_double_escaped:
            m_start = m_at;
            m_back = script_escaped;
            if (c == END)
                return again(data);
            if (c == '>' && m_count >= 2)
                return text_to(script);
            m_count = c == '-' ? m_count + 1 : 0;
            m_word.clear();
            if (c == '<')
                return m_state == script_escaped ? consumed(script_escaped_less_than)
                                                 : text_to(script_double_escaped_less_than);
            return text_to(m_state);
        case script_escaped_less_than:
            if (c == '/')
                return consumed(raw_end_tag_open);
            return back(letter(c) ? script_double_escape_start : script_escaped);
        case script_double_escape_start: return script_word(c, script_double_escaped, script_escaped);
        case script_double_escaped_less_than:
            return c == '/' ? text_to(script_double_escape_end) : again(script_double_escaped);
        default: // script_double_escape_end
            return script_word(c, script_escaped, script_double_escaped);
        }
    }

    bool script_word(int c, state when_script, state otherwise) {
        if (letter(c)) {
            m_word += static_cast<char>(c | 0x20);
            return text_to(m_state);
        }
        if (space(c) || c == '/' || c == '>')
            return text_to(m_word == "script" ? when_script : otherwise);
        return again(otherwise);
    }

    bool consume_attribute(int c) {
        using enum state;
        switch (m_state) {
        case before_attribute_name:
            if (space(c) || c == '/' || c == '>')
                return space(c) || again(after_attribute_name);
            m_attribute = {{m_at, m_at, true}, {}};
            return c == '=' ? consumed(attribute_name) : again(attribute_name);
        case attribute_name:
            if (!space(c) && c != '/' && c != '>' && c != '=')
                return true;
            m_attribute.name.end = m_at;
            m_named = true;
            return c == '=' ? consumed(before_value) : again(after_attribute_name);
        case after_attribute_name:
            if (space(c) || c == '=')
                return consumed(c == '=' ? before_value : after_attribute_name);
            if (m_named)
                close_attribute();
            m_named = false;
            if (c == '/' || c == '>')
                return c == '/' ? consumed(self_closing) : emit_tag();
            m_attribute = {{m_at, m_at, true}, {}};
            return again(attribute_name);
        case before_value:
            if (space(c))
                return true;
            m_named = false;
            m_quote = c;
            m_attribute.value = {m_at, m_at, true};
            if (c != '"' && c != '\'')
                return again(value_unquoted);
            ++m_attribute.value.begin;
            return consumed(value_quoted);
        case value_quoted: return c != m_quote || close_value(before_attribute_name);
        case value_unquoted:
            if (c == '>')
                return close_value(data) && emit_tag();
            return !space(c) || close_value(before_attribute_name);
        default: // self_closing
            m_token.self_closing = c == '>';
            return c == '>' ? emit_tag() : again(before_attribute_name);
        }
    }

    bool consume_comment(int c) {
        using enum state;
        switch (m_state) {
        case markup_declaration:
            open(kind::comment);
            if (follows("--")) {
                ++m_at;
                m_token.text = {m_at + 1, m_at + 1, true};
                return consumed(comment_start);
            }
            if (!follows("doctype") && !(m_elements.foreign() && m_page.substr(m_at, 7) == "[CDATA["))
                return again(bogus_comment);
            open(c == '[' ? kind::cdata : kind::doctype);
            m_at += 6;
            m_count = 0;
            m_token.name = {};
            m_token.text = {m_at + 1, m_at + 1, true};
            return consumed(c == '[' ? cdata : before_doctype_name);
        case bogus_comment: m_token.text.end = m_at; return c == '>' || c == END ? emit() : true;
        case comment_start:
            if (c == '-')
                return consumed(comment_start_dash);
            return c == '>' ? emit() : again(comment);
        case comment_start_dash:
            if (c == '-')
                return consumed(comment_end);
            return c == '>' || c == END ? emit() : comment_back();
        case comment:
            if (c == '-')
                return consumed(comment_end_dash);
            m_token.text.end = std::min(m_at + 1, m_page.size());
            return c != END || emit();
        case comment_end_dash:
            if (c == '-')
                return consumed(comment_end);
            return c == END ? emit() : comment_back();
        case comment_end:
            if (c == '>' || c == END)
                return emit();
            if (c == '-')
                m_token.text.end = m_at - 1;
            return c == '!' ? consumed(comment_end_bang) : c == '-' || comment_back();
        default: // comment_end_bang
            if (c == '>' || c == END)
                return emit();
            m_token.text.end = m_at;
            return c == '-' ? consumed(comment_end_dash) : again(comment);
        }
    }

    bool consume_doctype(int c) {
        using enum state;
        if (m_state == doctype_name || m_state == id)
            (m_state == id ? m_id : &m_token.name)->end = m_at;
        if (c == END || c == '>') {
            const bool early = m_state == before_doctype_name || m_state == before_id || m_state == id;
            m_token.force_quirks |= m_state != bogus_doctype && (c == END || early);
            return emit();
        }
        switch (m_state) {
        case before_doctype_name: m_token.name = {m_at, m_at, true}; return space(c) || again(doctype_name);
        case doctype_name: return consumed(space(c) ? after_doctype_name : doctype_name);
        case after_doctype_name:
            if (space(c))
                return true;
            if (!follows("public") && !follows("system"))
                break;
            m_id = c == 'p' || c == 'P' ? &m_token.public_id : &m_token.system_id;
            m_at += 5;
            return consumed(before_id);
        case after_public_id: m_id = &m_token.system_id; [[fallthrough]];
        case before_id:
            if (c != '"' && c != '\'' && !space(c))
                break;
            if (space(c))
                return true;
            *m_id = {m_at + 1, m_at + 1, true};
            m_quote = c;
            return consumed(id);
        case id:
            return consumed(c != m_quote                 ? id
                            : m_id == &m_token.public_id ? after_public_id
                                                         : after_system_id);
        case after_system_id: return space(c) || again(bogus_doctype);
        default: return true; // bogus_doctype
        }
        m_token.force_quirks = true;
        return again(bogus_doctype);
    }

    bool consume_cdata(int c) {
        const bool done = c == '>' && m_count >= 2;
        m_token.text.end = done ? m_at - 2 : m_at;
        m_count = c == ']' ? m_count + 1 : 0;
        return (!done && c != END) || emit();
    }

    std::string_view m_page;
    std::vector<token> m_tokens;
    open_elements m_elements;
    state m_state = state::data;
    state m_text = state::data; // of the text that the last tag began
    int m_decoding = PAGESLICE_DECODE_TEXT;
    state m_back = state::data; // where a '<' that opens nothing leads back to
    std::size_t m_at = 0, m_start = 0;
    token m_token;
    attribute m_attribute;
    span* m_id = nullptr;
    int m_quote = 0, m_count = 0;
    bool m_named = false; // an attribute's name was read, and not yet whether it has a value
    std::string m_last_start, m_word;
};

inline std::vector<token> tokens(std::string_view page) {
    return tokenizer(page).read();
}

} // namespace model

#endif
