// SPDX-License-Identifier: MIT
// rules [--text] FILE   prints what each of the two rule sets finds in a page, side by side, or the page's
// plain text by both: which rules are right for your pages?
#include <algorithm>
#include <cstring>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include "pageslice/page.h"

namespace {

using lines = std::vector<std::string>;

// On one line, so that both columns keep their rows.
std::string shown(std::string_view text) {
    std::string result;
    for (const char c : text) {
        switch (c) {
        case '\n': result += "\\n"; break;
        case '\r': result += "\\r"; break;
        case '\t': result += "\\t"; break;
        default: result += c;
        }
    }
    return result;
}

std::string shown_beside(std::string_view first, std::string_view second) {
    return shown(first) + " | " + shown(second);
}

lines findings(const pageslice::page& page) {
    lines found;
    if (page.title().data() != nullptr) {
        found.push_back("title " + shown(page.title()));
    }
    for (const pageslice::link& link : page.links_in_page_order()) {
        found.push_back("link " + shown_beside(link.href, link.text));
    }
    for (const pageslice::image& image : page.images()) {
        found.push_back("image " + shown_beside(image.src, image.alt));
    }
    for (const pageslice::cell& cell : page.cells()) {
        found.push_back("cell " + shown(cell.text));
    }
    for (const pageslice::item& item : page.list_items()) {
        found.push_back("item " + shown(item.text));
    }
    if (found.empty()) {
        found.emplace_back("nothing");
    }
    return found;
}

lines read_by(pageslice::rules rules, const std::string& html, bool as_text) {
    pageslice::options options;
    options.rules = rules;
    const pageslice::page page(html, options);
    if (as_text) {
        return {'"' + shown(page.plain_text()) + '"'};
    }
    lines found = findings(page);
    if (page.read_to() < html.size()) {
        found.push_back("read to byte " + std::to_string(page.read_to()) + " of " +
                        std::to_string(html.size()));
    }
    return found;
}

void print_beside(lines left, lines right) {
    left.insert(left.begin(), "classic");
    right.insert(right.begin(), "standard");
    const std::size_t rows = std::max(left.size(), right.size());
    left.resize(rows);
    right.resize(rows);
    std::size_t width = 0;
    for (const std::string& line : left) {
        width = std::max(width, line.size());
    }
    for (std::size_t i = 0; i < rows; ++i) {
        const std::string gap = right[i].empty() ? "" : std::string(width - left[i].size() + 3, ' ');
        std::cout << left[i] << gap << right[i] << '\n';
    }
}

} // namespace

// Out of memory ends it: NOLINTNEXTLINE(bugprone-exception-escape)
int main(int argc, char** argv) {
    const bool as_text = argc == 3 && std::strcmp(argv[1], "--text") == 0;
    std::ifstream in(argc == 2 || as_text ? argv[argc - 1] : "", std::ios::binary);
    if (!in) {
        std::cerr << "usage: rules [--text] FILE\n";
        return 2;
    }
    const std::string html((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    print_beside(read_by(pageslice::rules::classic, html, as_text),
                 read_by(pageslice::rules::standard, html, as_text));
}
