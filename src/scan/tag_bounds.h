// SPDX-License-Identifier: MIT
// Where a tag ends, and where the text before a tag ends. Both work in place and allocate nothing.
#ifndef PAGESLICE_SCAN_TAG_BOUNDS_H
#define PAGESLICE_SCAN_TAG_BOUNDS_H

#include "pageslice/text.h"

inline namespace pageslice_v1 {

// The first '>' at or after p that does not lie between two '"', or null when the page ends first, also
// inside quotes. The quotes are counted from p on, whatever p is. A position past the page gives null.
const char* pFindTagEnd(const char* p, const text& page) noexcept;

// p lies inside a tag, after its '<'. The last character before that '<'; null when there is no '<' from
// pLower to p, or when it stands at pLower: the run of text before the tag is empty. Nothing below pLower
// is read.
const char* pFindEndBeforeTag(const char* p, const char* pLower) noexcept;

} // namespace pageslice_v1

#endif
