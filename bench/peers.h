// SPDX-License-Identifier: MIT
// The same job done with general HTML libraries: title, every a[href] with its text, every img[src], plain
// text, and no more than that.
#ifndef PAGESLICE_BENCH_PEERS_H
#define PAGESLICE_BENCH_PEERS_H

#include "stages.h"

namespace bench {

#if defined(PAGESLICE_WITH_LIBXML2)
void RunLibxml2(const Page& page, HtmlParser& indexed, Found* found);
#endif
#if defined(PAGESLICE_WITH_GUMBO)
void RunGumbo(const Page& page, HtmlParser& indexed, Found* found);
#endif

} // namespace bench

#endif
