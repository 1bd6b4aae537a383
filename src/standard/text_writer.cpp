// SPDX-License-Identifier: MIT
#include "standard/text_writer.h"

#include <algorithm>

#include "standard/ascii.h"
#include "text/character_references.h"

namespace pageslice::standard {

void text_writer::break_line() noexcept {
    m_lines += m_tabs == 0 ? 1 : 0;
}

void text_writer::begin_line() noexcept {
    if (m_lines == 0 && m_tabs == 0 && !is_at_line_start()) {
        m_lines = 1;
    }
}

void text_writer::begin_row() noexcept {
    begin_line();
    m_lines_of_row = m_lines;
    m_row_has_cell = false;
}

// A cell but the first stands on its row's line, whatever blocks the cell before it ended with.
void text_writer::begin_cell() noexcept {
    if (m_row_has_cell) {
        m_lines = m_lines_of_row;
        ++m_tabs;
    }
    m_row_has_cell = true;
}

// The table may have stood in a cell of another one's row.
void text_writer::end_table() noexcept {
    begin_line();
    m_lines_of_row = 0;
    m_row_has_cell = true;
}

// Writes what waits before more text; it waits on until separate().
char* text_writer::put_separator(char* out) const noexcept {
    if (m_lines == 0 && m_tabs == 0) {
        if (m_space && !is_at_line_start()) {
            *out++ = ' ';
        }
        return out;
    }
    if (out != m_begin) {
        out = std::fill_n(out, m_lines, '\n');
    }
    return std::fill_n(out, m_tabs, '\t');
}

void text_writer::separate() noexcept {
    m_out = put_separator(m_out);
    m_lines = m_lines_of_row = m_tabs = 0;
    m_space = false;
}

// Up to the end, or to a '&' where text has references. What separates stands before the words already when
// it shows that there are none.
const char* text_writer::write_words(const char* p, const char* end, bool has_references) noexcept {
    const char* const text = p;
    char* const begin = put_separator(m_out);
    CollapseState state{begin != m_out || is_at_line_start(), has_references};
    char* out = m_scan.CollapseSpaces(p, end, m_readable, begin, m_out_end, state);
    const bool ends_in_space = out != begin && out[-1] == ' ';
    out -= ends_in_space ? 1 : 0;
    if (out == begin) {
        m_space = m_space || p != text;
        return p;
    }
    m_out = out;
    m_lines = m_lines_of_row = m_tabs = 0;
    m_space = ends_in_space;
    return p;
}

void text_writer::write_character(char32_t character) noexcept {
    if (character < 0x80 && is_space(static_cast<char>(character))) {
        m_space = true;
    } else {
        separate();
        m_out = write_utf8(character, m_out);
    }
}

void text_writer::write(std::string_view text, text_style style) noexcept {
    if (style.keeps_spaces) {
        write_preserved(text, style.has_references);
        return;
    }
    const char* const end = text.data() + text.size();
    for (const char* p = text.data(); p != end;) {
        if (*p != '&' || !style.has_references) {
            p = write_words(p, end, style.has_references);
            continue;
        }
        const character_reference reference = read_reference(between(p, end), false);
        write_character(reference.size != 0 ? reference.first : U'&');
        if (reference.second != 0) {
            write_character(reference.second);
        }
        p += std::max<std::size_t>(reference.size, 1);
    }
}

void text_writer::write_preserved(std::string_view text, bool has_references) noexcept {
    if (text.empty()) {
        return;
    }
    separate();
    m_out = decode_references(text, has_references ? value_kind::text : value_kind::cdata, m_out);
}

} // namespace pageslice::standard
