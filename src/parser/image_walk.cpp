#include "parser/image_walk.h"

#include "pageslice/html_parser.h"
#include "parser/tag_scanner.h"
#include "scan/tag_bounds.h"

namespace {

constexpr int IMG_LENGTH = 3;

// The first characters tell nearly every tag to be no image tag.
bool bMayBeImageTag(const char* pOpen, const char* pPageEnd) noexcept {
    constexpr int SHORTEST_TAG = 5; // <img>
    if (pPageEnd - pOpen < SHORTEST_TAG) {
        return false;
    }
    return (pOpen[1] | 0x20) == 'i' || pOpen[1] == ' ';
}

} // namespace

const char* ImageWalk::pNext(tag_img& record) noexcept {
    const char* const pPageEnd = m_page.m_pEnd + 1;
    while (const char* const pOpen = m_walk.pNext()) {
        if (!bMayBeImageTag(pOpen, pPageEnd)) {
            continue;
        }
        const TagAt tag = GetTagAt(pOpen, pPageEnd);
        if (tag.nCode == TAG_IMG) {
            const char* const pStopped = record.pParse(tag.pName + IMG_LENGTH, m_page);
            m_walk.ContinueBehind(pFindTagEnd(pStopped, m_page));
            return pStopped;
        }
    }
    return nullptr;
}
