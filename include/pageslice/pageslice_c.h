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
   Ownership: the only thing to release is the page, by pageslice_close. Text that is not a slice of the page
   is written into a buffer of the caller's choice.
   Lengths stand beside pointers. Nothing needs a NUL behind it, and a NUL is a byte like any other, except
   in URLs, which it ends.
   Results: PAGESLICE_OK, or one of the negative codes below, and then nothing was written through the out
   parameters but where said otherwise. No function lets an exception out, aborts, or prints.
   Threads: reading one page from several threads is safe, and so is all that touches distinct pages.
   Compatibility: within one major version no function, no code and no structure below changes; more may be
   added. Calls follow the C convention (cdecl on 32-bit Windows). */
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

/* The version that this header belongs to: major * 10000 + minor * 100 + patch. */
#define PAGESLICE_VERSION 10000

/* Result codes. */
#define PAGESLICE_OK 0
#define PAGESLICE_NOT_FOUND (-1)    /* no such index, or the page has no such thing */
#define PAGESLICE_NO_MEMORY (-2)    /* memory ran out */
#define PAGESLICE_BAD_ARGUMENT (-3) /* a null pointer where bytes or a place for the result are needed */
#define PAGESLICE_TOO_SMALL (-4)    /* the buffer does not hold the result */
#define PAGESLICE_TOO_LARGE (-5)    /* the page has more than INT_MAX bytes */

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

/* An anchor with a link and a text. `text` is what stands between its tags, markup included; the rest are
   its attributes, as written. */
typedef struct pageslice_link {
    pageslice_slice href;
    pageslice_slice text;
    pageslice_slice name;
    pageslice_slice rel;
    pageslice_slice rev;
    pageslice_slice title;
} pageslice_link;

/* An image tag. Numbers are -1 where they are not given. */
typedef struct pageslice_image {
    pageslice_slice src;
    pageslice_slice lowsrc;
    pageslice_slice alt;
    pageslice_slice usemap;
    int width;
    int height;
    int border;
    int hspace;
    int vspace;
    int align;  /* PAGESLICE_ALIGN_... */
    int is_map; /* 1 or 0 */
} pageslice_image;

/* The version of the library at run time. A host works with a library whose major version is its header's
   and whose version is not below it. */
PAGESLICE_API int PAGESLICE_CALL pageslice_version(void) PAGESLICE_NOEXCEPT;

/* Indexes a page and stores a new handle, to be released by pageslice_close. `html` may be null for an empty
   page. `url` is the page's own address, of which a copy is kept; null when there is none. *page is null
   when the call fails. Linear in the page. */
PAGESLICE_API int PAGESLICE_CALL pageslice_open(const char* html, size_t html_size, const char* url,
                                                size_t url_size, pageslice_page** page) PAGESLICE_NOEXCEPT;

/* Releases a handle; null is welcome. The slices that it gave stay valid as long as the page's bytes. */
PAGESLICE_API void PAGESLICE_CALL pageslice_close(pageslice_page* page) PAGESLICE_NOEXCEPT;

/* The page's own address. It points into the handle and dies with it. PAGESLICE_NOT_FOUND without one. */
PAGESLICE_API int PAGESLICE_CALL pageslice_get_url(const pageslice_page* page,
                                                   pageslice_slice* url) PAGESLICE_NOEXCEPT;

/* The title as written. PAGESLICE_NOT_FOUND for a page without one. */
PAGESLICE_API int PAGESLICE_CALL pageslice_get_title(const pageslice_page* page,
                                                     pageslice_slice* title) PAGESLICE_NOEXCEPT;

/* The collections: how many there are (0 for a null handle), and each by its index from 0 on, in constant
   time. Links come in the order of the library's URL lists, which is the reverse of the page's where all
   links differ; images, image URLs, cells and items in the order of the page.
   Image URLs are the sources of the images that have one; link URLs the links' href. */
