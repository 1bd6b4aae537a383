"""The program's contract, from outside. Usage: program_test.py SAMPLES [EMULATOR...] PROGRAM"""
import html.parser
import json
import os
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

SAMPLES = pathlib.Path(sys.argv[1])
PROGRAM = sys.argv[2:]
POSIX = not PROGRAM[-1].endswith(".exe")
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
    code, out, err = run("--json", "--all", *args, stdin=stdin)
    assert (code, err, out[-1:]) == (0, "", b"\n"), (code, err, out)
    lines = out.decode("utf-8").split("\n")  # strict: what is not UTF-8 raises
    return [json.loads(line) for line in lines[:-1]]


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
    """What stands in an annotated page: ids, targets, the source's text, its pieces, the list's entries."""

    def __init__(self, page):
        super().__init__()
        self.ids, self.targets, self.pieces, self.entries = [], [], [], []
        self.source, self.place, self.open_piece, self.open_small = "", "", False, False
        self.feed(page)

    def handle_starttag(self, tag, attrs):
        attrs = dict(attrs)
        self.place = tag if tag in ("nav", "main", "aside", "script", "style") else self.place
        if re.fullmatch(r"[es]\d+", attrs.get("id", "")):
            self.ids.append(attrs["id"])
            self.targets.append(attrs["href"][1:])
        if "data-p" in attrs:
            self.entries.append([int(n) for n in attrs["data-p"].split(",")])
        self.open_small = tag == "small"
        if self.place == "main" and tag in ("a", "span"):
            self.pieces.append("")
            self.open_piece = True

    def handle_endtag(self, tag):
        self.open_piece = self.open_piece and tag not in ("a", "span")
        self.open_small = False
        self.place = "" if tag == self.place else self.place

    def handle_data(self, data):
        if self.place == "main":
            self.source += data
            if self.open_piece:
                self.pieces[-1] += data
        elif self.open_small:
            self.entries[-1] += [int(n) for n in data.split("–")]


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
            ([], 2, 0, 1, "FILE"),
            (["--nonsense", TOUR], 2, 0, 1, "--nonsense"),
            (["--jobs", "0", TOUR], 2, 0, 1, "--jobs"),
            (["--jobs", "x", TOUR], 2, 0, 1, "--jobs"),
            (["--stream", TOUR], 2, 0, 1, "--stream"),
            (["--annotate", "x.html", TOUR, TOUR], 2, 0, 1, "--annotate"),
            (["--annotate", TOUR, TOUR], 1, 0, 1, "Is the page itself"),
            (["--annotate", str(self.path / "no" / "x.html"), TOUR], 1, 0, 1, "Cannot be written"),
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
        with open("/dev/full", "wb") as full:
            failed = subprocess.run([*PROGRAM, TOUR], stdout=full, stderr=subprocess.PIPE)
        self.assertEqual(failed.stderr, b"pageslice: standard output: Cannot be written\n")
        self.assertEqual(failed.returncode, 1)

    @unittest.skipUnless(sys.platform == "linux" and len(PROGRAM) == 1, "needs a limit that Linux has")
    def test_little_memory(self):
        import resource
        limited = {"preexec_fn": lambda: resource.setrlimit(resource.RLIMIT_DATA, (60 << 20, 60 << 20))}
        if run("--version", **limited)[0] != 0:
            self.skipTest("a sanitizer needs more")
        lines = b"\n".join(b'{"html": "%s"}' % (b"x" * size) for size in (1, 40 << 20, 2))
        code, out, err = run("--stream", "--jobs", "256", stdin=lines, **limited)
        self.assertEqual((code, err), (1, "pageslice: line 2: Too large to hold in memory\n"))
        self.assertEqual([json.loads(line)["bytes"] for line in out.splitlines()], [1, 2])

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
                self.assertEqual((one["file"], one["bytes"]), (name, len(page)))
                for text, (start, end) in slices(one):
                    self.assertEqual(squeezed(text), squeezed(page[start:end + 1].decode("utf-8", "replace")))
        code, texts, err = run("--text", *files)
        self.assertEqual((code, err), (0, ""))
        wanted = "".join(one["text"] + "\n" for one in found)
        self.assertEqual(squeezed(texts.decode("utf-8", "replace")), squeezed(wanted))
        shown = run("--all", *files)[1].decode("utf-8")
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

    def test_stream_order_and_bad_lines(self):
        pages = [{"url": f"u{n}", "html": "<li>é\0</li>" * (n * 37 % 500)} for n in range(200)]
        lines = [json.dumps(page).encode() for page in pages]
        bad = {5: b"{", 50: b"[]", 51: b'{"html": 5}', 120: b'{"url": 1, "html": ""}',
               121: b'{"html": "\xff"}', 150: b'{"url": "u"}',
               151: b'{"html": "", "url": "' + b"u" * 9000 + b'"}'}
        for number, line in sorted(bad.items()):
            lines.insert(number - 1, line)
        lines.insert(160, b" \r")  # blank: counted, not complained about
        for jobs in ("1", "4"):
            with self.subTest(jobs=jobs):
                code, out, err = run("--stream", "--jobs", jobs, stdin=b"\n".join(lines))
                self.assertEqual(code, 1)
                answered = [json.loads(line)["url"] for line in out.splitlines()]
                self.assertEqual(answered, [page["url"] for page in pages])
                reported = re.findall(r"^pageslice: line (\d+): .+$", err, re.M)
                self.assertEqual([int(n) for n in reported], sorted(bad))

    def test_jobs_keep_the_order(self):
        names = [str(path) for path in sorted(SAMPLES.glob("*.html"))] * 20
        names[7:7] = names[60:60] = ["missing.html"]
        alone, together = (run("--all", "--jobs", jobs, *names) for jobs in ("1", "8"))
        self.assertEqual(alone, together)
        self.assertEqual((alone[0], alone[2].count("missing.html")), (1, 2))

    def test_overlapping_slices_are_cut_short(self):
        page = b" <li>" + b"a>" * 50000 + b"<li></ul>"  # 25 000 items that all end together
        found = report(page)
        self.assertGreater(len(found["items"]), 20000)
        self.assertTrue(found["shortened"])
        self.assertLess(max(len(text) for text, _ in slices(found)), 100)
        self.assertLess(len(run("--annotate", "-", "-", stdin=page)[1]), 100 * len(page))

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
                self.assertEqual(len(annotated.ids), len(set(annotated.ids)))
                self.assertEqual(set(annotated.ids), set(annotated.targets))
                alts = sum("alt_at" in image for image in one["images"])
                self.assertEqual(len(annotated.entries), len(slices(one)) - alts)
                if not page.isascii() or b"\0" in page:
                    continue  # shown with other characters than it has
                source = page.decode().replace("\r\n", "\n").replace("\r", "\n")
                self.assertEqual(annotated.source.strip("\n"), source.strip("\n"))
                for first, last, start, end in annotated.entries:
                    self.assertEqual("".join(annotated.pieces[first:last + 1]),
                                     re.sub("[\r\n]", "", page[start:end + 1].decode()))

    @unittest.skipUnless(POSIX, "needs a pseudo-terminal")
    def test_terminal(self):
        import pty
        for environment, coloured in [({}, True), ({"NO_COLOR": "1"}, False)]:
            with self.subTest(environment=environment):
                mine, its = pty.openpty()
                with subprocess.Popen([*PROGRAM, "-"], stdin=subprocess.PIPE, stdout=its,
                                      env={**os.environ, **environment}) as program:
                    program.stdin.write(b" <title>\x1b[31mred</title>")
                    program.stdin.close()
                    program.wait(60)
                shown = os.read(mine, 65536)
                self.assertNotIn(b"\x1b[31m", shown)
                self.assertIn("␛[31mred".encode(), shown)
                self.assertEqual(b"\x1b[1m" in shown, coloured)
                os.close(mine)
                os.close(its)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=1)
