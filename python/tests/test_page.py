# SPDX-License-Identifier: MIT
"""What pages hold, as text and as bytes, from every kind of data."""
import gc
import mmap
import pickle
import subprocess
import sys
import threading
import tracemalloc
import weakref

import pytest

import pageslice
from pageslice import Page

HTML = b"""<html><head><title>Fish &amp; more</title></head><body>
<a href="eel.html?a&amp;b" title="An 'eel'" rel=nofollow>The <b>eel</b></a> <a href=cod name=c></a> <a href=/x>X</a>
<img src=a.gif alt="A &lt; B" width=40 align=left ismap><img src=b.gif>
<ul><li>one<li>two <i>more</i></ul><table><tr><th>h</th><td colspan=2>d</td></tr></table></body></html>"""
URL = "http://host/dir/"


def test_what_a_page_holds():
    page = Page(HTML, URL, rules="standard")
    assert (page.title, page.base, page.url, page.encoding) == ("Fish & more", None, URL, "windows-1252")
    assert [(link.href, link.text) for link in page.links] == [("eel.html?a&b", "The eel"), ("cod", ""), ("/x", "X")]
    assert [link.url for link in page.links] == [URL + "eel.html?a&b", URL + "cod", "http://host/x"]
    assert [(image.src, image.alt, image.width, image.align, image.is_map) for image in page.images] == [
        ("a.gif", "A < B", 40, "left", True),
        ("b.gif", None, None, None, False),
    ]
    assert [item.text for item in page.items] == ["one", "two more"]
    assert [tuple(cell) for cell in page.cells] == [("h", 0, 0, 0, 1, 1, True), ("d", 0, 0, 1, 2, 1, False)]
    assert page.read_to == len(HTML)


def test_what_a_classic_page_holds():
    page = Page(HTML, URL, rules="classic")
    assert page.title == "Fish &amp; more"  # to the classic rules, no more than characters
    assert [(link.href, link.text) for link in page.links] == [("eel.html?a&amp;b", "The eel "), ("/x", "X")]
    assert (page.links[0].markup, page.links[0].url) == ("The <b>eel</b>", URL + "eel.html?a&amp;b")
    assert Page(HTML, rules="classic").links[0].url is None
    assert [cell.table for cell in page.cells] == [None] * len(page.cells)


def test_raw_bytes_and_spans(rules):
    page = Page(HTML, rules=rules)
    link = page.links[0]
    assert link.raw == b"""<a href="eel.html?a&amp;b" title="An 'eel'" rel=nofollow>The <b>eel</b>"""
    assert HTML[slice(*link.span)] == link.raw
    assert link.raw_of("href") == b"eel.html?a&amp;b" == HTML[slice(*link.span_of("href"))]
    assert link.raw_of("name") is None and link.span_of("name") is None
    assert page.images[0].raw == b'<img src=a.gif alt="A &lt; B" width=40 align=left ismap>'
    assert page.items[0].raw == b"one" == HTML[slice(*page.items[0].span)]
    with pytest.raises(AttributeError):
        link.raw_of("url?")


@pytest.mark.parametrize(
    "text, encoding, name",
    [
        ("é–€", "cp1252", "windows-1252"),
        ("é", "utf-8", "UTF-8"),
        ("ёж", "koi8-r", "KOI8-R"),
        ("日本", "shift_jis", "Shift_JIS"),
        ("漢字", "big5", "Big5"),
        ("日本", "iso2022_jp", "ISO-2022-JP"),
        ("é", "utf-16-le", "UTF-16LE"),
    ],
)
def test_encodings(text, encoding, name, rules):
    html = f'<title>{text}</title><p><a href="x{text}">{text} <b>b</b> c</a><img src=i alt="{text}"></p>'
    page = Page(html.encode(encoding), rules=rules, encoding=name.lower())
    assert page.encoding == name
    assert (page.title, page.links[0].text, page.images[0].alt) == (text, f"{text} b c", text)
    assert page.links[0].href == "x" + text
    assert text in page.plain_text() and text in page.links[0].markup
    assert Page(html, rules=rules).title == text  # str is in no encoding but its own


NAMES = """UTF-8 IBM866 ISO-8859-2 ISO-8859-3 ISO-8859-4 ISO-8859-5 ISO-8859-6 ISO-8859-7 ISO-8859-8 ISO-8859-8-I ISO-8859-10
ISO-8859-13 ISO-8859-14 ISO-8859-15 ISO-8859-16 KOI8-R KOI8-U macintosh windows-874 windows-1250 windows-1251 windows-1252
windows-1253 windows-1254 windows-1255 windows-1256 windows-1257 windows-1258 x-mac-cyrillic GBK gb18030 Big5 EUC-JP
ISO-2022-JP Shift_JIS EUC-KR x-user-defined""".split()


