#include "pages.h"

#include <algorithm>
#include <cstring>
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
    return Page(path.filename().string(), content);
}

std::vector<std::filesystem::path> PagesIn(const std::filesystem::path& folder) {
    std::vector<std::filesystem::path> paths;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (entry.path().extension() == ".html") {
            paths.push_back(entry.path());
        }
    }
    std::sort(paths.begin(), paths.end());
    return paths;
}

} // namespace

Page::Page(std::string name, std::string_view content)
    : m_name(std::move(name)), m_size(content.size()), m_data(new char[m_size]) {
    std::memcpy(m_data.get(), content.data(), m_size);
}

std::vector<Page> LoadPages(const std::vector<std::string>& paths) {
    std::vector<Page> pages;
    for (const std::string& path : paths) {
        if (!std::filesystem::is_directory(path)) {
            pages.push_back(LoadPage(path));
            continue;
        }
        for (const auto& file : PagesIn(path)) {
            pages.push_back(LoadPage(file));
        }
    }
    if (pages.empty()) {
        throw std::runtime_error("no pages");
    }
    return pages;
}

} // namespace bench
