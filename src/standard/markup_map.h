// SPDX-License-Identifier: MIT
// Where the '<' of a page stand, and where its tags end: the page's bytes looked at in sweeps, each byte
// once.
#ifndef PAGESLICE_STANDARD_MARKUP_MAP_H
#define PAGESLICE_STANDARD_MARKUP_MAP_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "platform/bits.h"
#include "scan/primitives.h"
#include "standard/attributes.h"

namespace pageslice::standard {

// Moves from the page's start to its end: what is asked for lies at or after what was asked for before.
class markup_map {
public:
    explicit markup_map(std::string_view page) noexcept : m_end(page.data() + page.size()), m_scan(Scan()) {
        sweep(page.data());
    }

    const char* end() const noexcept { return m_end; }

    // The first '<' at or after p, or the page's end.
    const char* next_open(const char* p) noexcept {
        for (;;) {
            const char* open = m_base + m_sweep.nOpenAt[m_next];
            while (open < p && m_next < m_sweep.nOpens) {
                open = m_base + m_sweep.nOpenAt[++m_next];
            }
            if (m_next < m_sweep.nOpens) {
                return open;
            }
            if (m_swept == m_end) {
                return m_end;
            }
            sweep(std::max(p, m_swept));
        }
    }

    // The first '>' at or after p, or the page's end.
    const char* next_close(const char* p) noexcept {
        while (p != m_end) {
            if (const std::uint64_t closes = nBitsFrom(m_sweep.nCloses, place_of(p)); closes != 0) {
                return p + nLowestBit(closes);
            }
            p += std::min(WINDOW, m_end - p);
        }
        return m_end;
    }

    // Of the tag whose name begins at `name`: where the name ends, and its '>', null where the page ends
    // before it does.
    struct tag_ends {
        const char* name_end;
        const char* close;
    };
    tag_ends find_ends(const char* name) noexcept {
        const std::size_t here = place_of(name);
        const std::uint64_t ends = nBitsFrom(m_sweep.nEnds, here);
        const std::uint64_t closes = nBitsFrom(m_sweep.nCloses, here);
        const std::uint64_t before = (closes - 1) & ~closes; // the bytes before the first '>'
        if (closes == 0 || (nBitsFrom(m_sweep.nAnyQuotes, here) & before) != 0) {
            return find_quoted_ends(name);
        }
        const char* const name_end = name + nLowestBit(ends);
        if (!ends_name(*name_end)) {
            return find_far_ends(name);
        }
        return {name_end, name + nLowestBit(closes)};
    }

private:
    static bool ends_name(char c) noexcept { return c == '>' || c == '/' || is_space(c); }

    // So many bytes are looked at at once.
    static constexpr std::ptrdiff_t WINDOW = 56;
    static constexpr std::uint64_t WINDOW_BITS = (std::uint64_t{1} << WINDOW) - 1;

    // The place of a byte's bit; a window from there on is swept.
    std::size_t place_of(const char* p) noexcept {
        if (m_swept - p < WINDOW && m_swept != m_end) {
            sweep(p);
        }
        return static_cast<std::size_t>(p - m_base);
    }

    tag_ends find_quoted_ends(const char* name) noexcept;
    tag_ends find_far_ends(const char* name) noexcept;
    void sweep(const char* p) noexcept;

    const char* m_base = nullptr;  // where the sweep begins
    const char* m_swept = nullptr; // and ends
    const char* m_end;
    const ScanPrimitives& m_scan;
    std::size_t m_next = 0; // the '<' looked at next
    MarkupSweep m_sweep;
};

} // namespace pageslice::standard

#endif
