// Tag names and tag codes, as free functions: the parser's members and its walks share them.
#ifndef PAGESLICE_PARSER_TAG_SCANNER_H
#define PAGESLICE_PARSER_TAG_SCANNER_H

#include "pageslice/text.h"

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
TagAt GetTagAt(const char* pOpen, const char* pPageEnd) noexcept;

#endif
