# SPDX-License-Identifier: MIT
"""The program's contract, from outside. Usage: program_test.py SAMPLES [EMULATOR...] PROGRAM"""
import base64
import hashlib
import html.parser
import json
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

COPIES = tempfile.TemporaryDirectory()  # a fault in the program must not write over what is kept
SAMPLES = pathlib.Path(shutil.copytree(sys.argv[1], pathlib.Path(COPIES.name) / "samples"))
PROGRAM = sys.argv[2:]
POSIX = not PROGRAM[-1].endswith(".exe")
NO_SUCH_NAME = "No such" if POSIX else "Invalid argument"  # Windows has no names with such bytes
TOUR = str(SAMPLES / "tour.html")
if not POSIX:
    os.environ["LC_ALL"] = "C.UTF-8"  # Wine takes arguments for characters of the locale

ODD_PAGES = {
    "empty": b"",
    "one byte": b"<",
    "zero bytes": b"\0<title>a\0b</title>\0<a href=\0>\0</a>",
    "no line end": b" <li>x</li>",
    "UTF-16": "\ufeff<html><title>wide</title><a href='x'>y</a>".encode("utf-16-le"),
    "Latin-1 é Ж ☃": b" <title>caf\xe9</title><a href=/\xfcber>\xfc</a><img src=\xe9.gif alt=\xff>",
    "cut UTF-8": b" <title>\xe2\x82</title><li>\xed\xa0\x80\xf4\x90\x80\x80\xc0\x80</li>",
    "terminal orders": b" <title>\x1b]0;x\x07\x9b\xc2\x9b31m\r\x7f</title><a href='\x1b[2J\t'>\x08</a>",
    "every byte": b" <li>" + bytes(range(256)) + b"</li><a href=" + bytes(range(33, 256)) + b">x</a>",
    "unclosed": b" <title>t</title><a href=\"x>y</a><img src='",
}


def run(*args, stdin=b"", **more):
    done = subprocess.run([*PROGRAM, *args], input=stdin, capture_output=True, timeout=120, **more)
    return done.returncode, done.stdout, done.stderr.decode()


def reports(*args, stdin=b""):
    code, out, err = run("--json", "--all", "--encoding", "UTF-8", *args, stdin=stdin)
    assert (code, err, out[-1:]) == (0, "", b"\n"), (code, err, out)
    lines = out.decode("utf-8").split("\n")  # strict: what is not UTF-8 raises
    return [json.loads(line) for line in lines[:-1]]


def stream(lines, *args, **more):
    """The exit code of a stream, its answers, and the numbers of the lines that standard error names."""
    code, out, err = run("--stream", *args, stdin=b"\n".join(lines), **more)
    return code, [json.loads(line) for line in out.splitlines()], \
        [int(n) for n in re.findall(r"^pageslice: line (\d+): .+$", err, re.M)]


def report(page, *args):
    found, = reports(*args, "-", stdin=page)
    return found


def squeezed(text):
    """One U+FFFD or three for a broken character: both are right."""
    return re.sub("\ufffd+", "\ufffd", text)


def slices(value):
    """Every (text, place) in a report."""
    if isinstance(value, list):
        return [found for element in value for found in slices(element)]
    if not isinstance(value, dict):
        return []
    here = [(value[name[:-3]], place) for name, place in value.items() if name.endswith("_at") and place]
    here += [(value["text"], value["at"])] if "at" in value else []
    return here + [found for element in value.values() for found in slices(element)]


