// SPDX-License-Identifier: MIT
// The pages that are measured, and what one stage costs and finds on all of them.
#ifndef PAGESLICE_BENCH_PAGE_SET_H
#define PAGESLICE_BENCH_PAGE_SET_H

#include <cstddef>
#include <deque>
#include <string>
#include <vector>

#include "allocations.h"
#include "stages.h"

namespace bench {

// Reads files, and all *.html of folders, in the order of their names. Throws std::runtime_error for what
// cannot be read.
std::vector<Page> LoadPages(const std::vector<std::string>& paths);

struct AllocationsPerPage {
    double meanCount = 0;
    double meanPeakBytes = 0;
    Allocations most; // each field's greatest value
};

class PageSet {
public:
    explicit PageSet(std::vector<Page> pages);

    std::size_t Count() const noexcept { return m_pages.size(); }
    std::size_t Bytes() const noexcept { return m_bytes; }

    // The stage for each page in turn: what is timed and counted.
    void Round(const Stage& stage);
    Found Find(const Stage& stage);
    AllocationsPerPage Allocate(const Stage& stage);

private:
    std::vector<Page> m_pages;
    std::size_t m_bytes = 0;
    std::deque<HtmlParser> m_indexed;
};

} // namespace bench

#endif
