// SPDX-License-Identifier: MIT
// Which tables, cells, captions, lists and items are open, so that an end tag finds at once what it ends.
#ifndef PAGESLICE_STANDARD_OPEN_ELEMENTS_H
#define PAGESLICE_STANDARD_OPEN_ELEMENTS_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "standard/element.h"
#include "text/index_limits.h"

namespace pageslice::standard {

// A stack. Each entry knows the next of its own kind below it: no search is needed, and all that is closed
// was opened once.
class open_elements {
public:
    struct entry {
        element id;
        std::uint32_t same_below; // the place of the next of its kind; NONE for none
        std::uint32_t number;     // of a cell or an item: of its record; of a table: its own
        std::uint32_t rows;       // of a table: how many have begun,
        std::uint32_t columns;    // and how many cells of the last one
        bool is_in_row;
    };
    static constexpr std::uint32_t NONE = UINT32_MAX;

    open_elements() noexcept { m_topmost.fill(NONE); }

    bool is_empty() const noexcept { return m_entries.empty(); }
    entry& top() noexcept { return m_entries.back(); }
    bool is_on_top(element id) const noexcept { return !m_entries.empty() && m_entries.back().id == id; }
    entry& at(std::uint32_t place) noexcept { return m_entries[place]; }
    std::size_t size() const noexcept { return m_entries.size(); }

    // The place of the topmost of a kind; NONE for none.
    std::uint32_t find(element id) const noexcept { return m_topmost[static_cast<std::size_t>(id)]; }

    // The same, if no table, cell or caption stands above it: what is in them ends nothing outside.
    std::uint32_t find_in_scope(element id) const noexcept;

    // Throws std::bad_alloc and limit_exceeded.
    void push(element id, std::size_t number, memory_budget& budget);
    void pop() noexcept;

private:
    std::vector<entry> m_entries;
    std::array<std::uint32_t, ELEMENT_COUNT> m_topmost;
};

} // namespace pageslice::standard

#endif
