// SPDX-License-Identifier: MIT
#include "hostile.h"

namespace bench {

namespace {

using namespace std::string_view_literals;

constexpr Family FAMILIES[] = {
    // Runs of one kind. An anchor or image on the very first character ends every walk, hence the 'x' below.
    {"closes", "", ">", ""},
    {"opens", "", "<", ""},
    {"opens and spaces", "", "< ", ""},
    {"open and close", "x", "<>", ""},
    {"spaces", "", " ", ""},
    {"NULs", "", "\0"sv, ""},
    {"letters", "", "x", ""},
    {"high bytes", "", "\xff", ""},
    // Quotes.
    {"quotes in text, even", "", "\"", "<b>x"},
    {"quotes in text, odd", "x", "\"", "<b>x"},
    {"a quote before each tag", "", "\"<b>", ""},
    {"two quotes before each tag", "", "\"\"<b>", ""},
    {"three quotes before each end", "", "x\"\"\">", "<li>"},
    {"an odd quote in each tag", "x", "<b x=\">", ""},
    {"quotes paired in each tag", "x", "<b x=\">\">", ""},
    {"a quote opened at the start", "\"", "<a href=x>y</a>", ""},
    {"a value never closed", "x", "<a href=\"x", ""},
    {"a value closed by the tag's end", "x", "<a href=\"x>", "</a>"},
    // What is never closed.
    {"comments never closed", "x", "<!-- x ", ""},
    {"comments with closes and quotes", "x", "<!-- > \" x", ""},
    {"images never closed", "x", "<img ", ""},
    {"images never closed, with sources", "x", "<img src=x ", ""},
    {"cells never closed", "x", "<td x=\"", ""},
    {"anchors never closed", "x", "<a href=x>", ""},
    {"titles without end", "x", "<title>x", ""},
    {"list items without end", "x", "<li>x", ""},
    {"a name without end", "x<", "x", ""},
    {"spaces before a name", "x<", " ", "a href=x>y</a>"},
    {"spaces before each name", "x", "<  ~ b>", ""},
    // Large tags.
    {"an anchor of many attributes", "x<a ", "b^=c ", "href=x>y</a>"},
    {"a cell of many attributes", "x<td ", "b^=c ", ">y</td>"},
    {"an image of many attributes", "x<img ", "b^=c ", "src=x>"},
    {"an anchor of equals signs", "x<a ", "=", "href=x>y</a>"},
    {"a link of megabytes", "x<a href=\"", "x", "\">y</a>"},
    {"a source of megabytes", "x<img src=", "x", ">"},
    {"an attribute name of megabytes", "x<td ", "x", ">"},
    {"opens inside an anchor", "x<a ", "<a ", ">"},
    // Depth.
    {"end tags only", "x", "</a></li></td></tr></table></title>", ""},
    {"nested lists", "x", "<ul><li>", ""},
    {"nested tables", "x", "<table><tr><td>", ""},
    {"nested bold", "x", "<b>", ""},
    {"nested and closed", "x", "<td><li><a href=x><b>", "</b></a></li></td>"},
    // The URL map.
    {"equal links", "x", "<a href=x>y</a>", ""},
    {"distinct links", "x", "<a href=p^>y</a>", ""},
    {"growing links", "x", "<a href=~>y</a>", ""},
    {"alternating links", "x", "<a href=a>y</a><a href=ab>y</a><a href=b>y</a>", ""},
    {"links that differ late", "x", "<a href=http://www.example.com/a/long/path/to/^>y</a>", ""},
    {"equal images", "x", "<img src=x>", ""},
    {"growing images", "x", "<img src=~ alt=\"[x]\">", ""},
    // The same tag is visited once for each '>' in the text before it.
    {"closes before a list item", "", ">", "<li>x</li>"},
    {"closes before a cell", "", ">", "<td>x</td>"},
    {"closes before an anchor", "", ">", "<a href=x>y</a>"},
    {"closes before an image", "", ">", "<img src=x>"},
    {"closes and letters before an end", "x<li>", "x>", "</li>"},
    {"closes before a long name", "", ">", "<xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx>"},
    {"closes before each list item", "", ">>>>>>>><li>", ""},
    {"comparisons in a script", "x<script>", "if (a<b && c>\"^\") d = '</a>';", "</script>"},
};

constexpr Family EVERYDAY = {
    "everyday page", "<html><head><title>An everyday page</title></head><body>\n",
    R"(<div class="story column-wide" id="story-^" data-kind="story" data-index="^" data-region="main-column">
  <div class="story-head"><h2 class="title story-title"><a href="/news/today/story-^.html" class="headline headline-large"
    title="Story ^">Story number ^ of the day</a></h2>
  <span class="meta" style="display: inline-block; margin-left: 2px; color: #666666">by <b>Author ^</b></span></div>
  <div class="picture picture-left" style="width: 120px; height: 90px; float: left; margin: 0 10px 10px 0">
    <img src="/images/thumbnails/story-^.jpg" width="120" height="90" alt="Picture ^" class="thumb" border=0></div>
  <p class="lead">The first words of a story say what has happened, where it was, and whom it concerns. What
follows is longer, and it <a href="http://www.example.com/archive/^.html" rel="next">continues</a> elsewhere.</p>
<ul class="tools" data-kind="story-tools" data-target="story-^"><li class="first"><a href="/share/^">Share</a></li>
<li class="last"><span class="icon icon-small icon-print" aria-hidden="true"></span>Print</li></ul>
<table border=0 cellpadding="0" cellspacing="0"><tr><td width=50% align="left">Read: ^</td><td>Today</td></tr></table>
<script type="text/javascript">
  var slots = window.slots || []; slots.push({ id: 'story-^', kind: 'banner', sizes: [[300, 250], [728, 90]] });
</script>
<!-- end of story ^ --><div class="clear clear-both" style="clear: both; height: 0; overflow: hidden"></div></div>
)",
    "</body></html>\n"};

void AppendUnit(std::string& page, std::string_view unit, std::size_t number) {
    for (const char c : unit) {
        if (c == '^') {
            page += std::to_string(number);
        } else if (c == '~') {
            page.append(number, 'x');
        } else {
            page += c;
        }
    }
}

} // namespace

std::string MakePage(const Family& family, std::size_t n) {
    std::string page(family.begin);
    page.reserve(n + 4096);
    for (std::size_t number = 1; page.size() + family.end.size() < n; ++number) {
        AppendUnit(page, family.unit, number);
    }
    page += family.end;
    return page;
}

std::string MakeUnits(const Family& family, std::size_t count) {
    std::string page(family.begin);
    for (std::size_t number = 1; number <= count; ++number) {
        AppendUnit(page, family.unit, number);
    }
    page += family.end;
    return page;
}

std::span<const Family> HostileFamilies() noexcept {
    return FAMILIES;
}

const Family& EverydayFamily() noexcept {
    return EVERYDAY;
}

} // namespace bench
