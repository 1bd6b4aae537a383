// The forms in which a page is printed. Each gives valid UTF-8 whatever the page holds, but for the plain
// text alone, which keeps the page's bytes.
#ifndef PAGESLICE_TOOLS_PRINTERS_H
#define PAGESLICE_TOOLS_PRINTERS_H

#include <string>

#include "options.h"
#include "page.h"

namespace pageslice {

// For people: headings, numbered rows, long texts cut. Where only one section is wanted, its lines come
// bare and whole, for other programs to read: "URL TAB text" for links and images.
// `terminal`: colours, and no byte of the page reaches it that could act on it.
std::string printForPeople(const Page& page, const Options& options, bool terminal);

} // namespace pageslice

#endif
