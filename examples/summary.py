#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""summary.py LIBRARY FILE   prints what a page holds, through the C interface and nothing but Python's ctypes."""
import ctypes
import sys
from ctypes import POINTER, byref, c_char_p, c_int, c_size_t, c_void_p


class Slice(ctypes.Structure):
    _fields_ = [("data", c_void_p), ("size", c_size_t)]

    def bytes(self):
        return ctypes.string_at(self.data, self.size) if self.data else b""


class Link(ctypes.Structure):
    _fields_ = [(name, Slice) for name in ("href", "text", "name", "rel", "rev", "title", "element")]


def load(path):
    """The library with the types of the functions used here; ctypes would pass sizes and pointers as int."""
    library = ctypes.CDLL(path)
    out = POINTER(c_size_t)
    for name, result, arguments in (
        ("version", c_int, []),
        ("open", c_int, [c_char_p, c_size_t, c_char_p, c_size_t, POINTER(c_void_p)]),
        ("close", None, [c_void_p]),
        ("get_title", c_int, [c_void_p, POINTER(Slice)]),
        ("count_links", c_size_t, [c_void_p]),
        ("get_link", c_int, [c_void_p, c_size_t, POINTER(Link), c_size_t]),
        ("get_plain_text", c_int, [c_void_p, c_char_p, c_size_t, out]),
        ("resolve_url", c_int, [c_char_p, c_size_t, c_char_p, c_size_t, c_char_p, c_size_t, out]),
    ):
        function = getattr(library, "pageslice_" + name)
        function.restype, function.argtypes = result, arguments
    return library


def check(code):
    if code != 0:
        raise RuntimeError(f"pageslice: code {code}")


def main(library_path, page_path):
    library = load(library_path)
    if library.pageslice_version() // 10000 != 1:
        raise RuntimeError("pageslice: this host was written for version 1")
    with open(page_path, "rb") as file:
        html = file.read()  # the page looks into these bytes: keep them until it is closed

    page = c_void_p()
    check(library.pageslice_open(html, len(html), None, 0, byref(page)))
    try:
        title = Slice()
        if library.pageslice_get_title(page, byref(title)) == 0:
            print("title", title.bytes().decode(errors="replace"))

        base, link, length = b"http://harbour.example/market/", Link(), c_size_t()
        for i in range(library.pageslice_count_links(page)):
            check(library.pageslice_get_link(page, i, byref(link), ctypes.sizeof(link)))
            href = link.href.bytes()
            room = ctypes.create_string_buffer(len(base) + len(href) + 1)
            check(library.pageslice_resolve_url(base, len(base), href, len(href), room, len(room), byref(length)))
            print("link", room.value.decode(errors="replace"))

        room = ctypes.create_string_buffer(len(html) + 1)
        check(library.pageslice_get_plain_text(page, room, len(room), byref(length)))
        print("plain text", room.raw[: length.value].decode(errors="replace")[:40])
    finally:
        library.pageslice_close(page)


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    main(sys.argv[1], sys.argv[2])
