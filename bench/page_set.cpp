// SPDX-License-Identifier: MIT
#include "page_set.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <utility>

namespace bench {

namespace {

Page LoadPage(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    const std::string content{std::istreambuf_iterator<char>(file), {}};
    if (!file) {
        throw std::runtime_error("cannot read " + path.string());
    }
    return Page(content);
}

} // namespace

std::vector<Page> LoadPages(const std::vector<std::string>& paths) {
    std::vector<std::filesystem::path> files;
    for (const std::string& path : paths) {
        if (!std::filesystem::is_directory(path)) {
            files.emplace_back(path);
            continue;
        }
        const auto folderBegin = static_cast<std::ptrdiff_t>(files.size());
        for (const auto& entry : std::filesystem::directory_iterator(path)) {
            if (entry.path().extension() == ".html") {
                files.push_back(entry.path());
            }
        }
        std::sort(files.begin() + folderBegin, files.end());
    }
    std::vector<Page> pages;
    std::transform(files.begin(), files.end(), std::back_inserter(pages), LoadPage);
    return pages;
}

PageSet::PageSet(std::vector<Page> pages) : m_pages(std::move(pages)) {
    for (const Page& page : m_pages) {
        m_bytes += page.Size();
        m_indexed.emplace_back(page.Slice(), PAGE_URL).InitializeHtmlFile();
    }
}

void PageSet::Round(const Stage& stage) {
    for (std::size_t i = 0; i < m_pages.size(); ++i) {
        stage.run(m_pages[i], m_indexed[i], nullptr);
    }
}

Found PageSet::Find(const Stage& stage) {
    Found found;
    for (std::size_t i = 0; i < m_pages.size(); ++i) {
        stage.run(m_pages[i], m_indexed[i], &found);
    }
    return found;
}

AllocationsPerPage PageSet::Allocate(const Stage& stage) {
    AllocationsPerPage result;
    const auto pages = static_cast<double>(m_pages.size());
    for (std::size_t i = 0; i < m_pages.size(); ++i) {
        ResetAllocations();
        stage.run(m_pages[i], m_indexed[i], nullptr);
        const Allocations page = TakeAllocations();
        result.meanCount += static_cast<double>(page.count) / pages;
        result.meanPeakBytes += static_cast<double>(page.peakBytes) / pages;
        result.most.count = std::max(result.most.count, page.count);
        result.most.peakBytes = std::max(result.most.peakBytes, page.peakBytes);
    }
    return result;
}

} // namespace bench
