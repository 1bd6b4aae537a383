// SPDX-License-Identifier: MIT
/* What Python would ask the library for one by one, asked for many elements in one call: crossing from Python
   to C costs more than most answers. Everything works without Python, and so while others hold its lock. */
#ifndef PAGEBULK_H
#define PAGEBULK_H

#include "pageslice_amalgamated_c.h"

extern "C" {

/* The collections of a page. Links come in page order. */
#define PAGEBULK_LINKS 0
#define PAGEBULK_IMAGES 1
#define PAGEBULK_CELLS 2
#define PAGEBULK_ITEMS 3

/* How a slice becomes text, beside PAGESLICE_DECODE_..., which decode its references. */
#define PAGEBULK_AS_WRITTEN 16
#define PAGEBULK_PLAIN 17    /* plain text, by the page's rules */
#define PAGEBULK_ABSOLUTE 18 /* a URL, made absolute by the page's rules; missing where it is none */

/* Elements number first, first + step, ...: all of them must exist. */
typedef struct pagebulk_rows {
    int kind;
    size_t first;
    ptrdiff_t step;
    size_t count;
} pagebulk_rows;

/* A column: which slice of the element's structure, counted from 0, and what is made of it. */
typedef struct pagebulk_column {
    int slice;
    int how;
} pagebulk_column;

/* All values, row by row, a NUL after each. To be released by pagebulk_release. */
typedef struct pagebulk_texts {
    char* data;
    size_t size;
    size_t* ends;           /* of each value in `data`, its NUL not counted */
    unsigned char* missing; /* of each value: 1 for a slice that the page does not have */
    size_t count;           /* of values */
    size_t missing_count;
    size_t rows;    /* how many were read: fewer than asked for when `data` grew over the limit */
    int needs_care; /* 1: bytes were met that need it; the values are not to be used */
} pagebulk_texts;

/* How much of a page needs care, because no table tells its encoding. */
#define PAGEBULK_NO_CARE 0
#define PAGEBULK_CARE_HIGH 1 /* bytes from 128 on */
#define PAGEBULK_CARE_ALL 2

/* Reads columns of rows as UTF-8. `high` is what the bytes from 128 on stand for, null in a page in UTF-8.
   Where bytes need care, nothing more is read. Where `data` grows over most_bytes, the rows end there, after
   one at least. PAGESLICE_NO_MEMORY, or PAGESLICE_OK. */
int pagebulk_read_texts(const pageslice_page* page, const pagebulk_rows* rows, const pagebulk_column* columns,
                        size_t column_count, const unsigned short* high, int care, size_t most_bytes,
                        pagebulk_texts* texts);
void pagebulk_release(pagebulk_texts* texts);

/* Where a slice of each row begins and ends in the page: two numbers for each, -1 for a missing one. */
void pagebulk_read_spans(const pageslice_page* page, const char* html, const pagebulk_rows* rows, int slice,
                         ptrdiff_t* spans);

/* Number `number` of each row's structure, counted from 0. */
void pagebulk_read_numbers(const pageslice_page* page, const pagebulk_rows* rows, int number, int* numbers);

/* The next tokens of a page: their values, and PAGEBULK_TOKEN_NUMBERS numbers for each: where it begins and
   ends in the page, its kind, PAGEBULK_TOKEN_... for what it is beside that, and how many attributes it has.
   The values are for a tag its name, then name and value of each attribute (missing where there is no '=');
   for a doctype its name and both identifiers; for all others the text. Names come in lower case. *read is 0
   at the page's end. */
#define PAGEBULK_TOKEN_NUMBERS 5
#define PAGEBULK_TOKEN_SELF_CLOSING 1
#define PAGEBULK_TOKEN_FOREIGN 2
#define PAGEBULK_TOKEN_QUIRKS 4
int pagebulk_read_tokens(pageslice_tokens* tokens, const char* html, const unsigned short* high, size_t most,
                         size_t most_bytes, pagebulk_texts* texts, ptrdiff_t* numbers, size_t* read);

/* The plain text of so many bytes, by the rules of a page, in memory to be released by pagebulk_free. `high`:
   as above. */
int pagebulk_plain_text(const pageslice_page* page, const char* slice, size_t slice_size,
                        const unsigned short* high, char** text, size_t* text_size);
void pagebulk_free(char* text);

/* Many pages to be opened, and what became of each. */
typedef struct pagebulk_job {
    const char* html;
    size_t html_size;
    const pageslice_options* options;
    pageslice_page* page;
    int result;
} pagebulk_job;

void pagebulk_open(pagebulk_job* jobs, size_t count);
}

#endif
