// Tag names and tag codes, as free functions: the parser's members and its walks share them.
#ifndef PAGESLICE_PARSER_TAG_SCANNER_H
#define PAGESLICE_PARSER_TAG_SCANNER_H

#include <cstddef>
#include <cstdint>

#include "pageslice/html_parser.h"
#include "text/word_table.h"

// The name of the tag whose '<' stands at pOpen; empty when the page ends before the name does.
text tGetTagName(const char* pOpen, const text& page) noexcept;

// The tag code of a name, opening or closing; TAG_NONE for an empty slice.
int nGetTagCode(const text& tName) noexcept;

// The tag code of a word without its '/'; TAG_UNKNOWN for an empty slice.
int nGetWordCode(const text& tWord) noexcept;

// Both in one, for walks that act on known tags only: the name's first character and the tag code. What is
// no word of letters, ended by a space or '>' inside the page, has an unknown code here.
struct TagAt {
    const char* pName;
    int nCode;
};

// With what ends them.
inline constexpr WordTable<8> TAG_WORDS({
    {"a ", TAG_A},         {"a>", TAG_A},         {"img ", TAG_IMG},       {"img>", TAG_IMG},
    {"table ", TAG_TABLE}, {"table>", TAG_TABLE}, {"td ", TAG_TD},         {"td>", TAG_TD},
    {"th ", TAG_TH},       {"th>", TAG_TH},       {"tr ", TAG_TR},         {"tr>", TAG_TR},
    {"ul ", TAG_UL},       {"ul>", TAG_UL},       {"ol ", TAG_OL},         {"ol>", TAG_OL},
    {"li ", TAG_LI},       {"li>", TAG_LI},       {"meta ", TAG_META},     {"meta>", TAG_META},
    {"br ", TAG_BR},       {"br>", TAG_BR},       {"hr ", TAG_HR},         {"hr>", TAG_HR},
    {"p ", TAG_P},         {"p>", TAG_P},         {"center ", TAG_CENTER}, {"center>", TAG_CENTER},
    {"pre ", TAG_PRE},     {"pre>", TAG_PRE},     {"title ", TAG_TITLE},   {"title>", TAG_TITLE},
    {"html ", TAG_HTML},   {"html>", TAG_HTML},
});

inline TagAt GetTagAt(const char* pOpen, const char* pPageEnd) noexcept {
    const char* pName = pOpen + 1;
    while (pName < pPageEnd && *pName == ' ') {
        ++pName;
    }
    // A word takes in a slash, the longest known name and what ends it.
    const std::uint64_t nWord = nLoadWord(pName, static_cast<std::size_t>(pPageEnd - pName));
    const int nSlashes = (nWord & 0xFF) == '/' ? 1 : 0;
    return {pName,
            TAG_WORDS.nFind(nUpToNoLetter(nWord >> (8 * nSlashes)), TAG_UNKNOWN) + nSlashes * TAG_END_OFFSET};
}

#endif
