# SPDX-License-Identifier: MIT
"""What pages hold: records of text, and the lazy sequences that make them, many at a time."""
from __future__ import annotations

import itertools
from collections.abc import Iterator, Sequence
from operator import attrgetter
from typing import TYPE_CHECKING, Any, ClassVar, Generic, NamedTuple, Optional, TypeVar, Union, overload

from ._errors import check
from ._native import ffi, lib

if TYPE_CHECKING:
    from ._core import Core, Source

Span = tuple[int, int]

ALIGNMENTS = (None, "top", "middle", "bottom", "left", "right", "center")

# How many records are made at a time. Texts may overlap, and those of a hostile page do until their sum is quadratic
# in its length, so that the sum of what is held at a time has a bound too.
_ROWS = 1024
_ROWS_BY_INDEX = 32
_MOST_BYTES = 1 << 20


class Schema(NamedTuple):
    """Where the library has the fields of a kind of record."""

    kind: int
    count: Any
    slices: dict[str, tuple[int, int]]  # which slice of the structure, and what is made of it
    numbers: dict[str, int]  # which number of the structure
    whole: tuple[int, int]  # the slices where the whole begins and ends


def _rows(kind: int, rows: range) -> Any:
    return ffi.new("pagebulk_rows *", (kind, rows.start, rows.step, len(rows)))


class Batch:
    """Some rows of one collection. What was asked for once, for one of them, is kept for all."""

    __slots__ = ("source", "schema", "rows", "_columns")

    def __init__(self, source: Source, schema: Schema, rows: range) -> None:
        self.source = source
        self.schema = schema
        self.rows = rows
        self._columns: dict[str, list[Any]] = {}

    def value(self, name: str, index: int) -> Any:
        column = self._columns.get(name)
        if column is None:
            core = self.source.open_core()
            column = self._read(core, name, self.rows)
            if len(column) < len(self.rows):  # too much to be kept
                return self._read(core, name, self.rows[index : index + 1])[0]
            self._columns[name] = column
        return column[index]

    def _read(self, core: Core, name: str, rows: range) -> list[Any]:
        if name == "url" and core.url is None and core.rules == lib.PAGESLICE_CLASSIC:
            return [None] * len(rows)  # they would take the empty text for an address
        number = self.schema.numbers.get(name)
        if number is None:
            return read_texts(core, self.schema, rows, (name,))[0]
        numbers = ffi.new("int[]", len(rows))
        lib.pagebulk_read_numbers(core.handle, _rows(self.schema.kind, rows), number, numbers)
        return [None if n < 0 else int(n) for n in numbers]

    def span(self, name: Optional[str], index: int) -> Optional[Span]:
        core = self.source.open_core()
        rows = self.rows[index : index + 1]
        if name is not None:
            return _spans(core, self.schema, rows, self.schema.slices[name][0])[0]
        first, last = (_spans(core, self.schema, rows, slice_)[0] for slice_ in self.schema.whole)
        return None if first is None else (first[0], (last or first)[1])

    def raw(self, name: Optional[str], index: int) -> Optional[bytes]:
        core = self.source.open_core()
        span = self.span(name, index)
        return None if span is None else core.raw(*span)


class _Kept:
    """What stands in a batch's place in a record that came out of a pickle."""

    __slots__ = ("_values", "_spans", "_raws")

    def __init__(self, values: dict[str, Any], spans: dict[Optional[str], Any], raws: dict[Optional[str], Any]) -> None:
        self._values, self._spans, self._raws = values, spans, raws

    def value(self, name: str, _: int) -> Any:
        return self._values[name]

    def span(self, name: Optional[str], _: int) -> Any:
        return self._spans[name]

    def raw(self, name: Optional[str], _: int) -> Any:
        return self._raws[name]


def _spans(core: Core, schema: Schema, rows: range, slice_: int) -> list[Optional[Span]]:
    found = ffi.new("ptrdiff_t[]", 2 * len(rows))
    lib.pagebulk_read_spans(core.handle, core.html, _rows(schema.kind, rows), slice_, found)
    ends = iter(ffi.unpack(found, 2 * len(rows)))
    return [None if start < 0 else (start, stop) for start, stop in zip(ends, ends)]


def _how(core: Core, how: int) -> int:
    """By the classic rules references are no more than characters."""
    is_plain = how == lib.PAGESLICE_DECODE_ATTRIBUTE and core.rules == lib.PAGESLICE_CLASSIC
    return int(lib.PAGEBULK_AS_WRITTEN) if is_plain else how


