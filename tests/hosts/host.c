/* SPDX-License-Identifier: MIT */
/* A host in C, whose functions and data have names of the library's classes and routines. */
#define ALIGN_LEFT 1
#include "pageslice/pageslice_c.h"

#include <string.h>

struct tag {
    int n;
};
enum align { near_by = 1 };
int calls;
int OutputText = 1;
const char CString[] = "own";
int text(const char* p) {
    return ++calls, p != NULL;
}
int url(const char* p) {
    return ++calls, p != NULL;
}
int Scan(const char* p) {
    return ++calls, p != NULL;
}
int ReplaceChar(char* p, char from, char to) {
    return ++calls, p != NULL && from != to;
}
int PrintTag(const char* p) {
    return ++calls, p != NULL;
}

int main(void) {
    static const char html[] = "<title>T</title><a href=x>y</a><img src=i align=left><li>z</li>";
    pageslice_page* page = NULL;
    pageslice_slice link, image;
    char plain[64] = "", own[] = "own";
    size_t length = 0;
    struct tag tag = {1};
    int code = pageslice_open(html, sizeof html - 1, NULL, 0, &page);
    if (code == PAGESLICE_OK)
        code = pageslice_get_link_url(page, 0, &link) | pageslice_get_image_url(page, 0, &image) |
               pageslice_get_plain_text(page, plain, sizeof plain, &length);
    pageslice_close(page);
    if (code != PAGESLICE_OK || calls != 0)
        return 1;
    if (link.size != 1 || *link.data != 'x' || image.size != 1 || *image.data != 'i' ||
        strstr(plain, "y") == NULL)
        return 2;
    return text(CString) + url(own) + Scan(own) + ReplaceChar(own, 'o', 'n') + PrintTag(own) == 5 &&
                   calls == 5 && OutputText == tag.n && near_by == 1
               ? 0
               : 3;
}
