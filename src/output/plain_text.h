#ifndef PAGESLICE_OUTPUT_PLAIN_TEXT_H
#define PAGESLICE_OUTPUT_PLAIN_TEXT_H

#include "output/output_text.h"
#include "pageslice/text.h"

// Writes the page's visible characters: every tag and every run of LF, CR and space becomes one space, and
// nothing at the page's start; every other byte is copied. A tag that the page does not close ends the
// conversion. At most one character is written for each character of the page. Linear time.
void WritePlainText(const text& page, OutputText& out) noexcept;

#endif
