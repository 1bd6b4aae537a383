#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""python/bench/speed.py FOLDER   pageslice beside what else Python has, doing the same jobs on every page of a
folder: prints one table, and writes speed.json and speed.svg beside this file.

Each job begins with the page's bytes and ends with str and int: `links` is the address and the text of each link, `text`
the page's text, `counts` the numbers of links, images, cells and items, and `job` title, links with texts, images with
alternative texts, and text. Each runs in a loop of its own, the fastest of several runs counts, and no other job runs at
the same time. Needs python3-lxml, python3-bs4 and python3-html5lib."""
import json
import pathlib
import platform
import re
import sys
import time
import warnings
from html.parser import HTMLParser
from xml.sax.saxutils import escape

import bs4
import html5lib
import lxml.etree
import lxml.html

import pageslice

HERE = pathlib.Path(__file__).resolve().parent
SKIPPED = ("script", "style", "template")


class Pageslice:
    label = "pageslice"

    def __init__(self, rules="standard"):
        self.rules = rules

    def open(self, data):
        return pageslice.Page(data, rules=self.rules)

    def links(self, data):
        return [(link.href, link.text) for link in self.open(data).links]

    def text(self, data):
        return self.open(data).plain_text()

    def counts(self, data):
        page = self.open(data)
        return len(page.links), len(page.images), len(page.cells), len(page.items)

    def job(self, data):
        page = self.open(data)
        links = [(link.href, link.text) for link in page.links]
        return page.title, links, [(image.src, image.alt) for image in page.images], page.plain_text()


class Lxml:
    label = "lxml"

    def open(self, data):
        return lxml.html.document_fromstring(data)

    def links(self, data):
        return self.links_of(self.open(data))

    def text(self, data):
        return self.open(data).text_content()

    def counts(self, data):
        tree = self.open(data)
        return tuple(sum(1 for _ in tree.iter(*tags)) for tags in (("a", "area"), ("img",), ("td", "th"), ("li",)))

    def job(self, data):
        tree = self.open(data)
        images = [(image.get("src"), image.get("alt")) for image in tree.iter("img")]
        return tree.findtext(".//title"), self.links_of(tree), images, tree.text_content()

    @staticmethod
    def links_of(tree):
        return [(a.get("href"), a.text_content()) for a in tree.iter("a", "area") if a.get("href") is not None]


class Soup:
    label = "BeautifulSoup, lxml"

    def open(self, data):
        return bs4.BeautifulSoup(data, "lxml")

    def links(self, data):
        return self.links_of(self.open(data))

    def text(self, data):
        return self.open(data).get_text()

    def counts(self, data):
        tree = self.open(data)
        return tuple(len(tree.find_all(tags)) for tags in (["a", "area"], "img", ["td", "th"], "li"))

    def job(self, data):
        tree = self.open(data)
        title = tree.title.get_text() if tree.title else None
        images = [(image.get("src"), image.get("alt")) for image in tree.find_all("img")]
        return title, self.links_of(tree), images, tree.get_text()

    @staticmethod
    def links_of(tree):
        return [(a["href"], a.get_text()) for a in tree.find_all(["a", "area"], href=True)]


class Html5lib:
    label = "html5lib"

    def open(self, data):
        return html5lib.parse(data, namespaceHTMLElements=False)

    def links(self, data):
        return self.links_of(self.open(data))

    def text(self, data):
        return "".join(self.open(data).itertext())

    def counts(self, data):
        tree = self.open(data)
        return tuple(sum(1 for tag in tags for _ in tree.iter(tag)) for tags in (("a", "area"), ("img",), ("td", "th"), ("li",)))

    def job(self, data):
        tree = self.open(data)
        images = [(image.get("src"), image.get("alt")) for image in tree.iter("img")]
        return tree.findtext(".//title"), self.links_of(tree), images, "".join(tree.itertext())

    @staticmethod
    def links_of(tree):
        links = [a for tag in ("a", "area") for a in tree.iter(tag)]
        return [(a.get("href"), "".join(a.itertext())) for a in links if a.get("href") is not None]


class Collector(HTMLParser):
    """The whole job without a tree. The encoding is taken for granted."""

    def __init__(self):
        super().__init__()
        self.title, self.links, self.images, self.parts, self.numbers = None, [], [], [], [0, 0, 0, 0]
        self.href, self.from_, self.skipped, self.in_title = None, 0, False, False

    def handle_starttag(self, tag, attributes):
        if tag in ("a", "area"):
            self.end_link()
            self.href, self.from_ = dict(attributes).get("href"), len(self.parts)
            self.numbers[0] += 1
        elif tag == "img":
            found = dict(attributes)
            self.images.append((found.get("src"), found.get("alt")))
            self.numbers[1] += 1
        elif tag in ("td", "th", "li"):
            self.numbers[3 if tag == "li" else 2] += 1
        self.skipped, self.in_title = tag in SKIPPED, tag == "title"

    def handle_endtag(self, tag):
        if tag == "a":
            self.end_link()
        self.skipped = self.in_title = False

    def end_link(self):
        if self.href is not None:
            self.links.append((self.href, "".join(self.parts[self.from_ :])))
        self.href = None

    def handle_data(self, data):
        if self.in_title and self.title is None:
            self.title = data
        if not self.skipped:
            self.parts.append(data)


class Parser:
    label = "html.parser"

    def open(self, data):
        found = Collector()
        found.feed(data.decode("utf-8", "replace"))
        found.close()
        return found

    def links(self, data):
        return self.open(data).links

    def text(self, data):
        return "".join(self.open(data).parts)

    def counts(self, data):
        return tuple(self.open(data).numbers)

    def job(self, data):
        found = self.open(data)
        return found.title, found.links, found.images, "".join(found.parts)


JOBS = ("links", "text", "counts", "job")


def seconds(call, pages):
    start = time.process_time()
    for page in pages:
        call(page)
    return time.process_time() - start


def measure(libraries, pages):
    """Every library does each job a few times, in turn, so that all see the machine in the same states."""
    best = {}
    for turn in range(7):
        for library, turns in libraries:
            for job in JOBS:
                if turn < turns:
                    taken = seconds(getattr(library, job), pages)
                    best[library.label, job] = min(taken, best.get((library.label, job), taken))
    return best


def chart(rows, note):
    """Bars of MB/s for the whole job; a logarithm would hide what this is about."""
    width, left, bar, step = 760, 190, 440, 24
    longest = max(row["job"] for row in rows.values())
    style = """text { font: 13px sans-serif; fill: #24292f } .head { font-weight: bold; font-size: 14px }
.note { font-size: 11px; fill: #57606a } .ours { fill: #0969da } .peer { fill: #8c959f }
@media (prefers-color-scheme: dark) { text { fill: #e6edf3 } .note { fill: #9198a1 } .ours { fill: #4493f8 }
.peer { fill: #6e7681 } }"""
    body = ['<text class="head" x="10" y="16">Title, links with texts, images and text, as Python strings</text>']
    for i, (label, row) in enumerate(rows.items()):
        y, length = 28 + i * step, max(1, bar * row["job"] / longest)
        kind = "ours" if label.startswith("pageslice") else "peer"
        body.append(f'<text x="{left - 8}" y="{y + 14}" text-anchor="end">{escape(label)}</text>')
        body.append(f'<rect class="{kind}" x="{left}" y="{y}" width="{length:.1f}" height="18" rx="2"/>')
        body.append(f'<text x="{left + length + 6:.1f}" y="{y + 14}">{row["job"]:.3g} MB/s</text>')
    height = 28 + len(rows) * step + 24
    body.append(f'<text class="note" x="10" y="{height - 8}">{escape(note)}</text>')
    return (
        f'<svg xmlns="http://www.w3.org/2000/svg" width="{width}" height="{height}" viewBox="0 0 {width} {height}">\n'
        f"<title>Speed of pageslice in Python beside other libraries</title>\n<style>{style}</style>\n"
        + "\n".join(body)
        + "\n</svg>\n"
    )


def main():
    warnings.simplefilter("ignore")
    pages = [path.read_bytes() for path in sorted(pathlib.Path(sys.argv[1]).glob("*.html"))]
    classic = Pageslice("classic")
    classic.label = "pageslice, classic"
    libraries = [(Pageslice(), 7), (classic, 7), (Lxml(), 3), (Parser(), 1), (Soup(), 1), (Html5lib(), 1)]
    megabytes = sum(map(len, pages)) / 1e6
    best = measure(libraries, pages)
    rows = {library.label: {job: megabytes / best[library.label, job] for job in JOBS} for library, _ in libraries}
    cpu = re.search(r"^model name\s*: (.*)$", pathlib.Path("/proc/cpuinfo").read_text(), re.M)
    note = (f"{cpu[1] if cpu else 'unknown'}, one core; CPython {platform.python_version()}, lxml {lxml.etree.__version__}, "
            f"BeautifulSoup {bs4.__version__}, html5lib {html5lib.__version__}; {len(pages)} pages, {megabytes:.1f} MB")  # fmt: skip
    print(note)
    print(f"{'MB/s':24}" + "".join(f"{job:>10}" for job in JOBS) + "   times lxml")
    for label, row in rows.items():
        times = "".join(f"{row[job] / rows['lxml'][job]:8.2f}" for job in JOBS)
        print(f"{label:24}" + "".join(f"{row[job]:10.1f}" for job in JOBS) + times)
    rounded = {label: {job: float(f"{rate:.4g}") for job, rate in row.items()} for label, row in rows.items()}
    (HERE / "speed.json").write_text(json.dumps({"context": note, "MB/s": rounded}, indent=1) + "\n", encoding="utf-8")
    (HERE / "speed.svg").write_text(chart(rows, note), encoding="utf-8")


main()
