// SPDX-License-Identifier: MIT
// What a host compiled by the Microsoft rules takes for granted.
#include "pageslice/page.h"
#include "pageslice/pageslice.h"
#include "pageslice/tokens.h"

static_assert(sizeof(text) == 4 * sizeof(void*) && sizeof(url) == sizeof(text) &&
              sizeof(UrlList) == 3 * sizeof(void*));

#if !defined(_WIN32) || defined(PAGESLICE_BUILDING) || defined(PAGESLICE_STATIC)
// By one or the other a compiler knows that the table of virtual functions is to be made here.
text::text() noexcept {}
int text::print(OutputText&, int) const {
    return 0;
}
#endif
