// SPDX-License-Identifier: MIT
// The least that a host does: a page in memory, its links and images as lists.
#include <cstdio>
#include <memory>

#include "pageslice/pageslice.h"

int main() {
    const char page[] = "<title>Hello</title><a href=\"next.html\">Next</a> <img src=\"logo.png\">";
    HtmlParser parser(text(page), "http://host/index.html");
    UrlList *images = nullptr, *links = nullptr;
    parser.GetUrlLists(&images, &links); // both lists are ours now
    const std::unique_ptr<UrlList> own_images(images), own_links(links);
    while (const char* link = links->pGetNext()) {
        std::printf("link %s\n", link);
    }
    while (const char* image = images->pGetNext()) {
        std::printf("image %s\n", image);
    }
}
