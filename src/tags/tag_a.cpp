// SPDX-License-Identifier: MIT
#include "pageslice/records.h"
#include "tags/parse_attributes.h"
#include "tags/parse_tag.h"

const char* pageslice::pParseTag(tag_a& record, const char* pOpen, const char* p, const text& page) noexcept {
    return pSetTag(record, pOpen, pParseAttributes(record, ANCHOR_ATTRIBUTES, p, page), page);
}

inline namespace pageslice_v1 {

using namespace pageslice;

tag_a::tag_a() = default;

tag_a::tag_a(const char* p, const text& page) {
    pParse(p, page);
}

void tag_a::Clear() noexcept {
    ANCHOR_ATTRIBUTES.Clear(*this);
}

const char* tag_a::pParse(const char* p, const text& page) noexcept {
    return pParseTag(*this, pFindOpen(p, page), pSkipTagWord(p, page), page);
}

} // namespace pageslice_v1
