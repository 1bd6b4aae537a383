#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Many pages on many worker processes: each worker pipes files of pages through a command, and a count at the end proves
that every page was answered once, whatever happened to the workers.

  pages.py [OPTION]... FOLDER [-- COMMAND...]
  pages.py [OPTION]... --package FOLDER

Every FOLDER/*.jsonl holds one page a line, as in {"url": ..., "html": ...}; the answers go to FOLDER/*.jsonl.answers.
COMMAND reads such lines and writes one for each, an object with "error" for what is no page ("pageslice --stream" unless
told otherwise), so that the same step works in every engine that can pipe; with --package the workers read the pages
themselves, by the Python package `pageslice`. Files that were answered before are passed over. Each bad page is named by
its file and line. Exit status 1 when a page was lost, answered twice, or bad. Needs python3-distributed."""
import argparse
import itertools
import json
import os
import pathlib
import signal
import subprocess
import sys
import tempfile
import time

from distributed import Client, LocalCluster, as_completed


def answer(pages, command):
    """Runs on a worker: one file through the command, or without one through the package. Whole answers appear or none,
    and work done twice, because another worker died with it, replaces itself."""
    target, part = f"{pages}.answers", f"{pages}.{os.getpid()}.part"
    try:
        with open(pages, "rb") as source, open(part, "wb") as sink:
            code = subprocess.run(command, stdin=source, stdout=sink, stderr=subprocess.DEVNULL, check=False).returncode \
                if command else read(source, sink)
        if code not in (0, 1):  # 1: some lines were no pages, as their answers say
            raise RuntimeError(f"{command[0]} ended with {code}")
        os.replace(part, target)
    finally:
        pathlib.Path(part).unlink(missing_ok=True)
    return os.getpid()


def read(source, sink):
    """What the command does, by the Python package: in the worker itself, a page for each processor at a time."""
    import pageslice

    def asked(line):
        try:
            one = json.loads(line)
            return one["html"], one.get("url") or ""
        except (ValueError, KeyError, TypeError) as error:
            return error

    lines, again = itertools.tee(map(asked, source))
    pages = pageslice.read_many(line for line in again if not isinstance(line, Exception))
    for number, line in enumerate(lines, 1):
        if isinstance(line, Exception):
            found = {"line": number, "error": f"{type(line).__name__}: {line}"}
        else:
            page = next(pages)
            links = [{"url": link.url, "text": link.text} for link in page.links]
            found = {"url": page.url, "title": page.title, "links": links}
        sink.write(json.dumps(found).encode() + b"\n")
    return 0


def count_lines(path):
    with open(path, "rb") as lines:
        return sum(1 for _ in lines)


def is_done(file):
    """Whether a file was answered as a whole, by an earlier run, since it was written."""
    answers = pathlib.Path(f"{file}.answers")
    return answers.exists() and answers.stat().st_mtime_ns >= os.stat(file).st_mtime_ns and \
        count_lines(answers) == count_lines(file)


def make_pages(folder, count, in_each=50):
    """Pages that differ in length and content."""
    for start in range(0, count, in_each):
        with open(folder / f"{start // in_each:05}.jsonl", "w", encoding="utf-8") as file:
            for n in range(start, min(start + in_each, count)):
                html = f"<title>{n}</title>" + f"<p><a href=next{n}>Page {n}</a> <img src={n}.gif>" * (n % 400)
                print(json.dumps({"url": f"http://host/{n}", "html": html}), file=file)


def kill_busiest(client, pids):
    """Kills the worker that has most files before it; gives what to say about it."""
    address, files = max(client.processing().items(), key=lambda item: len(item[1]))
    if not files:
        raise RuntimeError("no worker was left with work: make more pages")
    os.kill(pids[address], signal.SIGKILL)
    return f"killed worker {pids[address]} with {len(files)} files before it"


def work_through(client, files, command, kill_one):
    """Gives how many files each worker process answered, and what went wrong with others."""
    pids = client.run(os.getpid)
    done, failed, shown = {}, {}, sys.stderr.isatty()
    futures = client.map(answer, files, command=command, pure=False)
    names = dict(zip((future.key for future in futures), files))
    for count, future in enumerate(as_completed(futures), 1):
        error = future.exception()  # waits once more where the worker died with what it had done
        if error is None:
            pid = future.result()
            done[pid] = done.get(pid, 0) + 1
        else:
            failed[names[future.key]] = str(error)
        if shown:
            print(f"\r{count} of {len(files)} files\x1b[K", end="\n" if count == len(files) else "", file=sys.stderr)
        if kill_one and count == len(files) // 2:
            print(kill_busiest(client, pids))
    return done, failed


def compare(file):
    """Gives pages and answers of a file, and its bad pages. Answers stand in the order of the pages."""
    asked, answered, bad = 0, 0, []
    try:
        answers = open(f"{file}.answers", encoding="utf-8")
    except FileNotFoundError:
        return count_lines(file), 0, bad
    with answers, open(file, "rb") as pages:
        for number, (page, found) in enumerate(itertools.zip_longest(pages, answers), 1):
            asked, answered = asked + (page is not None), answered + (found is not None)
            found = json.loads(found) if found else {}
            if "error" in found:
                bad.append({"file": file, "line": number, "error": found["error"]})
            elif page and found and json.loads(page).get("url") not in (None, found.get("url")):
                bad.append({"file": file, "line": number, "error": "Answered with another page"})
    return asked, answered, bad


def prove(files, summary):
    """Compares what was asked with what stands in the answers; names what is wrong, and adds it all to the summary."""
    counts = [compare(file) for file in files]
    summary["pages"], summary["answers"] = sum(one[0] for one in counts), sum(one[1] for one in counts)
    summary["lost"] = sum(max(0, asked - answered) for asked, answered, _ in counts)
    summary["too_many"] = sum(max(0, answered - asked) for asked, answered, _ in counts)
    summary["bad"] = [one for _, _, bad in counts for one in bad]
    for one in summary["bad"]:
        print(f"{one['file']}:{one['line']}: {one['error']}", file=sys.stderr)
    print("{pages} pages, {answers} answers: {lost} lost, {too_many} too many".format(**summary))
    return not (summary["lost"] or summary["too_many"] or summary["bad"] or summary["failed"]) and summary["pages"] != 0


def parse():
    own, command = sys.argv[1:], ["pageslice", "--stream"]
    if "--" in own:
        own, command = own[: own.index("--")], own[own.index("--") + 1 :]
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("folder", metavar="FOLDER", type=pathlib.Path)
    parser.add_argument("--workers", metavar="N", type=int, default=4, help="worker processes on this machine")
    parser.add_argument("--scheduler", metavar="ADDRESS", help="work on this cluster, which sees FOLDER too, instead")
    parser.add_argument("--make", metavar="N", type=int, default=0, help="first make N pages in FOLDER")
    parser.add_argument("--kill-one", action="store_true", help="kill a worker when half of the files are done")
    parser.add_argument("--package", action="store_true", help="read pages by the Python package, without a command")
    parser.add_argument("--summary", metavar="FILE", type=pathlib.Path, help="write what was done to FILE, as JSON")
    options = parser.parse_args(own)
    if options.package:
        command = None
    if options.scheduler and options.kill_one:
        parser.error("--kill-one is for workers on this machine")
    if not options.folder.is_dir():
        parser.error(f"{options.folder} is no folder")
    return options, command


def run(options, files, command):
    if not files:
        return {}, {}
    if options.scheduler:
        with Client(options.scheduler, timeout=5) as client:
            return work_through(client, files, command, False)
    with tempfile.TemporaryDirectory() as room, LocalCluster(
        host="127.0.0.1", n_workers=options.workers, threads_per_worker=1, processes=True,
        dashboard_address="127.0.0.1:0", worker_dashboard_address="127.0.0.1:0", local_directory=room,
    ) as cluster, Client(cluster) as client:
        return work_through(client, files, command, options.kill_one)


def main():
    options, command = parse()
    start = time.monotonic()
    make_pages(options.folder, options.make)
    files = sorted(str(path.resolve()) for path in options.folder.glob("*.jsonl"))
    waiting = [file for file in files if not is_done(file)]
    try:
        done, failed = run(options, waiting, command)
    finally:
        for part in options.folder.glob("*.jsonl.*.part"):  # of workers that were killed
            part.unlink(missing_ok=True)
    summary = {"files": len(files), "done_before": len(files) - len(waiting), "failed": failed, "workers": done}
    for pid, count in sorted(done.items()):
        print(f"worker {pid} answered {count} files")
    for file, why in failed.items():
        print(f"{file}: {why}", file=sys.stderr)
    is_well = prove(files, summary)
    summary["seconds"] = round(time.monotonic() - start, 3)
    if options.summary:
        options.summary.write_text(json.dumps(summary, indent=1) + "\n", encoding="utf-8")
    return 0 if is_well else 1


if __name__ == "__main__":
    try:
        sys.exit(main())
    except KeyboardInterrupt:
        sys.exit(130)
    except (OSError, RuntimeError, ValueError) as problem:  # a scheduler that nobody answers for is an OSError
        sys.exit(f"pages.py: {problem}")
