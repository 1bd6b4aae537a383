// SPDX-License-Identifier: MIT
#ifndef PAGESLICE_PAGE_INDEX_H
#define PAGESLICE_PAGE_INDEX_H

#include <vector>

#include "pageslice/records.h"
#include "pageslice/text.h"
#include "pageslice/url_map.h"

namespace pageslice {

struct ImageMark;

// What the indexing pass collects of one page. All of it is copied, assigned and forgotten as one value: a
// new member needs a place here and a way in the pass, no other.
class PageIndex {
public:
    tag_tr m_tagTr;       // the row open where the pass stands
    tag_td m_tagTd;       // the cell open there
    tag_table m_tagTable; // the table open there
    text m_tTitle;
    std::vector<text> m_vCellTexts; // in page order
    std::vector<text> m_vListItems; // in page order
    UrlMap m_urlMap;
    int m_bInitialized = 0; // 1 once the pass has started on this page

private:
    // What the pass saw of the page's image tags, so that the lists need not look for them once more.
    struct ImageTrail {
        text tPage;                    // the page that it is about; empty while it is about none
        std::vector<ImageMark> vMarks; // from the first image tag on
        // Where the pass first did not go on as a search for image tags does, if that was before the first
        // mark; no image tag stands before it. Else null.
        const char* pBreak = nullptr;
        std::vector<text> vSources; // of the image tags, while a list of them is being made
    };
    friend struct ImageTrailAccess;

    ImageTrail m_imageTrail;
};

} // namespace pageslice

#endif
