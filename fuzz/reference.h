// The rules of the library a second time, as plainly as they can be written: one byte at a time, nothing
// remembered between two looks, quadratic where that is shorter. The library is compared with this model on
// generated pages, so it shares no line with it.
#ifndef PAGESLICE_FUZZ_REFERENCE_H
#define PAGESLICE_FUZZ_REFERENCE_H

#include <algorithm>
#include <climits>
#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace reference {

// Positions are offsets from the page's first character. NOWHERE stands for a null pointer.
using Pos = std::ptrdiff_t;
constexpr Pos NOWHERE = -1;

struct Slice {
    Pos first = NOWHERE;
    Pos last = NOWHERE;
    bool bEmpty() const { return first == NOWHERE; }
    Pos nLength() const { return last - first + 1; } // 1 for an empty slice
    bool operator==(const Slice&) const = default;
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

constexpr int A = 1, IMG = 2, TABLE = 3, TD = 4, TH = 5, TR = 6, UL = 7, OL = 8, LI = 9, TITLE = 17,
              HTML = 18;
constexpr int CLOSING = 20, UNKNOWN_TAG = 900, NO_TAG = 901;
constexpr int SRC = 1, LOWSRC = 2, ALT = 3, ALIGN = 4, HEIGHT = 5, WIDTH = 6, BORDER = 7, HSPACE = 8,
              VSPACE = 9;
constexpr int USEMAP = 10, ISMAP = 11, NAME = 12, HREF = 13, REL = 14, REV = 15, TITLE_TEXT = 16, VALIGN = 20;
constexpr int NOWRAP = 21, ROWSPAN = 22, COLSPAN = 23, UNKNOWN_ATTRIBUTE = 800, TAG_END = 801, NO_NAME = 901;

// The code of the word that `name` spells in any case of its ASCII letters.
inline int nFindWord(const Words& words, std::string_view name, int nOther) {
    std::string folded(name);
    for (char& c : folded)
        c = c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
    const auto found = std::find(words.begin(), words.end(), folded);
    return found == words.end() ? nOther : static_cast<int>(found - words.begin()) + 1;
}

inline int nAlign(std::string_view value) {
    return nFindWord(ALIGN_WORDS, value, 0);
}

// White space, a sign, digits; the nearest int where they say more than an int holds.
inline int nNumber(std::string_view value) {
    std::size_t i = std::min(value.find_first_not_of(" \t\n\v\f\r"), value.size());
    const bool bMinus = i < value.size() && value[i] == '-';
    if (i < value.size() && (value[i] == '-' || value[i] == '+'))
        ++i;
    long long n = 0;
    for (; i < value.size() && value[i] >= '0' && value[i] <= '9'; ++i)
        n = std::min(n * 10 + (value[i] - '0'), 1LL << 40);
    return static_cast<int>(std::clamp<long long>(bMinus ? -n : n, INT_MIN, INT_MAX));
}

// What a bounded copy makes of characters: a NUL among them ends it, the rest of the room is zero.
inline std::string CopyOf(std::string_view characters) {
    std::string copy(characters.substr(0, characters.find('\0')));
    copy.resize(characters.size(), '\0');
    return copy;
}

// Do two links differ within the length of the shorter one? Where both have a NUL, nothing behind it counts.
struct Differ {
    bool operator()(std::string_view a, std::string_view b) const {
        for (std::size_t i = 0; i < std::min(a.size(), b.size()); ++i) {
            if (a[i] != b[i])
                return true;
            if (a[i] == '\0')
                return false;
        }
        return false;
    }
};

// One tag's record: for each attribute that was stored, the slice that stands for it.
struct Record {
    Slice tag;
    std::map<int, Slice> given;
    bool operator==(const Record&) const = default;
};

struct Link {
    Record anchor;
    Slice text;
};

struct Index {
    Slice title;
    std::vector<Link> links; // in the order of the URL map
    std::vector<Slice> cells, items;
    Record table, row, cell; // as the pass left them
};

class Page {
public:
    Page(const char* p, std::size_t nCharacters)
        : m_page(p, nCharacters)
        , n(static_cast<Pos>(nCharacters)) {}

    std::string_view View(const Slice& t) const {
        return t.bEmpty() ? std::string_view() : m_page.substr(index(t.first), index(t.nLength()));
    }

    // The '>' that ends the tag: the first at or after p that no pair of double quotes encloses.
    Pos FindTagEnd(Pos p) const {
        while (p < n && at(p) != '>') {
            if (at(p) == '"') {
                do
                    ++p;
                while (p < n && at(p) != '"');
            }
            ++p;
        }
        return p < n ? p : NOWHERE;
    }

