#ifndef PAGESLICE_PARSER_IMAGE_WALK_H
#define PAGESLICE_PARSER_IMAGE_WALK_H

#include "pageslice/text.h"
#include "scan/tag_walk.h"
#include "tags/tag_img.h"

// A page's image tags, in page order. A tag that the page does not close, or in front of which no '<' is
// found, ends the walk.
class ImageWalk {
public:
    ImageWalk(const char* pFrom, const text& page) noexcept : m_page(page), m_walk(pFrom, page) {}

    // Parses the next image tag into the record. Gives what the parse gives; null also when no image tag
    // remains.
    const char* pNext(tag_img& record) noexcept;

private:
    const text& m_page;
    TagWalk m_walk;
};

#endif
