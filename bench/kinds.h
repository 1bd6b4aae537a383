// SPDX-License-Identifier: MIT
// Pages of one kind, and pairs of pages that tell what one thing in a page costs.
#ifndef PAGESLICE_BENCH_KINDS_H
#define PAGESLICE_BENCH_KINDS_H

#include <array>
#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

#include "stages.h"

namespace bench {

struct Kind {
    const char* name;
    // How much of its kind is in a page.
    std::size_t (*weigh)(std::string_view page);
};

std::span<const Kind> Kinds() noexcept;

// Copies of the 16 pages that have most of it for their size.
std::vector<Page> PagesOfKind(const Kind& kind, const std::vector<Page>& pages);

// Two units of equal length: the first has `things` things that are letters in the second, or stand
// elsewhere.
struct Cost {
    const char* name;
    std::size_t things;
    std::string_view with;
    std::string_view without;
    bool isClassicOnly;
};

std::span<const Cost> Costs() noexcept;

// Repetitions of the unit in the smaller pages; the larger ones have twice as many.
inline constexpr std::size_t COST_UNITS = 1024;

// A small and a large page with the things, then without.
std::array<Page, 4> PagesOf(const Cost& cost);

// One thing's share of what those pages took: the growth with it, less the growth without it. Whatever a page
// costs for itself, and its letters, falls out.
double PerThing(const Cost& cost, const std::array<double, 4>& taken) noexcept;

} // namespace bench

#endif