    // The character before the nearest '<' at or before p, if both stand above `lower`.
    Pos FindEndBeforeTag(Pos p, Pos lower) const {
        while (p > lower && at(p) != '<')
            --p;
        return p > lower ? p - 1 : NOWHERE;
    }

    Slice FindNextTagName(Pos p) const {
        while (p < n && at(p) != '<')
            ++p;
        ++p;
        while (p < n && at(p) == ' ')
            ++p;
        const Pos start = p;
        while (p < n && at(p) != ' ' && at(p) != '>')
            ++p;
        return p < n ? Slice{start, p - 1} : Slice{};
    }

    int IdentifyTag(const Slice& tName) const {
        const std::string_view name = View(tName);
        if (tName.bEmpty())
            return NO_TAG;
        if (name.starts_with('/'))
            return nFindWord(TAG_WORDS, name.substr(1), UNKNOWN_TAG) + CLOSING;
        return nFindWord(TAG_WORDS, name, UNKNOWN_TAG);
    }

    bool bFindTag(Pos p, int nWanted, int nStop) const {
        int nCode = 998;
        while (nCode != nWanted && nCode != nStop && nCode != NO_TAG) {
            const Slice tName = FindNextTagName(p);
            nCode = IdentifyTag(tName);
            p = tName.last + 1;
        }
        return nCode == nWanted;
    }

    Slice AttributeName(Pos p) const {
        while (p < n && bWhite(p))
            ++p;
        const Pos start = p;
        while (p < n && !bWhite(p) && at(p) != '=' && at(p) != '>' && at(p) != '<')
            ++p;
        if (p >= n)
            return {};
        return {start, std::max(start, p - 1)};
    }

    Pos AttributeValue(Pos p, Slice& value) const {
        value = {};
        while (p < n && (bWhite(p) || at(p) == '='))
            ++p;
        const bool bQuoted = p < n && at(p) == '"';
        if (bQuoted)
            ++p;
        const Pos start = p;
        if (bQuoted) {
            while (p < n && at(p) != '"' && at(p) != '>')
                ++p;
        } else {
            while (p < n && !bWhite(p) && at(p) != '>' && at(p) != '<')
                ++p;
        }
        if (p >= n)
            return NOWHERE;
        if (p > start)
            value = {start, p - 1};
        return bQuoted ? p + 1 : p;
    }

    int AttributeCode(const Slice& tName) const {
        if (tName.bEmpty())
            return NO_NAME;
        return View(tName) == ">" ? TAG_END : nFindWord(ATTRIBUTE_WORDS, View(tName), UNKNOWN_ATTRIBUTE);
    }

    // The parse of a start tag of the kind nTag: A, IMG, TABLE, TR or TD. record.tag is a former parse's.
    Pos Parse(int nTag, Pos p, Record& record) const {
        Pos q = p;
        if (nTag == A || nTag == TR || nTag == TD) {
            while (q < n && at(q) != ' ' && at(q) != '>')
                ++q;
        }
        record.given.clear();
        while (q != NOWHERE) {
            const Slice tName = AttributeName(q);
            const int nCode = AttributeCode(tName);
            if (nCode == TAG_END || nCode == NO_NAME)
                break;
            Slice value;
            if ((nTag == IMG && nCode == ISMAP) || (nTag == TD && nCode == NOWRAP))
                value = tName;
            q = bTakesValue(nTag, nCode) ? AttributeValue(tName.last + 1, value) : tName.last + 1;
            if (!value.bEmpty())
                record.given[nCode] = value;
        }
        if (nTag != A && nTag != IMG)
            return q;
        const Pos before = FindEndBeforeTag(p, 0);
        const bool bWhole = q != NOWHERE && before != NOWHERE;
        record.tag = bWhole ? Slice{before + 1, std::min(q, n - 1)} : Slice{};
        return bWhole ? q : NOWHERE;
    }

