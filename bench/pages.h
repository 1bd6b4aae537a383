// The pages that are measured, each in a heap buffer of exactly its own size, so that no run profits from
// what stands behind a page.
#ifndef PAGESLICE_BENCH_PAGES_H
#define PAGESLICE_BENCH_PAGES_H

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "pageslice/text.h"

namespace bench {

inline constexpr const char* PAGE_URL = "http://www.example.com/news/today/index.html";

class Page {
public:
    Page(std::string name, std::string_view content);

    const char* Data() const noexcept { return m_data.get(); }
    std::size_t Size() const noexcept { return m_size; }
    const std::string& Name() const noexcept { return m_name; }
    text Slice() const noexcept { return text(Data(), Data() + Size() - 1, 0); }

private:
    std::string m_name;
    std::size_t m_size;
    std::unique_ptr<char[]> m_data;
};

// Reads files, and all *.html of folders, in the order of their names. Throws std::runtime_error for what
// cannot be read.
std::vector<Page> LoadPages(const std::vector<std::string>& paths);

} // namespace bench

#endif
