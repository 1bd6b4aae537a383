// SPDX-License-Identifier: MIT
// links FILE [ADDRESS]   prints the links of a page, in the order in which they stand there, and how many of
// its images have an alternative text.
#include <algorithm>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>

#include "pageslice/page.h"

// Out of memory ends it: NOLINTNEXTLINE(bugprone-exception-escape)
int main(int argc, char** argv) {
    std::ifstream in(argc > 1 ? argv[1] : "", std::ios::binary);
    if (!in) {
        std::cerr << "usage: links FILE [ADDRESS]\n";
        return 2;
    }
    // The page looks into this string, which therefore outlives it.
    const std::string html((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    const pageslice::page page(html, argc > 2 ? argv[2] : "");

    const auto links = page.links_in_page_order();
    for (const pageslice::link& link : links) {
        std::cout << page.absolute(link.href) << '\t' << link.text << '\n';
    }

    const auto images = page.images();
    const auto described = std::count_if(images.begin(), images.end(),
                                         [](const pageslice::image& image) { return !image.alt.empty(); });
    std::cout << links.size() << " links, " << described << " of " << images.size() << " images described\n";
}