@pytest.mark.parametrize("name", NAMES)
def test_every_encoding_of_the_standard(name, rules):
    every = bytes(range(256)).replace(b"<", b"").replace(b">", b"").replace(b"&", b"").replace(b'"', b"")
    page = Page(b'<p><a href="x">A ' + every + b"</a>", rules=rules, encoding=name)
    assert page.encoding == name and page.links[0].text.startswith("A ") and page.links[0].href == "x"
    assert page.links[0].markup == page._open_core().decoder.text(b"A " + every)


def test_an_encoding_without_a_table_and_bytes_without_a_meaning():
    assert Page(b"<title>\x81\x8d\xff</title>", rules="classic").title == "\x81\x8d\xff"
    assert Page(b"<title>\xe2\x82 \xff</title>", rules="classic", encoding="utf-8").title == "\ufffd \ufffd"
    assert Page(b"<title>x</title>", rules="classic", encoding="hz-gb-2312").title == "\ufffd"
    assert Page(b"<title>\xa0x\xff</title>", rules="classic", encoding="sjis").title == "\ufffdx\ufffd"


@pytest.mark.parametrize("kind", [str, bytes, bytearray, memoryview, "mmap", "slice"])
def test_kinds_of_data(kind, tmp_path, rules):
    if kind == "mmap":
        (tmp_path / "page").write_bytes(HTML)
        with open(tmp_path / "page", "rb") as file:
            data = mmap.mmap(file.fileno(), 0, access=mmap.ACCESS_READ)
    elif kind == "slice":
        data = memoryview(b"xx" + HTML + b"yy")[2:-2]
    else:
        data = HTML.decode() if kind is str else kind(HTML)
    page = Page(data, rules=rules)
    del data
    gc.collect()
    assert page.links == Page(HTML, rules=rules).links
    assert page.links[0].span == Page(HTML, rules=rules).links[0].span


def test_data_is_held_until_the_page_is_closed():
    data = bytearray(HTML)
    page = Page(data, rules="classic")
    with pytest.raises(BufferError):
        data.append(1)
    data[:] = b" " * len(data)  # in place: the page must not care
    assert page.links[0].href == "eel.html?a&amp;b"
    page.close()
    data.append(1)


@pytest.mark.parametrize("data", [None, 1, ["x"], object(), memoryview(b"abcd")[::2]])
def test_what_is_no_data(data):
    with pytest.raises((TypeError, ValueError)):
        Page(data)


@pytest.mark.parametrize(
    "arguments, error",
    [
        ({"rules": "html"}, pageslice.Error),
        ({"rules": []}, pageslice.Error),
        ({"url": 1}, TypeError),
        ({"encoding": b"utf-8"}, TypeError),
        ({"limits": 1}, TypeError),
        ({"limits": (-1,)}, pageslice.Error),
        ({"limits": (1 << 70,)}, pageslice.Error),
        ({"limits": ("x",)}, TypeError),
        ({"limits": pageslice.Limits(links=1)}, pageslice.LimitError),
    ],
)
def test_arguments_that_are_refused(arguments, error):
    with pytest.raises(error):
        Page(HTML, **{"rules": "classic", **arguments})


def test_a_closed_page():
    with Page(HTML, rules="classic") as page:
        links = page.links
        link = links[0]
    assert (link.href, link.text) == ("eel.html?a&amp;b", "The eel ")
    for ask in (lambda: page.links, lambda: links[:1][0], lambda: list(links), lambda: link.rel, lambda: link.raw,
                page.plain_text, lambda: page.absolute("x"), page.__enter__, lambda: pickle.dumps(page)):  # fmt: skip
        with pytest.raises(pageslice.ClosedError):
            ask()
    page.close()
    assert repr(page) == "<Page: closed>"


