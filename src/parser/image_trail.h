// SPDX-License-Identifier: MIT
#ifndef PAGESLICE_PARSER_IMAGE_TRAIL_H
#define PAGESLICE_PARSER_IMAGE_TRAIL_H

#include "pageslice/page_index.h"
#include "scan/tag_walk.h"

namespace pageslice {

// What the pass met: an image tag, or a tag after which it did not go on from step to step.
struct ImageMark {
    const char* pOpen;    // the '<' of the image tag; null where the ways part
    WalkPosition onwards; // where the steps go on
};

// The only way to an index's trail. The pass lays it, ImageWalk follows it; nobody else has business there.
struct ImageTrailAccess {
    using Trail = PageIndex::ImageTrail;
    static Trail& Of(PageIndex& index) noexcept { return index.m_imageTrail; }
    static const Trail& Of(const PageIndex& index) noexcept { return index.m_imageTrail; }
};
using ImageTrail = ImageTrailAccess::Trail;

} // namespace pageslice

#endif
