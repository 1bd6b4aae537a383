// SPDX-License-Identifier: MIT
#ifndef PAGESLICE_SCAN_TAG_WALK_H
#define PAGESLICE_SCAN_TAG_WALK_H

#include <array>
#include <cstddef>

#include "pageslice/text.h"
#include "platform/bits.h"
#include "scan/primitives.h"
#include "text/word_table.h"

namespace pageslice {

// The names of the tags that a walk hands out, each with what ends it and an end tag's with its slash. The
// name of a tag that begins with a space is " ".
using WantedTags = WordTable<8>;

// Where a walk goes on, and its state there; null when it is over.
struct WalkPosition {
    const char* p;
    VisitState state;
};

// Walks a page from tag to tag. Each step starts at a position p: it visits the first '<' at or after p,
// and it ends at pFindTagEnd(p), after which the next step starts.
//
// The end is looked for from p, not from the '<'. A '>' in the text before a tag therefore ends the step
// early, and the next step visits the same '<' again; an unpaired '"' in that text makes the step run on to
// the next '"', past the tags in between. Whoever parses the tag's attributes knows better where it ends
// and says so with ContinueAfter.
//
// Only wanted tags are handed out. Which they are is looked up for all tags of a sweep, before the first of
// them is handed out: whoever acts on them need not wait for it.
//
// The walk sweeps the page in runs of blocks and hands out the visits of a sweep one after the other. Where
// a '<' is visited more than once it takes single steps instead. As a whole it looks at each character a
// fixed number of times, however often a '<' is visited.
class TagWalk {
public:
    // `wanted` is not copied.
    TagWalk(const char* pFrom, const text& page, const WantedTags& wanted) noexcept;

    // Goes on to the next step that visits a wanted tag; gives its '<', or null when the walk is over.
    const char* pNext() noexcept { return m_nNextVisit < m_nWanted ? pTakeVisit() : pNextAfterSweep(); }

    // The '<' of the tag at hand. Once the walk is over, the one visited last, wanted or not; null when no
    // '<' was left.
    const char* pOpen() const noexcept { return m_pOpen; }

    // The code of the wanted tag at hand.
    int nCode() const noexcept { return m_nCode; }

    // The '>' that ends the current step, or null when the page ends first.
    const char* pStepEnd() noexcept {
        const char* const pEnd = pStepEndBefore(m_pPageEnd);
        if (m_pSwept == nullptr) {
            m_pEnd = pEnd;
        }
        return pEnd;
    }

    // Whether the current step ends at pEnd, or never, for null. Looks no further than there.
    bool bStepEndsAt(const char* pEnd) const noexcept {
        return pStepEndBefore(pEnd == nullptr ? m_pPageEnd : pEnd + 1) == pEnd;
    }

    // Ends the current step at pEnd instead; null ends the walk.
    void ContinueAfter(const char* pEnd) noexcept;

    // Where the walk goes on as long as nobody tells it otherwise.
    WalkPosition Position() const noexcept;

private:
    const char* pTakeVisit() noexcept {
        m_pOpen = m_pSwept + m_sweep.nOpens[m_nNextVisit];
        m_nCode = m_nCodes[m_nNextVisit];
        ++m_nNextVisit;
        return m_pOpen;
    }
    // Null when the step does not end before pLimit, unless it is known already where it does.
    const char* pStepEndBefore(const char* pLimit) const noexcept {
        const char* const pEnd = pNearStepEnd();
        return pEnd == nullptr ? pFarStepEndBefore(pLimit) : pEnd;
    }
    // The end of a step of the sweep, where it stands among as many bytes after the '<' as a block has; else
    // null. Mostly it does. Each '>' of the sweep belongs to the step that it ends.
    const char* pNearStepEnd() const noexcept {
        if (m_pSwept == nullptr || m_pEnd != nullptr) {
            return nullptr;
        }
        const auto nOpen = static_cast<std::size_t>(m_pOpen - m_pSwept);
        const std::uint64_t* const pCloses = &m_sweep.nCloses[nOpen / SCAN_BLOCK];
        const std::size_t nBefore = nOpen % SCAN_BLOCK;
        const std::uint64_t nNear = pCloses[0] >> nBefore | pCloses[1] << 1 << (SCAN_BLOCK - 1 - nBefore);
        return nNear == 0 ? nullptr : m_pOpen + nLowestBit(nNear);
    }
    const char* pFarStepEndBefore(const char* pLimit) const noexcept;
    const char* pKnownFarStepEnd() const noexcept;
    WalkPosition RestOfStep() const noexcept;
    const char* pNextAfterSweep() noexcept;
    bool bGoOn() noexcept;
    bool bSingleStep() noexcept;
    bool bSweep() noexcept;
    void KeepWanted() noexcept;
    bool bIsWanted(std::uint64_t nWord, int& nCode) const noexcept;
    std::size_t nLeftAfter(const char* pOpen) const noexcept {
        return static_cast<std::size_t>(m_pPageEnd - pOpen) - 1;
    }
    void DropSweep() noexcept;
    std::size_t nLeft() const noexcept { return static_cast<std::size_t>(m_pPageEnd - m_pFrom); }

    const WantedTags& m_wanted;
    const char* m_pPageEnd;             // one past the last character
    const char* m_pFrom;                // the step, and what is left of the search for its end, starts here
    bool m_bQuoted = false;             // and inside quotes
    bool m_bVisited = false;            // the step has visited its '<'
    const char* m_pOpen = nullptr;      // the '<' last visited
    const char* m_pEnd = nullptr;       // the end of the current step, where it is known
    const char* m_pSingleUntil;         // single steps are taken before this
    const char* m_pSwept = nullptr;     // start of the sweep whose visits are handed out
    const char* m_pLastVisit = nullptr; // the last '<' visited in that sweep, wanted or not
    int m_nCode = 0;                    // of the tag at hand
    std::size_t m_nWanted = 0;          // the wanted visits are the sweep's first ones
    std::size_t m_nNextVisit = 0;
    std::size_t m_nSweepBlocks; // length of the next sweep
    TagSweep m_sweep;
    std::array<std::uint16_t, MOST_VISITS> m_nCodes; // of the wanted visits
};

} // namespace pageslice

#endif
