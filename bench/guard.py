#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Keeps the library as fast as it was.

guard.py PROGRAM           compares the instructions per byte that each stage takes on samples/ with the figures in
                           bench/instructions.json, and fails where one is more than 3 % above
guard.py PROGRAM --store   stores new figures
guard.py PROGRAM --on FOLDER   prints the figures for the pages of another folder, as JSON

Instructions are counted by callgrind, so the figures do not depend on the load of the machine; they do on the
compiler and on the C library, which stand beside them.
"""
import json
import os
import pathlib
import platform
import re
import subprocess
import sys

HERE = pathlib.Path(__file__).resolve().parent
STORED = HERE / "instructions.json"
SAMPLES = HERE.parent / "samples"
LEVELS = ["portable", "avx2"]
STAGES = ["job", "pass", "lists", "text", "standard", "tokens"]
LIMIT = 1.03


def has_level(level):
    cpu = pathlib.Path("/proc/cpuinfo")
    return level == "portable" or cpu.exists() and re.search(rf"\b{level}\b", cpu.read_text()) is not None


def per_byte(program, level, stage, folder):
    run = subprocess.run(
        ["valgrind", "--tool=callgrind", "--instr-atstart=no", "--callgrind-out-file=/dev/null", program,
         "--rounds", "1", "--stage", stage, str(folder)],
        capture_output=True, text=True, check=True, env={**os.environ, "PAGESLICE_SCAN": level})
    count = int(re.search(r"Collected : (\d+)", run.stderr)[1])
    if count == 0:
        sys.exit("guard.py: nothing was counted; was the program built with callgrind's header?")
    return round(count / int(re.search(r": (\d+) bytes", run.stdout)[1]), 3)


def tools():
    compiler = subprocess.run(["g++", "-dumpfullversion"], capture_output=True, text=True, check=True)
    return f"g++ {compiler.stdout.strip()}, {' '.join(platform.libc_ver())}"


def main():
    program, options = sys.argv[1], sys.argv[2:]
    folder = options[1] if options[:1] == ["--on"] else SAMPLES
    found = {level: {stage: per_byte(program, level, stage, folder) for stage in STAGES}
             for level in LEVELS if has_level(level)}
    if folder != SAMPLES:
        print(json.dumps(found))
        return
    if options == ["--store"]:
        if len(found) != len(LEVELS):
            sys.exit("guard.py: this processor lacks a level; nothing stored")
        STORED.write_text(json.dumps({"tools": tools(), "instructions_per_byte": found}, indent=2) + "\n")
    stored = json.loads(STORED.read_text())
    above = 0
    print(f"instructions per byte on samples/ with {tools()}; stored with {stored['tools']}")
    for level, stages in found.items():
        for stage, value in stages.items():
            before = stored["instructions_per_byte"][level][stage]
            above += value > LIMIT * before
            print(f"{level:9} {stage:9} {value:8.3f}  stored {before:8.3f}  {100 * (value / before - 1):+5.1f} %"
                  + ("  too much" if value > LIMIT * before else ""))
    if above:
        print("Faster code is wanted; where more work is right, store new figures: bench/check.sh --store")
    sys.exit(above > 0)


main()
