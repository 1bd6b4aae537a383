# SPDX-License-Identifier: MIT
"""The page as Python sees it."""
from __future__ import annotations

from types import TracebackType
from typing import TYPE_CHECKING, Any, Optional, Union

from ._core import RULES, Core, Limits, Source, decode, rules_number, text_from, text_bytes, utf8
from ._errors import check
from ._native import ffi, lib
from ._records import Cell, Image, Item, Link, R, Records

if TYPE_CHECKING:
    from ._core import Data

_RULES_NAMES = {number: name for name, number in RULES.items()}


class Page:
    """One page, read once; what it holds is made when it is looked at.

    `data` may be str, bytes, or anything with a buffer: bytearray, memoryview, mmap. The page holds it until it is
    closed or gone. Bytes are decoded by the page's own encoding, or by `encoding`, the one that a server told.
    `url` is the page's own address. A page is also a context manager that closes it, may be used by many threads at
    once, and pickles as its bytes.

    >>> import pageslice
    >>> page = pageslice.Page("<title>Fish</title><a href=eel.html>The <b>eel</b></a>", "http://host/a/")
    >>> page.title
    'Fish'
    >>> page.links
    <Links: Link(href='eel.html', text='The eel')>
    >>> page.links[0].url
    'http://host/a/eel.html'
    """

    __slots__ = ("_source", "_records", "__weakref__")

    def __init__(
        self,
        data: Data,
        url: Union[str, bytes, None] = None,
        *,
        rules: str = "standard",
        encoding: Optional[str] = None,
        limits: Optional[Limits] = None,
    ) -> None:
        self._source = Source(Core(data, url, rules_number(rules), encoding, limits))
        self._records: dict[type, Records[Any]] = {}
        if limits is not None:
            self._open_core().handle  # noqa: B018  # they are to be heard at once

    @classmethod
    def _of(cls, source: Source) -> Page:
        page = cls.__new__(cls)
        page._source = source
        page._records = {}
        return page

    def _open_core(self) -> Core:
        return self._source.open_core()

    def close(self) -> None:
        """Gives memory and the buffer back. What was made of the page stays; what was not can no longer be asked for."""
        self._source.core = None
        self._records = {}

    def __enter__(self) -> Page:
        self._open_core()
        return self

    def __exit__(
        self, kind: Optional[type[BaseException]], error: Optional[BaseException], trace: Optional[TracebackType]
    ) -> None:
        self.close()

    @property
    def title(self) -> Optional[str]:
        """The page's title, its white space collapsed; None for a page without one."""
        core = self._open_core()
        raw = core.slice(lib.pageslice_get_title)
        if raw is None:
            return None
        if core.rules == lib.PAGESLICE_CLASSIC:
            return core.decoder.text(raw)
        return " ".join(decode(utf8(core.decoder.text(raw)), lib.PAGESLICE_DECODE_RCDATA).split())

    @property
    def base(self) -> Optional[str]:
        """What the page says its URLs are relative to; None where it does not."""
        core = self._open_core()
        raw = core.slice(lib.pageslice_get_base)
        return None if raw is None else decode(utf8(core.decoder.text(raw)), lib.PAGESLICE_DECODE_ATTRIBUTE)

    @property
    def url(self) -> Optional[str]:
        """The page's own address."""
        url = self._open_core().url
        return None if url is None else url.decode("utf-8", "replace")

    @property
    def rules(self) -> str:
        """The rules that it was read by: standard or classic."""
        return _RULES_NAMES[self._open_core().rules]

    @property
    def encoding(self) -> str:
        """The encoding that the page is in, by its standard name."""
        return self._open_core().encoding

    @property
    def data(self) -> Union[bytes, memoryview]:
        """The bytes that spans count: the page's own, or its UTF-8 where it was str or in UTF-16."""
        data: Union[bytes, memoryview] = self._open_core().data
        return data

    @property
    def read_to(self) -> int:
        """How many bytes were read: all, unless the classic rules ended before."""
        size = ffi.new("size_t *")
        check(lib.pageslice_get_read_to(self._open_core().handle, size))
        return int(size[0])

    @property
    def links(self) -> Records[Link]:
        """The links, in the order of the page."""
        return self._all(Link)

    @property
    def images(self) -> Records[Image]:
        """The images, in the order of the page."""
        return self._all(Image)

    @property
    def cells(self) -> Records[Cell]:
        """The cells of tables, in the order of the page."""
        return self._all(Cell)

    @property
    def items(self) -> Records[Item]:
        """The items of lists, in the order of the page."""
        return self._all(Item)

    def _all(self, kind: type[R]) -> Records[R]:
        self._open_core()
        found = self._records.get(kind)
        if found is None:
            found = self._records[kind] = Records(self._source, kind)
        return found

    def plain_text(self) -> str:
        """What a person reads in the page.

        >>> import pageslice
        >>> pageslice.Page("<h1>Fish</h1><p>Eel &amp; cod").plain_text()
        'Fish\\nEel & cod'
        """
        core = self._open_core()
        return core.plain_text(core.data)

    def absolute(self, url: Union[str, bytes]) -> str:
        """A URL of the page made absolute by its rules. NotAURLError where that is none.

        str is what the records hold; bytes are taken as written in the page, with character references.

        >>> import pageslice
        >>> pageslice.Page("<base href=/b/>", "http://host/a").absolute("c?d&amp")
        'http://host/b/c?d&amp'
        """
        core = self._open_core()
        raw = text_bytes(url)
        if isinstance(url, bytes):
            return core.absolute(raw)
        return core.absolute(raw if core.rules == lib.PAGESLICE_CLASSIC else raw.replace(b"&", b"&amp;"))

    def __reduce__(self) -> tuple[Any, ...]:
        return self._of, (self._source,)

    def __repr__(self) -> str:
        core = self._source.core
        if core is None:
            return "<Page: closed>"
        about = f" {self.url}" if self.url is not None else ""
        return f"<Page{about}: {core.size} bytes, {core.encoding}, {len(self.links)} links, {len(self.images)} images>"


