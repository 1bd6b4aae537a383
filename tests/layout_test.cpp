// SPDX-License-Identifier: MIT
// The layouts that hosts were compiled against.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <vector>

#include "output/alt_text.h"
#include "pageslice/pageslice.h"
#include "pageslice/tokens_c.h"
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

// What hosts derive from, field by field; each record's size is pinned above, and a vector has three words.
constexpr std::size_t V = 3 * P, TABLES = sizeof(tag_tr) + sizeof(tag_td) + sizeof(tag_table),
                      MAP = TABLES + T + 2 * V, READY = MAP + sizeof(UrlMap),
                      PAGE = READY + P + T + 2 * V + P;
struct OpenParser : HtmlParser {
    static constexpr bool bHolds() {
        return bLaidOut<HtmlParser>(
            {AT(OpenParser, m_tagTr), AT(OpenParser, m_tagTd), AT(OpenParser, m_tagTable),
             AT(OpenParser, m_tTitle), AT(OpenParser, m_vCellTexts), AT(OpenParser, m_vListItems),
             AT(OpenParser, m_urlMap), AT(OpenParser, m_bInitialized), AT(OpenParser, m_tPage),
             AT(OpenParser, m_pUrl), AT(OpenParser, m_language)},
            {0, sizeof(tag_tr), TABLES - sizeof(tag_table), TABLES, TABLES + T, TABLES + T + V, MAP, READY,
             PAGE, PAGE + T, PAGE + T + P, PAGE + T + 2 * P});
    }
};
static_assert(OpenParser::bHolds());

// Walks over the map are compiled into hosts. An explicit instantiation may name what is private.
template <class Node>
struct NodeHolds {
    static_assert(bLaidOut<Node>({AT(Node, pLink), AT(Node, nLinkLength), AT(Node, nPrevious),
                                  AT(Node, nNext), AT(Node, nChild), AT(Node, bRed)},
                                 {0, P, 2 * P, 2 * P + 4, 2 * P + 8, 2 * P + 16, 2 * P + 17}));
};
template struct NodeHolds<UrlMap::Node>;

template <class Field, class Class>
std::size_t nOffset(Field Class::*member) {
    std::size_t n = 0;
    std::memcpy(&n, &member, P);
    return n;
}
std::vector<std::size_t> MapOffsets();
template <auto... members>
struct MapFields {
    friend std::vector<std::size_t> MapOffsets() { return {nOffset(members)...}; }
};
template struct MapFields<&UrlMap::m_entries, &UrlMap::m_nodes, &UrlMap::m_nRoot, &UrlMap::m_nFirst,
                          &UrlMap::m_bHasNuls, &UrlMap::m_nLinkBytes>;

TEST(Layout, UrlMap) {
    EXPECT_EQ(MapOffsets(), (std::vector<std::size_t>{0, V, 2 * V, 2 * V + 4, 2 * V + 8, 7 * P + 8}));
    EXPECT_EQ(sizeof(UrlMap), 8 * P + 8);
}

static_assert(bLaidOut<pageslice_attribute>({AT(pageslice_attribute, name), AT(pageslice_attribute, value)},
                                            {0, 2 * P, 4 * P}));
static_assert(bLaidOut<pageslice_token>(
    {AT(pageslice_token, bytes), AT(pageslice_token, name), AT(pageslice_token, text),
     AT(pageslice_token, public_id), AT(pageslice_token, system_id), AT(pageslice_token, kind),
     AT(pageslice_token, decoding), AT(pageslice_token, is_self_closing), AT(pageslice_token, is_foreign),
     AT(pageslice_token, force_quirks)},
    {0, 2 * P, 4 * P, 6 * P, 8 * P, 10 * P, 10 * P + 4, 10 * P + 8, 10 * P + 12, 10 * P + 16, 10 * P + 20}));

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
