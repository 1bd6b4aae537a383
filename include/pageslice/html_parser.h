// SPDX-License-Identifier: MIT
#ifndef PAGESLICE_HTML_PARSER_H
#define PAGESLICE_HTML_PARSER_H

#include "pageslice/export.h"
#include "pageslice/page_index.h"
#include "pageslice/text.h"
#include "pageslice/url.h"
#include "pageslice/url_list.h"

inline namespace pageslice_v1 {

class tag_img;

// Tag codes. A closing tag has the code of its word plus TAG_END_OFFSET.
enum : int {
    TAG_A = 1,
    TAG_IMG = 2,
    TAG_TABLE = 3,
    TAG_TD = 4,
    TAG_TH = 5,
    TAG_TR = 6,
    TAG_UL = 7,
    TAG_OL = 8,
    TAG_LI = 9,
    TAG_COMMENT = 10,
    TAG_META = 11,
    TAG_BR = 12,
    TAG_HR = 13,
    TAG_P = 14,
    TAG_CENTER = 15,
    TAG_PRE = 16,
    TAG_TITLE = 17,
    TAG_HTML = 18,
    TAG_END_OFFSET = 20,
    TAG_END_A = 21,
    TAG_END_IMG = 22,
    TAG_END_TABLE = 23,
    TAG_END_TD = 24,
    TAG_END_TH = 25,
    TAG_END_TR = 26,
    TAG_END_UL = 27,
    TAG_END_OL = 28,
    TAG_END_LI = 29,
    TAG_END_COMMENT = 30,
    TAG_END_META = 31,
    TAG_END_BR = 32,
    TAG_END_HR = 33,
    TAG_END_P = 34,
    TAG_END_CENTER = 35,
    TAG_END_PRE = 36,
    TAG_END_TITLE = 37,
    TAG_END_HTML = 38,
    TAG_UNKNOWN = 900,
    TAG_NONE = 901, // no tag: the page ended first
    TAG_END_UNKNOWN = 920
};

// Answers the language questions. The answers are fixed; nothing is read and no state is kept. Not exported:
// HtmlParser asks it.
class LanguageDetector {
public:
    int bLoadDictionary(const char* pName) const noexcept;
    int bIsEnglish(const text& tPage) const noexcept;
    int bLanguageOf(const text& tPage, int* pLanguage) const noexcept;
};

// One HTML page that lies in the host's memory, and the index of it, which derived classes see.
//
//   HtmlParser parser(text(pFirst, pLast, 0), "http://host/page.html");
//   UrlList* pImages;
//   UrlList* pLinks;
//   parser.GetUrlLists(&pImages, &pLinks);    // runs the indexing pass; delete both lists
//
// Lifetime: the page's characters are never copied. The buffer must stay alive and unchanged while the
// parser or any slice taken from it is used. The parser keeps a copy of the URL only.
// Ownership: strings handed out are released with delete[], lists with delete.
// Bounds: nothing is read before the page's first or after its last character, whatever the page holds; it
// needs no NUL. A slice whose end lies before its start, or without a start, is a page without characters.
// A page is one array; in a 32-bit process none has 2 GiB, so none is larger than INT_MAX bytes there.
// A page of more than INT_MAX bytes is indexed, but converts to a null pointer and 0, and its lists come
// out empty.
// Time: every operation is linear in the page, inserts into the URL map logarithmic on top. No recursion.
// Memory: where it runs out, std::bad_alloc is thrown unless said otherwise; nothing leaks, and the parser
// can still be read, loaded again and destroyed.
// Threads: one parser is used by one thread at a time; distinct parsers share nothing.
class PAGESLICE_API HtmlParser : protected pageslice::PageIndex {
public:
    // No page, no URL.
    HtmlParser();
    // Takes the page without indexing it. pUrl is NUL-terminated and may be null.
    HtmlParser(const text& tPage, const char* pUrl);
    // Both parsers then look at the same page, each with its own index and URL copy. Assignment leaves the
    // target as it was when memory runs out. There is no cheaper move: what returns or stores parsers does
    // better with pointers to them.
    HtmlParser(const HtmlParser& other);
    HtmlParser& operator=(const HtmlParser& other);
    ~HtmlParser();

    // Replaces page and URL and forgets the old index; indexes at once when bIndex is not 0. Always 0. The
    // arguments may come from this parser itself. When memory for the URL copy runs out, the parser keeps
    // its old page, URL and index.
    int Load(const text& tPage, const char* pUrl, int bIndex);

    // The indexing pass: title, anchors, cell texts, list items. It stops at the closing html tag, at a tag
    // that the page does not close, and at the page's end. It forgets nothing first: run twice, it adds
    // everything twice. When memory runs out, what was found so far stays.
    void InitializeHtmlFile();

    // Forgets the index; page and URL stay.
    void Clear() noexcept;

    // The page as plain text: every tag and every run of LF, CR and space becomes one space, none at the
    // start; all else is copied, character references included. Works without the indexing pass. *ppText
    // receives a new NUL-terminated string (delete[]). Returns 1; or 0, with *ppText null, when memory runs
    // out or the page is larger than INT_MAX bytes; 0 for a null ppText. A parser without a page gives the
    // empty string.
    int bConvertHtmlToPlainText(char** ppText);

    // A new copy of the title (delete[]); null when the pass has found none.
    char* pMakeTitleCopy() const;

    // Two new lists (delete): the image sources in page order, and the links in the order of the URL map.
    // URLs stand as written in the page. Runs the indexing pass when it has not run. The lists hold copies
    // and outlive parser and page. When memory runs out neither out-parameter is written; a null one is
    // left out.
    void GetUrlLists(UrlList** ppImages, UrlList** ppLinks);

    // Always 1. pName may be null.
    int bLoadLanguageDictionary(const char* pName);
    // Always 1.
    int bIsLanguageEnglish();
    // Always 0; nothing is written through pLanguage, which may be null.
    int bLanguageOfPage(int* pLanguage);

protected:
    // The tag scanner. Positions lie inside the page.

    // The name of the next tag at or after `p`: from after the '<' and the spaces that follow it to the
    // character before the next space or '>'. Empty when the page ends first; of length 0 when the '>'
    // follows at once.
    text tFindNextTagName(const char* p) const noexcept;
    // The tag code of such a name, opening or closing; TAG_NONE for an empty slice.
    int nIdentifyTagType(const text& tName) const noexcept;
    // The tag code of a word without its '/': 1 to 18, or TAG_UNKNOWN.
    int nIdentifyTagName(const text& tWord) const noexcept;
    // Walks from tag name to tag name until one has the code nWanted (1) or nStop, or the page ends (0).
    // Attribute values are not skipped.
    int bFindNextTagType(const char* p, int nWanted, int nStop) const noexcept;

    text m_tPage;
    char* m_pUrl = nullptr; // own copy, or null
    LanguageDetector m_language;

private:
    // The steps of GetUrlLists. FillImageUrls follows nFindLengthOfImageUrls and adds what that one found.
    int nFindLengthOfImageUrls();
    void FillImageUrls(UrlList* pList) noexcept;
    int nFindLengthOfLinkUrls() const noexcept;
    void FillLinkUrls(UrlList* pList) const noexcept;
    const char* bGetNextImageTag(const char* p, tag_img& record) const noexcept;
    int bIsImageInPage(url& source) const noexcept;
};

} // namespace pageslice_v1

#endif
