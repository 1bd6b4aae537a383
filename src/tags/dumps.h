// SPDX-License-Identifier: MIT
#ifndef PAGESLICE_TAGS_DUMPS_H
#define PAGESLICE_TAGS_DUMPS_H

#include "pageslice/text.h"

inline namespace pageslice_v1 {

// Debug prints to the console, through printf.

// The name of an alignment; nothing for a value without one. PrintAlignLn adds a line end.
void PrintAlign(const align& a);
void PrintAlignLn(const align& a);

// A tag from `p` up to and including its '>', which must be there, then a line end. A null pointer prints
// the line end only.
void PrintTag(const char* p);

} // namespace pageslice_v1

#endif
