// SPDX-License-Identifier: MIT
// Reads a page's markup piece by piece, in the order of the page, by the tokenization section of the HTML
// Standard. What the tree's construction would tell a tokenizer this knows by itself: which elements have
// text of their own kind, and what is inside svg and math. Scripting is off: noscript is markup.
#ifndef PAGESLICE_STANDARD_MARKUP_READER_H
#define PAGESLICE_STANDARD_MARKUP_READER_H

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "standard/element.h"
#include "standard/foreign_content.h"
#include "standard/markup_map.h"

namespace pageslice::standard {

enum class markup_kind : std::uint8_t {
    start_tag,
    end_tag,
    comment,
    doctype,
    cdata,
    nothing // "</>", which is passed over
};

// One piece. Text stands between two of them.
struct markup {
    markup_kind kind;
    bool is_foreign;            // a tag of svg, math, or what is inside
    text_mode text_before;      // how the text before it is to be read
    bool is_text_foreign;       // whether that text stands in svg or math
    const element_entry* entry; // of a tag
    const char* begin;          // its '<'
    const char* end;            // one past its '>'
    std::string_view inside;    // a tag's name; what a comment, doctype or CDATA section says

    const char* name_end() const noexcept { return inside.data() + inside.size(); }
    const char* close() const noexcept { return end - 1; } // of a tag: its '>'
};

// Linear in the page; nothing is allocated, nothing outside the page read.
class markup_reader {
public:
    explicit markup_reader(std::string_view page) noexcept : m_map(page), m_at(page.data()) {}

    // False at the page's end; what remains after the piece before is then text up to text_end().
    bool next(markup& piece) noexcept {
        piece.text_before = m_mode;
        piece.is_text_foreign = m_foreign.is_current();
        const char* open = m_mode == text_mode::data ? m_map.next_open(m_at) : find_own_text_end();
        while (m_map.end() - open > 2) {
            const bool is_end = open[1] == '/';
            const char* const name = open + (is_end ? 2 : 1);
            if (is_letter(*name)) {
                return read_tag(open, name, is_end, piece);
            }
            if (is_end || *name == '!' || *name == '?') {
                return read_other(open, piece);
            }
            open = m_map.next_open(open + 1);
        }
        return read_last(open, piece);
    }

    // After the last piece: where the text ends, which is before a tag that the page's end cuts off.
    const char* text_end() const noexcept { return m_cut_off != nullptr ? m_cut_off : m_map.end(); }
    text_mode mode() const noexcept { return m_mode; }

private:
    static bool is_letter(char c) noexcept {
        return static_cast<unsigned char>((static_cast<unsigned char>(c) | 0x20) - 'a') < 26;
    }

    // False for a tag that the page's end cuts off.
    bool read_tag(const char* open, const char* name, bool is_end, markup& piece) noexcept {
        const markup_map::tag_ends ends = m_map.find_ends(name);
        if (ends.close == nullptr) {
            m_cut_off = open;
            m_at = m_map.end();
            return false;
        }
        piece.inside = {name, static_cast<std::size_t>(ends.name_end - name)};
        const std::uint64_t key = key_at(piece.inside);
        const element_entry& entry = ELEMENTS.find(key, piece.inside);
        piece.entry = &entry;
        piece.begin = open;
        piece.end = m_at = ends.close + 1;
        piece.kind = is_end ? markup_kind::end_tag : markup_kind::start_tag;
        if (m_foreign.is_open() || entry.id == element::svg || entry.id == element::math) {
            return follow_foreign(piece);
        }
        piece.is_foreign = false;
        m_mode = is_end ? text_mode::data : entry.mode;
        m_own_text = &entry;
        m_foreign.count(entry, key, is_end);
        return true;
    }

    std::uint64_t key_at(std::string_view name) const noexcept {
        // Eight bytes at once, where the page has them in the order that a key takes.
        if (m_map.end() - name.data() < static_cast<std::ptrdiff_t>(KEY_SIZE) || !LOWEST_BYTE_FIRST) {
            return key_of(name);
        }
        std::uint64_t key = 0;
        std::memcpy(&key, name.data(), KEY_SIZE);
        key |= key >> 1 & CASE_BITS; // of '@' to '_' alone, none of which becomes a letter but letters
        return name.size() < KEY_SIZE ? key & ~(~std::uint64_t{0} << 8 * name.size()) : key;
    }

    bool follow_foreign(markup& tag) noexcept;
    bool read_last(const char* open, markup& piece) noexcept;
    bool read_other(const char* open, markup& piece) noexcept;
    const char* find_own_text_end() noexcept;

    static constexpr std::uint64_t CASE_BITS = 0x2020202020202020;
#if defined(__BYTE_ORDER__) && __BYTE_ORDER__ != __ORDER_LITTLE_ENDIAN__
    static constexpr bool LOWEST_BYTE_FIRST = false;
#else
    static constexpr bool LOWEST_BYTE_FIRST = true;
#endif

    markup_map m_map;
    const char* m_at; // after the piece read last
    const char* m_cut_off = nullptr;
    text_mode m_mode = text_mode::data;
    const element_entry* m_own_text = nullptr; // the element whose text follows
    foreign_content m_foreign;
};

} // namespace pageslice::standard

#endif
