// SPDX-License-Identifier: MIT
// What is measured: the whole job that a host has a page done, its stages alone, and the limits beside it.
#ifndef PAGESLICE_BENCH_STAGES_H
#define PAGESLICE_BENCH_STAGES_H

#include <cstddef>
#include <cstring>
#include <memory>
#include <span>
#include <string_view>

#include "pageslice/html_parser.h"

namespace bench {

inline constexpr const char* PAGE_URL = "http://www.example.com/news/today/index.html";

// A page in a heap buffer of exactly its own size, so that no run profits from what stands behind it.
class Page {
public:
    explicit Page(std::string_view content) : m_size(content.size()), m_data(new char[m_size]) {
        std::memcpy(m_data.get(), content.data(), m_size);
    }

    const char* Data() const noexcept { return m_data.get(); }
    std::size_t Size() const noexcept { return m_size; }
    text Slice() const noexcept { return text(Data(), Data() + Size() - 1, 0); }

private:
    std::size_t m_size;
    std::unique_ptr<char[]> m_data;
};

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
