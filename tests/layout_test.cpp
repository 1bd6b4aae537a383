// The layouts that hosts were compiled against.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstring>

#include "output/alt_text.h"
#include "pageslice/pageslice.h"
#include "tags/tag_img.h"

#pragma GCC diagnostic ignored "-Winvalid-offsetof" // all known compilers give the offsets of these classes
#define AT(type, member) offsetof(type, member)

namespace {

constexpr std::size_t P = sizeof(void*); // 4 or 8
constexpr std::size_t T = 4 * P;         // a slice

// Do the offsets of a class's fields, and behind them its size without padding, stand as wanted?
template <class C, std::size_t n>
constexpr bool bLaidOut(const std::size_t (&offsets)[n], const std::size_t (&wanted)[n + 1]) {
    return std::equal(offsets, offsets + n, wanted) && sizeof(C) == (wanted[n] + P - 1) / P * P;
}

static_assert(sizeof(align) == 4 && sizeof(int) == 4 && sizeof(tag) == T);
static_assert(sizeof(alt_text) == T && sizeof(url) == T);
static_assert(bLaidOut<text>({AT(text, m_bNullTerminated), AT(text, m_pStart), AT(text, m_pEnd)},
                             {P, 2 * P, 3 * P, T}));
static_assert(bLaidOut<tag_a>({AT(tag_a, m_tTag), AT(tag_a, m_tName), AT(tag_a, m_urlHref), AT(tag_a, m_tRel),
                               AT(tag_a, m_tRev), AT(tag_a, m_tTitle)},
                              {0, T, 2 * T, 3 * T, 4 * T, 5 * T, 6 * T}));
static_assert(bLaidOut<tag_img>({AT(tag_img, m_tTag), AT(tag_img, m_urlSrc), AT(tag_img, m_urlLowSrc),
                                 AT(tag_img, m_altText), AT(tag_img, m_align), AT(tag_img, m_nHeight),
                                 AT(tag_img, m_nWidth), AT(tag_img, m_nBorder), AT(tag_img, m_nHSpace),
                                 AT(tag_img, m_nVSpace), AT(tag_img, m_urlUseMap), AT(tag_img, m_bIsMap)},
                                {0, T, 2 * T, 3 * T, 4 * T, 4 * T + 4, 4 * T + 8, 4 * T + 12, 4 * T + 16,
                                 4 * T + 20, 4 * T + 24, 5 * T + 24, 5 * T + 28}));
static_assert(bLaidOut<tag_table>({AT(tag_table, m_tTag), AT(tag_table, m_tCaption), AT(tag_table, m_align),
                                   AT(tag_table, m_nWidth), AT(tag_table, m_nBorder),
                                   AT(tag_table, m_nCellSpacing), AT(tag_table, m_nCellPadding)},
                                  {0, T, 2 * T, 2 * T + 4, 2 * T + 8, 2 * T + 12, 2 * T + 16, 2 * T + 20}));
static_assert(bLaidOut<tag_tr>({AT(tag_tr, m_tTag), AT(tag_tr, m_align), AT(tag_tr, m_valign)},
                               {0, T, T + 4, T + 8}));
static_assert(bLaidOut<tag_td>({AT(tag_td, m_tTag), AT(tag_td, m_bNoWrap), AT(tag_td, m_nRowSpan),
                                AT(tag_td, m_nColSpan), AT(tag_td, m_align), AT(tag_td, m_valign),
                                AT(tag_td, m_nWidth), AT(tag_td, m_nHeight)},
                               {0, T, T + 4, T + 8, T + 12, T + 16, T + 20, T + 24, T + 28}));
struct OpenList : UrlList {
    static constexpr bool bHolds() {
        return bLaidOut<UrlList>({AT(OpenList, m_pBuffer), AT(OpenList, m_pLast), AT(OpenList, m_pCursor)},
                                 {0, P, 2 * P, 3 * P});
    }
};
static_assert(OpenList::bHolds());

// The slot that a pointer to a virtual member names: its first word is one more than the offset in the table.
template <class Result, class Class, class... Arguments>
std::size_t nSlot(Result (Class::*member)(Arguments...) const) {
    std::size_t nWord = 0;
    std::memcpy(&nWord, &member, P);
    return (nWord - 1) / P;
}

TEST(Layout, VirtualSlotsOfText) {
    EXPECT_EQ(nSlot(&text::print), 0U);
    EXPECT_EQ((nSlot<int, text>(&text::println)), 1U);
    EXPECT_EQ((nSlot<int, text, OutputText&>(&text::println)), 2U);
    EXPECT_EQ(nSlot(&text::PrintDebug), 3U);
    EXPECT_EQ(nSlot(&alt_text::print), 0U);
}

} // namespace
