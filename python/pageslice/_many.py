# SPDX-License-Identifier: MIT
"""Many pages, on many threads."""
from __future__ import annotations

import collections
import itertools
import os
from collections.abc import Iterable, Iterator
from concurrent.futures import Future, ThreadPoolExecutor
from typing import TYPE_CHECKING, Optional, Union

from ._core import Core, Limits, Source, open_all, rules_number
from ._page import Page

if TYPE_CHECKING:
    from ._core import Data

_AT_ONCE = 16  # pages to a task: large enough that handing them out costs little, small enough for little memory


def read_many(
    pages: Iterable[Union[Data, tuple[Data, Union[str, bytes, None]]]],
    threads: Optional[int] = None,
    *,
    rules: str = "standard",
    encoding: Optional[str] = None,
    limits: Optional[Limits] = None,
) -> Iterator[Page]:
    """Reads pages on as many threads, by default one for each processor, and gives them in their order.

    Each page is what Page takes, or a pair of that and its URL. They are taken from the iterable a little ahead of what
    is asked for, so that it may be endless. A page that cannot be read raises its error in its place.

    >>> import pageslice
    >>> [page.title for page in pageslice.read_many(f"<title>{n}</title>" for n in range(5))]
    ['0', '1', '2', '3', '4']
    """
    count = threads or os.cpu_count() or 1
    if count < 0:
        raise ValueError("threads are 1 or more")

    def read(chunk: list[Union[Data, tuple[Data, Union[str, bytes, None]]]]) -> list[Union[Page, Exception]]:
        found: list[Union[Page, Exception]] = []
        for page in chunk:
            data, url = page if isinstance(page, tuple) else (page, None)
            try:
                found.append(Page._of(Source(Core(data, url, rules_number(rules), encoding, limits))))
            except Exception as error:  # raised in its place, which is not here
                found.append(error)
        unread = [page for page in found if isinstance(page, Page)]
        errors = open_all([page._open_core() for page in unread])
        failed = {id(page): error for page, error in zip(unread, errors) if error is not None}
        return [failed.get(id(page), page) for page in found]

    def results() -> Iterator[Page]:
        source = iter(pages)
        pending: collections.deque[Future[list[Union[Page, Exception]]]] = collections.deque()
        with ThreadPoolExecutor(count, "pageslice") as pool:
            while True:
                while len(pending) < 2 * count and (chunk := list(itertools.islice(source, _AT_ONCE))):
                    pending.append(pool.submit(read, chunk))
                if not pending:
                    return
                for page in pending.popleft().result():
                    if isinstance(page, Exception):
                        raise page
                    yield page

    return results()
