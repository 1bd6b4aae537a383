// SPDX-License-Identifier: MIT
#ifndef PAGESLICE_OUTPUT_PLAIN_TEXT_H
#define PAGESLICE_OUTPUT_PLAIN_TEXT_H

#include "output/output_text.h"
#include "pageslice/text.h"

namespace pageslice {

// Both write the page's visible characters: every tag and every run of LF, CR and space becomes one space,
// and nothing at the page's start; every other byte is copied. A tag that the page does not close ends the
// conversion. At most one character is written for each character of the page. Linear time.

// Writes from pOut on, where there is room for as many characters as the page has; gives the end of what was
// written. The rest of the room may have been overwritten.
char* pWritePlainText(const text& page, char* pOut) noexcept;

// Writes as much as fits. In a buffer with room for all it zero-fills the rest, so that the buffer need not
// come filled.
void WritePlainText(const text& page, OutputText& out) noexcept;

} // namespace pageslice

#endif
