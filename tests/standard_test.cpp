// SPDX-License-Identifier: MIT
// Pages by the standard rules: what they hold and what they say, with every scan and at every place of a
// block.
#include "page_fixture.h"
#include "pageslice/page.h"

namespace {

using pageslice::page;

page Opened(const text& t) {
    const std::string_view html(t.m_pStart, static_cast<std::size_t>(t.m_pEnd + 1 - t.m_pStart));
    pageslice::options options;
    options.rules = pageslice::rules::standard;
    return {html, options};
}

// A slice of the page; "-" for what is not given.
std::string Shown(std::string_view view, const text& tPage) {
    if (view.data() == nullptr)
        return "-";
    const std::ptrdiff_t nAt = view.data() - tPage.m_pStart;
    EXPECT_GE(nAt, 0);
    EXPECT_LE(nAt + std::ssize(view), tPage.m_pEnd + 1 - tPage.m_pStart);
    return std::string(view);
}

// "name=value" after a space, where it is given.
std::string Given(const char* pName, std::string_view value, const text& tPage) {
    return value.data() == nullptr ? "" : ' ' + std::string(pName) + '=' + Shown(value, tPage);
}
std::string Given(const char* pName, int nValue, int nNone = -1) {
    return nValue == nNone ? "" : ' ' + std::string(pName) + '=' + std::to_string(nValue);
}

// The first and the last character of a tag.
std::string Ends(std::string_view tag) {
    return {tag.front(), tag.back()};
}

std::string Index(const text& tPage) {
    const page p = Opened(tPage);
    std::string all = Given("title", p.title(), tPage) + Given("base", p.base(), tPage);
    all.erase(0, 1);
    for (const pageslice::link& l : p.links()) {
        EXPECT_EQ(Ends(l.element), "<>");
        all += ", a " + Shown(l.href, tPage) + Given("name", l.name, tPage) + Given("rel", l.rel, tPage) +
               Given("rev", l.rev, tPage) + Given("title", l.title, tPage) + ": " + Shown(l.text, tPage);
    }
    std::size_t nWithSource = 0;
    for (const pageslice::image& i : p.images()) {
        EXPECT_EQ(Ends(i.element), "<>");
        if (i.src.data() != nullptr) {
            EXPECT_EQ(p.image_urls()[nWithSource++].data() - i.src.data(), 0);
        }
        all += ", img" + Given("src", i.src, tPage) + Given("lowsrc", i.lowsrc, tPage) +
               Given("alt", i.alt, tPage) + Given("usemap", i.usemap, tPage) +
               Given("srcset", i.srcset, tPage) + Given("width", i.width) + Given("height", i.height) +
               Given("border", i.border) + Given("hspace", i.hspace) + Given("vspace", i.vspace) +
               Given("align", static_cast<int>(i.alignment), 0) + Given("ismap", i.is_map ? 1 : 0, 0);
    }
    EXPECT_EQ(p.image_urls().size(), nWithSource);
    for (const pageslice::cell& c : p.cells())
        all += (c.is_header ? ", th " : ", td ") + std::to_string(c.table) + '.' + std::to_string(c.row) +
               '.' + std::to_string(c.column) + Given("colspan", c.colspan, 1) +
               Given("rowspan", c.rowspan, 1) + ": " + Shown(c.text, tPage);
    for (const pageslice::item& i : p.list_items())
        all += ", li: " + Shown(i.text, tPage);
    EXPECT_EQ(p.read_to(), static_cast<std::size_t>(tPage.m_pEnd + 1 - tPage.m_pStart));
    return all.starts_with(", ") ? all.substr(2) : all;
}

TEST(StandardPage, Index) {
    RunPages("standard index", Index);
}

TEST(StandardPage, PlainText) {
    RunPages("standard text", [](const text& tPage) { return Opened(tPage).plain_text(); });
}

// The text of any part of a page fits into the room that is promised for it, whatever the part cuts off.
TEST(StandardPage, PlainTextOfParts) {
    const std::string html = "<p>a &amp; b<pre>\n c\n</pre><table><tr><td>d<td>&#x1F600;&nLt;</table><br>e";
    const page p = Opened(text(html.data(), html.data() + html.size() - 1, 0));
    for (std::size_t i = 0; i < html.size(); ++i)
        for (std::size_t n = 1; n <= html.size() - i; ++n) {
            const std::string part = html.substr(i, n), text = p.plain_text(part);
            const std::size_t nBound = pageslice_plain_text_bound(p.handle(), n);
            EXPECT_LE(text.size(), nBound) << part;
            EXPECT_EQ(text, Opened(::text(part.data(), part.data() + n - 1, 0)).plain_text()) << part;
        }
}

} // namespace