PAGESLICE_API size_t PAGESLICE_CALL pageslice_count_links(const pageslice_page* page) PAGESLICE_NOEXCEPT;
PAGESLICE_API size_t PAGESLICE_CALL pageslice_count_images(const pageslice_page* page) PAGESLICE_NOEXCEPT;
PAGESLICE_API size_t PAGESLICE_CALL pageslice_count_cells(const pageslice_page* page) PAGESLICE_NOEXCEPT;
PAGESLICE_API size_t PAGESLICE_CALL pageslice_count_items(const pageslice_page* page) PAGESLICE_NOEXCEPT;
PAGESLICE_API size_t PAGESLICE_CALL pageslice_count_link_urls(const pageslice_page* page) PAGESLICE_NOEXCEPT;
PAGESLICE_API size_t PAGESLICE_CALL pageslice_count_image_urls(const pageslice_page* page) PAGESLICE_NOEXCEPT;

PAGESLICE_API int PAGESLICE_CALL pageslice_get_link(const pageslice_page* page, size_t index,
                                                    pageslice_link* link) PAGESLICE_NOEXCEPT;
PAGESLICE_API int PAGESLICE_CALL pageslice_get_image(const pageslice_page* page, size_t index,
                                                     pageslice_image* image) PAGESLICE_NOEXCEPT;
PAGESLICE_API int PAGESLICE_CALL pageslice_get_cell(const pageslice_page* page, size_t index,
                                                    pageslice_slice* cell) PAGESLICE_NOEXCEPT;
PAGESLICE_API int PAGESLICE_CALL pageslice_get_item(const pageslice_page* page, size_t index,
                                                    pageslice_slice* item) PAGESLICE_NOEXCEPT;
PAGESLICE_API int PAGESLICE_CALL pageslice_get_link_url(const pageslice_page* page, size_t index,
                                                        pageslice_slice* url) PAGESLICE_NOEXCEPT;
PAGESLICE_API int PAGESLICE_CALL pageslice_get_image_url(const pageslice_page* page, size_t index,
                                                         pageslice_slice* url) PAGESLICE_NOEXCEPT;

/* The three functions below write text and a NUL behind it into `buffer`, which has room for `capacity`
   bytes. *length receives the length of the whole result without the NUL, also for PAGESLICE_TOO_SMALL,
   where the buffer keeps what it held: a null buffer and 0 ask for the length. They take time linear in what
   they read, and any of them may answer PAGESLICE_NO_MEMORY. */

/* The page as plain text: every tag and every run of LF, CR and space becomes one space, none at the start;
   all else is copied, character references included. Never longer than the page: a buffer of the page's size
   and one byte more spares the library a buffer of its own, and may be written behind the text too. */
PAGESLICE_API int PAGESLICE_CALL pageslice_get_plain_text(const pageslice_page* page, char* buffer,
                                                          size_t capacity, size_t* length) PAGESLICE_NOEXCEPT;

/* `url` made absolute against `base`, in canonical form. Never longer than both together.

   This is older and plainer than what browsers do (RFC 3986); a crawler that follows such URLs resolves them
   itself. `//host/x` is taken for a path of the base's host; `?query`, `#fragment` and "" replace the last
   segment of the base's path; a base without a path gives its host up to a relative URL; a '/' in the base's
   query counts as one of its path; a URL with "://" anywhere is absolute already; a '..' at the very end
   stays; character references such as &amp; are no more than characters. */
PAGESLICE_API int PAGESLICE_CALL pageslice_resolve_url(const char* base, size_t base_size, const char* url,
                                                       size_t url_size, char* buffer, size_t capacity,
                                                       size_t* length) PAGESLICE_NOEXCEPT;

/* `url` in canonical form: outer white space off, scheme and host in lower case, runs of '/' and the segments
   '.' and '..' folded. Never longer than it was. */
PAGESLICE_API int PAGESLICE_CALL pageslice_normalize_url(const char* url, size_t url_size, char* buffer,
                                                         size_t capacity, size_t* length) PAGESLICE_NOEXCEPT;

#ifdef __cplusplus
}
#endif

/* NOLINTEND(modernize-deprecated-headers,modernize-use-using) */

#endif
