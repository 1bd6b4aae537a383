# SPDX-License-Identifier: MIT
"""What can go wrong, and the codes of the library that say so."""
from __future__ import annotations

from ._native import lib


class Error(ValueError):
    """Of whatever pageslice cannot do with its arguments."""


class ClosedError(Error):
    """The page was closed."""


class LimitError(Error):
    """The page holds more than the limits allow."""


class TooLargeError(Error):
    """By the classic rules, a text of more than 2 GiB."""


class NotAURLError(Error):
    """Not a URL, by the URL Standard."""


class NeedsIDNAError(NotAURLError):
    """A host name with letters outside ASCII, which this build cannot map."""


class OutOfMemoryError(MemoryError):
    """Memory ran out; nothing was lost, and nothing leaks."""


_ERRORS: dict[int, tuple[type[Exception], str]] = {
    lib.PAGESLICE_NO_MEMORY: (OutOfMemoryError, "memory ran out"),
    lib.PAGESLICE_TOO_LARGE: (TooLargeError, "the classic rules take texts up to 2 GiB"),
    lib.PAGESLICE_LIMIT: (LimitError, "the page holds more than the limits allow"),
    lib.PAGESLICE_NOT_A_URL: (NotAURLError, "not a URL"),
    lib.PAGESLICE_NEEDS_IDNA: (NeedsIDNAError, "the host name has letters outside ASCII"),
}


def check(code: int) -> None:
    """Raises what a code of the library means, unless it means that all is well."""
    if code != lib.PAGESLICE_OK:
        kind, what = _ERRORS.get(code, (Error, f"pageslice cannot do that (code {code})"))
        raise kind(what)
