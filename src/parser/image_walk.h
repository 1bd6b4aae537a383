#ifndef PAGESLICE_PARSER_IMAGE_WALK_H
#define PAGESLICE_PARSER_IMAGE_WALK_H

#include "pageslice/text.h"
#include "scan/primitives.h"
#include "tags/tag_img.h"

// A page's image tags, in page order: those that a walk from tag to tag visits (see TagWalk). A tag that the
// page does not close, or in front of which no '<' is found, ends the walk.
class ImageWalk {
public:
    ImageWalk(const char* pFrom, const text& page) noexcept : m_page(page), m_pFrom(pFrom) {}

    // Parses the next image tag into the record. Gives what the parse gives; null also when no image tag
    // remains.
    const char* pNext(tag_img& record) noexcept;

private:
    const text& m_page;
    const char* m_pFrom; // null when the walk is over
    VisitState m_state;
};

#endif