def read_texts(core: Core, schema: Schema, rows: range, names: tuple[str, ...]) -> list[list[Any]]:
    """Columns of str, None where the page has no such thing; shorter than asked for where they would take much."""
    wanted = [(slice_, _how(core, how)) for slice_, how in map(schema.slices.__getitem__, names)]
    texts = ffi.new("pagebulk_texts *")
    decoder = core.decoder
    try:
        check(
            lib.pagebulk_read_texts(
                core.handle, _rows(schema.kind, rows), ffi.new("pagebulk_column[]", wanted), len(wanted),
                decoder.high, decoder.care, _MOST_BYTES, texts,
            )
        )  # fmt: skip
        if texts.needs_care:
            return _read_with_care(core, schema, rows, wanted)
        values = split(texts)
        return [values[i :: len(wanted)] for i in range(len(wanted))]
    finally:
        lib.pagebulk_release(texts)


def split(texts: Any) -> list[Optional[str]]:
    """The values that a bulk call gave, None for those that are missing."""
    count = texts.count
    buffer = ffi.buffer(texts.data, texts.size)
    values: list[Optional[str]] = [*str(buffer, "utf-8", "replace").split("\0")]
    values.pop()
    if len(values) != count:  # some hold a NUL
        starts = itertools.chain([0], (end + 1 for end in ffi.unpack(texts.ends, count)))
        ends = ffi.unpack(texts.ends, count)
        values = [str(buffer[start:end], "utf-8", "replace") for start, end in zip(starts, ends)]
    if texts.missing_count:
        missing = ffi.buffer(texts.missing, count)[:]
        values = [None if gone else value for value, gone in zip(values, missing)]
    return values


def _read_with_care(core: Core, schema: Schema, rows: range, wanted: list[tuple[int, int]]) -> list[list[Any]]:
    """For encodings that only Python knows: value by value."""
    spans = [_spans(core, schema, rows, slice_) for slice_, _ in wanted]
    columns: list[list[Any]] = [[] for _ in wanted]
    read = 0
    for row in zip(*spans):
        for column, (_, how), span in zip(columns, wanted, row):
            column.append(None if span is None else core.convert(core.raw(*span), how))
            read += 0 if span is None else span[1] - span[0]
        if read > _MOST_BYTES:
            break
    return columns


def _lazy(name: str, doc: str) -> Any:
    return property(lambda self: self._batch.value(name, self._index), doc=doc)


def _eager(name: str, doc: str) -> Any:
    """Made with the record; by far the most asked for."""
    return property(attrgetter("_" + name), doc=doc)


class Record:
    """One element of a page. It cannot be changed, and compares, hashes and pickles by its fields.

    `span` is where it stands in the page, as (start, stop), and `raw` the bytes there; span_of() and raw_of() tell the
    same of one field, None where the page does not have it.
    """

    __slots__ = ("_batch", "_index")
    _schema: ClassVar[Schema]
    _made: ClassVar[tuple[str, ...]]
    _fields: ClassVar[tuple[str, ...]]

    _batch: Any
    _index: int

    @property
    def span(self) -> Span:
        found: Span = self._batch.span(None, self._index)
        return found

    @property
    def raw(self) -> bytes:
        found: bytes = self._batch.raw(None, self._index)
        return found

    def span_of(self, field: str) -> Optional[Span]:
        self._check(field)
        found: Optional[Span] = self._batch.span(field, self._index)
        return found

    def raw_of(self, field: str) -> Optional[bytes]:
        self._check(field)
        found: Optional[bytes] = self._batch.raw(field, self._index)
        return found

    def _check(self, field: str) -> None:
        if field not in self._schema.slices:
            raise AttributeError(f"{type(self).__name__} has no text {field!r}")

    def asdict(self) -> dict[str, Any]:
        return {name: getattr(self, name) for name in self._fields}

    def __iter__(self) -> Iterator[Any]:
        return (getattr(self, name) for name in self._fields)

    def __repr__(self) -> str:
        given = [f"{name}={value!r}" for name, value in self.asdict().items() if value is not None and value is not False]
        return f"{type(self).__name__}({', '.join(given)})"

    def __eq__(self, other: object) -> bool:
        if not isinstance(other, Record) or self._fields != other._fields:
            return NotImplemented
        return tuple(self) == tuple(other)

    def __hash__(self) -> int:
        return hash(tuple(getattr(self, name) for name in self._made))

    def __reduce__(self) -> tuple[Any, ...]:
        values = {name: getattr(self, name) for name in (*self._schema.slices, *self._fields)}
        values |= {name: self._batch.value(name, self._index) for name in self._schema.numbers}
        names = [None, *self._schema.slices]
        spans = {name: self._batch.span(name, self._index) for name in names}
        raws = {name: self._batch.raw(name, self._index) for name in names}
        made = [values[name] for name in self._made]
        return type(self), (_Kept(values, spans, raws), 0, *made)


