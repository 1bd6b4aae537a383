// SPDX-License-Identifier: MIT
// Pages made to cost more than they are long. How much more is judged by growth, not by the clock: eight
// times the page may take 24 times as long, where quadratic work would take 64 times, whatever machine,
// sanitizer or emulator runs it.
#include <ctime>
#include <iterator>
#include <ostream>

#include "page_fixture.h"
#include "pageslice/page.h"
#include "pageslice/tokens.h"

namespace {

// One half of a page is made of a unit over and over, the other half of another, or of the same again.
struct Family {
    const char *pName, *pBegin, *pUnit, *pMiddle, *pOtherUnit, *pEnd;
};

void PrintTo(const Family& family, std::ostream* pOut) {
    *pOut << family.pName;
}

constexpr std::size_t LARGE = std::size_t{1} << 20, SMALL = LARGE / 8;
constexpr std::clock_t LITTLE = CLOCKS_PER_SEC / 20; // of which no growth is told

// A '^' in a unit becomes a number, another one each time.
void Append(std::string& page, const std::string& unit) {
    const std::size_t nNumber = unit.find('^');
    page += unit.substr(0, nNumber);
    if (nNumber != unit.npos)
        page += std::to_string(page.size()) + unit.substr(nNumber + 1);
}

std::string MakePage(const Family& family, std::size_t n) {
    std::string page = family.pBegin;
    while (page.size() < n / 2)
        Append(page, family.pUnit);
    page += family.pMiddle;
    while (page.size() < n)
        Append(page, family.pOtherUnit);
    return page + family.pEnd;
}

// All that a host may ask of a page, by either rules.
std::clock_t TimeOf(const std::string& html) {
    const std::clock_t start = std::clock();
    OpenParser parser(pageslice::to_text(html), nullptr);
    Lists(parser);
    for (const auto rules : {pageslice::rules::classic, pageslice::rules::standard}) {
        pageslice::options options;
        options.rules = rules;
        const pageslice::page page(html, options);
        for (const pageslice::image& image : page.images())
            EXPECT_FALSE(image.element.empty());
        EXPECT_LE(page.plain_text().size(), pageslice_plain_text_bound(page.handle(), html.size()));
    }
    pageslice::tokens tokens(html);
    for (const pageslice::token& token : tokens)
        EXPECT_LE(tokens.attributes().size(), token.bytes.size());
    return std::clock() - start;
}

class Hostile : public testing::TestWithParam<Family> {};

TEST_P(Hostile, TakesLinearTime) {
    const std::string large = MakePage(GetParam(), LARGE), small = MakePage(GetParam(), SMALL);
    std::clock_t most = 0, taken = 0;
    for (int i = 0; i < 3; ++i) { // a machine at work may stall
        most = std::max(24 * TimeOf(small), LITTLE);
        taken = TimeOf(large);
        if (taken <= most)
            return;
    }
    EXPECT_LE(taken, most) << "clock ticks";
}

INSTANTIATE_TEST_SUITE_P(
    Families, Hostile,
    testing::Values(Family{"closes", "", ">", "", ">", "<li>x</li><   img src=x><a href=x>y</a>"},
                    Family{"quotes", "x", "\"<b x=\">", "", "\"\"\"<b>", ""},
                    Family{"values", "x", "<a href=\"x", "", "<td width=\"x", ""},
                    Family{"spaces", "", ">", "<", " ", "li>x</li>"},
                    Family{"images", "x", "<img src=x ", "", "<!-- \" x > ", ""},
                    Family{"partings", "x", "<a title=\"x>y><img src=x>", "", "<img>", ""},
                    Family{"captures", "x<li><td><a href=x>", "x>", "", "<", "</a></td></li>"},
                    Family{"links", "x", "<a href=x>y</a>", "", "<a href=xy>y</a><a href=z>y</a>", ""},
                    Family{"attributes", "<a ", "b^=c ", "", "d ^", "href=x>y</a>"},
                    Family{"comments", "", "<!--x--!", "", "<!-->", ""},
                    Family{"scripts", "<script>", "<!--<script>", "", "</scrip", "</script>"},
                    Family{"tables", "", "<table><tr><td>", "", "</table>", ""},
                    Family{"lists", "", "<ul><li>", "", "</ul>", ""},
                    Family{"foreign", "", "<svg><desc>", "", "</svg>", ""},
                    Family{"references", "", "&", "", "&amp;&#x1F", ""},
                    Family{"templates", "", "<template><a href=x>", "", "</template>", ""}),
    [](const auto& family) { return std::string(family.param.pName); });

} // namespace
