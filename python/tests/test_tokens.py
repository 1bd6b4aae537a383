# SPDX-License-Identifier: MIT
import pytest

import pageslice
from pageslice import Token

PAGE = "<!DOCTYPE html PUBLIC 'p'><P Class=a b C='x&amp;y' a\0>Fish &lt;<br/><svg><![CDATA[&]]></svg><!--é--><script>&lt;"


def test_every_kind():
    found = list(pageslice.tokens(PAGE))
    assert [PAGE.encode()[slice(*token.span)] for token in found[:2]] == [b"<!DOCTYPE html PUBLIC 'p'>", PAGE[26:54].encode()]
    assert [token[:4] for token in found] == [
        ("doctype", "html", None, {}),
        ("start", "p", None, {"class": "a", "b": "", "c": "x&y", "a\ufffd": ""}),
        ("text", None, "Fish <", {}),
        ("start", "br", None, {}),
        ("start", "svg", None, {}),
        ("cdata", None, "&", {}),
        ("end", "svg", None, {}),
        ("comment", None, "é", {}),
        ("start", "script", None, {}),
        ("text", None, "&lt;", {}),
    ]
    assert (found[0].public_id, found[0].system_id, found[0].force_quirks) == ("p", None, False)
    assert next(pageslice.tokens("<!doctype>")).force_quirks
    assert [token.is_self_closing for token in found[2:5]] == [False, True, False]
    assert [token.is_foreign for token in found[3:7]] == [False, True, True, True]


@pytest.mark.parametrize("encoding", ["utf-8", "latin1", "shift_jis", "utf-16-le", "iso2022_jp"])
def test_encodings(encoding):
    text = "é" if encoding == "latin1" else "日本"
    page = f"<p title={text}>{text}<{text}></p>".encode(encoding)
    label = {"utf-16-le": "utf-16le", "iso2022_jp": "iso-2022-jp"}.get(encoding, encoding)
    assert next(pageslice.tokens(page, encoding=label)).attributes == {"title": text}
    assert [token.text for token in pageslice.tokens(page, encoding=label)] == [None, f"{text}<{text}>", None]


def test_more_than_is_read_at_a_time():
    page = "<i a=\0>x\0y" * 5000 + "<b " + " ".join(f"a{i}={i}" for i in range(3000)) + ">" + "z" * 3_000_000
    found = list(pageslice.tokens(page))
    assert len(found) == 10_002 and found[9998:10_000] == [
        Token("start", "i", None, {"a": "\ufffd"}, (49990, 49997)),
        Token("text", None, "x\0y", {}, (49997, 50000)),
    ]
    assert found[-2].attributes == {f"a{i}": str(i) for i in range(3000)} and len(found[-1].text) == 3_000_000
