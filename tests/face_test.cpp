// SPDX-License-Identifier: MIT
// The modern face, and through it the C interface below: once with the static library, once as a host sees
// it.
#include "pageslice/page.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <numeric>
#include <ranges>
#include <sstream>
#include <vector>

#include "pageslice/html_parser.h"
#include "pageslice/text_view.h"

namespace {

using pageslice::page;

static_assert(std::ranges::random_access_range<pageslice::link_range> &&
              std::ranges::sized_range<pageslice::image_range> && std::ranges::view<pageslice::item_range> &&
              std::ranges::borrowed_range<pageslice::cell_range>);
static_assert(!std::is_copy_constructible_v<page> && std::is_nothrow_move_constructible_v<page>);

constexpr std::string_view HTML =
    "<title>T</title><a href=/a.html name=N rel=R rev=V title=I><b>A</b></a><a href=b.html>B</a>"
    "<table><tr><td>1</td><td>2</td></tr></table><ul><li>x</li><li>y</li></ul><img alt=none>"
    "<img src=s.gif lowsrc=l.gif alt=A usemap=#m width=1 height=2 border=3 hspace=4 vspace=5 align=right "
    "ismap>";

std::string_view text_of(std::string_view view) {
    return view;
}
std::string_view text_of(const auto& element) {
    return element.text;
}

std::string joined(const auto& elements) {
    std::ostringstream out;
    for (const auto& element : elements)
        out << (text_of(element).data() == nullptr ? "-" : text_of(element)) << ' ';
    return out.str();
}

TEST(Face, EveryFieldComesFromItsPlace) {
    const page p(HTML, "http://Host/dir/");
    EXPECT_EQ(p.title(), "T");
    EXPECT_EQ(p.url(), "http://Host/dir/");
    std::vector<std::string_view> fields;
    for (const pageslice::link& l : p.links())
        fields.insert(fields.end(), {l.href, l.text, l.name, l.rel, l.rev, l.title});
    EXPECT_EQ(joined(fields), "b.html B - - - - /a.html <b>A</b> N R V I ");
    EXPECT_EQ(joined(p.links_in_page_order()), "<b>A</b> B ");
    std::ostringstream images;
    for (const pageslice::image& i : p.images())
        images << joined(std::vector{i.src, i.lowsrc, i.alt, i.usemap}) << i.width << ' ' << i.height << ' '
               << i.border << ' ' << i.hspace << ' ' << i.vspace << ' ' << static_cast<int>(i.alignment)
               << ' ' << i.is_map << '\n';
    EXPECT_EQ(images.str(), "- - none - -1 -1 -1 -1 -1 0 0\ns.gif l.gif A #m 1 2 3 4 5 5 1\n");
    EXPECT_EQ(joined(p.cells()) + joined(p.list_items()) + joined(p.link_urls()) + joined(p.image_urls()),
              "1 2 x y b.html /a.html s.gif ");
    EXPECT_EQ(p.plain_text(), "T A B 1 2 x y ");
    EXPECT_EQ(p.absolute("../x.html") + " " + p.absolute(p.links()[1].href),
              "http://host/x.html http://host/a.html");
}

// What the exported classes give for the same page.
struct Opened : HtmlParser {
    explicit Opened(std::string_view html) : HtmlParser(pageslice::to_text(html), nullptr) {
        UrlList *images = nullptr, *links = nullptr;
        GetUrlLists(&images, &links);
        for (UrlList* list : {images, links}) {
            while (const char* entry = list->pGetNext())
                (urls += entry) += ' ';
            delete list;
        }
        char* plain = nullptr;
        bConvertHtmlToPlainText(&plain);
        plain_text = std::unique_ptr<char[]>(plain).get();
        views = joined(std::vector{pageslice::to_view(m_tTitle)});
        for (const auto* slices : {&m_vCellTexts, &m_vListItems})
            for (const text& slice : *slices)
                views += joined(std::vector{pageslice::to_view(slice)});
    }
    std::string urls, plain_text, views;
};

TEST(Face, AgreesWithTheClassesOnEverySample) {
    int samples = 0;
    for (const auto& entry : std::filesystem::directory_iterator(PAGESLICE_SAMPLES)) {
        std::ifstream in(entry.path(), std::ios::binary);
        const std::string html((std::istreambuf_iterator<char>(in)), {});
        const Opened expected(html);
        const page p(html);
        SCOPED_TRACE(entry.path().string());
        std::string urls = joined(p.image_urls()) + joined(p.link_urls());
        if (const std::size_t nul = urls.find('\0'); nul != std::string::npos)
            urls.replace(nul, std::string::npos, " "); // ends a packed list, but no range
        EXPECT_EQ(urls, expected.urls);
        EXPECT_EQ(p.plain_text().c_str(), expected.plain_text);
        EXPECT_EQ(joined(std::vector{p.title()}) + joined(p.cells()) + joined(p.list_items()),
                  expected.views);
        for (const pageslice::link& l : p.links()) {
            const std::ptrdiff_t at = l.text.data() - html.data();
            EXPECT_GE(at, 0);
            EXPECT_LE(at + std::ssize(l.text), std::ssize(html));
        }
        ++samples;
    }
    EXPECT_GT(samples, 3);
}

TEST(Face, OptionsAndWhatTheyChange) {
    pageslice::options options;
    options.url = "http://h/d/";
    options.encoding = "latin1";
    const page p(HTML, options);
    EXPECT_EQ(p.absolute("x"), "http://h/d/x");
    EXPECT_EQ(p.encoding(), "windows-1252");
    EXPECT_EQ(page("\xEF\xBB\xBFx", options).encoding(), "UTF-8");
    EXPECT_EQ(p.links()[1].element.substr(0, 16), "<a href=/a.html ");
    EXPECT_EQ(p.images()[0].element, "<img alt=none>");
    const page spaced(" <a href=''\n>x</a>");
    EXPECT_EQ(spaced.links()[0].element, "<a href=''\n>");
    EXPECT_EQ(p.plain_text(p.links()[1].text), "A ");
    EXPECT_EQ(p.base().data(), nullptr);
    EXPECT_EQ(pageslice::decode("&amp;&lt"), "&<");

    page opened(HTML);
    EXPECT_EQ(page::open({"", SIZE_MAX}, options, opened), PAGESLICE_BAD_ARGUMENT);
    EXPECT_EQ(opened.title().data(), nullptr);
    EXPECT_EQ(opened.links().size(), 0U);
    EXPECT_EQ(page::open(HTML, options, opened), PAGESLICE_OK);
    EXPECT_EQ(opened.title(), "T");
    EXPECT_THROW(page(std::string_view("", SIZE_MAX)), std::invalid_argument);
    options.limits.items = 1;
    EXPECT_THROW(page(HTML, options), std::length_error);
    EXPECT_EQ(page::open(HTML, options, opened), PAGESLICE_LIMIT);
}

TEST(Face, TellsHowFarThePageWasRead) {
    const std::pair<std::string_view, std::size_t> rows[] = {{"", 0},
                                                             {"a", 1},
                                                             {"<b>x</b>", 8},
                                                             {"<p></html> x", 12},
                                                             {"<p></html> <a>", 11},
                                                             {"x\"<a>", 5},
                                                             {"x\"<i><b>", 5},
                                                             {"<i><a title=\"<b>", 13},
                                                             {"< a", 3}};
    for (const auto& [html, read_to] : rows)
        EXPECT_EQ(page(html).read_to(), read_to) << html;
}

TEST(Face, RangesServeAlgorithms) {
    const page p("<li>1</li><li>2</li><li>3</li><li>4</li>");
    const auto items = p.list_items();
    EXPECT_EQ(std::ranges::find(items, "3", &pageslice::item::text) - items.begin(), 2);
    std::vector<pageslice::item> back;
    for (auto i = items.end(); i != items.begin();)
        back.push_back(*--i);
    EXPECT_EQ(joined(back), "4 3 2 1 ");
    EXPECT_EQ(std::ranges::lower_bound(items, "2", {}, &pageslice::item::text)->text, "2");
    auto i = items.begin();
    EXPECT_EQ((i++)->text.size() + (i--)->text.size(), 2U);
    EXPECT_EQ(i - items.begin(), 0);
    EXPECT_EQ(joined(std::vector{i[3], *(1 + i)}), "4 2 ");
    EXPECT_EQ(items.end() - (i + 4), 0);
    EXPECT_LT(i, items.end());
}

TEST(Face, NothingGivesNothing) {
    page full(HTML);
    const page taken(std::move(full));
    EXPECT_EQ(taken.links().size(), 2U);
    const page empty{std::string_view()}, unclosed("<");
    for (const page* p : {&std::as_const(full), &empty, &unclosed}) {
        EXPECT_EQ(joined(std::vector{p->title(), p->url()}), "- - ");
        EXPECT_EQ((std::vector{p->links().size(), p->images().size(), p->cells().size()}),
                  std::vector<std::size_t>(3));
        EXPECT_EQ(p->plain_text() + p->absolute(""), "");
    }
}

TEST(Face, WhatIsNoUrlIsNoGuess) {
    EXPECT_EQ(pageslice::resolve_standard("http://h/a?b", "c d"), "http://h/c%20d"); // longer than both
    EXPECT_EQ(pageslice::resolve_standard({}, "http://h"), "http://h/");
    std::string result = "old";
    for (const auto& [base, url] :
         {std::pair{std::string_view(), "a"}, {"a", "http://h/"}, {"http://h/", "http://["}}) {
        EXPECT_EQ(pageslice::resolve_standard_into(result, base, url), PAGESLICE_NOT_A_URL)
            << base << ' ' << url;
        EXPECT_EQ(result + pageslice::resolve_standard(base, url), "");
    }
}

TEST(Face, ViewsAndSlices) {
    EXPECT_EQ(pageslice::to_view(text()).data(), nullptr);
    EXPECT_NE(pageslice::to_view(text("")).data(), nullptr);
    EXPECT_EQ(pageslice::to_text("").IsEmpty(), 1);
    EXPECT_EQ(pageslice::to_view(pageslice::to_text("abc")), "abc");
    EXPECT_EQ(pageslice::normalize(" HTTP://H/a/.././b c"), "http://h/b");
    EXPECT_EQ(pageslice::resolve("http://h", "/x"), "http://h/x"); // as long as both together
    EXPECT_EQ(pageslice::resolve({}, {}), "");
}

} // namespace
