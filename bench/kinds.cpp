// SPDX-License-Identifier: MIT
#include "kinds.h"

#include <algorithm>
#include <string>

#include "hostile.h"
#include "pageslice/page.h"

namespace bench {

namespace {

std::size_t CountOf(std::string_view word, std::string_view page) {
    std::size_t n = 0;
    for (std::size_t i = 0; (i = page.find(word, i)) != std::string_view::npos; i += word.size()) {
        ++n;
    }
    return n;
}

std::size_t ScriptBytes(std::string_view page) {
    std::size_t n = 0;
    for (std::size_t i = 0; (i = page.find("<script", i)) != std::string_view::npos;) {
        const std::size_t end = std::min(page.find("</script", i), page.size());
        n += end - i;
        i = end;
    }
    return n;
}

// By the standard rules, for which scripts are no text.
std::size_t TextBytes(std::string_view page) {
    pageslice::options options;
    options.rules = pageslice::rules::standard;
    return pageslice::page(page, options).plain_text().size();
}

constexpr Kind KINDS[] = {
    {"links", [](std::string_view page) { return CountOf("<a href=", page); }},
    {"tables", [](std::string_view page) { return CountOf("<td", page); }},
    {"text", TextBytes},
    {"scripts", ScriptBytes},
};

// An anchor without text is read and not kept: that is all that parts it from one which enters the map.
constexpr Cost COSTS[] = {
    {"tag", 2, "<b>word</b> ", "xxxwordxxxx ", false},
    {"list item's tag", 2, "<li>word</li> ", "xxxxwordxxxxx ", false},
    {"anchor", 1, "<a href=/p/^></a>word ", "xxxxxxxxxxx^xxxxxword ", false},
    {"attribute", 1, "<a href=/p/^ class=x></a>word ", "<a href=/p/^></a> class=xword ", false},
    {"insert of a new link", 1, "<a href=/p/^>word</a> ", "<a href=/p/^></a>word ", true},
    {"insert of an equal link", 1, "<a href=/p/>word</a> ", "<a href=/p/></a>word ", true},
};

Page PageOf(std::string_view unit, std::size_t count) {
    return Page(MakeUnits({"", "<title>x</title><p>", unit, ""}, count));
}

} // namespace

std::span<const Kind> Kinds() noexcept {
    return KINDS;
}

std::vector<Page> PagesOfKind(const Kind& kind, const std::vector<Page>& pages) {
    struct Weighed {
        double share;
        std::string_view page;
    };
    std::vector<Weighed> all;
    for (const Page& page : pages) {
        const std::string_view s(page.Data(), page.Size());
        all.push_back({static_cast<double>(kind.weigh(s)) / static_cast<double>(s.size()), s});
    }
    std::stable_sort(all.begin(), all.end(), [](auto& a, auto& b) { return a.share > b.share; });
    constexpr std::size_t CHOSEN = 16;
    std::vector<Page> chosen;
    for (std::size_t i = 0; i < std::min(CHOSEN, all.size()); ++i) {
        chosen.emplace_back(all[i].page);
    }
    return chosen;
}

std::span<const Cost> Costs() noexcept {
    return COSTS;
}

std::array<Page, 4> PagesOf(const Cost& cost) {
    return {PageOf(cost.with, COST_UNITS), PageOf(cost.with, 2 * COST_UNITS),
            PageOf(cost.without, COST_UNITS), PageOf(cost.without, 2 * COST_UNITS)};
}

double PerThing(const Cost& cost, const std::array<double, 4>& taken) noexcept {
    return ((taken[1] - taken[0]) - (taken[3] - taken[2])) / static_cast<double>(COST_UNITS * cost.things);
}

} // namespace bench
