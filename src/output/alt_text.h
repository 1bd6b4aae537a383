// SPDX-License-Identifier: MIT
#ifndef PAGESLICE_OUTPUT_ALT_TEXT_H
#define PAGESLICE_OUTPUT_ALT_TEXT_H

#include "pageslice/text.h"

inline namespace pageslice_v1 {

// The alternative text of an image. It differs from its base in print alone: the brackets and line ends
// that such texts carry around them are trimmed after printing into a buffer. The trim works on the
// buffer's whole content, including what earlier calls wrote there.
class alt_text : public text {
public:
    alt_text() noexcept = default;
    alt_text(const alt_text&) noexcept = default;
    alt_text& operator=(const alt_text&) noexcept = default;
    // Takes the slice's start and end and keeps its own flag.
    alt_text& operator=(const text& t) noexcept;

    int print(OutputText& out, int bNewLine) const override;
};

} // namespace pageslice_v1

#endif
