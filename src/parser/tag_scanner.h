// SPDX-License-Identifier: MIT
// Tag names and tag codes, as free functions: the parser's members and its walks share them.
#ifndef PAGESLICE_PARSER_TAG_SCANNER_H
#define PAGESLICE_PARSER_TAG_SCANNER_H

#include <cstddef>
#include <cstdint>

#include "pageslice/html_parser.h"
#include "parser/tag_table.h"
#include "text/word_table.h"

namespace pageslice {

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

} // namespace pageslice

#endif
