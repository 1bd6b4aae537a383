// SPDX-License-Identifier: MIT
// What text_walk tells of a page, kept, so that the page's text can be written without reading it again.
#ifndef PAGESLICE_STANDARD_TEXT_OUTLINE_H
#define PAGESLICE_STANDARD_TEXT_OUTLINE_H

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "standard/text_walk.h"
#include "text/index_limits.h"

namespace pageslice::standard {

class text_outline {
public:
    explicit text_outline(std::string_view page) noexcept : m_page(page) {}

    // How it is filled: a Sink that may throw std::bad_alloc and limit_exceeded.
    class recorder {
    public:
        recorder(text_outline& outline, memory_budget& budget) noexcept
            : m_outline(outline), m_budget(budget) {}

        void write(std::string_view text, text_style style) {
            const unsigned what =
                WRITE | (style.has_references ? HAS_REFERENCES : 0) | (style.keeps_spaces ? KEEPS_SPACES : 0);
            m_outline.add(text, what, m_budget);
        }
        void space() {
            if (m_outline.m_last != BEGIN_LINE &&
                m_outline.m_last != SPACE) { // there it would change nothing
                m_outline.add({}, SPACE, m_budget);
            }
        }
        void break_line() { m_outline.add({}, BREAK_LINE, m_budget); }
        void begin_line() {
            if (m_outline.m_last != BEGIN_LINE) { // once is enough
                m_outline.add({}, BEGIN_LINE, m_budget);
            }
        }
        void begin_row() { m_outline.add({}, BEGIN_ROW, m_budget); }
        void begin_cell() { m_outline.add({}, BEGIN_CELL, m_budget); }
        void end_table() { m_outline.add({}, END_TABLE, m_budget); }

    private:
        text_outline& m_outline;
        memory_budget& m_budget;
    };

    // False for a page too large for it: its text is read anew.
    bool is_complete() const noexcept { return m_page.size() <= MOST; }

    // Tells a Sink all that the recorder was told.
    template <class Sink>
    void replay(Sink& sink) const;

private:
    enum : unsigned { SPACE, BREAK_LINE, BEGIN_LINE, BEGIN_ROW, BEGIN_CELL, END_TABLE, NOTHING };
    static constexpr unsigned WRITE = 8;
    static constexpr unsigned HAS_REFERENCES = 1;
    static constexpr unsigned KEEPS_SPACES = 2;
    static constexpr unsigned WHAT_BITS = 4;
    static constexpr std::size_t MOST = SIZE_MAX >> (8 * sizeof(std::size_t) - 32 + WHAT_BITS);
    static constexpr std::size_t BYTES_PER_ENTRY = 48; // of an everyday page

    struct entry {
        std::uint32_t begin; // of a text
        std::uint32_t what;  // its size stands above WHAT_BITS
    };

    void add(std::string_view text, unsigned what, memory_budget& budget) {
        if (is_complete()) {
            const auto begin =
                static_cast<std::uint32_t>(text.data() == nullptr ? 0 : text.data() - m_page.data());
            budget.append(m_entries, {begin, static_cast<std::uint32_t>(text.size() << WHAT_BITS | what)},
                          m_page.size() / BYTES_PER_ENTRY + 8);
            m_last = what;
        }
    }

    std::string_view m_page;
    std::vector<entry> m_entries;
    unsigned m_last = NOTHING;
};

template <class Sink>
void text_outline::replay(Sink& sink) const {
    for (const entry& e : m_entries) {
        const unsigned what = e.what & ((1U << WHAT_BITS) - 1);
        switch (what) {
        case SPACE: sink.space(); break;
        case BREAK_LINE: sink.break_line(); break;
        case BEGIN_LINE: sink.begin_line(); break;
        case BEGIN_ROW: sink.begin_row(); break;
        case BEGIN_CELL: sink.begin_cell(); break;
        case END_TABLE: sink.end_table(); break;
        default:
            sink.write({m_page.data() + e.begin, e.what >> WHAT_BITS},
                       {(what & HAS_REFERENCES) != 0, (what & KEEPS_SPACES) != 0});
        }
    }
}

} // namespace pageslice::standard

#endif