def test_sequences(rules):
    html = "".join(f"<a href=h{i}>t{i}</a>" for i in range(5000)).join(["<p>", "</p>"])
    links = Page(html, rules=rules).links
    hrefs = [f"h{i}" for i in range(5000)]
    assert len(links) == 5000 and [link.href for link in links] == hrefs == [links[i].href for i in range(5000)]
    assert [link.href for link in links[::-3]] == hrefs[::-3] == [link.href for link in links[::-1][::3]]
    assert [link.href for link in reversed(links)] == hrefs[::-1]
    assert links[-1].href == "h4999" and links[10:20][3].text == "t13" and list(links[7:7]) == []
    assert links[2] in links and links.index(links[4001]) == 4001
    for index in (5000, -5001):
        with pytest.raises(IndexError):
            links[index]
    with pytest.raises(TypeError):
        links["x"]
    assert repr(links[:1]) == "<Links: Link(href='h0', text='t0')>" and "5000 in all" in repr(links)
    assert repr(Page(b"", rules=rules).links) == "<no Links>"


def test_records(rules):
    page = Page(HTML, rules=rules)
    link = page.links[0]
    assert link == Page(HTML, rules=rules).links[0] and link != page.links[1] and link != page.images[0]
    assert len({*page.links, *page.links}) == len(page.links)
    with pytest.raises(AttributeError):
        link.href = "x"
    assert page.links.columns("href", "rel")["rel"][0] == "nofollow"
    assert list(page.images.columns()) == list(page.images[0].asdict())
    copy = pickle.loads(pickle.dumps(link))
    assert copy == link and (copy.span, copy.raw, copy.markup) == (link.span, link.raw, link.markup)


def test_values_that_hold_a_nul():
    page = Page(b"<p><a href=x\0y>a\0b</a><a href=z>c</a>", rules="classic")
    assert page.links[0].text == "a\0b" and page.links[1].text == "c"


def test_texts_that_overlap_take_no_more_than_they_must():
    items = Page(b">" * 200_000 + b"<li>", rules="classic").items
    tracemalloc.start()
    assert sum(1 for _ in zip(items, range(50))) == 50 and len(items) == 100_000
    assert len(items[70_000].markup) > 0
    assert tracemalloc.get_traced_memory()[1] < 20e6
    tracemalloc.stop()


def test_pages_pickle_as_what_they_were_made_of(rules):
    for data, encoding in ((HTML, None), ("<title>é</title>", None), ("<title>é</title>".encode("utf-16-be"), "utf-16be")):
        page = Page(data, URL, rules=rules, encoding=encoding, limits=pageslice.Limits(links=5))
        copy = pickle.loads(pickle.dumps(page))
        assert (copy.title, copy.links, copy.rules, copy.url) == (page.title, page.links, rules, URL)


def test_a_page_is_gone_with_the_last_that_looks_into_it():
    data = bytearray(HTML)
    link = Page(data, rules="classic").links[0]
    assert link.rel == "nofollow"
    with pytest.raises(BufferError):
        data.append(1)
    del link
    data.append(1)  # at once, without the help of gc


def test_memory_that_runs_out():
    code = """if 1:
        import pageslice, resource
        page = b"<img src=x>" * 3_000_000
        used = int(open("/proc/self/statm").read().split()[0]) * resource.getpagesize()
        resource.setrlimit(resource.RLIMIT_AS, (used + (16 << 20), used + (16 << 20)))
        for rules in ("classic", "standard"):
            try:
                pageslice.Page(page, rules=rules).images
                print("there was enough")
            except pageslice.OutOfMemoryError as error:
                print(error)
        """
    run = subprocess.run([sys.executable, "-c", code], capture_output=True, text=True, check=False)
    assert run.stdout.splitlines() == ["memory ran out"] * 2, run.stderr


def test_nothing_leaks():
    def once():
        page = Page(bytearray(HTML), URL, rules="classic")
        list(page.links), page.images[0].width, page.plain_text(), page.title, page.links[0].raw
        return weakref.ref(page)

    for _ in range(100):
        once()
    gc.collect()
    tracemalloc.start()
    before = tracemalloc.get_traced_memory()[0]
    assert all(once()() is None for _ in range(500))
    assert tracemalloc.get_traced_memory()[0] - before < 10_000
    tracemalloc.stop()


def test_many_threads_may_read_and_close_one_page():
    seen = []

    def read(page):
        try:
            while True:
                seen.append(len([link.text for link in page.links]) + len(page.plain_text()))
        except pageslice.ClosedError:
            pass

    for _ in range(20):
        page = Page(HTML * 20, rules="classic")
        threads = [threading.Thread(target=read, args=(page,)) for _ in range(4)]
        for thread in threads:
            thread.start()
        page.links[0]
        page.close()
        for thread in threads:
            thread.join()
    assert len(set(seen)) <= 1
