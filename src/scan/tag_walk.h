#ifndef PAGESLICE_SCAN_TAG_WALK_H
#define PAGESLICE_SCAN_TAG_WALK_H

#include "pageslice/text.h"

// Walks a page from tag to tag. Each step starts at a position p: it visits the first '<' at or after p,
// and it ends at pFindTagEnd(p), behind which the next step starts.
//
// The end is looked for from p, not from the '<'. A '>' in the text before a tag therefore ends the step
// early, and the next step visits the same '<' again; an unpaired '"' in that text makes the step run on to
// the next '"', past the tags in between. Whoever parses the tag's attributes knows better where it ends
// and says so with ContinueBehind.
//
// The walk as a whole looks at each character a fixed number of times, however often a '<' is visited.
class TagWalk {
public:
    TagWalk(const char* pFrom, const text& page) noexcept;

    // Starts the next step; gives the '<' that it visits, or null when the walk is over.
    const char* pNext() noexcept;

    // The '>' that ends the current step, or null when the page ends first.
    const char* pStepEnd() noexcept;

    // Ends the current step at pEnd instead.
    void ContinueBehind(const char* pEnd) noexcept;

private:
    const text& m_page;
    const char* m_pFrom;           // where the current step starts
    const char* m_pOpen = nullptr; // the '<' last visited
    const char* m_pEnd = nullptr;  // where the current step ends, once known
};

#endif