class Annotated(html.parser.HTMLParser):
    """What stands in an annotated page: ids of places, the source's text, its pieces, the list's entries."""

    def __init__(self, page):
        super().__init__()
        self.ids, self.pieces, self.entries, self.lines = [], [], [], []
        self.source, self.place, self.open_piece = "", "", False
        self.feed(page)

    def handle_starttag(self, tag, attrs):
        attrs = dict(attrs)
        self.place = tag if tag in ("nav", "main", "aside", "script", "style", "pre") else self.place
        if self.place == "main":
            if tag == "span" and "id" in attrs:
                self.ids.append(attrs["id"])
            if tag == "p":  # its number, as browsers count
                reset = attrs.get("style", "").removeprefix("counter-reset:line ")
                self.lines.append((int(reset) if reset else self.lines[-1]) + 1)
            if tag == "span":
                self.pieces.append("")
                self.open_piece = True

    def handle_endtag(self, tag):
        self.open_piece = self.open_piece and tag != "span"
        self.place = "" if tag == self.place else self.place

    def handle_data(self, data):
        if self.place == "main":
            self.source += data
            if self.open_piece:
                self.pieces[-1] += data
        elif self.place == "pre":
            self.entries += [line.split("\t") for line in data.split("\n") if line]


class ProgramTest(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.addCleanup(self.folder.cleanup)
        self.path = pathlib.Path(self.folder.name)

    def test_exit_codes_and_messages(self):
        missing, folder = str(self.path / "missing.html"), str(self.path)
        for args, code, titles, complaints, said in [
            ([TOUR], 0, 1, 0, ""),
            (["--help"], 0, 0, 0, ""),
            (["--version"], 0, 0, 0, ""),
            ([missing, TOUR], 1, 1, 1, "missing.html: No such file or directory"),
            ([TOUR, folder, TOUR], 1, 2, 1, folder + ": Is a directory"),
            (["--json", missing, folder], 1, 0, 2, "No such"),
            ([], 0, 0, 0, ""),  # an empty page from standard input
            (["--links", "--rules", "standard", TOUR], 0, 0, 0, ""),
            (["--count", "--title", TOUR], 0, 0, 0, ""),
            (["--tilte", TOUR], 2, 0, 1, "did you mean --title?"),
            (["--\x1b[2J\u202e"], 2, 0, 1, "--␛[2J⟨U+202E⟩"),
            (["\x1b\n"], 1, 0, 1, f"pageslice: ␛␊: {NO_SUCH_NAME}"),
            (["--links=false", TOUR], 2, 0, 1, "--links takes no value"),
            (["--json=x", TOUR], 2, 0, 1, "--json takes no value"),
            (["--jobs", "0", TOUR], 2, 0, 1, "--jobs"),
            (["--jobs", "0x2", TOUR], 2, 0, 1, "--jobs"),
            (["--base", "a/b", TOUR], 2, 0, 1, "--base"),
            (["--encoding", "nonsense", TOUR], 2, 0, 1, "--encoding"),
            (["--rules", "nonsense", TOUR], 2, 0, 1, "--rules"),
            (["--stream", TOUR], 2, 0, 1, "--stream"),
            (["--annotate", "x.html", TOUR, TOUR], 2, 0, 1, "--annotate"),
            (["--annotate", TOUR, TOUR], 1, 0, 1, "Is the page itself"),
            (["--annotate", str(self.path / "no" / "x.html"), TOUR], 1, 0, 1, "Cannot be written"),
            (["--annotate", folder, TOUR], 1, 0, 1, "Is no ordinary file"),
        ]:
            with self.subTest(args=args):
                got, out, err = run(*args)
                self.assertEqual((got, err.count("\n")), (code, complaints))
                self.assertEqual(out.count(b"The harbour market"), titles)
                self.assertIn(said, err)

    @unittest.skipUnless(POSIX, "needs the devices of a POSIX system")
    def test_what_the_system_refuses(self):
        huge = self.path / "huge.html"
        huge.touch()
        os.truncate(huge, 1 << 42)
        self.assertEqual(run(str(huge), TOUR)[::2], (1, f"pageslice: {huge}: Too large to hold in memory\n"))
        endless = b'{"html": "x"}\n' * 100000
        for args in [[TOUR], ["--help"], ["--jobs", "3", *[TOUR] * 100], ["--stream"], ["--stream", "--jobs", "3"]]:
            with self.subTest(args=args), open("/dev/full", "wb") as full:
                failed = subprocess.run([*PROGRAM, *args], stdout=full, stderr=subprocess.PIPE, input=endless)
                self.assertEqual(failed.stderr, b"pageslice: standard output: No space left on device\n")
                self.assertEqual(failed.returncode, 1)

    @unittest.skipUnless(sys.platform == "linux" and len(PROGRAM) == 1, "needs a limit that Linux has")
    def test_little_memory(self):
        import resource
        limited = {"preexec_fn": lambda: resource.setrlimit(resource.RLIMIT_DATA, (60 << 20, 60 << 20))}
        if run("--version", **limited)[0] != 0:
            self.skipTest("a sanitizer needs more")
        rows = [b'{"html": "x"}', b'{"html": "%s"}' % (b"x" * (70 << 20)), b'{"html": "xy"}']
        for bomb in [b"[", b"[[],", b"[{},", b'["",', b'{"0":0,', b'{"html":["",', b'{"html":"","a":[[],']:
            rows.append(bomb * ((8 << 20) // len(bomb)))
        rows.append(b'{"html": "' + b"<li>" * (1 << 20) + b'"}')
        rows.append(b'{"html": "xyz"}')
        for jobs in ("1", "256"):
            code, answers, complaints = stream(rows, "--jobs", jobs, **limited)
            self.assertEqual(code, 1)
            self.assertEqual([one.get("bytes") for one in answers][:3] + [answers[-1]["bytes"]], [1, None, 2, 3])
            self.assertEqual(complaints, [n for n, one in enumerate(answers, 1) if "error" in one])
            self.assertEqual(len(answers), len(rows))

    def test_completions(self):
        folder = pathlib.Path(__file__).parents[1] / "tools" / "pageslice" / "completions"
        options = set(re.findall(r"--([a-z][a-z0-9-]+)", run("--help")[1].decode()))
        self.assertGreater(len(options), 15)
        for shell, name, script in [
            ("bash", "pageslice.bash", "COMP_WORDS=(pageslice --ru); COMP_CWORD=1; _pageslice; echo ${COMPREPLY[@]}"),
            ("fish", "pageslice.fish", "complete -C 'pageslice --ru'"),
            ("zsh", "_pageslice", "")]:
            with self.subTest(shell=shell):
                text = (folder / name).read_text()
                self.assertEqual([o for o in options if not re.search(rf"(--|-l ){o}\b", text)], [])
                if shutil.which(shell) and script:
                    said = subprocess.check_output([shell, "-c", f"source '{folder / name}'; {script}"], text=True)
                    self.assertEqual(said.split()[0], "--rules")
                elif shutil.which(shell):
                    subprocess.check_call([shell, "-n", folder / name])

    def write(self, pages):
        """Puts these pages and the samples into files; gives the files and their bytes."""
        pages = {**pages, **{path.stem: path.read_bytes() for path in SAMPLES.glob("*.html")}}
        for name, page in pages.items():
            (self.path / name).write_bytes(page)
        return [str(self.path / name) for name in pages], list(pages.values())

    def test_any_bytes(self):
        files, pages = self.write(ODD_PAGES)
        found = reports(*files)
        for name, page, one in zip(files, pages, found, strict=True):
            with self.subTest(page=name):
                if "converted" in one:
                    page = page.decode(one["encoding"]).encode()[3:]
                self.assertEqual((one["file"], one["bytes"]), (name, len(page)))
                for text, (start, end) in slices(one):
                    self.assertEqual(squeezed(text), squeezed(page[start:end + 1].decode("utf-8", "replace")))
        code, texts, err = run("--text", "--encoding", "UTF-8", *files)
        self.assertEqual((code, err), (0, ""))
        wanted = "".join(one["text"] + "\n" for one in found)
        self.assertEqual(squeezed(texts.decode("utf-8", "replace")), squeezed(wanted))
        shown = run("--all", "--encoding", "UTF-8", *files)[1].decode("utf-8")
        self.assertNotRegex(shown, "[\0-\t\x0b-\x1f\x7f-\x9f]")
        counts = [int(n) for n in re.findall(r": (\d+) links?,", shown)]
        self.assertEqual(counts, [len(one["links"]) for one in found])

    def test_sections_alone_are_bare_lines(self):
        for args, lines, first in [
            (["--title"], 1, "The harbour market &amp; its neighbours"),
            (["--links"], 14, "/\t[Lighthouse]"),
            (["--links", "--base", "HTTP://H.example/m/p.html"], 14, "http://h.example/\t[Lighthouse]"),
            (["--images", "--base", "http://h/m/p.html"], 5, "http://h/m/img/lighthouse.gif\tLighthouse"),
            (["--items"], 5, "By boat, to the old pier"),
            (["--cells"], 10, "Nets &amp; Knots"),
        ]:
            with self.subTest(args=args):
                got = run(*args, TOUR)[1].decode().splitlines()
                self.assertEqual((len(got), got[0]), (lines, first))
        self.assertIn("H2O on your left", run("--items", TOUR)[1].decode())
        title, alt = "t" * 200, "a" * 200
        long = f' <title>{title}</title><img src=x alt="[{alt}]">'.encode()
        self.assertEqual(run("--title", "-", stdin=long)[1].decode(), title + "\n")
        shown = run("-", stdin=long)[1].decode()
        self.assertEqual(re.findall("t{9,}.?|a{9,}.?", shown), [title[:160] + "…", alt[:160] + "…"])
        self.assertEqual(run("--title", "-")[1], b"\n")  # a line for each page

    def test_bare_lines(self):
        page, names = self.path / ("a\nb.html" if POSIX else "a b.html"), self.path / "names"
        page.write_bytes(" <title>T &amp;\n<b>é</b></title><a href=\"/?a&amp;b\">x &lt; y</a>".encode())
        names.write_bytes(f"{page}\0{TOUR}\0".encode())
        alone = ["--encoding", "utf-8", str(page)]
        shown = str(page).replace("\n", "␊")
        for args, wanted in [
            (["-t", *alone], "T &amp; é\n"),
            (["-td", *alone], "T & é\n"),
            (["-ld", "--base", "http://h/d/", *alone], "http://h/?a&b\tx < y\n"),
            (["-ld", "-r", "standard", *alone], "/?a&b\tx < y\n"),
            (["-xd", *alone], "T & é x < y \n"),
            (["-tH", *alone], f"{shown}\tT &amp; é\n"),
            (["-tH0", *alone], f"{page}\tT &amp; é\0"),
            (["-n", *alone], "1\t1\t0\t0\t0\n"),
            (["-nli", "--files0-from", str(names)], "1\t0\n14\t5\n"),
            (["-nli", "--json", TOUR], f'{{"file":{json.dumps(TOUR)},"bytes":2429,"read_to":2340,"links":14,"images":5}}\n'),
        ]:
            with self.subTest(args=args):
                self.assertEqual(run(*args), (0, wanted.encode(), ""))

    def test_rules_and_encodings(self):
        html = "<title>é &amp;</title></html><table><td>Ж<td><a href=ф?q=ф>x</a><img alt=i srcset=s>"
        wanted = {
            "title": "é &amp;", "title_plain": "é &", "cells": [("Ж", 0), ('<a href=ф?q=ф>x</a><img alt=i srcset=s>', 1)],
            "href": "ф?q=ф", "src": None, "srcset": "s"}
        for label, name, query in [("utf8", "UTF-8", "%D1%84"), ("koi8-r", "KOI8-R", "%C6"), ("utf-16le", "UTF-16LE", "%D1%84")]:
            with self.subTest(label=label):
                page = html.replace("é", "e" if label == "koi8-r" else "é").encode(label)
                args = ["--rules", "standard", "--encoding", label, "--base", "http://h/", "-"]
                one = json.loads(run("--json", "--all", *args, stdin=page)[1])
                found = {"title": one["title"].replace("e", "é"), "title_plain": one["title_plain"].replace("e", "é"),
                         "cells": [(cell["text"], cell["column"]) for cell in one["cells"]],
                         "href": one["links"][0]["href"], **{name: one["images"][0][name] for name in ("src", "srcset")}}
                self.assertEqual(found, wanted)
                self.assertEqual(one["rules"], "standard")
                self.assertEqual(one.get("encoding", "UTF-8"), name)
                for args_of_mode in (["--links"], ["--all"], ["--annotate", "-"]):
                    self.assertIn("Ж" if "--links" not in args_of_mode else "\tx", run(*args_of_mode, *args, stdin=page)[1].decode())

    def test_base(self):
        found = report(b" <a href=../x>t</a><a href=mailto:a@b>m</a>", "--base", "http://h/a/b/c")
        self.assertEqual([link["href"] for link in found["links"]], ["../x", "mailto:a@b"])
        self.assertEqual([link["url"] for link in found["links"]], ["http://h/a/x", "mailto:a@b"])
        self.assertNotIn("url", report(b" <a href=x>t</a>")["links"][0])
        self.assertNotIn(b'"url"', run("--stream", stdin=b'{"html": " <a href=x>t</a>"}')[1])

    def test_stream_answers_while_input_flows(self):
        for jobs in ("1", "3"):
            command = [*PROGRAM, "--stream", "--jobs", jobs]
            with subprocess.Popen(command, stdin=subprocess.PIPE, stdout=subprocess.PIPE) as live:
                for n in range(3):
                    live.stdin.write(b'{"url": "http://h/%d", "html": " <a href=x>t</a>"}\n' % n)
                    live.stdin.flush()
                    answer = json.loads(live.stdout.readline())
                    self.assertEqual(answer["url"], f"http://h/{n}")
                    self.assertEqual(answer["links"][0]["url"], "http://h/x")
                live.stdin.close()
                self.assertEqual((live.stdout.read(), live.wait(60)), (b"", 0))

    def test_stream_answers_every_line(self):
        rows = [  # a line, what its answer says
            (b'{"html": "<li>a"}', {"bytes": 5}),
            (b' {"id": -1.5e3, "url": null, "html" : ""} \r', {"id": -1500.0, "bytes": 0}),
            (b'{"id": "\\u00e9\\ud800", "html": ""}', {"id": "é\ud800", "repaired": True}),
            (b'{"id": null, "html": "", "html": "ab"}', {"id": None, "bytes": 2}),
            (b'{"\\u0068tml": "\\u00e9\\n\\"\\\\\\/\\b\\ud83d\\ude00"}', {"bytes": 11, "text": 'é "\\/\b😀'}),
            (b'{"html": "a\\ud800\\u0041\\udc00"}', {"text": "a\ufffdA\ufffd", "repaired": True}),
            (b'{"html": "a\xff\xe2\x82b\xed\xa0\x80"}', {"text": "a\ufffd\ufffdb\ufffd\ufffd\ufffd", "repaired": True}),
            (b'{"url": "\xff", "html": "\xc3\xa9"}', {"url": "\ufffd", "text": "é", "repaired": True}),
            (b'{"html": "", "x": {"html": [1e, "}\\"", [}]], "y": nonsense}', {"bytes": 0}),
            (b"{", {"error": "Not JSON from byte 2 on"}),
            (b"", {"error": "Empty"}),
            (b"[]", {"error": "Not a JSON object"}),
            (b'{"html": 5}', {"error": 'Its "html" is not a string'}),
            (b'{"id": 7, "url": "u"}', {"id": 7, "error": 'Its "html" is missing'}),
            (b'{"url": 1, "html": ""}', {"error": 'Its "url" is not a string'}),
            (b'{"id": [], "html": ""}', {"error": 'Its "id" is neither text nor number'}),
            (b'{"id": 01, "html": ""}', {"error": "Not JSON from byte 9 on"}),
            (b'{"html": "\t"}', {"error": "Not JSON from byte 11 on"}),
            (b'{"html": "\\x"}', {"error": "Not JSON from byte 12 on"}),
            (b'{"html": ""} x', {"error": "Not JSON from byte 14 on"}),
            (b'{"html": "", "url": "' + b"u" * 9000 + b'"}', {"error": 'Its "url" is longer than 8 KiB'}),
        ]
        pages = [{"url": f"u{n}", "html": "<li>é\0</li>" * (n * 37 % 500)} for n in range(100)]
        rows += [(json.dumps(page).encode(), {"url": page["url"]}) for page in pages]
        for jobs in ("1", "4"):
            code, answers, complaints = stream([line for line, _ in rows], "--all", "--jobs", jobs)
            self.assertEqual((code, len(answers)), (1, len(rows)))
            self.assertEqual(complaints, [n for n, (_, wanted) in enumerate(rows, 1) if "error" in wanted])
            for n, ((line, wanted), answer) in enumerate(zip(rows, answers), 1):
                with self.subTest(line=line[:80], jobs=jobs):
                    self.assertEqual({name: answer.get(name) for name in wanted}, wanted)
                    self.assertEqual(answer.get("line"), n if "error" in wanted else None)
                    self.assertEqual("repaired" in answer, "repaired" in wanted)

    def test_jobs_keep_the_order(self):
        names = [str(path) for path in sorted(SAMPLES.glob("*.html"))] * 20
        names[7:7] = names[60:60] = ["missing.html"]
        alone, together = (run("--all", "--jobs", jobs, *names) for jobs in ("1", "8"))
        self.assertEqual(alone, together)
        self.assertEqual((alone[0], alone[2].count("missing.html")), (1, 2))

    def test_what_grows_is_cut_short(self):
        url = "http://h/" + "u" * 8000 + "/"
        for name, page in {
            "a> before items that all end together": b" <li>" + b"a>" * 50000 + b"<li></ul>",
            "images": b" <img src=x>" * 9000,
            "links": b" <a href=x>t</a>" * 20000,
        }.items():
            most = 32 * len(page) + 65536
            for args in [["--json", "--all"], ["--json", "--all", "--rules", "standard"], ["--all"], ["--links"]]:
                with self.subTest(page=name, args=args):
                    code, out, err = run("--base", url, *args, "-", stdin=page)
                    self.assertLess(len(out), most)
                    if "--json" in args:
                        one = json.loads(out)
                        listed = sum(len(one[kind]) for kind in ("links", "images", "items", "cells"))
                        counted = json.loads(run("--count", *args, "-", stdin=page)[1])
                        self.assertEqual(listed + one.get("left_out", 0), sum(
                            counted[kind] for kind in ("links", "images", "items", "cells")))
                        self.assertTrue("left_out" in one or "a>" in name)
                        self.assertTrue("shortened" in one or "standard" in args or "a>" not in name)

    def test_annotated_page(self):
        overlapping = b" <ul><li>a > b > c<li>d</li></ul>\r\n<li>\n\n<li>\r<td>\n x</td>" + b"y" * 50000
        files, pages = self.write({"overlap": overlapping})
        for name, page, one in zip(files, pages, reports(*files), strict=True):
            with self.subTest(page=name):
                marked = self.path / "é Ж ☃.html"
                self.assertEqual(run("--annotate", str(marked), name), (0, b"", ""))
                text = marked.read_bytes().decode("utf-8")
                self.assertNotRegex(text, r"<(img|iframe|object|embed)\b|<(script|link)[^>]+http|url\(|@import")
                annotated = Annotated(text)
                places = [f"s{n}" for n in range(len(annotated.entries))]
                self.assertEqual(sorted(annotated.ids, key=lambda one: int(one[1:])), places)
                script = re.search("<script>(.*)</script>", text, re.S)[1]
                digest = base64.b64encode(hashlib.sha256(script.encode()).digest()).decode()
                self.assertIn(f"script-src 'sha256-{digest}'", text)
                found = [entry for entry in annotated.entries if entry[0] != "m"]
                alts = sum("alt_at" in image for image in one["images"])
                self.assertEqual(len(found), len(slices(one)) - alts)
                if not page.isascii() or b"\0" in page:
                    continue  # shown with other characters than it has
                source = page.decode().replace("\r\n", "\n").replace("\r", "\n")
                self.assertEqual(annotated.source.strip("\n"), source.strip("\n"))
                self.assertEqual(annotated.lines[-1], source.count("\n") + 1)
                for _, start, end, first, last, _ in annotated.entries:
                    self.assertEqual("".join(annotated.pieces[int(first):int(last) + 1]),
                                     re.sub("[\r\n]", "", page[int(start):int(end) + 1].decode()))

    def test_annotated_choices(self):
        page = " <a href=x>a\u202eb</a>\ufeff</html><a href='y'></a><li>z</li><img src=i>".encode()
        for args, kinds, said in [
            (["--encoding", "utf-8"], "ukmi", "⟨U+202E⟩</i>b"),
            (["--links", "--base", "http://h/d/e"], "ukm", "\thttp://h/d/x\n"),
            (["--items"], "", "Read to byte"),
            (["--rules", "standard", "--images"], "i", "\ti\n"),
            (["--rules", "standard", "--encoding", "utf-8"], "ukuli", "<i>⟨U+FEFF⟩</i>"),
        ]:
            with self.subTest(args=args):
                out = run("--annotate", "-", *args, "-", stdin=page)[1].decode()
                self.assertEqual("".join(entry[0] for entry in Annotated(out).entries), kinds)
                self.assertIn(said, out)

    @unittest.skipUnless(POSIX, "needs files of a POSIX system")
    def test_annotated_file_is_whole_or_not_there(self):
        page, target, pipe = self.path / "p.html", self.path / "t.html", self.path / "pipe"
        page.write_bytes(b" <title>t</title>")
        os.mkfifo(pipe)
        link = self.path / "link.html"
        link.symlink_to(target)
        target.write_text("old")
        target.chmod(0o640)
        for name, source, code in [(page, page, 1), (pipe, page, 1), (target, self.path / "none", 1), (link, page, 0)]:
            with self.subTest(target=name.name):
                self.assertEqual(run("--annotate", str(name), str(source))[0], code)
                self.assertEqual(target.read_text() == "old", code == 1)
        with open(page, "rb") as same:
            done = subprocess.run([*PROGRAM, "--annotate", str(page), "-"], stdin=same, capture_output=True)
        self.assertEqual((done.returncode, page.read_bytes()), (1, b" <title>t</title>"))
        self.assertTrue(link.is_symlink())
        self.assertEqual(target.stat().st_mode & 0o777, 0o640)
        self.assertEqual(len(list(self.path.iterdir())), 4)

    @unittest.skipUnless(POSIX, "needs a pseudo-terminal")
    def test_terminal(self):
        import pty
        try:
            for end in pty.openpty():
                os.close(end)
        except OSError as error:
            self.skipTest(f"no pseudo-terminal here: {error}")
        for environment, args, coloured in [
            ({}, [], True), ({"NO_COLOR": "1"}, [], False), ({"NO_COLOR": ""}, [], True), ({"TERM": "dumb"}, [], False),
            ({"NO_COLOR": "1"}, ["--color", "always"], True), ({}, ["--color=never"], False), ({}, ["--json"], False),
        ]:
            with self.subTest(environment=environment, args=args):
                mine, its = pty.openpty()
                with subprocess.Popen([*PROGRAM, *args, "-"], stdin=subprocess.PIPE, stdout=its,
                                      env={**os.environ, "TERM": "xterm", **environment}) as program:
                    program.stdin.write("<meta charset=utf-8> <title>\x1b[31mr\u202e\x85</title>".encode())
                    program.stdin.close()
                    program.wait(60)
                shown = os.read(mine, 65536).decode()
                self.assertNotRegex(shown, "\x1b\\[31m|[\u202e\x85]")
                self.assertIn("\\u001b[31mr\\u202e\\u0085" if args == ["--json"] else "␛[31mr⟨U+202E⟩", shown)
                self.assertEqual("\x1b[1m" in shown, coloured)
                with subprocess.Popen(PROGRAM, stdin=its, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE) as program:
                    self.assertIn(b"FILE", program.stderr.read())
                os.close(mine)
                os.close(its)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=1)
