// SPDX-License-Identifier: MIT
#include "tags/tag_img.h"

#include "tags/parse_attributes.h"
#include "tags/parse_tag.h"

const char* pageslice::pParseTag(tag_img& record, const char* pOpen, const char* p,
                                 const text& page) noexcept {
    return pSetTag(record, pOpen, pParseAttributes(record, IMAGE_ATTRIBUTES, p, page), page);
}

inline namespace pageslice_v1 {

using namespace pageslice;

tag_img::tag_img() {
    Clear();
}

tag_img::tag_img(const char* p, const text& page) {
    pParse(p, page);
}

void tag_img::Clear() noexcept {
    IMAGE_ATTRIBUTES.Clear(*this);
}

const char* tag_img::pParse(const char* p, const text& page) noexcept {
    return pParseTag(*this, pFindOpen(p, page), p, page);
}

} // namespace pageslice_v1
