# SPDX-License-Identifier: MIT
"""The tokens of a page, by the HTML Standard."""
from __future__ import annotations

from collections.abc import Callable, Iterator
from typing import TYPE_CHECKING, Any, NamedTuple, Optional

from ._core import Core
from ._errors import check
from ._native import ffi, lib
from ._records import split

if TYPE_CHECKING:
    from ._core import Data
    from ._records import Span

_KINDS = ("text", "start", "end", "comment", "doctype", "cdata")
_MOST = 512  # tokens read at a time
_MOST_BYTES = 1 << 20


class Token(NamedTuple):
    """One token, as the tokenizer of the HTML Standard emits it.

    `kind` is start or end for tags, else text, comment, cdata or doctype. Tags have a `name` in lower case and
    `attributes`, doctypes a name, all others a `text`. `span` is where it stands in the page, as (start, stop).
    """

    kind: str
    name: Optional[str]
    text: Optional[str]
    attributes: dict[str, str]
    span: Span
    is_self_closing: bool = False
    is_foreign: bool = False  # in svg or math
    public_id: Optional[str] = None
    system_id: Optional[str] = None
    force_quirks: bool = False


_make = Token._make
_TAGS = (int(lib.PAGESLICE_TOKEN_START_TAG), int(lib.PAGESLICE_TOKEN_END_TAG))
_DOCTYPE = int(lib.PAGESLICE_TOKEN_DOCTYPE)
_CLOSED = int(lib.PAGEBULK_TOKEN_SELF_CLOSING)
_FOREIGN = int(lib.PAGEBULK_TOKEN_FOREIGN)
_QUIRKS = int(lib.PAGEBULK_TOKEN_QUIRKS)


def tokens(data: Data, *, encoding: Optional[str] = None) -> Iterator[Token]:
    """All tokens of a page, one by one.

    Spans count bytes of the page, as it came; where it came as str, in UTF-16, or in an encoding of more than one
    byte a character other than UTF-8, they count bytes of the page in UTF-8.

    >>> import pageslice
    >>> for token in pageslice.tokens("<p CLASS=a>Fish &amp; eel</p>"):
    ...     print(token.kind, token.name or token.text, token.attributes)
    start p {'class': 'a'}
    text Fish & eel {}
    end p {}
    """
    core = Core(data, None, lib.PAGESLICE_STANDARD, encoding, None)
    core.turn_into_utf8()
    return _read(core)


def _read(core: Core) -> Iterator[Token]:
    opened = ffi.new("pageslice_tokens **")
    check(lib.pageslice_open_tokens(core.html, len(core.data), opened))
    handle = ffi.gc(opened[0], lib.pageslice_close_tokens)
    numbers, read = ffi.new("ptrdiff_t[]", _MOST * lib.PAGEBULK_TOKEN_NUMBERS), ffi.new("size_t *")
    texts = ffi.new("pagebulk_texts *")
    while True:
        try:
            check(
                lib.pagebulk_read_tokens(
                    handle, core.html, core.decoder.high, _MOST, _MOST_BYTES, texts, numbers, read
                )
            )
            value = iter(split(texts) if texts.count else ()).__next__
        finally:
            lib.pagebulk_release(texts)
        found = iter(ffi.unpack(numbers, read[0] * lib.PAGEBULK_TOKEN_NUMBERS))
        if not read[0]:
            return
        for start, stop, kind, more, count in zip(found, found, found, found, found):
            yield _token(kind, value, (start, stop), more, count)


def _token(kind: int, value: Callable[[], Any], span: Span, more: int, count: int) -> Token:
    is_foreign = more & _FOREIGN != 0
    if kind in _TAGS:
        name = value()
        attributes = {value(): value() or "" for _ in range(count)} if count else {}
        return _make((_KINDS[kind], name, None, attributes, span, more & _CLOSED != 0, is_foreign, None, None, False))
    if kind == _DOCTYPE:
        quirks = more & _QUIRKS != 0
        return _make(("doctype", value(), None, {}, span, False, is_foreign, value(), value(), quirks))
    return _make((_KINDS[kind], None, value(), {}, span, False, is_foreign, None, None, False))