    // The indexing pass.
    Index MakeIndex() const {
        Index index;
        std::multimap<std::string_view, Link, Differ> links;
        Slice title, anchorText, cellText, item;
        Record anchor, headerCell;
        bool bInTitle = false;
        bool bInAnchor = false;
        Pos p = 0;
        while (p != NOWHERE && p < n) {
            const Slice tName = FindNextTagName(p);
            const int nCode = IdentifyTag(tName);
            const auto captured = [&](const Slice& capture) {
                const Pos last = FindEndBeforeTag(tName.first, capture.first);
                return last == NOWHERE ? Slice{} : Slice{capture.first, last};
            };
            const auto append = [](std::vector<Slice>& list, const Slice& t) {
                if (!t.bEmpty())
                    list.push_back(t);
            };
            Slice* pPending = nullptr;
            if (nCode == NO_TAG || nCode == CLOSING + HTML)
                break;
            if (nCode == A) {
                p = Parse(A, tName.first + 1, anchor);
                pPending = &anchorText;
                bInAnchor = true;
            } else if (nCode == TABLE) {
                p = Parse(TABLE, tName.first + 5, index.table);
            } else if (nCode == TR) {
                p = Parse(TR, tName.first + 2, index.row);
            } else if (nCode == TD) {
                p = Parse(TD, tName.first + 2, index.cell);
                pPending = &cellText;
            } else if (nCode == TH) {
                p = Parse(TD, tName.first + 2, headerCell);
            } else if (nCode == LI && item.bEmpty()) {
                pPending = &item;
            } else if (nCode == LI || nCode == CLOSING + UL || nCode == CLOSING + OL ||
                       nCode == CLOSING + LI) {
                if (!item.bEmpty())
                    append(index.items, captured(item));
                item = {};
            } else if (nCode == TITLE) {
                pPending = &title;
                bInTitle = true;
            } else if (nCode == CLOSING + TITLE && bInTitle) {
                if (!captured(title).bEmpty())
                    index.title = captured(title);
                bInTitle = false;
            } else if (nCode == CLOSING + A) {
                if (bInAnchor && anchor.given.contains(HREF) && !captured(anchorText).bEmpty())
                    links.insert({View(anchor.given[HREF]), {anchor, captured(anchorText)}});
                anchor.given.clear();
                bInAnchor = false;
            } else if (nCode == CLOSING + TD) {
                // At most half of the page, measured between the outer characters.
                if (!cellText.bEmpty() && 2 * (captured(cellText).nLength() - 1) <= n - 1)
                    append(index.cells, captured(cellText));
                index.cell = {};
                cellText = {};
            } else if (nCode == CLOSING + TR || nCode == CLOSING + TABLE) {
                index.cell = index.row = {};
                cellText = {};
                if (nCode == CLOSING + TABLE)
                    index.table = {};
            }
            if (p == NOWHERE || p >= n)
                break;
            p = FindTagEnd(p);
            if (p != NOWHERE)
                ++p;
            if (pPending != nullptr)
                pPending->first = p;
        }
        for (const auto& [href, link] : links)
            index.links.push_back(link);
        return index;
    }

    // The sources of the page's image tags; an empty slice for an image without one.
    std::vector<Slice> ImageSources() const {
        std::vector<Slice> sources;
        Record image;
        Pos p = 0;
        while ((p = NextImage(p, image)) != NOWHERE)
            sources.push_back(image.given[SRC]);
        return sources;
    }

    // The buffer of the list that holds these URLs: their characters, each with a NUL, then the room that
    // URLs which are not there were counted with.
    std::string ListOf(const std::vector<Slice>& urls) const {
        std::string list;
        std::size_t nSize = 0;
        for (const Slice& t : urls) {
            nSize += index(t.nLength()) + 1;
            if (!t.bEmpty())
                list += CopyOf(View(t)) + '\0';
        }
        list.resize(nSize, '\0');
        return list;
    }

    std::string PlainText() const {
        std::string plain;
        bool bSeparated = true;
        for (Pos p = 0; p < n; ++p) {
            if (at(p) == '<') {
                p = FindTagEnd(p);
                if (p == NOWHERE)
                    break;
            } else if (at(p) != '\n' && at(p) != '\r' && at(p) != ' ') {
                plain += at(p);
                bSeparated = false;
                continue;
            }
            if (!bSeparated)
                plain += ' ';
            bSeparated = true;
        }
        return plain;
    }

private:
    static std::size_t index(Pos p) { return static_cast<std::size_t>(p); }
    char at(Pos p) const { return m_page[index(p)]; }
    bool bWhite(Pos p) const { return at(p) == '\t' || at(p) == '\n' || at(p) == '\r' || at(p) == ' '; }

    static bool bTakesValue(int nTag, int nCode) {
        if (nTag == IMG)
            return nCode >= SRC && nCode <= USEMAP;
        if (nTag != TD)
            return true;
        return (nCode >= ALIGN && nCode <= USEMAP && nCode != BORDER) || nCode == VALIGN ||
               nCode == ROWSPAN || nCode == COLSPAN;
    }

    Pos NextImage(Pos p, Record& image) const {
        while (p != NOWHERE && p < n) {
            const Slice tName = FindNextTagName(p);
            const int nCode = IdentifyTag(tName);
            if (nCode == IMG)
                return Parse(IMG, tName.first + 3, image);
            const Pos end = FindTagEnd(p);
            if (nCode == NO_TAG || end == NOWHERE)
                return NOWHERE;
            p = end + 1;
        }
        return NOWHERE;
    }

    std::string_view m_page;
    Pos n;
};

} // namespace reference

#endif
