# SPDX-License-Identifier: MIT
import pytest

import pageslice
from pageslice import Page


def test_resolve_and_normalize():
    assert pageslice.resolve("http://host/a/b?c", "d") == "http://host/a/d"
    assert pageslice.resolve(b"http://host/a/b", "../é") == "http://host/%C3%A9"
    assert pageslice.resolve("http://host/a/b", "../d", rules="classic") == "http://host/d"
    assert pageslice.normalize("HTTP://Host/a/./b", rules="classic") == "http://host/a/b"
    assert len(pageslice.normalize("http://host/" + "é" * 1000)) == 12 + 6000
    for base, url in ((None, "x"), ("x", "y"), ("http://h/", "http://[")):
        with pytest.raises(pageslice.NotAURLError):
            pageslice.resolve(base, url)


def test_absolute():
    page = Page("<base href=/b/><a href='?a&amp;amp;b'>x</a>", "http://host/", rules="standard")
    assert page.links[0].href == "?a&amp;b"
    assert page.absolute(page.links[0].href) == page.links[0].url == page.absolute(b"?a&amp;amp;b")
    assert page.links[0].url == "http://host/b/?a&amp;b"
    with pytest.raises(pageslice.NotAURLError):
        Page(b"").absolute("x")


def test_decode():
    assert pageslice.decode("&lt;&#x41;&notit;&NotEqualTilde;") == "<A¬it;≂̸"
    assert pageslice.decode(b"a&copy=b", in_attribute=True) == "a&copy=b"
    assert pageslice.decode("\ud800&amp;") == "\ufffd&"


@pytest.mark.parametrize("call", [pageslice.decode, pageslice.normalize, lambda x: pageslice.resolve("http://h", x)])
def test_what_is_no_text(call):
    for bad in (None, 1, [], bytearray(b"x")):
        with pytest.raises(TypeError):
            call(bad)
