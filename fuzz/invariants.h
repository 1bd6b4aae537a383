// SPDX-License-Identifier: MIT
// What holds for every page, stated once for the stress test and the fuzz targets. The library's answers are
// written out as text, positions as offsets from the page's first character, and so are those of the
// reference; the two texts must be equal. What does not hold is thrown as std::logic_error.
#ifndef PAGESLICE_FUZZ_INVARIANTS_H
#define PAGESLICE_FUZZ_INVARIANTS_H

#include <cstdint>
#include <cstring>
#include <iterator>
#include <memory>
#include <stdexcept>
#include <string>

#include "fuzz/reference.h"
#include "fuzz/scans.h"
#include "pageslice/pageslice.h"
#include "scan/tag_bounds.h"
#include "tags/tag_img.h"

namespace invariants {

using reference::Slice;

inline void Require(bool bHolds, const std::string& what) {
    if (!bHolds)
        throw std::logic_error(what);
}

class Transcript {
public:
    explicit Transcript(const text& tPage) : m_tPage(tPage) {}

    Transcript& operator<<(const std::string& s) {
        m_text += s;
        return *this;
    }
    Transcript& operator<<(char c) { return *this << std::string(1, c); }
    Transcript& operator<<(int n) { return *this << ' ' + std::to_string(n); }
    Transcript& operator<<(const char* p) {
        return *this << (p == nullptr ? " null" : ' ' + std::to_string(p - m_tPage.m_pStart));
    }
    Transcript& operator<<(const Slice& t) {
        return t.bEmpty() ? *this << '-' : *this << t.first << '+' + std::to_string(t.nLength());
    }
    Transcript& operator<<(const text& t) {
        Require(t.IsEmpty() || (m_tPage.Surrounds(t) && t.m_pEnd - t.m_pStart >= -1),
                "a slice outside the page");
        Require(!t.bIsNullTerminated(), "a slice that claims a NUL");
        return *this << Slice{t.m_pStart, t.m_pEnd};
    }
    template <typename T>
    Transcript& operator<<(const std::vector<T>& list) {
        for (const T& t : list)
            *this << t;
        return *this << '\n';
    }
    Transcript& operator<<(const tag_a& r) {
        return *this << r.m_tTag << r.m_tName << r.m_urlHref << r.m_tRel << r.m_tRev << r.m_tTitle << '\n';
    }
    Transcript& operator<<(const tag_img& r) {
        *this << r.m_tTag << r.m_urlSrc << r.m_urlLowSrc << r.m_altText << r.m_urlUseMap << r.m_align;
        return *this << r.m_nHeight << r.m_nWidth << r.m_nBorder << r.m_nHSpace << r.m_nVSpace << r.m_bIsMap
                     << '\n';
    }
    Transcript& operator<<(const tag_table& r) {
        *this << r.m_tTag << r.m_tCaption << r.m_align << r.m_nWidth << r.m_nBorder;
        return *this << r.m_nCellSpacing << r.m_nCellPadding << '\n';
    }
    Transcript& operator<<(const tag_tr& r) { return *this << r.m_tTag << r.m_align << r.m_valign << '\n'; }
    Transcript& operator<<(const tag_td& r) {
        *this << r.m_tTag << r.m_bNoWrap << r.m_nRowSpan << r.m_nColSpan << r.m_align << r.m_valign;
        return *this << r.m_nWidth << r.m_nHeight << '\n';
    }

