/* SPDX-License-Identifier: MIT */
/* summary FILE   prints what a page holds, through the C interface. */
#include <stdio.h>
#include <stdlib.h>

#include "pageslice/pageslice_c.h"

/* The whole file, to be released with free; null when it cannot be read. */
static char* read_file(const char* name, size_t* size) {
    FILE* file = fopen(name, "rb");
    char* bytes = NULL;
    size_t capacity = 0;
    *size = 0;
    while (file != NULL && !feof(file) && !ferror(file)) {
        if (*size == capacity) {
            char* larger = realloc(bytes, capacity = capacity * 2 + 4096);
            if (larger == NULL) {
                break;
            }
            bytes = larger;
        }
        *size += fread(bytes + *size, 1, capacity - *size, file);
    }
    if (file == NULL || !feof(file)) {
        free(bytes);
        bytes = NULL;
    }
    if (file != NULL) {
        fclose(file);
    }
    return bytes;
}

static void print_slice(const char* label, pageslice_slice slice) {
    const char* data = slice.data != NULL ? slice.data : ""; /* what is missing has no data at all */
    printf("%s %.*s\n", label, (int)slice.size, data);
}

static void print_plain_text(const pageslice_page* page, size_t page_size) {
    const size_t capacity = page_size + 1; /* always suffices */
    char* buffer = malloc(capacity);
    size_t length = 0;
    if (buffer != NULL && pageslice_get_plain_text(page, buffer, capacity, &length) == PAGESLICE_OK) {
        printf("plain text of %lu bytes: %.40s...\n", (unsigned long)length, buffer);
    }
    free(buffer);
}

static void print_summary(const pageslice_page* page) {
    pageslice_slice title;
    pageslice_link link;
    pageslice_image image;
    size_t i;
    if (pageslice_get_title(page, &title) == PAGESLICE_OK) {
        print_slice("title", title);
    }
    for (i = 0; pageslice_get_link(page, i, &link, sizeof link) == PAGESLICE_OK; ++i) {
        print_slice("link", link.href);
    }
    for (i = 0; pageslice_get_image(page, i, &image, sizeof image) == PAGESLICE_OK; ++i) {
        printf("%d x %d ", image.width, image.height);
        print_slice("image", image.src);
    }
    printf("%lu items, %lu cells\n", (unsigned long)pageslice_count_items(page),
           (unsigned long)pageslice_count_cells(page));
}

int main(int argc, char** argv) {
    size_t size;
    char* html = argc > 1 ? read_file(argv[1], &size) : NULL;
    pageslice_page* page = NULL;
    if (html == NULL || pageslice_open(html, size, NULL, 0, &page) != PAGESLICE_OK) {
        fputs("usage: summary FILE\n", stderr);
        free(html);
        return 1;
    }
    print_summary(page);
    print_plain_text(page, size);
    pageslice_close(page);
    free(html); /* only now: the page and its slices looked into these bytes */
    return 0;
}
