#include <algorithm>
#include <cstddef>
#include <vector>

#include "pageslice/html_parser.h"
#include "parser/image_walk.h"
#include "parser/tag_scanner.h"
#include "parser/url_map_builder.h"
#include "scan/tag_bounds.h"
#include "scan/tag_walk.h"
#include "text/byte_count.h"

namespace {

constexpr int TAG_BEHIND_SPACES = 255; // may be any

// The tags that the pass acts on.
constexpr WantedTags WANTED_TAGS({
    {"a ", TAG_A},
    {"a>", TAG_A},
    {"/a ", TAG_END_A},
    {"/a>", TAG_END_A},
    {"td ", TAG_TD},
    {"td>", TAG_TD},
    {"/td ", TAG_END_TD},
    {"/td>", TAG_END_TD},
    {"th ", TAG_TH},
    {"th>", TAG_TH},
    {"tr ", TAG_TR},
    {"tr>", TAG_TR},
    {"/tr ", TAG_END_TR},
    {"/tr>", TAG_END_TR},
    {"table ", TAG_TABLE},
    {"table>", TAG_TABLE},
    {"li ", TAG_LI},
    {"li>", TAG_LI},
    {"/table ", TAG_END_TABLE},
    {"/table>", TAG_END_TABLE},
    {"/li ", TAG_END_LI},
    {"/li>", TAG_END_LI},
    {"/ul ", TAG_END_UL},
    {"/ul>", TAG_END_UL},
    {"/ol ", TAG_END_OL},
    {"/ol>", TAG_END_OL},
    {"img ", TAG_IMG},
    {"img>", TAG_IMG},
    {"title ", TAG_TITLE},
    {"title>", TAG_TITLE},
    {"/title ", TAG_END_TITLE},
    {"/title>", TAG_END_TITLE},
    {"/html ", TAG_END_HTML},
    {"/html>", TAG_END_HTML},
    {" ", TAG_BEHIND_SPACES},
});

// Arrays start with the room that pages of this size usually fill, which is less than the page takes.
constexpr std::size_t BYTES_PER_LINK = 384;
constexpr std::size_t BYTES_PER_TEXT = 256;
constexpr std::size_t BYTES_PER_IMAGE = 512;

std::size_t nUsualCount(std::size_t nPage, std::size_t nBytesPerEntry) noexcept {
    constexpr std::size_t FEW = 16;
    constexpr std::size_t MANY = std::size_t{1} << 18;
    return std::clamp(nPage / nBytesPerEntry, FEW, MANY);
}

// Where the pass leaves its results: members of the parser.
struct Index {
    tag_tr& tagTr;
    tag_td& tagTd;
    tag_table& tagTable;
    text& tTitle;
    std::vector<text>& vCellTexts;
    std::vector<text>& vListItems;
    UrlMap& urlMap;
    ImageTrail& imageTrail;
};

// One walk over the page. A capture is a text whose start is set behind a start tag and whose end is found
// before the tag that closes it; all captures carry the flag 0.
class IndexingPass {
public:
    IndexingPass(const text& page, const Index& index) noexcept
        : m_page(page), m_index(index), m_walk(page.m_pStart, page, WANTED_TAGS), m_links(index.urlMap) {}

    void Run();

private:
    bool bHandleTag(const TagAt& tag);
    template <class Record>
    const char* pParse(Record& record, const char* pAttributes);
    static bool bBeginBehind(const char* pTagEnd, text& tCapture) noexcept;
    text tCaptured(const text& tCapture) const noexcept;
    bool bFillsAtMostHalfThePage(const text& t) const noexcept;

    template <class Entry>
    void Append(std::vector<Entry>& list, const Entry& entry, std::size_t nBytesPerEntry) const;

    void MarkImage(const char* pName);
    void MarkParting();
    const char* pBehindStep() noexcept;

    void CloseTitle() noexcept;
    void CloseAnchor();
    void CloseCell();
    void CloseListItem();
    void DropCell() noexcept;

