// SPDX-License-Identifier: MIT
// Pages that are slow wherever a walk looks at the same bytes again and again. Each family grows to any size.
#ifndef PAGESLICE_BENCH_HOSTILE_H
#define PAGESLICE_BENCH_HOSTILE_H

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace bench {

// `begin`, then `unit` again and again, then `end`. In the unit '^' becomes the number of the repetition
// and '~' as many x as the number has units, so that the pieces grow.
struct Family {
    const char* name;
    std::string_view begin;
    std::string_view unit;
    std::string_view end;
};

// A page of n bytes, or as few more as the last unit and the end need.
std::string MakePage(const Family& family, std::size_t n);

// A page of so many units.
std::string MakeUnits(const Family& family, std::size_t count);

std::span<const Family> HostileFamilies() noexcept;

// An everyday page: about as many links, images and words for its size as pages of the web have.
const Family& EverydayFamily() noexcept;

} // namespace bench

#endif
