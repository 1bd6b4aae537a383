// SPDX-License-Identifier: MIT
// Makes every template and inline function of page.h, for compilers that warn only of what they make.
#include "pageslice/page.h"

int use(pageslice::page& page) {
    std::size_t n = page.title().size() + page.url().size() + page.base().size() + page.read_to();
    for (const auto& link : page.links()) {
        n += page.absolute(link.href).size() + page.plain_text(link.text).size();
    }
    for (const auto& link : page.links_in_page_order()) {
        n += link.element.size();
    }
    for (const auto& image : page.images()) {
        n += static_cast<std::size_t>(image.width) + image.srcset.size();
    }
    for (const auto& cell : page.cells()) {
        n += pageslice::decode(cell.text).size();
    }
    n += page.list_items().begin()->text.size() + page.link_urls()[0].size() + page.image_urls()[0].size();
    std::string text = pageslice::resolve("", "") + pageslice::normalize("") + page.plain_text();
    pageslice::options options;
    options.limits.links = n;
    int code = pageslice::resolve_standard_into(text, "", pageslice::resolve_standard("", ""));
    code += page.plain_text_into(text) + page.absolute_into(text, "");
    pageslice::page other("", options);
    return code + pageslice::page::open(page.encoding(), options, other) +
           (other.handle() == nullptr ? 1 : 0);
}
