#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Shows that the work grows with the page and no faster.

growth.py PROGRAM [NAME...]   runs pageslice_growth under callgrind and prints, for each hostile family or for
those whose names begin so, the instructions at n and at 2n bytes. It fails where the second count is more than
2.2 times the first: with the vector code of most machines, or without any.
"""
import os
import pathlib
import re
import subprocess
import sys
import tempfile

BYTES = {"avx2": 1 << 18, "portable": 1 << 18}  # n
LEVELS = list(BYTES)
LIMIT = 2.2
SECONDS = 900  # work that grows with the square would run for hours


def start(level, arguments, folder):
    command = ["valgrind", "--tool=callgrind", "--instr-atstart=no", f"--callgrind-out-file={folder}/out",
               arguments[0], str(BYTES[level]), *arguments[1:]]
    log = open(f"{folder}/log", "w", encoding="utf-8")
    return subprocess.Popen(command, stdout=log, stderr=log, env={**os.environ, "PAGESLICE_SCAN": level})


def finish(process, folder):
    log = pathlib.Path(folder, "log")
    try:
        if process.wait(SECONDS) == 0:
            return
    except subprocess.TimeoutExpired:
        process.kill()
    sys.exit(f"growth.py: the run failed, or had not ended after {SECONDS} s\n{log.read_text()[-2000:]}")


def runs(folder):
    """Family, bytes and instructions of each run, in the order of the runs."""
    for path in sorted(pathlib.Path(folder).glob("out.*"), key=lambda p: int(p.suffix[1:])):
        content = path.read_text(errors="replace")
        label = re.search(r"^desc: Trigger: Client Request: (.*) @ (\d+)$", content, re.M)
        if label:
            yield label[1], int(label[2]), int(re.search(r"^(?:summary|totals): (\d+)$", content, re.M)[1])


def measure(arguments):
    """For each level its list of runs. The levels run side by side."""
    with tempfile.TemporaryDirectory() as top:
        processes = {}
        for level in LEVELS:
            pathlib.Path(top, level).mkdir()
            processes[level] = start(level, arguments, f"{top}/{level}")
        for level, process in processes.items():
            finish(process, f"{top}/{level}")
        return {level: list(runs(f"{top}/{level}")) for level in LEVELS}


def main():
    measured = measure(sys.argv[1:])
    count = len(measured[LEVELS[0]])
    if count == 0 or count % 2 or any(len(rows) != count for rows in measured.values()):
        sys.exit("growth.py: runs are missing; was the program built with callgrind's header?")
    print(f"{'family':43}" + "".join(f"{level:>12} n{'at n':>13}{'at 2n':>12}{'ratio':>7}" for level in LEVELS))
    above = 0
    for i in range(0, count, 2):
        line = f"{measured[LEVELS[0]][i][0]:43}"
        for rows in measured.values():
            (_, size, once), (_, _, twice) = rows[i:i + 2]
            above += twice > LIMIT * once
            line += f"{size:14}{once:13}{twice:12}{twice / once:6.3f}" + ("!" if twice > LIMIT * once else " ")
        print(line)
    print(f"{count // 2} families, {above} ratios above {LIMIT}")
    sys.exit(above > 0)


if __name__ == "__main__":
    main()