class Link(Record):
    """An anchor, or an area, that leads somewhere."""

    __slots__ = ("_href", "_text")

    def __init__(self, batch: Any, index: int, href: str, text: str) -> None:
        self._batch = batch
        self._index = index
        self._href = href
        self._text = text

    href: str = _eager("href", "Where it leads, as the page says it.")
    text: str = _eager("text", "What a person reads there.")
    url: Optional[str] = _lazy("url", "Where it leads, made absolute by the page's rules; None where that is no URL.")
    title: Optional[str] = _lazy("title", "Its title attribute.")
    rel: Optional[str] = _lazy("rel", "Its rel attribute.")
    rev: Optional[str] = _lazy("rev", "Its rev attribute.")
    name: Optional[str] = _lazy("name", "Its name attribute.")
    markup: str = _lazy("markup", "The text, with the markup inside it.")
    element: str = _lazy("element", "The start tag.")

    _made = ("href", "text")
    _fields = ("href", "text", "title", "rel", "rev", "name")
    _schema = Schema(
        lib.PAGEBULK_LINKS,
        lib.pageslice_count_links,
        {
            "href": (0, lib.PAGESLICE_DECODE_ATTRIBUTE),
            "text": (1, lib.PAGEBULK_PLAIN),
            "name": (2, lib.PAGESLICE_DECODE_ATTRIBUTE),
            "rel": (3, lib.PAGESLICE_DECODE_ATTRIBUTE),
            "rev": (4, lib.PAGESLICE_DECODE_ATTRIBUTE),
            "title": (5, lib.PAGESLICE_DECODE_ATTRIBUTE),
            "element": (6, lib.PAGEBULK_AS_WRITTEN),
            "markup": (1, lib.PAGEBULK_AS_WRITTEN),
            "url": (0, lib.PAGEBULK_ABSOLUTE),
        },
        {},
        (6, 1),
    )


class Image(Record):
    """An img element. `width` and the other numbers are None where the page does not tell them."""

    __slots__ = ("_src", "_alt")

    def __init__(self, batch: Any, index: int, src: Optional[str], alt: Optional[str]) -> None:
        self._batch = batch
        self._index = index
        self._src = src
        self._alt = alt

    src: Optional[str] = _eager("src", "Where the picture is, as the page says it.")
    alt: Optional[str] = _eager("alt", "What stands for it in words.")
    url: Optional[str] = _lazy("url", "Where the picture is, made absolute by the page's rules.")
    srcset: Optional[str] = _lazy("srcset", "Its srcset attribute; the classic rules do not read it.")
    lowsrc: Optional[str] = _lazy("lowsrc", "Its lowsrc attribute.")
    usemap: Optional[str] = _lazy("usemap", "Its usemap attribute.")
    element: str = _lazy("element", "The tag.")
    width: Optional[int] = _lazy("width", "In pixels.")
    height: Optional[int] = _lazy("height", "In pixels.")
    border: Optional[int] = _lazy("border", "In pixels.")
    hspace: Optional[int] = _lazy("hspace", "In pixels.")
    vspace: Optional[int] = _lazy("vspace", "In pixels.")

    @property
    def align(self) -> Optional[str]:
        """top, middle, bottom, left, right or center."""
        return ALIGNMENTS[self._batch.value("_align", self._index) or 0]

    @property
    def is_map(self) -> bool:
        return bool(self._batch.value("_is_map", self._index))

    _made = ("src", "alt")
    _fields = ("src", "alt", "srcset", "lowsrc", "usemap", "width", "height", "border", "hspace", "vspace", "align",
               "is_map")  # fmt: skip
    _schema = Schema(
        lib.PAGEBULK_IMAGES,
        lib.pageslice_count_images,
        {
            "src": (0, lib.PAGESLICE_DECODE_ATTRIBUTE),
            "lowsrc": (1, lib.PAGESLICE_DECODE_ATTRIBUTE),
            "alt": (2, lib.PAGESLICE_DECODE_ATTRIBUTE),
            "usemap": (3, lib.PAGESLICE_DECODE_ATTRIBUTE),
            "srcset": (4, lib.PAGESLICE_DECODE_ATTRIBUTE),
            "element": (5, lib.PAGEBULK_AS_WRITTEN),
            "url": (0, lib.PAGEBULK_ABSOLUTE),
        },
        {"width": 0, "height": 1, "border": 2, "hspace": 3, "vspace": 4, "_align": 5, "_is_map": 6},
        (5, 5),
    )


