# SPDX-License-Identifier: MIT
"""One open page: its bytes, the library's handle, and what turns slices into text."""
from __future__ import annotations

import mmap
from typing import TYPE_CHECKING, Any, NamedTuple, Optional, Union

from ._encodings import UTF_8, Encoding, encoding
from ._errors import ClosedError, Error, check
from ._native import ffi, lib

if TYPE_CHECKING:
    Data = Union[str, bytes, bytearray, memoryview, mmap.mmap]

RULES = {"classic": lib.PAGESLICE_CLASSIC, "standard": lib.PAGESLICE_STANDARD}


class Limits(NamedTuple):
    """Bounds on what a page can make the library take; 0 is none. A page that holds more is not opened.

    >>> import pageslice
    >>> pageslice.Page(b"<a href=1>1</a>" * 10, limits=pageslice.Limits(links=9))
    Traceback (most recent call last):
    pageslice._errors.LimitError: the page holds more than the limits allow
    """

    links: int = 0
    images: int = 0
    cells: int = 0
    items: int = 0
    index_bytes: int = 0


def utf8(text: str) -> bytes:
    """Half a surrogate pair, which has no place in UTF-8, becomes U+FFFD. str's own encode, for what a class derived from
    it might do instead is nothing to hand to C."""
    try:
        return str.encode(text)
    except UnicodeEncodeError:
        return str.encode(text, "utf-16-le", "surrogatepass").decode("utf-16-le", "replace").encode()


def text_bytes(url: Any) -> bytes:
    if isinstance(url, str):
        return utf8(url)
    if isinstance(url, bytes):
        return url if type(url) is bytes else bytes(memoryview(url))
    raise TypeError(f"text is str or bytes, not {type(url).__name__}")


def rules_number(rules: str) -> int:
    try:
        return int(RULES[rules])
    except (KeyError, TypeError):
        raise Error(f'rules are "standard" or "classic", not {rules!r}') from None


def text_from(call: Any, *arguments: Any, room: int) -> str:
    """What a function of the library writes into a buffer, as text; asked again where the room was not enough."""
    length = ffi.new("size_t *")
    while True:
        buffer = ffi.new("char[]", room + 1)
        code = call(*arguments, buffer, room + 1, length)
        if code != lib.PAGESLICE_TOO_SMALL:
            check(code)
            return str(ffi.buffer(buffer, length[0]), "utf-8", "replace")
        room = length[0]


def decode(raw: bytes, how: int) -> str:
    """Character references decoded."""
    buffer = ffi.from_buffer(raw)
    return text_from(
        lib.pageslice_decode, buffer, len(raw), how, room=lib.pageslice_decoded_bound(buffer, len(raw), how)
    )


def _look_into(data: Any) -> tuple[Any, Any]:
    """What C may look into, and what to hold while it does."""
    if type(data) is bytes:
        return data, None
    if isinstance(data, str):
        return utf8(data), None
    view = memoryview(data)  # TypeError for what has no bytes
    if not view.c_contiguous:
        raise Error("the page's bytes must lie side by side")
    if view.readonly and view.nbytes and isinstance(view.obj, (bytes, mmap.mmap)):
        return view.cast("B"), None
    # Bytes that change while C looks at them could end in a crash, so it looks at a copy. The buffer is held all the
    # same: while its size stays, spans keep their meaning in it.
    return bytes(view), view


def _open(html: Any, size: int, options: Any) -> Any:
    page = ffi.new("pageslice_page **")
    check(lib.pageslice_open_with(html, size, options, ffi.sizeof("pageslice_options"), page))
    return ffi.gc(page[0], lib.pageslice_close)


# Pages of each rules, for what depends on nothing else.
_EMPTY = {number: _open(ffi.NULL, 0, ffi.new("pageslice_options *", {"rules": number})) for number in RULES.values()}


