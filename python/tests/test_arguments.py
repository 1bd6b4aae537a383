# SPDX-License-Identifier: MIT
"""Whatever it is given, the package answers or raises: it never crashes, and never answers two things."""
import concurrent.futures
import copy
import pickle
import subprocess
import sys
import textwrap

import pytest
from hypothesis import given, settings
from hypothesis import strategies as st

import pageslice
from pageslice import Page

TAGS = [b"<a href=", b"<a\thref='", b"<img src=", b"<li>", b"<td colspan=9>", b"<table>", b"</a>", b"<title>", b"<base href=/", b"&amp", b"<svg>",
        b"<![CDATA[", b"<!--", b"<script>", b'"', b">", b"\0", b"\xe9", b"\xe2\x82\xac", b"\x1b$B", b"<meta charset=gbk>"]  # fmt: skip
HTML = st.lists(st.one_of(st.sampled_from(TAGS), st.binary(max_size=6)), max_size=40).map(b"".join)
LABELS = st.sampled_from([None, "utf-8", "latin1", "gbk", "utf-16", "iso-2022-jp", "hz-gb-2312", "x-user-defined", "none", "é"])
ANYTHING = st.one_of(st.none(), st.integers(), st.floats(), st.text(), st.binary(), st.lists(st.integers()), st.booleans())


@settings(deadline=None, max_examples=300)
@given(HTML, LABELS, st.sampled_from(["classic", "standard"]))
def test_any_page(html, encoding, rules):
    with Page(html, "http://host/é", rules=rules, encoding=encoding) as page:
        for records in (page.links, page.images, page.cells, page.items):
            assert [records[i] for i in range(len(records))] == list(records)
            for record in records:
                assert page.data[slice(*record.span)] == record.raw
                assert copy.deepcopy(record) == record and repr(record)
                assert all(isinstance(getattr(record, name), (str, type(None))) for name in record._schema.slices)
        assert isinstance(page.plain_text(), str) and page.read_to <= len(page.data)
        assert (page.title, page.base) == (Page(html, rules=rules, encoding=encoding).title, page.base)
    end = 0
    for token in pageslice.tokens(html, encoding=encoding):
        assert end <= token.span[0] < token.span[1]
        end = token.span[1]


@settings(deadline=None, max_examples=300)
@given(data=ANYTHING, url=ANYTHING, encoding=ANYTHING, rules=st.one_of(st.just("standard"), ANYTHING), limits=ANYTHING)
def test_any_arguments(data, url, encoding, rules, limits):
    try:
        Page(data, url, rules=rules, encoding=encoding, limits=limits).links
        assert rules == "standard"
    except (TypeError, ValueError):
        pass


@settings(deadline=None, max_examples=300)
@given(ANYTHING, ANYTHING)
def test_any_text(one, other):
    page = Page(b"<base href=x>", "http://host/")
    for call in (pageslice.decode, pageslice.normalize, page.absolute, lambda url: pageslice.resolve(other, url)):
        try:
            assert isinstance(call(one), str)
        except (TypeError, ValueError):
            pass


class Bytes(bytes):
    def __len__(self):
        return 1 << 40


class Text(str):
    def encode(self, *_):
        return Bytes(b"x")


def test_classes_that_lie():
    for data in (Bytes(b"<title>x</title>"), Text("<title>x</title>")):
        page = Page(data, type(data)(b"http://host/" if isinstance(data, bytes) else "http://host/"))
        assert (page.title, page.absolute("x"), len(page.data)) == ("x", "http://host/x", 16)
        assert pageslice.decode(data) == "<title>x</title>"


def test_read_many(rules):
    html = [f"<title>{n}</title><a href=x{n}>y</a>" + "<p>" * n for n in range(500)]
    pages = pageslice.read_many(((page, f"http://host/{n}") for n, page in enumerate(html)), 3, rules=rules)
    found = [(page.title, page.links[0].href, page.url) for page in pages]
    assert found == [(str(n), f"x{n}", f"http://host/{n}") for n in range(500)]
    assert list(pageslice.read_many([])) == []
    many = pageslice.read_many([b"<a href=1>1</a>"] * 40 + ["<a href=1>1</a>" * 3, None], limits=pageslice.Limits(links=2))
    with pytest.raises(pageslice.LimitError):
        assert len([next(many) for _ in range(41)]) == 40
    with pytest.raises(TypeError):
        list(pageslice.read_many([b"", None]))
    with pytest.raises(ValueError):
        pageslice.read_many([], -1)


def test_the_lock_is_released_while_a_page_is_read():
    import threading
    import time

    page, seen, done = b"<a href=x>y</a>" * 1_000_000, [], threading.Event()

    def watch():
        while not done.is_set():
            seen.append(time.perf_counter())
            time.sleep(0.0001)

    old = sys.getswitchinterval()
    sys.setswitchinterval(60)  # nobody gets the lock but where it is given up
    try:
        watcher = threading.Thread(target=watch)
        watcher.start()
        start = time.perf_counter()
        opened = Page(page)
        len(opened.links)
        end = time.perf_counter()
        done.set()
        watcher.join()
    finally:
        sys.setswitchinterval(old)
    assert any(start < t < end for t in seen)


def links_of(page):
    return [link.href for link in page.links]


def test_pages_go_to_other_processes():
    pages = [Page(f"<p><a href={n}>x</a>", rules="classic") for n in range(3)]
    with concurrent.futures.ProcessPoolExecutor(2) as pool:
        assert list(pool.map(links_of, pages)) == [["0"], ["1"], ["2"]]
    assert pickle.loads(pickle.dumps(list(pages[1].links))) == list(pages[1].links)


@pytest.mark.parametrize("name", ["_xxsubinterpreters", "_interpreters"])
def test_subinterpreters(name):
    pytest.importorskip(name)
    code = f"""
        import {name} as interpreters, sys
        code = '''if 1:
            import sys
            sys.path[:] = {sys.path!r}
            import pageslice
            page = pageslice.Page("<title>x</title>" + "<a href=1>1</a>" * 100)
            assert len(list(page.links)) == 100 and page.plain_text() and list(pageslice.tokens(b"<p>"))
        '''
        import pageslice
        for _ in range(5):
            one = interpreters.create()
            interpreters.run_string(one, code)
            interpreters.destroy(one)
        print(pageslice.Page("<title>y</title>").title)
        """
    run = subprocess.run([sys.executable, "-c", textwrap.dedent(code)], capture_output=True, text=True, check=False)
    assert (run.returncode, run.stdout.strip()) == (0, "y"), run.stderr
