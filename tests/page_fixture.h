// SPDX-License-Identifier: MIT
// What every page test goes through. Cases stand in cases.txt, one a line: a page and what is expected of
// it. A page stands once right before and once right behind forbidden memory, and every slice handed out
// for it is checked to lie inside it.
#ifndef PAGESLICE_TESTS_PAGE_FIXTURE_H
#define PAGESLICE_TESTS_PAGE_FIXTURE_H

#include <gtest/gtest.h>

#include <fstream>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "fence.h"
#include "fuzz/scans.h"
#include "pageslice/pageslice.h"
#include "pageslice/text_view.h"
#include "tags/tag_img.h"

inline std::string Unescaped(const std::string& s) {
    std::string result;
    for (std::size_t i = 0; i < s.size(); ++i) {
        const char c = s[i] == '\\' ? s[++i] : '\0';
        if (c == '\0')
            result += s[i];
        else if (c == '*' || c == '_')
            result.append(70, c == '*' ? 'x' : ' ');
        else
            result += static_cast<char>(std::stoi(s.substr(i++, 2), nullptr, 16));
    }
    return result;
}

struct Row {
    std::string line, input, expected;
    bool bStays; // its answer hangs on where the page starts
};

inline std::vector<Row> RowsOf(const std::string& section) {
    std::ifstream in(PAGESLICE_CASES, std::ios::binary);
    std::string line;
    std::vector<Row> rows;
    while (std::getline(in, line) && line != "[" + section + "]")
        continue;
    while (std::getline(in, line) && !line.starts_with('[')) {
        const std::size_t nArrow = line.rfind(" =>");
        if (line.starts_with('#') || nArrow == std::string::npos)
            continue;
        const bool bStays = line.starts_with('^');
        rows.push_back({line, Unescaped(line.substr(bStays, nArrow - bStays)),
                        Unescaped(line.substr(std::min(nArrow + 4, line.size()))), bStays});
    }
    EXPECT_FALSE(rows.empty()) << "no cases in [" << section << "]";
    return rows;
}

// Runs the cases of one section: answer(slice of the page) gives a string.
template <class Answer>
void RunCases(const std::string& section, Answer answer) {
    for (const Row& row : RowsOf(section)) {
        SCOPED_TRACE(row.line);
        WithFences(row.input, [&](const text& t) { EXPECT_EQ(answer(t), row.expected); });
    }
}

// The same with every scan, and with spaces in front, which change no answer: as many as put each byte of the
// row at each place of a block, and as many as put the row across the end of the first of the longest sweeps.
template <class Answer>
void RunPages(const std::string& section, Answer answer) {
    constexpr std::size_t SWEPT = (4 + 8 + 16 + 32 + pageslice::SCAN_SWEEP_BLOCKS) * pageslice::SCAN_BLOCK;
    RunCases(section, answer);
    for (const Row& row : RowsOf(section)) {
        const FencedPage fenced(std::string(SWEPT, ' ') + row.input, Fence::Behind);
        const text all = fenced.Slice();
        for (const char* const pScan : invariants::SCANS)
            for (std::size_t i = 0; i <= pageslice::SCAN_BLOCK && invariants::Use(pScan); ++i) {
                const std::size_t nSpaces = i < pageslice::SCAN_BLOCK ? i : SWEPT - row.input.size() / 2;
                const text page(all.m_pStart + SWEPT - (row.bStays ? 0 : nSpaces), all.m_pEnd, 0);
                ASSERT_EQ(answer(page), row.expected) << row.line << '\n'
                                                      << pScan << ", " << nSpaces << " spaces in front";
            }
    }
}

// A test's answers, or a row's parts, with the bars between them.
template <class... Parts>
std::string Joined(const Parts&... parts) {
    std::ostringstream out;
    ((out << parts << '|'), ...);
    return out.str().erase(out.str().size() - 1);
}

inline std::vector<std::string> PartsOf(const text& row) {
    std::istringstream in(std::string(row.m_pStart, row.m_pEnd + 1) + '|');
    std::vector<std::string> parts;
    for (std::string part; std::getline(in, part, '|');)
        parts.push_back(part);
    return parts;
}

// A parser whose index and tag scanner a test may look at.
struct OpenParser : HtmlParser {
    using HtmlParser::HtmlParser, HtmlParser::m_tPage, HtmlParser::m_pUrl, HtmlParser::m_bInitialized,
        HtmlParser::m_tTitle, HtmlParser::m_urlMap, HtmlParser::m_vCellTexts, HtmlParser::m_vListItems,
        HtmlParser::m_tagTable, HtmlParser::m_tagTr, HtmlParser::m_tagTd, HtmlParser::tFindNextTagName,
        HtmlParser::nIdentifyTagType, HtmlParser::nIdentifyTagName, HtmlParser::bFindNextTagType;
};

inline std::string String(const text& t) {
    return {t.m_pStart, t.m_pEnd + 1};
}

