#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""costs.py PROGRAM FOLDER   prints, as JSON, the instructions that one tag, anchor, attribute and insert takes, by
level; PROGRAM is pageslice_bench, FOLDER holds any pages."""
import json
import os
import subprocess
import sys
import tempfile

from growth import LEVELS, runs


def costs(level):
    with tempfile.TemporaryDirectory() as folder:
        subprocess.run(
            ["valgrind", "--tool=callgrind", "--instr-atstart=no", f"--callgrind-out-file={folder}/out", sys.argv[1],
             sys.argv[2], sys.argv[2], "--benchmark_filter=^cost/", "--benchmark_min_time=0.001"],
            capture_output=True, check=True, env={**os.environ, "PAGESLICE_SCAN": level})
        taken = {}
        for label, page, count in runs(folder):
            taken.setdefault(tuple(label.rsplit("/", 1)), {})[page] = count
    if not taken:
        sys.exit("costs.py: nothing was counted; was the program built with callgrind's header?")
    return {name: round(((n[1] - n[0]) - (n[3] - n[2])) / int(things), 2) for (name, things), n in taken.items()}


print(json.dumps({level: costs(level) for level in LEVELS}))
