// SPDX-License-Identifier: MIT
// The ways to work through pages. Each reports what fails on `console` and goes on with the rest, unless
// nothing more can be written.
#ifndef PAGESLICE_TOOLS_BATCH_H
#define PAGESLICE_TOOLS_BATCH_H

#include "console.h"
#include "options.h"
#include "output.h"

namespace program {

// Reports of the files, in their order.
void printFiles(const Options& options, Console& console, Output& output);

// One JSON object for each that standard input holds, in their order: what goes wrong with a line is the
// answer to it. Answers leave together while more lines are there, and at once before one is awaited.
void printStream(const Options& options, Console& console, Output& output);

// The annotated form of the only file.
void annotateFile(const Options& options, Console& console, Output& output);

} // namespace program

#endif
