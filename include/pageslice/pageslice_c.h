/* SPDX-License-Identifier: MIT */
/* The library for every language: plain C functions over plain data, exported beside the C++ classes. They
   serve hosts that cannot share a C++ binary interface with it: C, C#, Delphi, Python, and C++ built by
   another compiler.

     pageslice_page* page;
     if (pageslice_open(html, size, NULL, 0, &page) == PAGESLICE_OK) {
         pageslice_slice title;
         if (pageslice_get_title(page, &title) == PAGESLICE_OK)
             printf("%.*s\n", (int)title.size, title.data);
         pageslice_close(page);
     }

   Lifetime: the page's bytes are never copied. They stay the caller's and must live, unchanged, until
   pageslice_close; the slices that the functions hand out point into them.
   Ownership: the only thing to release is the page, by pageslice_close, once: to close it again, or to use
   it after that, is what using released memory always is. Text that is not a slice of the page is written
   into a buffer of the caller's choice.
   Lengths stand beside pointers. Nothing needs a NUL after it, and a NUL is a byte like any other, except
   in URLs of the classic rules, which it ends. A length above PTRDIFF_MAX, as an unchecked -1 becomes one,
   or a range that wraps around the end of the address space is PAGESLICE_BAD_ARGUMENT.
   Results: PAGESLICE_OK, or one of the negative codes below, and then nothing was written through the out
   parameters but where said otherwise. No function lets an exception out, aborts, or prints.
   Threads: reading one page from several threads is safe, and so is all that touches distinct pages.

   Compatibility: within one major version no function and no code below changes; more may be added. A
   structure that is passed with its size may grow, by fields at its end that never stand where older hosts
   have padding. The size, always sizeof of the host's own structure, makes hosts and libraries of different
   age understand each other:
   - the library writes no more than that size, so that an older host gets the fields that it knows; in a
     structure larger than its own it sets the rest to 0, which means "not given" in every later field;
   - of options it reads no more than that size and takes the rest for 0, the default; options that it does
     not know must be 0, else the answer is PAGESLICE_BAD_ARGUMENT: none is passed over in silence.
   pageslice_slice never grows. Calls follow the C convention (cdecl on 32-bit Windows). */
#ifndef PAGESLICE_PAGESLICE_C_H
#define PAGESLICE_PAGESLICE_C_H

/* This is C: NOLINTBEGIN(modernize-deprecated-headers,modernize-use-using) */
#include <stddef.h>

#include "pageslice/export.h"

