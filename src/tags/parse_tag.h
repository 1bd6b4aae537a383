// SPDX-License-Identifier: MIT
#ifndef PAGESLICE_TAGS_PARSE_TAG_H
#define PAGESLICE_TAGS_PARSE_TAG_H

#include "pageslice/records.h"
#include "tags/tag_img.h"

namespace pageslice {

// What record.pParse does, for a walk that knows the tag's '<', which need not be searched backwards. p is
// the position after the tag's name.
const char* pParseTag(tag_a& record, const char* pOpen, const char* p, const text& page) noexcept;
const char* pParseTag(tag_img& record, const char* pOpen, const char* p, const text& page) noexcept;

} // namespace pageslice

#endif
