// SPDX-License-Identifier: MIT
#include "parser/indexing_pass.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <vector>

#include "pageslice/html_parser.h"
#include "parser/image_trail.h"
#include "parser/tag_scanner.h"
#include "parser/tag_table.h"
#include "parser/url_map_builder.h"
#include "scan/tag_bounds.h"
#include "scan/tag_walk.h"
#include "tags/parse_tag.h"
#include "text/byte_count.h"

inline namespace pageslice_v1 {

using namespace pageslice;

namespace {

// Arrays start with the room that pages of this size usually fill, which is less than the page takes.
constexpr std::size_t BYTES_PER_LINK = 384;
constexpr std::size_t BYTES_PER_TEXT = 256;
constexpr std::size_t BYTES_PER_IMAGE = 512;

std::size_t nUsualCount(std::size_t nPage, std::size_t nBytesPerEntry) noexcept {
    constexpr std::size_t FEW = 16;
    constexpr std::size_t MANY = std::size_t{1} << 18;
    return std::clamp(nPage / nBytesPerEntry, FEW, MANY);
}

// Any tag that has no rule is like a name that says nothing.
int nKnownTag(int nCode) noexcept {
    return static_cast<std::size_t>(nCode) < TAG_RULES.size() ? nCode : TAG_AFTER_SPACES;
}

// One walk over the page.
class IndexingPass {
public:
    IndexingPass(const text& page, PageIndex& index, const index_limits& limits,
                 memory_budget& budget) noexcept
        : m_page(page), m_index(index), m_trail(ImageTrailAccess::Of(index)), m_limits(limits),
          m_budget(budget), m_walk(page.m_pStart, page, WANTED_TAGS), m_links(index.m_urlMap) {}

    void Run();
    const char* pLastOpen() const noexcept { return m_walk.pOpen(); }

private:
    bool bHandleTag(const TagAt& tag);
    const char* pEndAfter(const char* pStopped);
    void LeaveStep(const char* pEnd);

    bool bOpen(Captured which, const char* pTagEnd) noexcept;
    void Close(Captured which);
    void Drop(Captured which) noexcept { pStartOf(which) = nullptr; }
    const char*& pStartOf(Captured which) noexcept { return m_pStarts[static_cast<std::size_t>(which)]; }
    void Keep(Captured which, const text& t);
    bool bFillsAtMostHalfThePage(const text& t) const noexcept;
    void KeepLink(const text& tLinkText);

    template <class Entry>
    void Append(std::vector<Entry>& list, const Entry& entry, std::size_t nBytesPerEntry);
    void AppendText(const CapturedList& list, const text& t);

    void MarkImage();
    void MarkParting();
    const char* pAfterStep() noexcept;
    bool bEnoughMarks() const noexcept;

    const text& m_page;
    PageIndex& m_index;
    ImageTrail& m_trail;
    const index_limits& m_limits;
    memory_budget& m_budget;
    TagWalk m_walk;
    UrlMapBuilder m_links;
    // Of the captured texts: null while one is not open.
    std::array<const char*, static_cast<std::size_t>(Captured::COUNT)> m_pStarts{};
    tag_a m_tagAnchor;
    tag_td m_tagThScratch;
};

void IndexingPass::Run() {
    const char* pSkipped = nullptr; // the '<' whose spaces were skipped last
    TagAt tagAfterSpaces{nullptr, TAG_NONE};
    while (const char* const pOpen = m_walk.pNext()) {
        TagAt tag{pOpen + 1, m_walk.nCode()};
        if (tag.nCode == TAG_AFTER_SPACES) {
            // A tag may be visited many times over; its spaces are skipped once.
            if (pOpen != pSkipped) {
                pSkipped = pOpen;
                tagAfterSpaces = GetTagAt(pOpen, m_page.m_pEnd + 1);
                tagAfterSpaces.nCode = nKnownTag(tagAfterSpaces.nCode);
            }
            tag = tagAfterSpaces;
        }
        if (!bHandleTag(tag)) {
            MarkParting();
            return;
        }
    }
}

// False ends the pass.
bool IndexingPass::bHandleTag(const TagAt& tag) {
    const TagRule& rule = TAG_RULES[static_cast<std::size_t>(tag.nCode)];
    const char* const pAttributes = tag.pName + rule.nNameLength;
    const Captured captured = rule.action.captured;
    switch (rule.action.act) {
    case Act::NOTHING: return true;
    case Act::OPEN: return bOpen(captured, m_walk.pStepEnd());
    case Act::OPEN_OR_CLOSE:
        if (pStartOf(captured) == nullptr) {
            return bOpen(captured, m_walk.pStepEnd());
        }
        Close(captured);
        return true;
    case Act::CLOSE: Close(captured); return true;
    case Act::READ_ANCHOR:
        return bOpen(Captured::LINK, pEndAfter(pParseTag(m_tagAnchor, m_walk.pOpen(), pAttributes, m_page)));
    case Act::READ_CELL: return bOpen(Captured::CELL, pEndAfter(m_index.m_tagTd.pParse(pAttributes, m_page)));
    case Act::READ_HEADER: return pEndAfter(m_tagThScratch.pParse(pAttributes, m_page)) != nullptr;
    case Act::READ_ROW: return pEndAfter(m_index.m_tagTr.pParse(pAttributes, m_page)) != nullptr;
    case Act::READ_TABLE: return pEndAfter(m_index.m_tagTable.pParse(pAttributes, m_page)) != nullptr;
    case Act::CLOSE_CELL:
        Close(Captured::CELL);
        m_index.m_tagTd.Clear();
        return true;
    case Act::CLOSE_TABLE: m_index.m_tagTable.Clear(); [[fallthrough]];
    case Act::CLOSE_ROW:
        m_index.m_tagTr.Clear();
        m_index.m_tagTd.Clear();
        Drop(Captured::CELL);
        return true;
    case Act::MARK_IMAGE: MarkImage(); return true;
    case Act::STOP: return false;
    }
    return true;
}

// The tag's attributes were read up to pStopped: the step ends at the first '>' from there on, which this
// gives. Null when the page ends inside the tag.
inline const char* IndexingPass::pEndAfter(const char* pStopped) {
    const char* const pEnd = pFindTagEnd(pStopped, m_page);
    if (!m_walk.bStepEndsAt(pEnd)) {
        LeaveStep(pEnd);
    }
    return pEnd;
}

void IndexingPass::LeaveStep(const char* pEnd) {
    MarkParting();
    m_walk.ContinueAfter(pEnd);
}

// False when there is no such end of a tag.
bool IndexingPass::bOpen(Captured which, const char* pTagEnd) noexcept {
    pStartOf(which) = pTagEnd == nullptr ? nullptr : pTagEnd + 1;
    return pTagEnd != nullptr;
}

// Keeps the text up to the tag at hand, if it is open and anything stands there.
inline void IndexingPass::Close(Captured which) {
    const char* const pStart = pStartOf(which);
    Drop(which);
    const char* const pOpen = m_walk.pOpen();
    if (pStart != nullptr && pStart < pOpen) {
        Keep(which, text(pStart, pOpen - 1, 0));
    }
}

inline void IndexingPass::Keep(Captured which, const text& t) {
    switch (which) {
    case Captured::TITLE: m_index.m_tTitle = t; return;
    case Captured::LINK: KeepLink(t); return;
    case Captured::CELL:
        if (!bFillsAtMostHalfThePage(t)) {
            return;
        }
        break;
    default: break;
    }
    AppendText(CAPTURED_LISTS[static_cast<std::size_t>(which)], t);
}

// A cell that spans more is taken for a layout table that holds the page. Distances between first and last
// character on both sides.
bool IndexingPass::bFillsAtMostHalfThePage(const text& t) const noexcept {
    const auto nSpan = static_cast<double>(t.m_pEnd - t.m_pStart);
    return nSpan / static_cast<double>(m_page.m_pEnd - m_page.m_pStart) <= 0.5;
}

void IndexingPass::KeepLink(const text& tLinkText) {
    if (m_tagAnchor.m_urlHref.IsEmpty() != 0) {
        return;
    }
    UrlMap& map = m_index.m_urlMap;
    admit_one_more(map.size(), m_limits.links);
    if (map.size() == map.nCapacity()) {
        const std::size_t nUsual = nUsualCount(nByteCount(m_page), BYTES_PER_LINK);
        map.Reserve(m_budget.next_capacity(map.nCapacity(), nUsual, UrlMap::nEntryBytes()));
    }
    m_links.Insert(m_tagAnchor, tLinkText);
}

template <class Entry>
void IndexingPass::Append(std::vector<Entry>& list, const Entry& entry, std::size_t nBytesPerEntry) {
    m_budget.append(list, entry, nUsualCount(nByteCount(m_page), nBytesPerEntry));
}

void IndexingPass::AppendText(const CapturedList& list, const text& t) {
    std::vector<text>& texts = m_index.*list.pList;
    admit_one_more(texts.size(), m_limits.*list.pMost);
    Append(texts, t, BYTES_PER_TEXT);
}

// A tag is visited once more for each '>' in the text before it. The last visit counts: its step ends after
// the tag.
void IndexingPass::MarkImage() {
    std::vector<ImageMark>& marks = m_trail.vMarks;
    const ImageMark mark{m_walk.pOpen(), {pAfterStep(), {}}};
    if (!marks.empty() && marks.back().pOpen == m_walk.pOpen()) {
        marks.back() = mark;
    } else if (bEnoughMarks()) {
        // Whoever follows the trail looks for the rest without it, from here on.
        if (marks.back().pOpen != nullptr) {
            Append(marks, {nullptr, {m_walk.pOpen(), {}}}, BYTES_PER_IMAGE);
        }
    } else {
        Append(marks, mark, BYTES_PER_IMAGE);
    }
}

// The tag at hand ends elsewhere than its step, or ends the pass.
void IndexingPass::MarkParting() {
    if (!m_trail.vMarks.empty() && m_trail.vMarks.back().pOpen != nullptr) {
        Append(m_trail.vMarks, {nullptr, m_walk.Position()}, BYTES_PER_IMAGE);
    } else if (m_trail.vMarks.empty() && m_trail.pBreak == nullptr) {
        // Not a mark: a page without image tags takes no memory for any.
        m_trail.pBreak = pAfterStep();
    }
}

// Where images are limited, a trail to a few more than that is enough to see that they are too many.
bool IndexingPass::bEnoughMarks() const noexcept {
    const std::size_t nMarks = m_trail.vMarks.size();
    return nMarks > 0 && nMarks / 2 > m_limits.images;
}

const char* IndexingPass::pAfterStep() noexcept {
    const char* const pEnd = m_walk.pStepEnd();
    return (pEnd == nullptr ? m_page.m_pEnd : pEnd) + 1;
}

} // namespace
} // namespace pageslice_v1

const char* pageslice::RunIndexingPass(const text& page, PageIndex& index, const index_limits& limits,
                                       memory_budget& budget) {
    index.m_bInitialized = 1;
    ImageTrailAccess::Of(index) = {};
    if (nByteCount(page) == 0) {
        return nullptr;
    }
    IndexingPass pass(page, index, limits, budget);
    pass.Run();
    ImageTrailAccess::Of(index).tPage = page;
    return pass.pLastOpen();
}

inline namespace pageslice_v1 {

void HtmlParser::InitializeHtmlFile() {
    const index_limits none;
    memory_budget budget(none.bytes);
    RunIndexingPass(m_tPage, *this, none, budget);
}

} // namespace pageslice_v1