def resolve(base: Union[str, bytes, None], url: Union[str, bytes], *, rules: str = "standard") -> str:
    """A URL made absolute against another one. NotAURLError for what browsers cannot parse.

    >>> import pageslice
    >>> pageslice.resolve("http://host/a/b", "../c d")
    'http://host/c%20d'
    """
    raw = text_bytes(url)
    against = ffi.NULL if base is None else ffi.from_buffer(text_bytes(base))
    call = lib.pageslice_resolve_standard_url
    if rules_number(rules) == lib.PAGESLICE_CLASSIC:
        call = lib.pageslice_resolve_url
    size = 0 if base is None else len(against)
    return text_from(call, against, size, ffi.from_buffer(raw), len(raw), room=size + len(raw) + 64)


def normalize(url: Union[str, bytes], *, rules: str = "standard") -> str:
    """A URL in its canonical form. NotAURLError for what is no absolute URL by the standard.

    >>> import pageslice
    >>> pageslice.normalize("HTTP://Host:80/a/../b")
    'http://host/b'
    """
    if rules_number(rules) == lib.PAGESLICE_STANDARD:
        return resolve(None, url)
    raw = text_bytes(url)
    return text_from(lib.pageslice_normalize_url, ffi.from_buffer(raw), len(raw), room=len(raw))


def decode_references(text: Union[str, bytes], *, in_attribute: bool = False) -> str:
    """Text, or an attribute's value, with its character references replaced by what they stand for.

    >>> import pageslice
    >>> pageslice.decode("fish &amp chips"), pageslice.decode("?fish&ampchips", in_attribute=True)
    ('fish & chips', '?fish&ampchips')
    """
    kind = lib.PAGESLICE_DECODE_ATTRIBUTE if in_attribute else lib.PAGESLICE_DECODE_TEXT
    return decode(text_bytes(text), kind)
