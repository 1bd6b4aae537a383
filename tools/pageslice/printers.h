// SPDX-License-Identifier: MIT
// The forms in which a page is printed: valid UTF-8, whatever the page holds. What a report on one page may
// take is bounded by the page's size; what does not fit is counted.
#ifndef PAGESLICE_TOOLS_PRINTERS_H
#define PAGESLICE_TOOLS_PRINTERS_H

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "failure.h"
#include "options.h"
#include "page.h"
#include "report.h"

namespace program {

// The most bytes of a report.
inline std::size_t mostOutput(std::size_t pageSize) {
    constexpr std::size_t FREE_BYTES = std::size_t{64} << 10;
    return pageSize < SIZE_MAX / 64 ? pageSize * 32 + FREE_BYTES : SIZE_MAX;
}

// What a captured text shows, in one line. Where that is nothing but an image, the image's alternative text
// or name stands in, in brackets.
std::string labelOf(Slice slice, const Page& page, std::size_t limit);

// For people: headings, numbered rows, long texts cut. Where only one section is wanted, its lines come
// bare and whole, for other programs to read: "URL TAB text" for links and images. Gives how many rows did
// not fit.
std::size_t printForPeople(const Page& page, const Options& options, Report& report);

// What the answer to a line of a stream says beside the page.
struct Asked {
    std::size_t line = 0;
    std::string_view id; // as JSON
    bool isRepaired = false;
};

// One object on one line, its line end included. What fails half-way ends as JSON too, with an "error", which
// it gives.
std::optional<Failure> printAsJson(const Page& page, const Asked& asked, const Options& options,
                                   Report& report);
// The answer to a line that has none.
void printErrorAsJson(const Asked& asked, std::string_view why, const Options& options, Report& report);

// A page of HTML that shows the source with every slice in its place, and where the links are that only the
// standard rules find, of which `standardLinks` holds the addresses in the order of the page.
void printAnnotated(const Page& page, const std::vector<Slice>& standardLinks, const Options& options,
                    Report& report);

} // namespace program

#endif
