// SPDX-License-Identifier: MIT
// Pages around the largest int and above 4 GiB. Most of each are NULs, for which the system gives no memory.
#include <sys/mman.h>

#include <algorithm>
#include <climits>
#include <stdexcept>

#include "fuzz/invariants.h"
#include "page_fixture.h"
#include "pageslice/page.h"

namespace {

constexpr std::size_t LARGEST = INT_MAX;
constexpr std::string_view FRONT = "<title>Home</title><a href=first>one</a><li>", FRONT_TEXT = "Home one ";
constexpr std::string_view BACK = "</li><a href=last>two</a><img src=i.gif><td width=5>", BACK_TEXT = " two ";

struct Unmap {
    void operator()(char* p) const { munmap(p, n); }
    std::size_t n;
};

std::unique_ptr<char, Unmap> MakePage(std::size_t n, std::string_view front, std::string_view back) {
    void* const p =
        mmap(nullptr, n, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    std::unique_ptr<char, Unmap> page(p != MAP_FAILED ? static_cast<char*>(p) : throw std::bad_alloc(), {n});
    front.copy(page.get(), n);
    back.copy(page.get() + n - back.size(), n);
    return page;
}

TEST(Huge, Pages) {
    for (const std::size_t n : {LARGEST, LARGEST + 1, 2 * LARGEST + 99}) {
        const auto page = MakePage(n, FRONT, BACK);
        const std::string_view all(page.get(), n);
        const std::size_t nNuls = n - FRONT.size() - BACK.size();
        for (const char* const pScan : invariants::SCANS) {
            SCOPED_TRACE(std::to_string(n) + " bytes, " + pScan);
            invariants::Use(pScan);
            OpenParser parser(pageslice::to_text(all), nullptr);
            EXPECT_EQ(Lists(parser),
                      n > LARGEST ? "images 0: links 0:" : "images 6: i.gif links 11: last first");
            EXPECT_EQ(String(parser.m_tTitle), "Home");
            EXPECT_EQ(parser.m_tagTd.m_nWidth, 5);
            ASSERT_EQ(parser.m_vListItems.size(), 1U);
            ASSERT_EQ(parser.m_urlMap.size(), 2U);
            EXPECT_EQ(String(parser.m_urlMap.begin()->first.m_urlHref), "last");
            EXPECT_EQ(pageslice::to_view(parser.m_vListItems[0]).size(), nNuls);
            EXPECT_EQ(parser.m_vListItems[0].GetLength(), static_cast<int>(std::min(nNuls, LARGEST)));

            char* pText = nullptr;
            EXPECT_EQ(parser.bConvertHtmlToPlainText(&pText), n > LARGEST ? 0 : 1);
            const std::unique_ptr<char[]> plain(pText);
            ASSERT_EQ(pText == nullptr, n > LARGEST);
            if (pText != nullptr) {
                EXPECT_EQ(pText, FRONT_TEXT);
                EXPECT_EQ(pText + FRONT_TEXT.size() + nNuls, BACK_TEXT);
            }
        }
        const pageslice::page face(all);
        EXPECT_EQ(face.links()[1].href, "first");
        EXPECT_EQ(face.image_urls()[0], "i.gif");
        if (n > LARGEST)
            EXPECT_THROW(face.plain_text(), std::length_error);
        else
            EXPECT_EQ(face.plain_text().size(), FRONT_TEXT.size() + nNuls + BACK_TEXT.size());
    }
}

TEST(Huge, AttributeValues) {
    constexpr std::string_view front = " <a title=x href=\"", back = "\">y</a><img src=i.gif></html>";
    constexpr std::size_t n = LARGEST + 100;
    const auto page = MakePage(n, front, back);
    const std::string_view all(page.get(), n);
    OpenParser parser(pageslice::to_text(all), nullptr);
    EXPECT_EQ(Lists(parser), "images 0: links 0:");
    ASSERT_EQ(parser.m_urlMap.size(), 1U);
    const auto& [anchor, tLinkText] = *parser.m_urlMap.begin();
    EXPECT_EQ(pageslice::to_view(anchor.m_urlHref).size(), n - front.size() - back.size());
    EXPECT_EQ(String(anchor.m_tTitle) + String(tLinkText), "xy");
    const pageslice::page face(all);
    EXPECT_EQ(face.images()[0].src, "i.gif");
}

} // namespace
