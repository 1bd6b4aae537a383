// The ways to work through pages. Each reports what fails on `console` and goes on with the rest.
#ifndef PAGESLICE_TOOLS_BATCH_H
#define PAGESLICE_TOOLS_BATCH_H

#include "console.h"
#include "options.h"

namespace pageslice {

// Reports of the files, in their order.
void printFiles(const Options& options, Console& console);

// One JSON object for each that standard input holds. An answer leaves before the next line is awaited.
void printStream(const Options& options, Console& console);

// The annotated form of the only file.
void annotateFile(const Options& options, Console& console);

} // namespace pageslice

#endif
