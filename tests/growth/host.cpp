// SPDX-License-Identifier: MIT
// A host of another age than the library: compiled with a header whose structures lack their last field
// (AGE is 0), or have one more, called `added` (AGE is 1).
#include <gtest/gtest.h>

#include <cstring>
#include <string_view>

#include "pageslice/pageslice_c.h"

namespace {

// What lies after a structure is not the library's to write, and it leaves no byte of the structure as it
// was.
template <class Structure>
struct Guarded {
    Guarded() { std::memset(static_cast<void*>(this), 0xEE, sizeof *this); }
    bool is_intact() const {
        return std::string_view(guard, sizeof guard) == std::string_view("\xEE\xEE\xEE\xEE", sizeof guard);
    }
    Structure s;
    char guard[4];
};

template <class Structure>
Structure first_of(const pageslice_page* page,
                   int (*get)(const pageslice_page*, size_t, Structure*, size_t) PAGESLICE_NOEXCEPT) {
    Guarded<Structure> found;
    EXPECT_EQ(get(page, 0, &found.s, sizeof found.s), PAGESLICE_OK);
    EXPECT_TRUE(found.is_intact());
#if AGE == 1
    EXPECT_EQ(found.s.added.data, nullptr);
    EXPECT_EQ(found.s.added.size, 0U);
#endif
    return found.s;
}

TEST(Growth, HostAndLibraryOfDifferentAge) {
    constexpr std::string_view html = "<td>1</td><li>2</li> <a href=x title=t>3</a><img src=i width=7 ismap>";
    Guarded<pageslice_options> given;
    given.s = {};
    given.s.url = "http://h/";
    given.s.url_size = 9;
    pageslice_page* page = nullptr;
    ASSERT_EQ(pageslice_open_with(html.data(), html.size(), &given.s, sizeof given.s, &page), PAGESLICE_OK);
    const pageslice_link link = first_of(page, pageslice_get_link);
    EXPECT_EQ(std::string_view(link.href.data, link.href.size), "x");
    EXPECT_EQ(std::string_view(link.title.data, link.title.size), "t");
    EXPECT_EQ(first_of(page, pageslice_get_link_in_page_order).text.size, 1U);
    EXPECT_EQ(first_of(page, pageslice_get_image).width, 7);
    EXPECT_EQ(first_of(page, pageslice_get_cell).rowspan, -1);
    EXPECT_EQ(first_of(page, pageslice_get_item).text.size, 1U);
    pageslice_close(page);
#if AGE == 1
    given.s.added = {"x", 1}; // not understood, so not passed over
    EXPECT_EQ(pageslice_open_with("", 0, &given.s, sizeof given.s, &page), PAGESLICE_BAD_ARGUMENT);
    EXPECT_EQ(page, nullptr);
#endif
}

} // namespace
