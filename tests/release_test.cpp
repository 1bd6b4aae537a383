// SPDX-License-Identifier: MIT
// What the classes hand out goes back to where it came from, in a host whose memory is not the library's: the
// host's operators put a mark before each block that they make, and take back no other. On Windows a DLL has
// operators of its own.
#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>

#include "pageslice/pageslice.h"
#include "pageslice/pageslice_c.h"

namespace {

constexpr char MARK[16] = "the host's own";

void* pMake(std::size_t n) {
    char* const p = static_cast<char*>(std::malloc(n + sizeof MARK));
    if (p == nullptr)
        throw std::bad_alloc();
    std::memcpy(p, MARK, sizeof MARK);
    return p + sizeof MARK;
}

void TakeBack(void* p) noexcept {
    if (p == nullptr)
        return;
    char* const pBlock = static_cast<char*>(p) - sizeof MARK;
    if (std::memcmp(pBlock, MARK, sizeof MARK) != 0)
        std::abort();
    std::free(pBlock);
}

} // namespace

// clang-format off
void* operator new(std::size_t n) { return pMake(n); }
void* operator new[](std::size_t n) { return pMake(n); }
void operator delete(void* p) noexcept { TakeBack(p); }
void operator delete[](void* p) noexcept { TakeBack(p); }
void operator delete(void* p, std::size_t) noexcept { TakeBack(p); }
void operator delete[](void* p, std::size_t) noexcept { TakeBack(p); }
// clang-format on

TEST(Release, AcrossTheBoundary) {
    HtmlParser parser(text("<title>Home</title><a href=x>y</a><img src=i>"), "http://h/");
    UrlList *pImages = nullptr, *pLinks = nullptr;
    parser.GetUrlLists(&pImages, &pLinks);
    EXPECT_STREQ(pImages->pMoveFirst(), "i");
    delete pImages;
    const std::unique_ptr<UrlList> links(pLinks), own(new UrlList(9)),
        copy(new (std::nothrow) UrlList(*pLinks));
    EXPECT_STREQ(copy->pMoveFirst(), "x");
    alignas(UrlList) char place[sizeof(UrlList)];
    (new (place) UrlList(9))->~UrlList();

    char* pPlain = nullptr;
    ASSERT_EQ(parser.bConvertHtmlToPlainText(&pPlain), 1);
    for (char* const p : {pPlain, parser.pMakeTitleCopy(), text("copy").pMakeCopy()}) {
        EXPECT_NE(p, nullptr);
        pageslice_release_string(p);
    }
}