// The characters of a slice that was handed out for `page`; "-" for an empty slice.
inline std::string Chars(const text& t, const text& page) {
    EXPECT_EQ(t.bIsNullTerminated(), 0);
    EXPECT_TRUE(t.IsEmpty() ? t.m_pEnd == nullptr : page.Surrounds(t) && t.m_pStart <= t.m_pEnd + 1);
    return t.IsEmpty() ? "-" : String(t);
}

// What is left of the page from p on; "-" for null.
inline std::string Rest(const char* p, const text& page) {
    EXPECT_TRUE(p == nullptr || (page.m_pStart <= p && p <= page.m_pEnd + 1));
    return p == nullptr ? "-" : std::string(p, page.m_pEnd + 1);
}

// The fields of a record that were given, "name=value" each.
struct Fields : std::string {
    Fields(const tag_a& a, const text& page) {
        Add("name", a.m_tName, page), Add("href", a.m_urlHref, page), Add("rel", a.m_tRel, page);
        Add("rev", a.m_tRev, page), Add("title", a.m_tTitle, page);
    }
    Fields(const tag_img& i, const text& page) {
        Add("src", i.m_urlSrc, page), Add("lowsrc", i.m_urlLowSrc, page), Add("alt", i.m_altText, page);
        Add("usemap", i.m_urlUseMap, page), Add("align", i.m_align, 0), Add("ismap", i.m_bIsMap, 0);
        Add("height", i.m_nHeight), Add("width", i.m_nWidth), Add("border", i.m_nBorder);
        Add("hspace", i.m_nHSpace), Add("vspace", i.m_nVSpace);
    }
    Fields(const tag_table& t, const text& page) {
        Add("caption", t.m_tCaption, page), Add("align", t.m_align, 0), Add("width", t.m_nWidth);
        Add("border", t.m_nBorder), Add("spacing", t.m_nCellSpacing), Add("padding", t.m_nCellPadding);
    }
    Fields(const tag_tr& t, const text&) { Add("align", t.m_align, 0), Add("valign", t.m_valign, 0); }
    Fields(const tag_td& t, const text&) {
        Add("nowrap", t.m_bNoWrap, 0), Add("align", t.m_align, 0), Add("valign", t.m_valign, 0);
        Add("rowspan", t.m_nRowSpan), Add("colspan", t.m_nColSpan);
        Add("width", t.m_nWidth), Add("height", t.m_nHeight);
    }

private:
    void Add(const char* pName, const text& t, const text& page) {
        *this += t.IsEmpty() ? "" : std::string(empty() ? "" : " ") + pName + "=" + Chars(t, page);
    }
    void Add(const char* pName, int n, int nNotGiven = -1) {
        *this += n == nNotGiven ? "" : std::string(empty() ? "" : " ") + pName + "=" + std::to_string(n);
    }
};

// The index: title, anchors in map order, cells, items, and the records left open.
inline std::string Index(const OpenParser& o) {
    const text& page = o.m_tPage;
    std::string index = o.m_tTitle.IsEmpty() ? "" : ", title=" + Chars(o.m_tTitle, page);
    for (const auto& [anchor, tText] : o.m_urlMap) {
        EXPECT_EQ(Chars(anchor.m_tTag, page).front(), '<');
        index += ", a " + Fields(anchor, page) + ": " + Chars(tText, page);
    }
    for (const text& t : o.m_vCellTexts)
        index += ", td: " + Chars(t, page);
    for (const text& t : o.m_vListItems)
        index += ", li: " + Chars(t, page);
    const Fields table(o.m_tagTable, page), row(o.m_tagTr, page), cell(o.m_tagTd, page);
    index += (table.empty() ? "" : ", table " + table) + (row.empty() ? "" : ", tr " + row);
    return (index + (cell.empty() ? "" : ", td " + cell)).erase(0, 2);
}

// The size of a list's buffer and the entries it reads back: "6: ab xy".
inline std::string Entries(UrlList& list) {
    struct OpenList : UrlList {
        static auto nSize(const UrlList& l) { return l.*(&OpenList::m_pLast) - l.*(&OpenList::m_pBuffer); }
    };
    std::string entries = std::to_string(list.bIsEmpty() ? 0 : OpenList::nSize(list) + 1) + ":";
    while (const char* pEntry = list.pGetNext())
        (entries += " ") += pEntry;
    return entries;
}

inline std::string Lists(HtmlParser& parser) {
    UrlList *pImages = nullptr, *pLinks = nullptr;
    parser.GetUrlLists(&pImages, &pLinks);
    const std::unique_ptr<UrlList> images(pImages), links(pLinks);
    return "images " + Entries(*images) + " links " + Entries(*links);
}

// One of each thing that a parser finds, and its index.
const text
    FULL("<html><title>Home</title><table border=1><tr align=left><td>1</td></table><ul><li>one</li></ul>"
         "<a href=a.html name=n>First</a><img src=a.gif><a href=b.html>Second</a><img src=b.gif>"
         "<table width=5><tr valign=top><td nowrap>");
const std::string FULL_INDEX =
    "title=Home, a href=b.html: Second, a name=n href=a.html: First, td: 1, li: one, "
    "table width=5, tr valign=1, td nowrap=1";

#endif
