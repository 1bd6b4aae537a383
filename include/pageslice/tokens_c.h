/* SPDX-License-Identifier: MIT */
/* A page's tokens, for every language: the tokenizer of the HTML Standard as plain C functions.

     pageslice_tokens* tokens;
     pageslice_token token;
     if (pageslice_open_tokens(html, size, &tokens) == PAGESLICE_OK) {
         while (pageslice_next_token(tokens, &token, sizeof token) == PAGESLICE_OK)
             if (token.kind == PAGESLICE_TOKEN_START_TAG)
                 printf("%.*s\n", (int)token.name.size, token.name.data);
         pageslice_close_tokens(tokens);
     }

   Tokens are what the standard's tokenizer emits, before a tree's builder drops, moves or replaces any. What
   that builder would tell the tokenizer this one knows by itself, with scripting off: which elements have
   text of their own kind (script, style, xmp, iframe, noembed, noframes, title, textarea, plaintext), always
   by the name of their start tag; and what stands in svg and math, where CDATA sections are and no such text.
   Where only a whole tree would know better (in select, in frameset), tokens win.
   Nothing is decoded: a name, a value or a text is as written, and pageslice_decode turns it into characters.
   Lifetime, results, structures that grow, and threads: as pageslice_c.h says. Slices point into the page's
   bytes, which must live, unchanged, until pageslice_close_tokens. Any bytes will do, in any encoding whose
   ASCII is ASCII. One tokenizer is for one thread at a time. */
#ifndef PAGESLICE_TOKENS_C_H
#define PAGESLICE_TOKENS_C_H

#include "pageslice/pageslice_c.h"

/* This is C: NOLINTBEGIN(modernize-use-using) */
#ifdef __cplusplus
extern "C" {
#endif

/* Kinds of tokens. */
#define PAGESLICE_TOKEN_TEXT 0
#define PAGESLICE_TOKEN_START_TAG 1
#define PAGESLICE_TOKEN_END_TAG 2
#define PAGESLICE_TOKEN_COMMENT 3
#define PAGESLICE_TOKEN_DOCTYPE 4
#define PAGESLICE_TOKEN_CDATA 5

/* A page that is being read token by token. */
typedef struct pageslice_tokens pageslice_tokens;

/* One token. Tokens follow each other in the page; between two of them nothing stands but "</>", which is no
   token, and so text may come in several tokens. A tag that the page's end cuts off is none. */
typedef struct pageslice_token {
    pageslice_slice bytes;     /* all of it */
    pageslice_slice name;      /* of a tag or a doctype */
    pageslice_slice text;      /* what a text, comment or CDATA section says */
    pageslice_slice public_id; /* of a doctype */
    pageslice_slice system_id;
    int kind;            /* PAGESLICE_TOKEN_... */
    int decoding;        /* PAGESLICE_DECODE_..., for `text` */
    int is_self_closing; /* 1 for a tag that ends in "/>" */
    int is_foreign;      /* 1 for a tag of an element of svg or math, and for what stands in one */
    int force_quirks;    /* 1 for a doctype that breaks the rules */
} pageslice_token;

/* An attribute of a tag. `value` has a null `data` where there is no '='; an empty value has not. */
typedef struct pageslice_attribute {
    pageslice_slice name;
    pageslice_slice value;
} pageslice_attribute;

/* Stores a new tokenizer, to be released by pageslice_close_tokens; null when the call fails. `html` may be
   null for an empty page. */
PAGESLICE_API int PAGESLICE_CALL pageslice_open_tokens(const char* html, size_t html_size,
                                                       pageslice_tokens** tokens) PAGESLICE_NOEXCEPT;
PAGESLICE_API void PAGESLICE_CALL pageslice_close_tokens(pageslice_tokens* tokens) PAGESLICE_NOEXCEPT;

/* The next token, or PAGESLICE_NOT_FOUND at the page's end. All tokens together take linear time and no
   memory. */
PAGESLICE_API int PAGESLICE_CALL pageslice_next_token(pageslice_tokens* tokens, pageslice_token* token,
                                                      size_t token_size) PAGESLICE_NOEXCEPT;

/* The attributes of the tag read last, start or end tag, in the order of the page; of several with the same
   name the first counts alone. Reading them tells how many there are: none for all other tokens. The time is
   linear in the tag, with a logarithm on top where it has more than 16; the memory is kept for later tags. */
PAGESLICE_API int PAGESLICE_CALL pageslice_read_attributes(pageslice_tokens* tokens,
                                                           size_t* count) PAGESLICE_NOEXCEPT;

/* One of them, by its index from 0 on, once they were read. */
PAGESLICE_API int PAGESLICE_CALL pageslice_get_attribute(const pageslice_tokens* tokens, size_t index,
                                                         pageslice_attribute* attribute,
                                                         size_t attribute_size) PAGESLICE_NOEXCEPT;

/* The one of that name, whatever the case of its letters, of the tag read last; it need not be read before.
   Linear in the tag. */
PAGESLICE_API int PAGESLICE_CALL pageslice_find_attribute(const pageslice_tokens* tokens, const char* name,
                                                          size_t name_size, pageslice_attribute* attribute,
                                                          size_t attribute_size) PAGESLICE_NOEXCEPT;

#ifdef __cplusplus
}
#endif
/* NOLINTEND(modernize-use-using) */

#endif
