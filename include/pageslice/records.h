// SPDX-License-Identifier: MIT
// What the parser reads from one tag: plain values whose slices point into the page. Copying a record
// copies its fields, destroying it releases nothing. A record is valid as long as the page's buffer.
// The fields are for every host; the member functions are not exported, and reached by linking statically.
#ifndef PAGESLICE_RECORDS_H
#define PAGESLICE_RECORDS_H

#include "pageslice/text.h"
#include "pageslice/url.h"

inline namespace pageslice_v1 {

// Attribute codes. No name yields 17, 18 or 19.
enum : int {
    ATTR_SRC = 1,
    ATTR_LOWSRC = 2,
    ATTR_ALT = 3,
    ATTR_ALIGN = 4,
    ATTR_HEIGHT = 5,
    ATTR_WIDTH = 6,
    ATTR_BORDER = 7,
    ATTR_HSPACE = 8,
    ATTR_VSPACE = 9,
    ATTR_USEMAP = 10,
    ATTR_ISMAP = 11,
    ATTR_NAME = 12,
    ATTR_HREF = 13,
    ATTR_REL = 14,
    ATTR_REV = 15,
    ATTR_TITLE = 16,
    ATTR_VALIGN = 20,
    ATTR_NOWRAP = 21,
    ATTR_ROWSPAN = 22,
    ATTR_COLSPAN = 23,
    ATTR_UNKNOWN = 800, // any other name
    ATTR_TAG_END = 801, // the name is '>'
    ATTR_NONE = 901     // no name: the page ended first
};

// The base of all records: the slice of the tag and the attribute scanner.
//
// The scanner's operations read and write no field. White space is tab, LF, CR and space; only '"' quotes
// a value. No scan reads past page.m_pEnd. Each is one forward pass over what it consumes.
class tag {
public:
    // The whole tag, from its '<' to where the attribute scan stopped, never past the page's last
    // character. Filled by the anchor and image parses only; no Clear touches it.
    text m_tTag;

    // The next attribute name at or after `p`: a run without white space, '=', '>' or '<', or one of
    // these delimiters as a slice of its own. Empty when the page ends before some character ends it.
    text tGetAttributeName(const char* p, const text& page) const noexcept;

    // The value that follows a name; `p` is the position after the name. Sets `value`, or clears it when
    // there is none. Gives the position from which the next name scan starts: after the closing quote
    // (or the '>' met before it), or at the character that ended an unquoted value. Null, and a cleared
    // value, when the value ran to the end of the page.
    const char* pGetAttributeValue(const char* p, text& value, const text& page) const noexcept;

    // The attribute code of a name, whatever its case.
    int nGetAttributeCode(text name) const noexcept;
};

// Every record below offers the same operations:
//   Clear        the record's own fields to "not given": empty slices, ALIGN_UNKNOWN, -1, flags 0;
//                m_tTag stays.
//   pParse       fills the record from the attributes after the tag word, which ends just before `p`.
//                Gives the position where the attribute scan stopped (the tag's '>' or the white space
//                before it; one past the page where the page ended there), or null when a value ran to
//                the end of the page. A later attribute of the same name replaces an earlier one; an
//                empty value stores nothing.
//   PrintDebug   one labelled line per field on the console.
// The constructor with a position parses and drops the result.

// An anchor start tag. Every attribute name takes a value, so one written without a value takes the next
// word. pParse also gives null when no '<' stands before `p` above the page's first character.
class tag_a : public tag {
public:
    tag_a();
    tag_a(const char* p, const text& page);
    void Clear() noexcept;
    const char* pParse(const char* p, const text& page) noexcept;
    void PrintDebug() const;

    text m_tName;
    url m_urlHref; // as written, not resolved
    text m_tRel;
    text m_tRev;
    text m_tTitle;
};

// A table start tag. Every attribute name takes a value. No attribute fills the caption, the cell spacing
// and the cell padding, and m_tTag stays empty.
class tag_table : public tag {
public:
    tag_table();
    tag_table(const char* p, const text& page);
    void Clear() noexcept;
    const char* pParse(const char* p, const text& page) noexcept;
    void PrintDebug() const;

    text m_tCaption;
    align m_align;
    int m_nWidth;
    int m_nBorder;
    int m_nCellSpacing;
    int m_nCellPadding;
};

// A row start tag. Every attribute name takes a value; m_tTag stays empty.
class tag_tr : public tag {
public:
    tag_tr();
    tag_tr(const char* p, const text& page);
    void Clear() noexcept;
    const char* pParse(const char* p, const text& page) noexcept;
    void PrintDebug() const;

    align m_align;
    align m_valign;
};

// A td or th start tag. Only the attributes below and hspace, vspace and usemap take a value; the words of
// any other attribute's value are met as names. m_tTag stays empty.
class tag_td : public tag {
public:
    tag_td();
    tag_td(const char* p, const text& page);
    void Clear() noexcept;
    const char* pParse(const char* p, const text& page) noexcept;
    void PrintDebug() const;
    void PrintDebugTh() const; // the same under the heading of a th tag
    void PrintFields() const;

    int m_bNoWrap;
    int m_nRowSpan;
    int m_nColSpan;
    align m_align;
    align m_valign;
    int m_nWidth;
    int m_nHeight;
};

} // namespace pageslice_v1

#endif