    // The reference's record as the library's record of the kind nTag would be written. Nothing gives a
    // table's caption and cell spacing and padding.
    Transcript& Put(int nTag, const reference::Record& r) {
        using namespace reference;
        constexpr int NO_TEXT = 17, NO_NUMBER = 18;
        static const std::map<int, std::vector<int>> fields = {
            {A, {NAME, HREF, REL, REV, ADVICE}},
            {IMG, {SRC, LOWSRC, ALT, USEMAP, ALIGN, HEIGHT, WIDTH, BORDER, HSPACE, VSPACE, ISMAP}},
            {TABLE, {NO_TEXT, ALIGN, WIDTH, BORDER, NO_NUMBER, NO_NUMBER}},
            {TR, {ALIGN, VALIGN}},
            {TD, {NOWRAP, ROWSPAN, COLSPAN, ALIGN, VALIGN, WIDTH, HEIGHT}}};
        static const std::set<int> numbers = {HEIGHT, WIDTH,     BORDER,  HSPACE,
                                              VSPACE, NO_NUMBER, ROWSPAN, COLSPAN};
        *this << r.tTag;
        for (const int nCode : fields.at(nTag)) {
            const Slice t = r.given.contains(nCode) ? r.given.at(nCode) : Slice{};
            if (nCode == ALIGN || nCode == VALIGN)
                *this << nFindWord(ALIGN_WORDS, t.View(), 0);
            else if (nCode == ISMAP || nCode == NOWRAP)
                *this << !t.bEmpty();
            else if (numbers.contains(nCode))
                *this << (t.bEmpty() ? -1 : nNumber(t));
            else
                *this << t;
        }
        return *this << '\n';
    }

    void RequireEqual(const Transcript& wanted, const std::string& what) const {
        Require(m_text == wanted.m_text, what + "\n--- found\n" + m_text + "--- wanted\n" + wanted.m_text);
    }

private:
    text m_tPage;
    std::string m_text;
};

// A fuzz input as a page, where it lies: the fuzzer hands out memory of exactly that size. The size chooses
// the scan, so that all of them are fuzzed.
inline text PageOf(const std::uint8_t* pData, std::size_t n) {
    Use(SCANS[n % std::size(SCANS)]);
    const char* p = n == 0 ? "" : reinterpret_cast<const char*>(pData);
    return {p, p + n - 1, 0};
}

inline reference::Page ReferenceOf(const text& tPage) {
    return {tPage.m_pStart, static_cast<std::size_t>(tPage.m_pEnd + 1 - tPage.m_pStart)};
}

// Sees what a class derived by the host could see.
class Parser : public HtmlParser {
public:
    using HtmlParser::HtmlParser;
    using HtmlParser::m_pUrl;
    using HtmlParser::m_tPage;
    using HtmlParser::m_urlMap;
    using HtmlParser::nIdentifyTagType;
    using HtmlParser::tFindNextTagName;

    // Everything that the pass finds and that a host can ask for.
    Transcript Answers() {
        Transcript out(m_tPage);
        UrlList* lists[2];
        GetUrlLists(&lists[0], &lists[1]);
        for (UrlList* pList : lists)
            out << List::Bytes(std::unique_ptr<UrlList>(pList).get()) << '\n';
        char* pPlain = nullptr;
        Require(bConvertHtmlToPlainText(&pPlain) == 1, "no plain text");
        const std::string plain = Taken(pPlain, m_tPage);
        Require(plain.find("  ") == std::string::npos && plain.find_first_of("\n\r<") == std::string::npos &&
                    !plain.starts_with(' '),
                "white space or markup in the plain text");
        out << plain << m_tTitle << (m_tTitle.IsEmpty() ? "" : Taken(pMakeTitleCopy(), m_tTitle)) << '\n';
        out << m_vCellTexts << m_vListItems << m_tagTable << m_tagTr << m_tagTd;
        for (const auto& [anchor, tLinkText] : m_urlMap)
            out << tLinkText << anchor;
        return out << m_bInitialized;
    }

    void RequireAnswers(const Transcript& wanted, const std::string& what) {
        Answers().RequireEqual(wanted, what);
    }

private:
    struct List : UrlList {
        static std::string Bytes(const UrlList* pList) {
            char* pBuffer = pList->*&List::m_pBuffer;
            Require(pList->*&List::m_pCursor == pBuffer, "a list that does not stand at its start");
            return pBuffer == nullptr ? std::string() : std::string(pBuffer, pList->*&List::m_pLast + 1);
        }
    };

