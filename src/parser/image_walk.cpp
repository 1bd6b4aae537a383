#include "parser/image_walk.h"

#include "parser/tag_scanner.h"
#include "platform/bits.h"
#include "scan/tag_bounds.h"

void ImageTrail::Clear() noexcept {
    tPage.Clear();
    pBreak = nullptr;
    vMarks.clear();
}

ImageWalk::ImageWalk(const text& page, const ImageTrail& trail) noexcept : ImageWalk(page.m_pStart, page) {
    if (trail.tPage.m_pStart == nullptr || trail.tPage.m_pStart != page.m_pStart ||
        trail.tPage.m_pEnd != page.m_pEnd) {
        return;
    }
    m_pMark = trail.vMarks.data();
    m_pMarksEnd = m_pMark + trail.vMarks.size();
    m_bMarked = trail.pBreak == nullptr;
    m_onwards.p = trail.pBreak;
}

const char* ImageWalk::pNext(tag_img& record) noexcept {
    constexpr int IMG_LENGTH = 3;
    const char* const pName = pNextName();
    if (pName == nullptr) {
        return nullptr;
    }
    const char* const pStopped = record.pParse(pName + IMG_LENGTH, m_page);
    if (const char* const pEnd = pFindTagEnd(pStopped, m_page); pEnd != nullptr) {
        GoOnBehind(pEnd);
    } else {
        m_bMarked = false;
        m_onwards.p = nullptr;
    }
    return pStopped;
}

// The name of the next image tag, or null.
const char* ImageWalk::pNextName() noexcept {
    if (m_bMarked) {
        if (m_pMark == m_pMarksEnd) {
            return nullptr;
        }
        FetchMarkAhead();
        if (m_pMark->pName != nullptr) {
            return m_pMark->pName;
        }
        m_bMarked = false;
        m_onwards = m_pMark->onwards;
    }
    return pSearch();
}

// In a large page the image tags stand far apart, where the processor does not expect them.
void ImageWalk::FetchMarkAhead() const noexcept {
    constexpr std::ptrdiff_t MARKS_AHEAD = 8;
    constexpr std::uintptr_t USUAL_TAG = 128;
    if (m_pMarksEnd - m_pMark > MARKS_AHEAD) {
        FetchLines<USUAL_TAG>(m_pMark[MARKS_AHEAD].pName);
    }
}

const char* ImageWalk::pSearch() noexcept {
    if (m_onwards.p == nullptr || m_page.m_pEnd == nullptr) {
        return nullptr;
    }
    const char* const pPageEnd = m_page.m_pEnd + 1;
    while (m_onwards.p < pPageEnd) {
        const char* const pOpen = Scan().FindImage(m_onwards.p, pPageEnd, m_onwards.state);
        if (pOpen == nullptr) {
            return nullptr;
        }
        const TagAt tag = GetTagAt(pOpen, pPageEnd);
        if (tag.nCode == TAG_IMG) {
            return tag.pName;
        }
        m_onwards.p = pOpen + 1;
    }
    return nullptr;
}

// Along the marks, if the other walk began a step there too.
void ImageWalk::GoOnBehind(const char* pEnd) noexcept {
    m_onwards = {pEnd + 1, {}};
    while (m_pMark != m_pMarksEnd && (m_pMark->pName == nullptr || m_pMark->onwards.p < m_onwards.p)) {
        ++m_pMark;
    }
    m_bMarked = m_pMark != m_pMarksEnd && m_pMark->onwards.p == m_onwards.p;
    if (m_bMarked) {
        ++m_pMark;
    }
}
