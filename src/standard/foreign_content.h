// SPDX-License-Identifier: MIT
// Which elements of SVG and MathML are open: inside them a page is read by other rules.
#ifndef PAGESLICE_STANDARD_FOREIGN_CONTENT_H
#define PAGESLICE_STANDARD_FOREIGN_CONTENT_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "standard/element.h"

namespace pageslice::standard {

// A tag as this needs to see it.
struct tag_view {
    std::string_view name;
    const char* close; // its '>'
    const element_entry& entry;
};

// Follows the standard's tree construction as far as it tells tokens: which elements are foreign. Outside svg
// and math elements are counted by their names only, so that those which other tags have closed count as
// open; inside there is a stack of them, of which no more than MOST_OPEN are known, and of the rest the
// number. No call takes longer than that depth.
class foreign_content {
public:
    // Whether svg or math is open: start and end need be told of tags only then, or of svg and math.
    bool is_open() const noexcept { return m_size != 0; }

    // Whether what comes next stands in an element that is foreign, so that a CDATA section may begin.
    bool is_current() const noexcept { return m_size != 0 && m_open[m_size - 1].kind != kind::html; }

    // Whether the element that a start tag opens is foreign.
    bool start(const tag_view& tag) noexcept;

    // Whether an end tag is one of foreign elements, or closes nothing at all. One must be open.
    bool end(const tag_view& tag) noexcept;

    // Told of all tags that open or close an element of HTML. `key` is the name's.
    void count(const element_entry& entry, std::uint64_t key, bool is_end) noexcept {
        std::uint32_t& open = m_counts[counter_of(entry, key)];
        open = is_end ? open - (open != 0 ? 1 : 0) : open + 1;
    }

private:
    static constexpr std::size_t MOST_OPEN = 96;

    enum class kind : std::uint8_t {
        html,
        foreign,
        annotation, // foreign: annotation-xml, which holds svg besides
        math_text,  // foreign, holds HTML but for two elements
        holds_html  // foreign, holds HTML
    };

    struct open_element {
        std::uint32_t name; // hashed
        foreign_content::kind kind;
        bool is_math;
    };

    // All names that are not known share a few counters.
    static std::size_t counter_of(const element_entry& entry, std::uint64_t key) noexcept {
        constexpr unsigned SHARED_BITS = 6;
        return entry.number != 0 ? entry.number
                                 : KNOWN_ELEMENTS + static_cast<std::size_t>((key * 0x9E3779B97F4A7C15) >>
                                                                             (64 - SHARED_BITS));
    }
    static constexpr std::size_t COUNTERS = KNOWN_ELEMENTS + 64;

    open_element& top() noexcept { return m_open[m_size - 1]; }
    bool takes_as_html(const tag_view& tag) noexcept;
    void push(const open_element& opened) noexcept;
    void push_foreign(const tag_view& tag, bool is_math) noexcept;
    void leave() noexcept;
    bool end_html(std::size_t above, const tag_view& tag, std::uint32_t name) noexcept;

    std::size_t m_size = 0;
    std::uint64_t m_deeper = 0;
    std::array<std::uint32_t, COUNTERS> m_counts{};
    std::array<open_element, MOST_OPEN> m_open;
};

} // namespace pageslice::standard

#endif
