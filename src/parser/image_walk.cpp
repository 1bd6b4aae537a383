#include "parser/image_walk.h"

#include "pageslice/html_parser.h"
#include "parser/tag_scanner.h"
#include "scan/tag_bounds.h"

const char* ImageWalk::pNext(tag_img& record) noexcept {
    constexpr int IMG_LENGTH = 3;
    if (m_pFrom == nullptr || m_page.m_pEnd == nullptr) {
        return nullptr;
    }
    const char* const pPageEnd = m_page.m_pEnd + 1;
    while (m_pFrom < pPageEnd) {
        const char* const pOpen = Scan().FindImage(m_pFrom, pPageEnd, m_state);
        if (pOpen == nullptr) {
            return nullptr;
        }
        const TagAt tag = GetTagAt(pOpen, pPageEnd);
        if (tag.nCode == TAG_IMG) {
            const char* const pStopped = record.pParse(tag.pName + IMG_LENGTH, m_page);
            const char* const pEnd = pFindTagEnd(pStopped, m_page);
            m_pFrom = pEnd == nullptr ? nullptr : pEnd + 1;
            m_state = VisitState();
            return pStopped;
        }
        m_pFrom = pOpen + 1;
    }
    return nullptr;
}
