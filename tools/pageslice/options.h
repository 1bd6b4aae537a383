// SPDX-License-Identifier: MIT
// What the command line asks for.
#ifndef PAGESLICE_TOOLS_OPTIONS_H
#define PAGESLICE_TOOLS_OPTIONS_H

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "console.h"
#include "output.h"
#include "pageslice/page.h"

namespace program {

enum ExitCode : int { EXIT_ALL_WELL = 0, EXIT_SOME_FAILED = 1, EXIT_WRONG_USAGE = 2 };

// The sections of a report; they combine as bits.
enum Section : unsigned {
    SECTION_TITLE = 1,
    SECTION_LINKS = 2,
    SECTION_IMAGES = 4,
    SECTION_ITEMS = 8,
    SECTION_CELLS = 16,
    SECTION_TEXT = 32,
    SECTIONS_BY_DEFAULT = SECTION_TITLE | SECTION_LINKS | SECTION_IMAGES | SECTION_ITEMS | SECTION_CELLS,
    SECTIONS_ALL = SECTIONS_BY_DEFAULT | SECTION_TEXT
};

struct Options {
    std::vector<std::string> files; // "-" is standard input
    std::string fileList;           // a file that names more of them, each with a NUL after it; empty: none
    std::string base;               // URLs are made absolute against it; empty: they stay as written
    pageslice::rules rules = pageslice::rules::classic;
    std::string encoding; // as told from outside; empty: each page says its own
    unsigned sections = 0;
    bool json = false;
    bool stream = false;
    bool count = false;        // only how many there are of each
    bool decode = false;       // bare lines without markup and character references
    bool withFilename = false; // before each bare line
    char lineEnd = '\n';       // of bare lines
    std::size_t jobs = 1;
    std::string annotated; // where the annotated page goes; empty: nowhere
    std::string color = "auto";

    // Where the report goes; the command line has no say in it.
    bool toTerminal = false; // then no byte of a page may reach it that could act on it
    bool colours = false;

    bool shows(Section section) const { return (sections & section) != 0; }
    bool isSingle() const { return (sections & (sections - 1)) == 0; }
    // Lines for other programs, without headings.
    bool isBare() const { return !json && (isSingle() || count); }
};

// Fills `options`. A value is the exit code to leave with at once: help and version went to standard
// output, a complaint about the usage to the console.
std::optional<int> parseOptions(int argc, char** argv, const Console& console, Output& output,
                                Options& options);

} // namespace program

#endif