class Core:
    """The open page. It lives as long as somebody uses it, also after the page was closed meanwhile."""

    __slots__ = ("data", "size", "html", "encoding", "decoder", "rules", "url", "told", "limits", "is_text",
                 "_handle", "_options", "_held")  # fmt: skip

    def __init__(self, data: Any, url: Any, rules: int, told: Optional[str], limits: Optional[Limits]) -> None:
        self.rules = rules
        self.told, self.limits, self.is_text = told, limits, isinstance(data, str)
        self.url = None if url is None else text_bytes(url)
        self.data, self._held = _look_into(data)
        self.size = len(self.data)
        self.html = ffi.from_buffer(self.data)
        self._handle = None
        self._options = self._make_options("UTF-8" if self.is_text else told or "", limits)
        self.encoding = self._sniff()
        self.decoder: Encoding = UTF_8 if self.encoding == "UTF-8" else encoding(self.encoding)
        if self.encoding.startswith("UTF-16"):
            # No markup is found in such bytes; what is looked at is the page in UTF-8.
            text = self.decoder.text(bytes(self.data))
            self._turn_into(text[1:] if text[:1] == "\ufeff" else text)

    def _turn_into(self, text: str) -> None:
        """From here on the page is that text, in UTF-8."""
        self.data, self.decoder = utf8(text), UTF_8
        self.size = len(self.data)
        self.html = ffi.from_buffer(self.data)

    def turn_into_utf8(self) -> None:
        if self.decoder.care:
            self._turn_into(self.decoder.text(bytes(self.data)))

    def _make_options(self, told: str, limits: Optional[Limits]) -> Any:
        if not isinstance(told, str):
            raise TypeError(f"an encoding is named by str, not {type(told).__name__}")
        options = ffi.new("pageslice_options *")
        options.rules = self.rules
        label = ffi.from_buffer(told.encode("ascii", "replace"))
        options.encoding, options.encoding_size = label, len(label)
        url = ffi.from_buffer(self.url or b"")
        if self.url is not None:
            options.url, options.url_size = url, len(url)
        try:
            links, images, cells, items, index_bytes = Limits(*limits or ())
            options.most_links, options.most_images, options.most_cells = links, images, cells
            options.most_items, options.most_index_bytes = items, index_bytes
        except OverflowError:
            raise Error("a limit is a number from 0 on") from None
        self._held = (self._held, label, url)  # the options only point to them
        return options

    @property
    def handle(self) -> Any:
        """The index, made when it is asked for first; plain text needs none."""
        handle = self._handle
        if handle is None:
            handle = self._handle = _open(self.html, self.size, self._options)
        return handle

    def _sniff(self) -> str:
        """The name of the page's encoding, which its first bytes tell."""
        head = _open(self.html, min(self.size, 1024), self._options)
        name = ffi.new("pageslice_slice *")
        check(lib.pageslice_get_encoding(head, name))
        return str(ffi.buffer(name.data, name.size), "ascii")

    def fill_in(self, job: Any) -> None:
        job.html, job.html_size, job.options = self.html, self.size, self._options

    def take(self, page: Any) -> None:
        self._handle = ffi.gc(page, lib.pageslice_close)

    def raw(self, start: int, stop: int) -> bytes:
        return bytes(self.data[start:stop])

    def slice(self, get: Any) -> Optional[bytes]:
        """What one of the library's functions for a slice of the page gives."""
        found = ffi.new("pageslice_slice *")
        return ffi.buffer(found.data, found.size)[:] if get(self.handle, found) == lib.PAGESLICE_OK else None

    def plain_text(self, raw: Any) -> str:
        """Of bytes in the page's encoding."""
        decoder = self.decoder
        if decoder.care:
            raw = utf8(decoder.text(bytes(raw)))
        # An index that is there may help; to make one for this would cost more than it helps.
        page = _EMPTY[self.rules] if self._handle is None else self._handle
        text, size = ffi.new("char **"), ffi.new("size_t *")
        try:
            check(lib.pagebulk_plain_text(page, ffi.from_buffer(raw), len(raw), decoder.high, text, size))
            return str(ffi.buffer(text[0], size[0]), "utf-8", "replace")
        finally:
            lib.pagebulk_free(text[0])

    def absolute(self, raw: bytes) -> str:
        """Of a URL in UTF-8, as written in a page."""
        return text_from(lib.pageslice_absolute, self.handle, ffi.from_buffer(raw), len(raw), room=len(raw) + 256)

    def convert(self, raw: bytes, how: int) -> Optional[str]:
        """What the bulk calls make of one slice, here for encodings that only Python knows."""
        text = self.decoder.text(raw)
        if how == lib.PAGEBULK_AS_WRITTEN:
            return text
        if how == lib.PAGEBULK_PLAIN:
            return self.plain_text(raw)
        if how == lib.PAGESLICE_DECODE_ATTRIBUTE:
            return decode(utf8(text), how)
        try:
            return self.absolute(utf8(text))
        except Error:
            return None


class Source:
    """What a page and all that was taken from it share: the open page, until it is closed. Nothing that hangs on it knows
    the page itself, so that no circle forms, and the page's buffer is given back with the last of them."""

    __slots__ = ("core",)

    def __init__(self, core: Core) -> None:
        self.core: Optional[Core] = core

    def open_core(self) -> Core:
        core = self.core
        if core is None:
            raise ClosedError("the page was closed")
        return core

    def __reduce__(self) -> tuple[Any, ...]:
        core = self.open_core()
        told = core.told
        if core.is_text or core.encoding.startswith("UTF-16"):
            told = "utf-8"
        return _reopen, (bytes(core.data), core.url, core.rules, told, core.limits)


def _reopen(data: bytes, url: Optional[bytes], rules: int, told: Optional[str], limits: Optional[Limits]) -> Source:
    return Source(Core(data, url, rules, told, limits))


def open_all(cores: list[Core]) -> list[Optional[Exception]]:
    """Makes the indexes of many pages in one call, and gives the error of each that has none."""
    jobs = ffi.new("pagebulk_job[]", len(cores))
    for job, core in zip(jobs, cores):
        core.fill_in(job)
    lib.pagebulk_open(jobs, len(cores))
    errors: list[Optional[Exception]] = []
    for job, core in zip(jobs, cores):
        try:
            check(job.result)
            core.take(job.page)
            errors.append(None)
        except Exception as error:
            errors.append(error)
    return errors