    // The string made of a slice, with its NUL.
    static std::string Taken(char* p, const text& tOf) {
        const std::unique_ptr<char[]> owner(p);
        return std::string(p, static_cast<std::size_t>(tOf.GetLength()) + 1);
    }
};

inline Transcript ReferenceAnswers(const text& tPage) {
    using namespace reference;
    const Page page = ReferenceOf(tPage);
    const Index index = page.MakeIndex();
    std::vector<Slice> hrefs;
    for (const auto& [tHref, link] : index.links)
        hrefs.push_back(tHref);
    std::string plain = page.PlainText();
    plain.resize(static_cast<std::size_t>(tPage.GetLength()) + 1, '\0');
    Transcript out(tPage);
    out << Page::ListOf(page.ImageSources()) << '\n' << Page::ListOf(hrefs) << '\n' << plain << index.tTitle;
    out << (index.tTitle.bEmpty() ? "" : CopyOf(index.tTitle) + '\0') << '\n' << index.cells << index.items;
    out.Put(TABLE, index.table).Put(TR, index.row).Put(TD, index.cell);
    for (const auto& [tHref, link] : index.links)
        (out << link.second).Put(A, link.first);
    return out << 1;
}

// What a fresh parser finds on the page.
inline void CheckAnswers(const text& tPage) {
    Parser(tPage, nullptr).RequireAnswers(ReferenceAnswers(tPage), "the page");
}

// The page's way through a parser and through everything that can become of one.
inline void CheckPage(const text& tPage) {
    const Transcript wanted = ReferenceAnswers(tPage);
    Parser parser(tPage, "http://host/page.html");
    parser.RequireAnswers(wanted, "the page");
    parser.RequireAnswers(wanted, "the page asked again");
    Parser copy(parser);
    copy.RequireAnswers(wanted, "a copy of the parser");
    Require(copy.m_pUrl != parser.m_pUrl && std::strcmp(copy.m_pUrl, parser.m_pUrl) == 0, "the copy's URL");

    const std::string moved = '<' + std::string(tPage.m_pStart, tPage.m_pEnd + 1);
    Parser other(text(moved.data() + 1, moved.data() + moved.size() - 1, 0), nullptr);
    other.RequireAnswers(wanted, "the characters at another address");
    other = parser;
    Require(other.m_tPage.m_pStart == tPage.m_pStart, "the page of an assigned parser");
    other.RequireAnswers(wanted, "an assigned parser");
    other.Load(tPage, other.m_pUrl, 1);
    other.RequireAnswers(wanted, "the page loaded again");
}

// The scanner's answers and the parses, all from one position; pLower bounds the search backwards.
inline void CheckPosition(const text& tPage, const char* p, const char* pLower) {
    using namespace reference;
    const Page page = ReferenceOf(tPage);
    const Parser parser(tPage, nullptr);
    const tag scanner;
    Transcript found(tPage), wanted(tPage);

    const text tTag = parser.tFindNextTagName(p);
    const Slice tWantedTag = page.tFindNextTagName(p);
    found << tTag << parser.nIdentifyTagType(tTag) << ::pFindTagEnd(p, tPage)
          << ::pFindEndBeforeTag(p, pLower);
    wanted << tWantedTag << Page::nTagCode(tWantedTag) << page.pFindTagEnd(p)
           << Page::pFindEndBeforeTag(p, pLower);

    text tValue;
    Slice tWanted;
    const text tName = scanner.tGetAttributeName(p, tPage);
    const Slice tWantedName = page.tAttributeName(p);
    found << tName << scanner.nGetAttributeCode(tName) << scanner.pGetAttributeValue(p, tValue, tPage)
          << tValue;
    wanted << tWantedName << Page::nAttributeCode(tWantedName) << page.pAttributeValue(p, tWanted) << tWanted;

    const auto parse = [&](int nTag, auto record) {
        Record model;
        found << record.pParse(p, tPage) << record;
        (wanted << page.pParse(nTag, p, model)).Put(nTag, model);
    };
    parse(A, tag_a());
    parse(IMG, tag_img());
    parse(TABLE, tag_table());
    parse(TR, tag_tr());
    parse(TD, tag_td());
    found.RequireEqual(wanted, "position " + std::to_string(p - tPage.m_pStart));
}

} // namespace invariants

#endif