class Cell(Record):
    """A cell of a table. The classic rules tell its text only."""

    __slots__ = ("_text",)

    def __init__(self, batch: Any, index: int, text: str) -> None:
        self._batch = batch
        self._index = index
        self._text = text

    text: str = _eager("text", "What a person reads there.")
    markup: str = _lazy("markup", "The text, with the markup inside it.")
    table: Optional[int] = _lazy("table", "Which table of the page, from 0 on.")
    row: Optional[int] = _lazy("row", "Which row of the table, from 0 on.")
    column: Optional[int] = _lazy("column", "Which cell of the row, from 0 on.")
    colspan: Optional[int] = _lazy("colspan", "How many columns it covers.")
    rowspan: Optional[int] = _lazy("rowspan", "How many rows it covers.")

    @property
    def is_header(self) -> bool:
        return bool(self._batch.value("_is_header", self._index))

    _made = ("text",)
    _fields = ("text", "table", "row", "column", "colspan", "rowspan", "is_header")
    _schema = Schema(
        lib.PAGEBULK_CELLS,
        lib.pageslice_count_cells,
        {"text": (0, lib.PAGEBULK_PLAIN), "markup": (0, lib.PAGEBULK_AS_WRITTEN)},
        {"table": 0, "row": 1, "column": 2, "colspan": 3, "rowspan": 4, "_is_header": 5},
        (0, 0),
    )


class Item(Record):
    """An item of a list."""

    __slots__ = ("_text",)

    def __init__(self, batch: Any, index: int, text: str) -> None:
        self._batch = batch
        self._index = index
        self._text = text

    text: str = _eager("text", "What a person reads there.")
    markup: str = _lazy("markup", "The text, with the markup inside it.")

    _made = ("text",)
    _fields = ("text",)
    _schema = Schema(
        lib.PAGEBULK_ITEMS,
        lib.pageslice_count_items,
        {"text": (0, lib.PAGEBULK_PLAIN), "markup": (0, lib.PAGEBULK_AS_WRITTEN)},
        {},
        (0, 0),
    )


R = TypeVar("R", bound=Record)


class Records(Sequence[R], Generic[R]):
    """All records of one kind in a page, made when they are looked at."""

    __slots__ = ("_source", "_type", "_range", "_near")

    def __init__(self, source: Source, type_: type[R], rows: Optional[range] = None) -> None:
        self._source = source
        self._type = type_
        self._range = range(type_._schema.count(source.open_core().handle)) if rows is None else rows
        self._near: tuple[range, list[R]] = range(0), []

    def __len__(self) -> int:
        return len(self._range)

    @overload
    def __getitem__(self, index: int) -> R: ...
    @overload
    def __getitem__(self, index: slice) -> Records[R]: ...

    def __getitem__(self, index: Union[int, slice]) -> Union[R, Records[R]]:
        if isinstance(index, slice):
            return Records(self._source, self._type, self._range[index])
        try:
            at = range(len(self._range))[index]
        except IndexError:
            raise IndexError(f"there are {len(self._range)} of them, and no number {index}") from None
        near, records = self._near  # a pair, so that threads see both or neither
        if at not in near:
            records = self._make(self._range[at : at + _ROWS_BY_INDEX])
            self._near = range(at, at + len(records)), records
            return records[0]
        return records[at - near.start]

    def __iter__(self) -> Iterator[R]:
        return itertools.chain.from_iterable(self._batches())

    def __reversed__(self) -> Iterator[R]:
        return iter(self[::-1])

    def _batches(self) -> Iterator[list[R]]:
        at = 0
        while at < len(self._range):
            records = self._make(self._range[at : at + _ROWS])
            yield records
            at += len(records)

    def _make(self, rows: range) -> list[R]:
        columns = read_texts(self._source.open_core(), self._type._schema, rows, self._type._made)
        batch = Batch(self._source, self._type._schema, rows[: len(columns[0])])
        make: Any = self._type
        return list(map(make, itertools.repeat(batch), itertools.count(), *columns))

    def __eq__(self, other: object) -> bool:
        if not isinstance(other, Records):
            return NotImplemented
        return list(self) == list(other)

    __hash__ = None  # type: ignore[assignment]

    def columns(self, *names: str) -> dict[str, list[Any]]:
        """Whole columns, which is the fastest way into a table: pandas.DataFrame(page.links.columns()).

        >>> import pageslice
        >>> pageslice.Page("<a href=x>y</a><a href=z>w</a>").links.columns("href", "text")
        {'href': ['x', 'z'], 'text': ['y', 'w']}
        """
        found: dict[str, list[Any]] = {name: [] for name in names or self._type._fields}
        for records in self._batches():
            for name, column in found.items():
                column.extend(map(attrgetter(name), records))
        return found

    def __repr__(self) -> str:
        first = ", ".join(map(repr, self[:3]))
        more = f", ... {len(self)} in all" if len(self) > 3 else ""
        return f"<{self._type.__name__}s: {first}{more}>" if len(self) else f"<no {self._type.__name__}s>"
