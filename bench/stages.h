// What is measured: the whole job that a host has a page done, its stages alone, and the limits beside it.
#ifndef PAGESLICE_BENCH_STAGES_H
#define PAGESLICE_BENCH_STAGES_H

#include <cstddef>
#include <span>

#include "pages.h"
#include "pageslice/html_parser.h"

namespace bench {

// What a run found: shows the reader that the work was done.
struct Found {
    std::size_t links = 0;
    std::size_t images = 0;
    std::size_t textBytes = 0;
    std::size_t titleBytes = 0;
};

struct Stage {
    const char* name;
    // Does the stage for one page and releases all that it was given. `indexed` is a parser of this page that
    // has run its indexing pass: for stages that begin there. Counting takes time of its own, so nothing is
    // counted into a null `found`.
    void (*run)(const Page& page, HtmlParser& indexed, Found* found);
};

std::span<const Stage> Stages() noexcept;

} // namespace bench

#endif