    const text& m_page;
    Index m_index;
    TagWalk m_walk;
    UrlMapBuilder m_links;
    const char* m_pOpen = nullptr; // the '<' of the tag at hand
    bool m_bInTitle = false;
    bool m_bInAnchor = false;
    text m_tTitleText;
    text m_tAnchorText;
    text m_tCellText;
    text m_tListItem; // an item is open exactly when this has a start
    tag_a m_tagAnchor;
    tag_td m_tagThScratch;
};

void IndexingPass::Run() {
    TagAt tagBehindSpaces{nullptr, TAG_NONE};
    while (const char* const pOpen = m_walk.pNext()) {
        TagAt tag{pOpen + 1, m_walk.nCode()};
        if (tag.nCode == TAG_BEHIND_SPACES) {
            // A tag may be visited many times over; its spaces are skipped once.
            if (pOpen != m_pOpen) {
                tagBehindSpaces = GetTagAt(pOpen, m_page.m_pEnd + 1);
            }
            tag = tagBehindSpaces;
        }
        m_pOpen = pOpen;
        if (!bHandleTag(tag)) {
            MarkParting();
            return;
        }
    }
}

// What each tag does. False ends the pass.
bool IndexingPass::bHandleTag(const TagAt& tag) {
    switch (tag.nCode) {
    case TAG_A: m_bInAnchor = true; return bBeginBehind(pParse(m_tagAnchor, tag.pName + 1), m_tAnchorText);
    case TAG_IMG: MarkImage(tag.pName); return true;
    case TAG_TABLE: return pParse(m_index.tagTable, tag.pName + 5) != nullptr;
    case TAG_TD: return bBeginBehind(pParse(m_index.tagTd, tag.pName + 2), m_tCellText);
    case TAG_TH: return pParse(m_tagThScratch, tag.pName + 2) != nullptr;
    case TAG_TR: return pParse(m_index.tagTr, tag.pName + 2) != nullptr;
    case TAG_LI:
        if (m_tListItem.m_pStart == nullptr) {
            return bBeginBehind(m_walk.pStepEnd(), m_tListItem);
        }
        CloseListItem(); // and the text behind this tag is not captured
        return true;
    case TAG_TITLE: m_bInTitle = true; return bBeginBehind(m_walk.pStepEnd(), m_tTitleText);
    case TAG_END_TITLE: CloseTitle(); return true;
    case TAG_END_A: CloseAnchor(); return true;
    case TAG_END_TD: CloseCell(); return true;
    case TAG_END_TR:
        m_index.tagTr.Clear();
        DropCell();
        return true;
    case TAG_END_TABLE:
        m_index.tagTr.Clear();
        m_index.tagTable.Clear();
        DropCell();
        return true;
    case TAG_END_UL:
    case TAG_END_OL:
    case TAG_END_LI:
        if (m_tListItem.m_pStart != nullptr) {
            CloseListItem();
        }
        return true;
    case TAG_END_HTML: return false;
    default: return true;
    }
}

// Reads the tag's attributes; the step then ends at the first '>' behind them, which this gives. Null when
// the page ends inside the tag.
template <class Record>
const char* IndexingPass::pParse(Record& record, const char* pAttributes) {
    const char* const pStopped = record.pParse(pAttributes, m_page);
    const char* const pEnd = pFindTagEnd(pStopped, m_page);
    if (!m_walk.bStepEndsAt(pEnd)) {
        MarkParting();
        m_walk.ContinueBehind(pEnd);
    }
    return pEnd;
}

// False when there is no such end of a tag.
bool IndexingPass::bBeginBehind(const char* pTagEnd, text& tCapture) noexcept {
    tCapture.m_pStart = pTagEnd == nullptr ? nullptr : pTagEnd + 1;
    return pTagEnd != nullptr;
}

// The capture up to the tag at hand; empty when nothing stands between.
text IndexingPass::tCaptured(const text& tCapture) const noexcept {
    const char* const pEnd = pFindEndBeforeTag(m_pOpen, tCapture.m_pStart);
    return pEnd == nullptr ? text() : text(tCapture.m_pStart, pEnd, 0);
}

// A cell that spans more is taken for a layout table that holds the page. Distances between first and last
// character on both sides.
bool IndexingPass::bFillsAtMostHalfThePage(const text& t) const noexcept {
    const auto nSpan = static_cast<double>(t.m_pEnd - t.m_pStart);
    return nSpan / static_cast<double>(m_page.m_pEnd - m_page.m_pStart) <= 0.5;
}

template <class Entry>
void IndexingPass::Append(std::vector<Entry>& list, const Entry& entry, std::size_t nBytesPerEntry) const {
    if (list.empty()) {
        list.reserve(nUsualCount(nByteCount(m_page), nBytesPerEntry));
    }
    list.push_back(entry);
}

// A tag is visited once more for each '>' in the text before it. The last visit counts: its step ends behind
// the tag.
void IndexingPass::MarkImage(const char* pName) {
    std::vector<ImageMark>& marks = m_index.imageTrail.vMarks;
    const ImageMark mark{pName, {pBehindStep(), {}}};
    if (!marks.empty() && marks.back().pName == pName) {
        marks.back() = mark;
    } else {
        Append(marks, mark, BYTES_PER_IMAGE);
    }
}

// The tag at hand ends elsewhere than its step, or ends the pass.
void IndexingPass::MarkParting() {
    ImageTrail& trail = m_index.imageTrail;
    if (!trail.vMarks.empty() && trail.vMarks.back().pName != nullptr) {
        Append(trail.vMarks, {nullptr, m_walk.Position()}, BYTES_PER_IMAGE);
    } else if (trail.vMarks.empty() && trail.pBreak == nullptr) {
        // Not a mark: a page without image tags takes no memory for any.
        trail.pBreak = pBehindStep();
    }
}

const char* IndexingPass::pBehindStep() noexcept {
    const char* const pEnd = m_walk.pStepEnd();
    return (pEnd == nullptr ? m_page.m_pEnd : pEnd) + 1;
}

void IndexingPass::CloseTitle() noexcept {
    if (!m_bInTitle) {
        return;
    }
    if (const text tTitle = tCaptured(m_tTitleText); tTitle.IsEmpty() == 0) {
        m_index.tTitle = tTitle;
    }
    m_bInTitle = false;
}

void IndexingPass::CloseAnchor() {
    if (m_bInAnchor && m_tagAnchor.m_urlHref.IsEmpty() == 0) {
        if (const text tLinkText = tCaptured(m_tAnchorText); tLinkText.IsEmpty() == 0) {
            if (m_index.urlMap.empty()) {
                m_index.urlMap.Reserve(nUsualCount(nByteCount(m_page), BYTES_PER_LINK));
            }
            m_links.Insert(m_tagAnchor, tLinkText);
        }
    }
    m_bInAnchor = false;
}

void IndexingPass::CloseCell() {
    if (m_tCellText.m_pStart != nullptr) {
        const text tCell = tCaptured(m_tCellText);
        if (tCell.IsEmpty() == 0 && bFillsAtMostHalfThePage(tCell)) {
            Append(m_index.vCellTexts, tCell, BYTES_PER_TEXT);
        }
    }
    DropCell();
}

void IndexingPass::CloseListItem() {
    if (const text tItem = tCaptured(m_tListItem); tItem.IsEmpty() == 0) {
        Append(m_index.vListItems, tItem, BYTES_PER_TEXT);
    }
    m_tListItem.Clear();
}

void IndexingPass::DropCell() noexcept {
    m_index.tagTd.Clear();
    m_tCellText.Clear();
}

} // namespace

void HtmlParser::InitializeHtmlFile() {
    m_bInitialized = 1;
    m_imageTrail.Clear();
    if (nByteCount(m_tPage) == 0) {
        return;
    }
    const Index index{m_tagTr,      m_tagTd,      m_tagTable, m_tTitle,
                      m_vCellTexts, m_vListItems, m_urlMap,   m_imageTrail};
    IndexingPass(m_tPage, index).Run();
    m_imageTrail.tPage = m_tPage;
}
