// SPDX-License-Identifier: MIT
#ifndef PAGESLICE_PARSER_INDEXING_PASS_H
#define PAGESLICE_PARSER_INDEXING_PASS_H

#include "pageslice/page_index.h"
#include "pageslice/text.h"
#include "text/index_limits.h"

namespace pageslice {

// Runs the pass over a page; what the index holds already stays. Gives the '<' that it looked at last; null
// when none was left to look at. Throws std::bad_alloc and limit_exceeded; what was found so far stays then.
// Of the limits the one on images bounds no more than the trail, which need not be complete.
const char* RunIndexingPass(const text& page, PageIndex& index, const index_limits& limits,
                            memory_budget& budget);

} // namespace pageslice

#endif
