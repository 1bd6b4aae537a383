#!/usr/bin/python3
"""Many pages on many worker processes: each worker pipes files of pages through a command, and a count at the end proves
that every page was answered once, whatever happened to the workers.

  pages.py [OPTION]... FOLDER [-- COMMAND...]

Every FOLDER/*.jsonl holds one page a line, as in {"url": ..., "html": ...}; the answers go to FOLDER/*.jsonl.answers.
COMMAND reads such lines and writes one for each ("pageslice --stream" unless told otherwise), so that the same step works
in every engine that can pipe. Exit status 1 when a page was lost or answered twice. Needs python3-distributed."""
import argparse
import collections
import json
import os
import pathlib
import signal
import subprocess
import sys
import tempfile

from distributed import Client, LocalCluster, as_completed


def answer(pages, command):
    """Runs on a worker: one file through the command. Whole answers appear or none, and work done twice, because
    another worker died with it, replaces itself."""
    target, part = f"{pages}.answers", f"{pages}.{os.getpid()}.part"
    with open(pages, "rb") as source, open(part, "wb") as sink:
        code = subprocess.run(command, stdin=source, stdout=sink, check=False).returncode
    if code not in (0, 1):  # 1: some lines were no pages; the count will say how many
        raise RuntimeError(f"{command[0]} ended with {code}")
    os.replace(part, target)
    return os.getpid()


def urls(path):
    with open(path, encoding="utf-8") as lines:
        return collections.Counter(json.loads(line)["url"] for line in lines)


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
    """Gives how many files each worker process answered."""
    pids = client.run(os.getpid)
    done = collections.Counter()
    futures = client.map(answer, files, command=command, pure=False)
    for _, pid in as_completed(futures, with_results=True):
        done[pid] += 1
        if kill_one and done.total() == len(files) // 2:
            print(kill_busiest(client, pids))
    return done


def prove(files):
    """Compares what was asked with what stands in the answers, by the pages' URLs."""
    asked, answered, lost, extra = 0, 0, 0, 0
    for file in files:
        wanted, found = urls(file), urls(f"{file}.answers")
        asked, answered = asked + wanted.total(), answered + found.total()
        lost, extra = lost + (wanted - found).total(), extra + (found - wanted).total()
    print(f"{asked} pages, {answered} answers: {lost} lost, {extra} too many")
    return lost == 0 and extra == 0 and asked != 0


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
    options = parser.parse_args(own)
    if options.scheduler and options.kill_one:
        parser.error("--kill-one is for workers on this machine")
    return options, command


def main():
    options, command = parse()
    make_pages(options.folder, options.make)
    files = sorted(str(path.resolve()) for path in options.folder.glob("*.jsonl"))
    if options.scheduler:
        with Client(options.scheduler) as client:
            done = work_through(client, files, command, False)
    else:
        with tempfile.TemporaryDirectory() as room, LocalCluster(
            host="127.0.0.1", n_workers=options.workers, threads_per_worker=1, processes=True,
            dashboard_address="127.0.0.1:0", worker_dashboard_address="127.0.0.1:0", local_directory=room,
        ) as cluster, Client(cluster) as client:
            done = work_through(client, files, command, options.kill_one)
    for pid, count in sorted(done.items()):
        print(f"worker {pid} answered {count} files")
    return 0 if prove(files) else 1


if __name__ == "__main__":
    sys.exit(main())
