#ifndef PAGESLICE_SCAN_TAG_WALK_H
#define PAGESLICE_SCAN_TAG_WALK_H

#include <cstddef>

#include "pageslice/text.h"
#include "scan/primitives.h"

// Walks a page from tag to tag. Each step starts at a position p: it visits the first '<' at or after p,
// and it ends at pFindTagEnd(p), behind which the next step starts.
//
// The end is looked for from p, not from the '<'. A '>' in the text before a tag therefore ends the step
// early, and the next step visits the same '<' again; an unpaired '"' in that text makes the step run on to
// the next '"', past the tags in between. Whoever parses the tag's attributes knows better where it ends
// and says so with ContinueBehind.
//
// The walk sweeps the page in runs of blocks and hands out the visits of a sweep one after the other. Where
// a '<' is visited more than once it takes single steps instead. As a whole it looks at each character a
// fixed number of times, however often a '<' is visited.
class TagWalk {
public:
    TagWalk(const char* pFrom, const text& page) noexcept;

    // Starts the next step; gives the '<' that it visits, or null when the walk is over.
    const char* pNext() noexcept {
        return m_nNextVisit < m_sweep.nVisits ? pTakeVisit() : pNextBehindSweep();
    }

    // The '>' that ends the current step, or null when the page ends first.
    const char* pStepEnd() noexcept;

    // Ends the current step at pEnd instead; null ends the walk.
    void ContinueBehind(const char* pEnd) noexcept;

private:
    const char* pTakeVisit() noexcept {
        m_pOpen = m_pSwept + m_sweep.nOpens[m_nNextVisit++];
        return m_pOpen;
    }
    const char* pNextBehindSweep() noexcept;
    const char* pSingleStep() noexcept;
    bool bSweep() noexcept;
    void DropSweep() noexcept;
    std::size_t nLeft() const noexcept { return static_cast<std::size_t>(m_pPageEnd - m_pFrom); }

    const char* m_pPageEnd;         // one past the last character
    const char* m_pFrom;            // the step, and what is left of the search for its end, starts here
    bool m_bQuoted = false;         // and inside quotes
    const char* m_pOpen = nullptr;  // the '<' last visited
    const char* m_pEnd = nullptr;   // the end of the current step, where it is known
    const char* m_pSingleUntil;     // single steps are taken before this
    const char* m_pSwept = nullptr; // start of the sweep whose visits are handed out
    std::size_t m_nNextVisit = 0;
    std::size_t m_nSweepBlocks; // length of the next sweep
    TagSweep m_sweep;
};

#endif
