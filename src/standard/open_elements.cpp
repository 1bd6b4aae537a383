// SPDX-License-Identifier: MIT
#include "standard/open_elements.h"

namespace pageslice::standard {

std::uint32_t open_elements::find_in_scope(element id) const noexcept {
    const std::uint32_t place = find(id);
    for (const element hides : {element::table, element::td, element::th, element::caption}) {
        const std::uint32_t scope = find(hides);
        if (place != NONE && scope != NONE && scope > place) {
            return NONE;
        }
    }
    return place;
}

void open_elements::push(element id, std::size_t number, memory_budget& budget) {
    constexpr std::size_t USUAL = 16;
    admit_one_more(m_entries.size(), NONE);
    std::uint32_t& topmost = m_topmost[static_cast<std::size_t>(id)];
    budget.append(m_entries, {id, topmost, static_cast<std::uint32_t>(number), 0, 0, false}, USUAL);
    topmost = static_cast<std::uint32_t>(m_entries.size() - 1);
}

void open_elements::pop() noexcept {
    m_topmost[static_cast<std::size_t>(top().id)] = top().same_below;
    m_entries.pop_back();
}

} // namespace pageslice::standard
