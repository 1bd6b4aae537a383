# SPDX-License-Identifier: MIT
"""Reads HTML pages: title, links, images, cells, items and text as a browser sees them, without a tree.

>>> import pageslice
>>> page = pageslice.Page(b"<title>Market</title><a href=fish.html>Fish &amp; more</a>", "http://host/")
>>> page.title, [(link.url, link.text) for link in page.links]
('Market', [('http://host/fish.html', 'Fish & more')])
"""
from ._core import Limits
from ._errors import (
    ClosedError,
    Error,
    LimitError,
    NeedsIDNAError,
    NotAURLError,
    OutOfMemoryError,
    TooLargeError,
)
from ._many import read_many
from ._native import ffi as _ffi
from ._native import lib as _lib
from ._page import Page, normalize, resolve
from ._page import decode_references as decode
from ._records import Cell, Image, Item, Link, Records
from ._tokens import Token, tokens

__version__: str = _ffi.string(_lib.pageslice_version_string()).decode("ascii")

__all__ = [
    "Cell",
    "ClosedError",
    "Error",
    "Image",
    "Item",
    "LimitError",
    "Limits",
    "Link",
    "NeedsIDNAError",
    "NotAURLError",
    "OutOfMemoryError",
    "Page",
    "Records",
    "Token",
    "TooLargeError",
    "decode",
    "normalize",
    "read_many",
    "resolve",
    "tokens",
]
