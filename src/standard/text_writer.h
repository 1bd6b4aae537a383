// SPDX-License-Identifier: MIT
// Writes text with its white space collapsed, and lines and tabs between its parts.
#ifndef PAGESLICE_STANDARD_TEXT_WRITER_H
#define PAGESLICE_STANDARD_TEXT_WRITER_H

#include <cstddef>
#include <string_view>

#include "scan/primitives.h"
#include "standard/text_walk.h"

namespace pageslice::standard {

// What separates two pieces of text waits until more text comes: none stands at the start or at the end.
// Each call writes no more than what it was told of took in the page.
class text_writer {
public:
    // What it is told of lies in `page`; `out` has room for `capacity` bytes.
    text_writer(std::string_view page, char* out, std::size_t capacity) noexcept
        : m_readable(page.data() + page.size()), m_begin(out), m_out(out), m_out_end(out + capacity),
          m_scan(Scan()) {}

    char* end() const noexcept { return m_out; }

    // Text as it stands in a page.
    void write(std::string_view text, text_style style) noexcept;

    void space() noexcept { m_space = true; } // between words
    void break_line() noexcept;               // br
    void begin_line() noexcept;               // a block's start or end
    void begin_row() noexcept;
    void begin_cell() noexcept;
    void end_table() noexcept;

private:
    void write_preserved(std::string_view text, bool has_references) noexcept;
    char* put_separator(char* out) const noexcept;
    void separate() noexcept;
    const char* write_words(const char* p, const char* end, bool has_references) noexcept;
    void write_character(char32_t character) noexcept;
    bool is_at_line_start() const noexcept { return m_out == m_begin || m_out[-1] == '\n'; }

    const char* m_readable; // the page's end
    char* m_begin;
    char* m_out;
    const char* m_out_end;
    const ScanPrimitives& m_scan;
    bool m_space = false;           // what waits: a space,
    std::size_t m_lines = 0;        // line ends,
    std::size_t m_lines_of_row = 0; // of them those before the row,
    std::size_t m_tabs = 0;         // and tabs after them
    bool m_row_has_cell = false;
};

} // namespace pageslice::standard

#endif
