// The forms in which a page is printed. Each gives valid UTF-8 whatever the page holds, but for the plain
// text alone, which keeps the page's bytes unless it goes to a terminal.
#ifndef PAGESLICE_TOOLS_PRINTERS_H
#define PAGESLICE_TOOLS_PRINTERS_H

#include <cstddef>
#include <string>

#include "options.h"
#include "page.h"

namespace pageslice {

// What a captured text shows, in one line. Where that is nothing but an image, the image's alternative text
// or name stands in, in brackets.
std::string labelOf(Slice slice, const Page& page, std::size_t limit);

// For people: headings, numbered rows, long texts cut. Where only one section is wanted, its lines come
// bare and whole, for other programs to read: "URL TAB text" for links and images.
std::string printForPeople(const Page& page, const Options& options);

// One object on one line, its line end included.
std::string printAsJson(const Page& page, const Options& options);

// A page of HTML that shows the source with every slice in its place.
std::string printAnnotated(const Page& page);

} // namespace pageslice

#endif
