// SPDX-License-Identifier: MIT
// What a host needs to build, link and run: objects of the library, and exactly what they should answer.
#include <cstring>

#include "pageslice/pageslice.h"

int main() {
    const char page[] = "<html><body><a href=\"next.html\">next</a><img src=\"a.gif\"></body></html>";
    HtmlParser parser(text(page), "http://host/");
    UrlList* images = nullptr;
    UrlList* links = nullptr;
    parser.GetUrlLists(&images, &links);
    const char* image = images->pMoveFirst();
    const char* link = links->pMoveFirst();
    const bool well = image && link && !std::strcmp(image, "a.gif") && !std::strcmp(link, "next.html") &&
                      url::tGetHostName("http://host/") == "host";
    delete images;
    delete links;
    return well ? 0 : 1;
}
