// What a host compiled by the Microsoft rules takes for granted.
#include "pageslice/page.h"
#include "pageslice/pageslice.h"

static_assert(sizeof(text) == 4 * sizeof(void*) && sizeof(url) == sizeof(text) &&
              sizeof(UrlList) == 3 * sizeof(void*));

// By one or the other a compiler knows that the table of virtual functions is to be made here.
text::text() noexcept {}
int text::print(OutputText&, int) const {
    return 0;
}

std::string_view FirstLink(const pageslice::page& page) {
    return page.links()[0].href;
}
