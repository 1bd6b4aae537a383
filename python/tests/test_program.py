# SPDX-License-Identifier: MIT
"""The package answers what the program `pageslice` prints as JSON, on the samples and on the pages of PAGESLICE_CORPUS."""
import json
import os
import pathlib
import subprocess

import pytest

from pageslice import Page

PROGRAM = os.environ.get("PAGESLICE_PROGRAM")
CORPUS = os.environ.get("PAGESLICE_CORPUS")
URL = "http://host/dir/page.html"


def decoded(page, raw):
    return None if raw is None else page._open_core().decoder.text(raw)


def at(record, field=None):
    start, stop = record.span_of(field) if field else record.span
    return [start, stop - 1]


def shown(page):
    """The program's JSON, made from the package: attributes as written there, and decoded here."""
    found = {"bytes": len(page.data), "url": URL, "title_plain": page.title and " ".join(page.title.split())}
    found["links"] = [
        {"href": decoded(page, link.raw_of("href")), "href_at": at(link, "href"), "url": link.url,
         "text": link.markup, "text_at": at(link, "markup"), "plain": link.text}
        for link in page.links
    ]  # fmt: skip
    found["images"] = []
    for image in page.images:
        one = {"src": decoded(page, image.raw_of("src"))}
        if image.src is not None:
            one |= {"src_at": at(image, "src"), "url": image.url}
        for name in ("srcset", "alt"):
            if image.raw_of(name) is not None:
                one |= {name: decoded(page, image.raw_of(name)), name + "_at": at(image, name)}
        one |= {name: getattr(image, name) for name in ("width", "height") if getattr(image, name) is not None}
        if page.rules == "standard" or image.src is not None:
            found["images"].append(one)
    found["items"] = [{"text": item.markup, "at": at(item), "plain": item.text} for item in page.items]
    found["cells"] = []
    for cell in page.cells:
        numbers = {name: getattr(cell, name) for name in ("table", "row", "column", "colspan", "rowspan")}
        one = {"text": cell.markup, "at": at(cell), "plain": cell.text, "header": cell.is_header or None, **numbers}
        found["cells"].append({name: value for name, value in one.items() if value is not None})
    found["text"] = page.plain_text()
    return found


def compare(files, rules):
    command = [PROGRAM, "--json", "--all", "--rules", rules, "--base", URL, *map(str, files)]
    lines = subprocess.run(command, capture_output=True, check=False).stdout.splitlines()
    assert len(lines) == len(files) > 0
    for file, line in zip(files, lines):
        theirs = json.loads(line)
        page = Page(pathlib.Path(file).read_bytes(), URL, rules=rules)
        assert theirs.get("encoding", "UTF-8") == page.encoding
        assert theirs.get("read_to", page.read_to) == page.read_to
        ours = shown(page)
        if theirs.get("title_plain") is not None:
            theirs["title_plain"] = " ".join(theirs["title_plain"].split())
        for name, value in ours.items():
            assert theirs.get(name) == value, (str(file), name)


@pytest.mark.skipif(not PROGRAM, reason="PAGESLICE_PROGRAM is not set")
def test_samples(samples, rules):
    compare(samples, rules)


@pytest.mark.skipif(not PROGRAM or not CORPUS, reason="PAGESLICE_PROGRAM or PAGESLICE_CORPUS is not set")
def test_corpus(rules):
    compare(sorted(pathlib.Path(CORPUS).glob("*.html")), rules)
