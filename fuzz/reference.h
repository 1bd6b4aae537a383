// SPDX-License-Identifier: MIT
// The rules of the library a second time, as plainly as they can be written: one byte at a time, nothing
// remembered between two looks, quadratic where that is shorter. The library is compared with this model on
// generated pages, so it shares no line with it.
#ifndef PAGESLICE_FUZZ_REFERENCE_H
#define PAGESLICE_FUZZ_REFERENCE_H

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace reference {

// Both ends inclusive; empty without a start.
struct Slice {
    const char* first = nullptr;
    const char* last = nullptr;
    bool bEmpty() const { return first == nullptr; }
    std::string_view View() const { return {first, bEmpty() ? 0 : nLength()}; }
    std::size_t nLength() const { return static_cast<std::size_t>(last - first + 1); } // 1 for an empty slice
};

// The place of a word in its list is its code.
using Words = std::vector<std::string_view>;
inline const Words TAG_WORDS = {"a",   "img",  "table", "td", "th", "tr",     "ul",  "ol",    "li",
                                "!--", "meta", "br",    "hr", "p",  "center", "pre", "title", "html"};
inline const Words ATTRIBUTE_WORDS = {"src",    "lowsrc", "alt",    "align",   "height", "width",
                                      "border", "hspace", "vspace", "usemap",  "ismap",  "name",
                                      "href",   "rel",    "rev",    "title",   " (17)",  " (18)",
                                      " (19)",  "valign", "nowrap", "rowspan", "colspan"};
inline const Words ALIGN_WORDS = {"top", "middle", "bottom", "left", "right", "center"};

constexpr int A = 1, IMG = 2, TABLE = 3, TD = 4, TH = 5, TR = 6, UL = 7, OL = 8, LI = 9, TITLE = 17;
constexpr int HTML = 18, CLOSING = 20, UNKNOWN_TAG = 900, NO_TAG = 901, NO_NAME = 901;
constexpr int SRC = 1, LOWSRC = 2, ALT = 3, ALIGN = 4, HEIGHT = 5, WIDTH = 6, BORDER = 7, HSPACE = 8;
constexpr int VSPACE = 9, USEMAP = 10, ISMAP = 11, NAME = 12, HREF = 13, REL = 14, REV = 15, ADVICE = 16;
constexpr int VALIGN = 20, NOWRAP = 21, ROWSPAN = 22, COLSPAN = 23, UNKNOWN_ATTRIBUTE = 800, TAG_END = 801;

// The code of the word that `name` spells in any case of its ASCII letters.
inline int nFindWord(const Words& words, std::string_view name, int nOther) {
    std::string folded(name);
    for (char& c : folded)
        c = c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
    const auto found = std::find(words.begin(), words.end(), folded);
    return found == words.end() ? nOther : static_cast<int>(found - words.begin()) + 1;
}

inline int nNumber(const Slice& t) {
    return static_cast<int>(std::clamp(std::strtoll(std::string(t.View()).c_str(), nullptr, 10),
                                       static_cast<long long>(INT_MIN), static_cast<long long>(INT_MAX)));
}

// What a bounded copy makes of the characters: a NUL among them ends it, the rest of the room is zero.
inline std::string CopyOf(const Slice& t) {
    std::string copy(t.View());
    std::fill(std::find(copy.begin(), copy.end(), '\0'), copy.end(), '\0');
    return copy;
}

// One tag's record: for each attribute that was stored, the slice that stands for it.
struct Record {
    Slice tTag;
    std::map<int, Slice> given;
};

// The order of the URL map is that of a red-black tree which asks this question on the way down, and the
// standard library's is one. That the answer orders nothing does not matter to its insertion.
struct Differ {
    bool operator()(const Slice& a, const Slice& b) const {
        return std::strncmp(a.first, b.first, std::min(a.nLength(), b.nLength())) != 0;
    }
};
using UrlMap = std::multimap<Slice, std::pair<Record, Slice>, Differ>; // link, anchor, link text

struct Index {
    Slice tTitle;
    UrlMap links;
    std::vector<Slice> cells, items;
    Record table, row, cell; // as the pass left them
};

// Positions are pointers from `first` to before `end`; null where a search fails.
class Page {
public:
    Page(const char* p, std::size_t n) : first(p), end(p + n) {}

    // The '>' that ends the tag: the first at or after p that no pair of double quotes encloses.
    const char* pFindTagEnd(const char* p) const {
        while (p < end && *p != '>') {
            if (*p == '"') {
                do
                    ++p;
                while (p < end && *p != '"');
            }
            ++p;
        }
        return p < end ? p : nullptr;
    }

    // The character before the nearest '<' at or before p, if both stand above pLower.
    static const char* pFindEndBeforeTag(const char* p, const char* pLower) {
        while (p > pLower && *p != '<')
            --p;
        return p > pLower ? p - 1 : nullptr;
    }

    Slice tFindNextTagName(const char* p) const {
        while (p < end && *p != '<')
            ++p;
        if (p < end)
            ++p;
        while (p < end && *p == ' ')
            ++p;
        const char* pStart = p;
        while (p < end && *p != ' ' && *p != '>')
            ++p;
        return p < end ? Slice{pStart, p - 1} : Slice{};
    }

    static int nTagCode(const Slice& tName) {
        const std::string_view name = tName.View();
        if (tName.bEmpty())
            return NO_TAG;
        if (name.starts_with('/'))
            return nFindWord(TAG_WORDS, name.substr(1), UNKNOWN_TAG) + CLOSING;
        return nFindWord(TAG_WORDS, name, UNKNOWN_TAG);
    }

    Slice tAttributeName(const char* p) const {
        while (p < end && bWhite(*p))
            ++p;
        const char* pStart = p;
        while (p < end && !bWhite(*p) && *p != '=' && *p != '>' && *p != '<')
            ++p;
        return p < end ? Slice{pStart, std::max(pStart, p - 1)} : Slice{};
    }

    const char* pAttributeValue(const char* p, Slice& tValue) const {
        tValue = {};
        while (p < end && (bWhite(*p) || *p == '='))
            ++p;
        const bool bQuoted = p < end && *p == '"';
        const char* pStart = bQuoted ? ++p : p;
        while (p < end && *p != '>' && (bQuoted ? *p != '"' : !bWhite(*p) && *p != '<'))
            ++p;
        if (p >= end)
            return nullptr;
        if (p > pStart)
            tValue = {pStart, p - 1};
        return bQuoted ? p + 1 : p;
    }

    static int nAttributeCode(const Slice& tName) {
        if (tName.bEmpty())
            return NO_NAME;
        return tName.View() == ">" ? TAG_END : nFindWord(ATTRIBUTE_WORDS, tName.View(), UNKNOWN_ATTRIBUTE);
    }

    // The parse of a start tag of the kind nTag: A, IMG, TABLE, TR or TD.
    const char* pParse(int nTag, const char* p, Record& record) const {
        const char* q = p;
        if (nTag == A || nTag == TR || nTag == TD) {
            while (q < end && *q != ' ' && *q != '>')
                ++q;
        }
        record.given.clear();
        while (q != nullptr) {
            const Slice tName = tAttributeName(q);
            const int nCode = nAttributeCode(tName);
            if (nCode == TAG_END || nCode == NO_NAME)
                break;
            Slice tValue;
            if ((nTag == IMG && nCode == ISMAP) || (nTag == TD && nCode == NOWRAP))
                tValue = tName;
            q = bTakesValue(nTag, nCode) ? pAttributeValue(tName.last + 1, tValue) : tName.last + 1;
            if (!tValue.bEmpty())
                record.given[nCode] = tValue;
        }
        if (nTag != A && nTag != IMG)
            return q;
        const char* pBefore = pFindEndBeforeTag(p, first);
        record.tTag = {};
        if (q == nullptr || pBefore == nullptr)
            return nullptr;
        record.tTag = {pBefore + 1, std::min(q, end - 1)};
        return q;
    }

    // The indexing pass.
    Index MakeIndex() const {
        Index index;
        Slice tTitle, tAnchorText, tCellText, tItem;
        Record anchor, headerCell;
        bool bInTitle = false;
        bool bInAnchor = false;
        const char* p = first;
        while (p != nullptr && p < end) {
            const Slice tName = tFindNextTagName(p);
            const int nCode = nTagCode(tName);
            if (nCode == NO_TAG || nCode == CLOSING + HTML)
                break;
            if (nCode == A || nCode == TABLE || nCode == TR)
                p = pParse(nCode, tName.last + 1,
                           nCode == A    ? anchor
                           : nCode == TR ? index.row
                                         : index.table);
            if (nCode == TD || nCode == TH)
                p = pParse(TD, tName.last + 1, nCode == TD ? index.cell : headerCell);
            Slice* pPending = nCode == A                      ? &tAnchorText
                              : nCode == TD                   ? &tCellText
                              : nCode == TITLE                ? &tTitle
                              : nCode == LI && tItem.bEmpty() ? &tItem
                                                              : nullptr;
            bInAnchor = bInAnchor || nCode == A;
            bInTitle = bInTitle || nCode == TITLE;
            const auto captured = [&](const Slice& t) {
                const char* pLast = t.bEmpty() ? nullptr : pFindEndBeforeTag(tName.first, t.first);
                return pLast == nullptr ? Slice{} : Slice{t.first, pLast};
            };
            if (nCode == CLOSING + TITLE && bInTitle) {
                if (!captured(tTitle).bEmpty())
                    index.tTitle = captured(tTitle);
                bInTitle = false;
            } else if (nCode == CLOSING + A) {
                if (bInAnchor && anchor.given.contains(HREF) && !captured(tAnchorText).bEmpty())
                    index.links.insert({anchor.given[HREF], {anchor, captured(tAnchorText)}});
                bInAnchor = false;
            } else if (nCode == CLOSING + TD || nCode == CLOSING + TR || nCode == CLOSING + TABLE) {
                // At most half of the page, measured from the first to the last character of both.
                const Slice t = captured(tCellText);
                if (nCode == CLOSING + TD && !t.bEmpty() && 2 * (t.last - t.first) <= end - 1 - first)
                    index.cells.push_back(t);
                tCellText = {};
                index.cell = {};
                if (nCode != CLOSING + TD)
                    index.row = {};
                if (nCode == CLOSING + TABLE)
                    index.table = {};
            } else if (nCode == CLOSING + UL || nCode == CLOSING + OL || nCode == CLOSING + LI ||
                       nCode == LI) {
                if (!captured(tItem).bEmpty())
                    index.items.push_back(captured(tItem));
                tItem = {};
            }
            if (p == nullptr || p >= end)
                break;
            p = pFindTagEnd(p);
            if (p != nullptr)
                ++p;
            if (pPending != nullptr)
                pPending->first = p;
        }
        return index;
    }

    // The sources of the page's image tags; an empty slice for an image without one.
    std::vector<Slice> ImageSources() const {
        std::vector<Slice> sources;
        const char* p = first;
        while (p != nullptr && p < end) {
            const Slice tName = tFindNextTagName(p);
            const int nCode = nTagCode(tName);
            if (nCode == NO_TAG)
                break;
            Record image;
            p = nCode == IMG ? pParse(IMG, tName.last + 1, image) : pFindTagEnd(p);
            if (p != nullptr && nCode == IMG)
                sources.push_back(image.given[SRC]);
            else if (p != nullptr)
                ++p;
        }
        return sources;
    }

    // The buffer of the list that holds these URLs: their characters, each with a NUL, then the room that
    // was counted for URLs which are not there.
    static std::string ListOf(const std::vector<Slice>& urls) {
        std::string list;
        std::size_t nSize = 0;
        for (const Slice& t : urls) {
            nSize += t.nLength() + 1;
            list += t.bEmpty() ? std::string() : CopyOf(t) + '\0';
        }
        list.resize(nSize, '\0');
        return list;
    }

    std::string PlainText() const {
        std::string plain;
        bool bSeparated = true;
        for (const char* p = first; p < end; ++p) {
            const bool bSeparator = *p == '\n' || *p == '\r' || *p == ' ' || *p == '<';
            if (*p == '<' && (p = pFindTagEnd(p)) == nullptr)
                break;
            if (!bSeparator)
                plain += *p;
            else if (!bSeparated)
                plain += ' ';
            bSeparated = bSeparator;
        }
        return plain;
    }

private:
    static bool bWhite(char c) { return c == '\t' || c == '\n' || c == '\r' || c == ' '; }

    static bool bTakesValue(int nTag, int nCode) {
        static const std::set<int> cell = {ALIGN,  HEIGHT, WIDTH,   HSPACE, VSPACE,
                                           USEMAP, VALIGN, ROWSPAN, COLSPAN};
        return nTag == IMG ? nCode <= USEMAP : nTag != TD || cell.contains(nCode);
    }

    const char* first;
    const char* end;
};

} // namespace reference

#endif
