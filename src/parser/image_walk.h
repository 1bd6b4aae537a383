// SPDX-License-Identifier: MIT
#ifndef PAGESLICE_PARSER_IMAGE_WALK_H
#define PAGESLICE_PARSER_IMAGE_WALK_H

#include <cstddef>

#include "pageslice/page_index.h"
#include "pageslice/text.h"
#include "parser/image_trail.h"
#include "scan/tag_walk.h"
#include "tags/tag_img.h"

inline namespace pageslice_v1 {

// A page's image tags, in page order: those that a walk from tag to tag visits (see TagWalk). A tag that the
// page does not close, or in front of which no '<' is found, ends the walk.
//
// The walk need not look for tags where another one has passed along the same way. The two part where one of
// them reads a tag's attributes, and finds its end elsewhere than the other: at <a title="x>y>, say. They
// often meet again after a later image tag.
class ImageWalk {
public:
    ImageWalk(const char* pFrom, const text& page) noexcept : m_page(page), m_onwards{pFrom, {}} {}
    // From the page's start, along the trail of the index, which is not copied, if it is that page's.
    ImageWalk(const text& page, const pageslice::PageIndex& index) noexcept;

    // Parses the image tag whose '<' stands there into the record. Gives what the parse gives.
    static const char* pRead(const char* pOpen, const text& page, tag_img& record) noexcept;

    // Parses the next image tag into the record. Gives what the parse gives; null also when no image tag
    // remains.
    const char* pNext(tag_img& record) noexcept;

    // The marks that are left: a hint at how many image tags follow.
    std::size_t nMarks() const noexcept { return static_cast<std::size_t>(m_pMarksEnd - m_pMark); }

private:
    const char* pNextOpen() noexcept;
    void PrefetchMark() const noexcept;
    const char* pSearch() noexcept;
    void GoOnAfter(const char* pEnd) noexcept;

    const text& m_page;
    const pageslice::ImageMark* m_pMark = nullptr; // the next one
    const pageslice::ImageMark* m_pMarksEnd = nullptr;
    bool m_bMarked = false;            // the walk goes along the marks
    pageslice::WalkPosition m_onwards; // else on from here
};

} // namespace pageslice_v1

#endif
