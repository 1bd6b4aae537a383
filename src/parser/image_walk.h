#ifndef PAGESLICE_PARSER_IMAGE_WALK_H
#define PAGESLICE_PARSER_IMAGE_WALK_H

#include <cstddef>

#include "pageslice/html_parser.h"
#include "pageslice/text.h"
#include "scan/tag_walk.h"
#include "tags/tag_img.h"

// What another walk over the same page met: an image tag, or a tag behind which it did not go on from step to
// step.
struct ImageMark {
    const char* pName;    // of the image tag; null where the ways part
    WalkPosition onwards; // where the steps go on
};

// A page's image tags, in page order: those that a walk from tag to tag visits (see TagWalk). A tag that the
// page does not close, or in front of which no '<' is found, ends the walk.
//
// The walk need not look for tags where another one has passed along the same way. The two part where one of
// them reads a tag's attributes, and finds its end elsewhere than the other: at <a title="x>y>, say. They
// often meet again behind a later image tag.
class ImageWalk {
public:
    ImageWalk(const char* pFrom, const text& page) noexcept : m_page(page), m_onwards{pFrom, {}} {}
    // From the page's start, along the trail, which is not copied, if it is that page's.
    ImageWalk(const text& page, const ImageTrail& trail) noexcept;

    // Parses the next image tag into the record. Gives what the parse gives; null also when no image tag
    // remains.
    const char* pNext(tag_img& record) noexcept;

    // The marks that are left: a hint at how many image tags follow.
    std::size_t nMarks() const noexcept { return static_cast<std::size_t>(m_pMarksEnd - m_pMark); }

private:
    const char* pNextName() noexcept;
    void FetchMarkAhead() const noexcept;
    const char* pSearch() noexcept;
    void GoOnBehind(const char* pEnd) noexcept;

    const text& m_page;
    const ImageMark* m_pMark = nullptr; // the next one
    const ImageMark* m_pMarksEnd = nullptr;
    bool m_bMarked = false; // the walk goes along the marks
    WalkPosition m_onwards; // else on from here
};

#endif
