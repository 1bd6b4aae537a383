# SPDX-License-Identifier: MIT
"""From the Encoding Standard's names to what Python can decode."""
from __future__ import annotations

import codecs
import functools
from typing import NamedTuple

from ._native import ffi, lib

# Python's names of those encodings that it knows by another one, or of which it knows a larger one.
_CODECS = {
    "IBM866": "cp866",
    "ISO-8859-8-I": "iso8859-8",
    "macintosh": "mac_roman",
    "x-mac-cyrillic": "mac_cyrillic",
    "GBK": "gb18030",
    "Big5": "big5hkscs",
    "Shift_JIS": "cp932",
    "EUC-KR": "cp949",
    "UTF-16LE": "utf-16-le",
    "UTF-16BE": "utf-16-be",
}
_MANY_BYTES = {"GBK", "gb18030", "Big5", "EUC-JP", "ISO-2022-JP", "Shift_JIS", "EUC-KR"}

# Where Python differs from the Encoding Standard.
_CORRECTIONS = {"KOI8-U": {0xAE: "\u045e", 0xBE: "\u040e"}, "windows-1255": {0xCA: "\u05ba"}}

# What Python makes of four bytes that begin no character.
_NO_SHIFT_JIS = dict.fromkeys(range(0xF8F0, 0xF8F4), "\ufffd")


def _character(name: str, codec: str, byte: int) -> str:
    if name == "x-user-defined":
        return chr(0xF700 + byte)
    corrected = _CORRECTIONS.get(name, {}).get(byte)
    if corrected is not None:
        return corrected
    character = bytes([byte]).decode(codec, "replace")
    # Control characters, which Python leaves out.
    return chr(byte) if character == "\ufffd" and byte < 0xA0 and name.startswith("windows-") else character


class Encoding(NamedTuple):
    """How the bytes of a page become text."""

    name: str
    codec: str
    characters: str  # of every byte, where each byte is one character; else empty
    high: object  # those from 128 on, for the library; NULL where there are none
    care: int  # which bytes only Python can decode

    def text(self, raw: bytes) -> str:
        if self.name == "replacement":
            return "\ufffd" if raw else ""
        if self.characters:
            return codecs.charmap_decode(raw, "strict", self.characters)[0]  # type: ignore[arg-type]  # a str is a table too
        text = raw.decode(self.codec, "replace")
        return text.translate(_NO_SHIFT_JIS) if self.name == "Shift_JIS" else text


@functools.lru_cache(maxsize=None)
def encoding(name: str) -> Encoding:
    """What is known of an encoding, by the name that the library gives it."""
    codec = _CODECS.get(name, name.replace("windows-", "cp"))
    if name in ("UTF-8", "replacement") or name in _MANY_BYTES or name.startswith("UTF-16"):
        care = lib.PAGEBULK_CARE_HIGH
        if name == "UTF-8":
            care = lib.PAGEBULK_NO_CARE
        elif name in ("ISO-2022-JP", "replacement"):  # where bytes below 128 are not ASCII either
            care = lib.PAGEBULK_CARE_ALL
        return Encoding(name, codec, "", ffi.NULL, care)
    characters = "".join(chr(byte) if byte < 128 else _character(name, codec, byte) for byte in range(256))
    return Encoding(name, codec, characters, ffi.new("unsigned short[128]", list(map(ord, characters[128:]))), 0)


UTF_8 = encoding("UTF-8")
