// SPDX-License-Identifier: MIT
// A host with things of its own under every name that the library's classes and routines have, of the same
// shape as far as the linker sees. FACE is 1 for page.h, 0 for the C interface; OWN is `inline`, or nothing.
// None of them may be taken for the library's, nor the library's for one of them.
#define ALIGN_LEFT 1
#include "tests/hosts/names.h"

#if FACE == 1
#include "pageslice/page.h"
#include "pageslice/tokens.h"
enum class align { near = 1 };
#else
#include "pageslice/pageslice_c.h"
#include "pageslice/tokens_c.h"
#endif

#include <memory>
#include <string>
#include <string_view>

namespace {

constexpr std::string_view HTML =
    "<title>T</title><a href=x>y</a><img src=i align=left><table><tr><td>c</td></table><li>z</li>";

#if FACE == 1

std::string answers(int rules) {
    pageslice::options options;
    options.rules = static_cast<decltype(options.rules)>(rules);
    options.url = "http://h/d/";
    const pageslice::page page(HTML, options);
    std::string all(page.title());
    for (const auto& link : page.links())
        all += " " + page.absolute(link.href) + " " + page.plain_text(link.text);
    for (const auto& image : page.images())
        all +=
            " " + std::string(image.src) + (image.alignment == pageslice::alignment::left ? " left" : " ?");
    for (const auto& cell : page.cells())
        all += " " + std::string(cell.text);
    for (const auto& item : page.list_items())
        all += " " + std::string(item.text);
    return all + " " + std::string(page.link_urls()[0]) + " " + std::string(page.image_urls()[0]);
}

bool bOwnAlignIsWhole() {
    return align::near == align(1);
}

#else

using namespace std; // whose `align` is the only one here

string one(const pageslice_slice& slice) {
    return " " + string(slice.data, slice.size);
}

string answers(int rules) {
    pageslice_options options = {};
    options.rules = rules;
    options.url = "http://h/d/";
    options.url_size = 11;
    pageslice_page* page = nullptr;
    if (pageslice_open_with(HTML.data(), HTML.size(), &options, sizeof options, &page) != PAGESLICE_OK)
        return "not opened";
    pageslice_slice title{}, link_url{}, image_url{};
    pageslice_link link{};
    pageslice_image image{};
    pageslice_cell cell{};
    pageslice_item item{};
    char absolute[64], plain[64];
    size_t length = 0;
    const int code =
        pageslice_get_title(page, &title) | pageslice_get_link(page, 0, &link, sizeof link) |
        pageslice_absolute(page, link.href.data, link.href.size, absolute, 64, &length) |
        pageslice_get_plain_text_of(page, link.text.data, link.text.size, plain, 64, &length) |
        pageslice_get_image(page, 0, &image, sizeof image) | pageslice_get_cell(page, 0, &cell, sizeof cell) |
        pageslice_get_item(page, 0, &item, sizeof item) | pageslice_get_link_url(page, 0, &link_url) |
        pageslice_get_image_url(page, 0, &image_url);
    string all = code == PAGESLICE_OK ? string(title.data, title.size) : "an error";
    all += string(" ") + absolute + " " + plain + one(image.src);
    all += image.align == PAGESLICE_ALIGN_LEFT ? " left" : " ?";
    all += one(cell.text) + one(item.text) + one(link_url) + one(image_url);
    pageslice_close(page);
    return all;
}

bool bOwnAlignIsWhole() {
    char bytes[16];
    void* p = bytes + 1;
    size_t n = 15;
    return align(8, 1, p, n) != nullptr;
}

#endif

} // namespace

int main() {
    for (int rules : {PAGESLICE_CLASSIC, PAGESLICE_STANDARD}) {
        if (answers(rules) != "T http://h/d/x y i left c z x i")
            return 1 + rules;
    }
    if (g_nCalls != 0)
        return 3; // the library called what is the host's
    if (UseAll() != RESULTS || g_nCalls != CALLS || !bOwnAlignIsWhole())
        return 4; // the host called what is the library's
    return 0;
}