#ifdef __cplusplus
#define PAGESLICE_NOEXCEPT noexcept
extern "C" {
#else
#define PAGESLICE_NOEXCEPT
#endif

#if defined(_WIN32) && !defined(_WIN64)
#define PAGESLICE_CALL __cdecl
#else
#define PAGESLICE_CALL
#endif

/* The version that this header belongs to, also as one number and as text. */
#define PAGESLICE_VERSION_MAJOR 1
#define PAGESLICE_VERSION_MINOR 0
#define PAGESLICE_VERSION_PATCH 0
#define PAGESLICE_VERSION                                                                                    \
    (PAGESLICE_VERSION_MAJOR * 10000 + PAGESLICE_VERSION_MINOR * 100 + PAGESLICE_VERSION_PATCH)
#define PAGESLICE_VERSION_STRING "1.0.0"

/* Result codes. */
#define PAGESLICE_OK 0
#define PAGESLICE_NOT_FOUND (-1)    /* no such index, or the page has no such thing */
#define PAGESLICE_NO_MEMORY (-2)    /* memory ran out */
#define PAGESLICE_BAD_ARGUMENT (-3) /* bytes, or a place for the result, are missing or impossible */
#define PAGESLICE_TOO_SMALL (-4)    /* the buffer does not hold the result */
#define PAGESLICE_TOO_LARGE (-5)    /* by the classic rules, the text has more than INT_MAX bytes */
#define PAGESLICE_LIMIT (-6)        /* the page holds more than the options allow */
#define PAGESLICE_NOT_A_URL (-7)    /* by the URL Standard */
#define PAGESLICE_NEEDS_IDNA (-8)   /* a host name with letters outside ASCII, which this build cannot map */

/* The rules that a page is read by. */
#define PAGESLICE_CLASSIC 0  /* this library's own */
#define PAGESLICE_STANDARD 1 /* the HTML Standard's, as browsers read pages */

/* Alignments of images. */
#define PAGESLICE_ALIGN_UNKNOWN 0
#define PAGESLICE_ALIGN_TOP 1
#define PAGESLICE_ALIGN_MIDDLE 2
#define PAGESLICE_ALIGN_BOTTOM 3
#define PAGESLICE_ALIGN_LEFT 4
#define PAGESLICE_ALIGN_RIGHT 5
#define PAGESLICE_ALIGN_CENTER 6

/* One page and its index. */
typedef struct pageslice_page pageslice_page;

/* Bytes of the page, in place. `data` is null, and `size` 0, for what is not given. */
typedef struct pageslice_slice {
    const char* data;
    size_t size;
} pageslice_slice;

/* How a page is opened. All 0 is the default:

     pageslice_options options = {0};
     options.rules = PAGESLICE_STANDARD;
     pageslice_open_with(html, html_size, &options, sizeof options, &page);

   Of url and encoding copies are kept. The limits bound what a hostile page can make the library take;
   0 is none. Where a page holds more, opening it ends there with PAGESLICE_LIMIT and gives all memory back.
 */
typedef struct pageslice_options {
    int rules;       /* PAGESLICE_CLASSIC or PAGESLICE_STANDARD */
    const char* url; /* the page's own address; null when there is none */
    size_t url_size;
    const char* encoding; /* its encoding's name as told from outside, by a server for one; or null */
    size_t encoding_size;
    size_t most_links;
    size_t most_images;
    size_t most_cells;
    size_t most_items;
    size_t most_index_bytes; /* of memory for the index at any moment, its growing included */
} pageslice_options;

/* An anchor with a link. `text` is what stands between its tags, markup included; `element` is the start tag
   itself; the rest are its attributes, as written. By the classic rules an anchor without a text is none. */
typedef struct pageslice_link {
    pageslice_slice href;
    pageslice_slice text;
    pageslice_slice name;
    pageslice_slice rel;
    pageslice_slice rev;
    pageslice_slice title;
    pageslice_slice element;
} pageslice_link;

/* An image tag. Numbers are -1 where they are not given; `srcset` is not read by the classic rules. */
typedef struct pageslice_image {
    pageslice_slice src;
    pageslice_slice lowsrc;
    pageslice_slice alt;
    pageslice_slice usemap;
    pageslice_slice srcset;
    pageslice_slice element; /* the tag itself */
    int width;
    int height;
    int border;
    int hspace;
    int vspace;
    int align;  /* PAGESLICE_ALIGN_... */
    int is_map; /* 1 or 0 */
} pageslice_image;

/* A table cell and its place. The classic rules tell the text only; all numbers are -1 then. */
typedef struct pageslice_cell {
    pageslice_slice text; /* markup included */
    int table;            /* which table of the page, from 0 on */
    int row;              /* of the table */
    int column;           /* position in the row, each cell counting 1 */
    int colspan;
    int rowspan;
    int is_header; /* 1 for th, 0 for td */
} pageslice_cell;

/* A list item. */
typedef struct pageslice_item {
    pageslice_slice text; /* markup included */
} pageslice_item;

/* The version of the library at run time, as number and as text. A host works with a library whose major
   version is its header's; what a later version of its header added, an older library may lack. */
PAGESLICE_API int PAGESLICE_CALL pageslice_version(void) PAGESLICE_NOEXCEPT;
PAGESLICE_API const char* PAGESLICE_CALL pageslice_version_string(void) PAGESLICE_NOEXCEPT;

/* Indexes a page and stores a new handle, to be released by pageslice_close. `html` may be null for an empty
   page. *page is null when the call fails. Linear in the page. The first form reads by the classic rules;
   `url` is the page's own address, of which a copy is kept, or null. Null options are the default. */
PAGESLICE_API int PAGESLICE_CALL pageslice_open(const char* html, size_t html_size, const char* url,
                                                size_t url_size, pageslice_page** page) PAGESLICE_NOEXCEPT;
PAGESLICE_API int PAGESLICE_CALL pageslice_open_with(const char* html, size_t html_size,
                                                     const pageslice_options* options, size_t options_size,
                                                     pageslice_page** page) PAGESLICE_NOEXCEPT;

/* Releases a handle; null is welcome. The slices that it gave stay valid as long as the page's bytes. */
PAGESLICE_API void PAGESLICE_CALL pageslice_close(pageslice_page* page) PAGESLICE_NOEXCEPT;

/* The page's own address. It points into the handle and dies with it. PAGESLICE_NOT_FOUND without one. */
PAGESLICE_API int PAGESLICE_CALL pageslice_get_url(const pageslice_page* page,
                                                   pageslice_slice* url) PAGESLICE_NOEXCEPT;

/* The title, and the address that the page names as the base of its URLs (the first base element's href), as
   written. PAGESLICE_NOT_FOUND for a page without one; the classic rules know no base. */
PAGESLICE_API int PAGESLICE_CALL pageslice_get_title(const pageslice_page* page,
                                                     pageslice_slice* title) PAGESLICE_NOEXCEPT;
PAGESLICE_API int PAGESLICE_CALL pageslice_get_base(const pageslice_page* page,
                                                    pageslice_slice* base) PAGESLICE_NOEXCEPT;

/* How many of the page's bytes were read: all, unless the rules are classic and end earlier. They do at the
   closing html tag, at a tag that is never closed, and in text with an unpaired '"', which hides the tags up
   to the next one; the number is then where the first tag stands that was not looked at. Linear in the rest.
 */
PAGESLICE_API int PAGESLICE_CALL pageslice_get_read_to(const pageslice_page* page,
                                                       size_t* bytes) PAGESLICE_NOEXCEPT;

/* The name of the encoding that browsers read the page in, as the Encoding Standard writes it: "UTF-8",
   "windows-1252". What a byte order mark says counts first, then what `encoding` of the options said, then
   what the page's first 1024 bytes declare. A constant with a NUL after it, which outlives the page. */
PAGESLICE_API int PAGESLICE_CALL pageslice_get_encoding(const pageslice_page* page,
                                                        pageslice_slice* name) PAGESLICE_NOEXCEPT;

/* The collections: how many there are (0 for a null handle), and each by its index from 0 on.
   By the classic rules links come in the order of the library's URL lists, which is the reverse of the page's
   where all links differ; pageslice_get_link_in_page_order gives the same links in the order of the page. All
   else comes in the order of the page, and by the standard rules links do too. Image URLs are the sources of
   the images that have one; link URLs the links' href.
   A call takes time linear in the tag that it reads, and none in the rest of the page.

   The texts of items, cells and links may overlap, and sum to far more than the page: a megabyte of '>'
   before an <li> gives 500,000 items and 250 GB of text by the classic rules, and so do nested lists by the
   standard ones. Who copies texts out counts what was copied, and stops.
   The index takes memory in proportion to the page. Of pages made to that end, for each byte of the page, on
   a 64-bit system, by the classic rules:

     bytes for        while it opens   afterwards
     items                  48             32         1 MB of '>' before an <li>
     links                  30             23         <a href=b>c</a> over and over
     images                  9              2         <img> over and over
     cells                   6              4         <td>x</td> over and over

   By the standard rules it is at most 23 while it opens, of tables inside tables, and 14 afterwards.

   What strangers send is opened with limits: most_links and its fellows, or most_index_bytes for all. */
PAGESLICE_API size_t PAGESLICE_CALL pageslice_count_links(const pageslice_page* page) PAGESLICE_NOEXCEPT;
PAGESLICE_API size_t PAGESLICE_CALL pageslice_count_images(const pageslice_page* page) PAGESLICE_NOEXCEPT;
PAGESLICE_API size_t PAGESLICE_CALL pageslice_count_cells(const pageslice_page* page) PAGESLICE_NOEXCEPT;
PAGESLICE_API size_t PAGESLICE_CALL pageslice_count_items(const pageslice_page* page) PAGESLICE_NOEXCEPT;
PAGESLICE_API size_t PAGESLICE_CALL pageslice_count_link_urls(const pageslice_page* page) PAGESLICE_NOEXCEPT;
PAGESLICE_API size_t PAGESLICE_CALL pageslice_count_image_urls(const pageslice_page* page) PAGESLICE_NOEXCEPT;

PAGESLICE_API int PAGESLICE_CALL pageslice_get_link(const pageslice_page* page, size_t index,
                                                    pageslice_link* link,
                                                    size_t link_size) PAGESLICE_NOEXCEPT;
PAGESLICE_API int PAGESLICE_CALL pageslice_get_link_in_page_order(const pageslice_page* page, size_t index,
                                                                  pageslice_link* link,
                                                                  size_t link_size) PAGESLICE_NOEXCEPT;
PAGESLICE_API int PAGESLICE_CALL pageslice_get_image(const pageslice_page* page, size_t index,
                                                     pageslice_image* image,
                                                     size_t image_size) PAGESLICE_NOEXCEPT;
PAGESLICE_API int PAGESLICE_CALL pageslice_get_cell(const pageslice_page* page, size_t index,
                                                    pageslice_cell* cell,
                                                    size_t cell_size) PAGESLICE_NOEXCEPT;
PAGESLICE_API int PAGESLICE_CALL pageslice_get_item(const pageslice_page* page, size_t index,
                                                    pageslice_item* item,
                                                    size_t item_size) PAGESLICE_NOEXCEPT;
PAGESLICE_API int PAGESLICE_CALL pageslice_get_link_url(const pageslice_page* page, size_t index,
                                                        pageslice_slice* url) PAGESLICE_NOEXCEPT;
PAGESLICE_API int PAGESLICE_CALL pageslice_get_image_url(const pageslice_page* page, size_t index,
                                                         pageslice_slice* url) PAGESLICE_NOEXCEPT;

/* The functions below write text and a NUL after it into `buffer`, which has room for `capacity` bytes.
   *length receives the length of the whole result without the NUL, also for PAGESLICE_TOO_SMALL, where the
   buffer keeps what it held: a null buffer and 0 ask for the length. They take time linear in what they read,
   and any of them may answer PAGESLICE_NO_MEMORY. */

/* The page as plain text. By the classic rules every tag and every run of LF, CR and space becomes one space,
   none at the start; all else is copied, character references included. */
PAGESLICE_API int PAGESLICE_CALL pageslice_get_plain_text(const pageslice_page* page, char* buffer,
                                                          size_t capacity, size_t* length) PAGESLICE_NOEXCEPT;

/* The plain text of a part of the page, by the page's rules: of a link's text, say, or of a cell. Any bytes
   will do, so that a host may convert a slice from another encoding first. */
PAGESLICE_API int PAGESLICE_CALL pageslice_get_plain_text_of(const pageslice_page* page, const char* slice,
                                                             size_t slice_size, char* buffer, size_t capacity,
                                                             size_t* length) PAGESLICE_NOEXCEPT;

/* The most bytes that the plain text of so many bytes takes, by the page's rules: a buffer of one byte more
   spares the library a buffer of its own, and may be written after the text too. The classic rules never give
   more than there was. 0 for a null page, and for as many bytes as are PAGESLICE_TOO_LARGE. */
PAGESLICE_API size_t PAGESLICE_CALL pageslice_plain_text_bound(const pageslice_page* page,
                                                               size_t size) PAGESLICE_NOEXCEPT;

/* A URL of the page, as written there, made absolute by the page's rules. Classic: as pageslice_resolve_url
   does, against the page's own address. */
PAGESLICE_API int PAGESLICE_CALL pageslice_absolute(const pageslice_page* page, const char* url,
                                                    size_t url_size, char* buffer, size_t capacity,
                                                    size_t* length) PAGESLICE_NOEXCEPT;

/* Where a text stands in a page, which is how it is decoded. */
#define PAGESLICE_DECODE_TEXT 0 /* between tags: NUL stays, for it is a tree's builder that may drop it */
#define PAGESLICE_DECODE_ATTRIBUTE 1 /* an attribute's value: a name without ';' may be no reference */
#define PAGESLICE_DECODE_RCDATA 2    /* in title or textarea */
#define PAGESLICE_DECODE_RAW 3       /* in script, style, a comment, a name: no references */
#define PAGESLICE_DECODE_CDATA 4     /* in a CDATA section: no references, and NUL stays */

/* Text or an attribute's value, as written in a page in UTF-8, with its character references (&amp;) replaced
   by what they stand for, in UTF-8, by the HTML Standard; also line ends become LF, and NUL becomes U+FFFD
   but where it stays. The bound is the most bytes that this gives, 0 for a `kind` that is none of the above:
   a buffer of one byte more spares the library one of its own. */
PAGESLICE_API int PAGESLICE_CALL pageslice_decode(const char* text, size_t text_size, int kind, char* buffer,
                                                  size_t capacity, size_t* length) PAGESLICE_NOEXCEPT;
PAGESLICE_API size_t PAGESLICE_CALL pageslice_decoded_bound(const char* text, size_t text_size,
                                                            int kind) PAGESLICE_NOEXCEPT;

/* `url` made absolute against `base`, in canonical form, by the classic rules. Never longer than both
   together.

   This is older and plainer than what browsers do (RFC 3986); a crawler that follows such URLs resolves them
   itself. `//host/x` is taken for a path of the base's host; `?query`, `#fragment` and "" replace the last
   segment of the base's path; a base without a path gives its host up to a relative URL; a '/' in the base's
   query counts as one of its path; a URL with "://" anywhere is absolute already; a '..' at the very end
   stays; character references such as &amp; are no more than characters. */
PAGESLICE_API int PAGESLICE_CALL pageslice_resolve_url(const char* base, size_t base_size, const char* url,
                                                       size_t url_size, char* buffer, size_t capacity,
                                                       size_t* length) PAGESLICE_NOEXCEPT;

/* `url` made absolute against `base` and serialized by the URL Standard, as browsers do. Both are UTF-8. A
   null base is none: then only an absolute URL is one. PAGESLICE_NOT_A_URL for what browsers cannot parse, in
   `url` or in `base`; PAGESLICE_NEEDS_IDNA for a host name with characters outside ASCII, or with a label
   that begins with "xn--", which this build of the library cannot map. */
PAGESLICE_API int PAGESLICE_CALL pageslice_resolve_standard_url(const char* base, size_t base_size,
                                                                const char* url, size_t url_size,
                                                                char* buffer, size_t capacity,
                                                                size_t* length) PAGESLICE_NOEXCEPT;

/* `url` in canonical form, by the classic rules: outer white space off, scheme and host in lower case, runs
   of
   '/' and the segments '.' and '..' folded. Never longer than it was. */
PAGESLICE_API int PAGESLICE_CALL pageslice_normalize_url(const char* url, size_t url_size, char* buffer,
                                                         size_t capacity, size_t* length) PAGESLICE_NOEXCEPT;

/* Releases a string that a function of the library's C++ classes made with new char[], as
   HtmlParser::bConvertHtmlToPlainText does; null is welcome. It is right everywhere; delete[] is where host
   and library share one C++ run-time library. */
PAGESLICE_API void PAGESLICE_CALL pageslice_release_string(char* string) PAGESLICE_NOEXCEPT;

#ifdef __cplusplus
}
#endif

/* NOLINTEND(modernize-deprecated-headers,modernize-use-using) */

#endif
