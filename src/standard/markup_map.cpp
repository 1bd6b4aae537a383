// SPDX-License-Identifier: MIT
#include "standard/markup_map.h"

#include <cstring>

namespace pageslice::standard {

void markup_map::sweep(const char* p) noexcept {
    m_base = p;
    m_next = 0;
    m_sweep.nBlocks = m_sweep.nOpens = 0;
    m_sweep.bQuotedAtEnd = m_sweep.bEqualsAtEnd = m_sweep.bNameAtEnd = false;
    const auto left = static_cast<std::size_t>(m_end - p);
    const std::size_t blocks = std::min(left / SCAN_BLOCK, SCAN_SWEEP_BLOCKS);
    m_scan.MarkMarkup(p, blocks, m_sweep);
    m_swept = p + blocks * SCAN_BLOCK;
    if (blocks < SCAN_SWEEP_BLOCKS && m_swept != m_end) {
        char tail[SCAN_BLOCK] = {};
        std::copy(m_swept, m_end, tail);
        m_scan.MarkMarkup(tail, 1, m_sweep);
        m_swept = m_end;
    }
}

// Most tags are written so that each '=' outside quotes stands right after a name and before a '"', and no
// '"' opens but after an '='. Then quotes come in pairs, and the first '>' outside them is the tag's end.
// Whatever departs from that before this '>' is read byte by byte.
markup_map::tag_ends markup_map::find_quoted_ends(const char* name) noexcept {
    std::size_t here = place_of(name);
    const std::uint64_t ends = nBitsFrom(m_sweep.nEnds, here);
    const char* const name_end = ends != 0 ? name + nLowestBit(ends) : m_end;
    if (name_end == m_end || !ends_name(*name_end)) {
        return find_far_ends(name);
    }
    const char* const base = m_base;
    // No quote stands in the name: where it begins nothing is quoted.
    const std::uint64_t inside = 0 - (nBitsFrom(m_sweep.nQuoted, here) & 1);
    std::uint64_t looked_at = ~std::uint64_t{0} << (name_end - name) & WINDOW_BITS;
    for (const char* p = name;;) {
        const std::uint64_t quoted = nBitsFrom(m_sweep.nQuoted, here) ^ inside;
        const std::uint64_t closes = nBitsFrom(m_sweep.nCloses, here) & ~quoted & looked_at;
        const std::uint64_t odd =
            (nBitsFrom(m_sweep.nOddOutside, here) & ~quoted) | (nBitsFrom(m_sweep.nOddQuotes, here) & quoted);
        if ((odd & looked_at & (closes - 1) & ~closes) != 0) {
            break;
        }
        if (closes != 0) {
            return {name_end, p + nLowestBit(closes)};
        }
        if (m_end - p <= WINDOW) {
            return {name_end, nullptr};
        }
        p += WINDOW;
        here = place_of(p);
        if (m_base != base) {
            break; // a new sweep counts quotes from here on
        }
        looked_at = WINDOW_BITS;
    }
    return {name_end, find_tag_close(name_end, m_end)};
}

markup_map::tag_ends markup_map::find_far_ends(const char* name) noexcept {
    const char* const name_end = find_name_end(name, m_end);
    return {name_end, find_tag_close(name_end, m_end)};
}

} // namespace pageslice::standard
