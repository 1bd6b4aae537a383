#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Keeps the library as fast as it was.

guard.py PROGRAM           compares what each stage takes with the figures in bench/instructions.json, and fails
                           where one is above its limit: instructions per byte of samples/, and data misses per
                           KiB of an everyday page that is four times as large as the last of the caches
guard.py PROGRAM --store   stores new figures
guard.py PROGRAM --on FOLDER   prints the instructions per byte for the pages of another folder, as JSON

Callgrind counts, and simulates caches of one fixed size (D1: 32 KiB, LL: 256 KiB), so the figures depend neither on
the load of the machine nor on its processor; they do on the compiler and on the C library, which stand beside them.
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
INSTRUCTIONS = "instructions_per_byte"
MISSES = {"D1_misses_per_KiB": ("D1mr", "D1mw"), "LL_misses_per_KiB": ("DLmr", "DLmw")}
# Where the heap lies moves the misses by a few in a thousand.
LIMITS = {INSTRUCTIONS: 1.03, **dict.fromkeys(MISSES, 1.05)}
CACHES = ["--cache-sim=yes", "--I1=32768,8,64", "--D1=32768,8,64", "--LL=262144,8,64"]
LARGE_PAGE = ["--everyday", "1048576"]


def has_level(level):
    cpu = pathlib.Path("/proc/cpuinfo")
    return level == "portable" or cpu.exists() and re.search(rf"\b{level}\b", cpu.read_text()) is not None


def count(program, level, stage, pages, *options):
    """What callgrind counts in one round over the pages, by the names of its events; and the pages' bytes."""
    run = subprocess.run(
        ["valgrind", "--tool=callgrind", "--instr-atstart=no", "--callgrind-out-file=/dev/null", *options, program,
         "--rounds", "1", "--stage", stage, *pages],
        capture_output=True, text=True, check=True, env={**os.environ, "PAGESLICE_SCAN": level})
    names, numbers = (re.search(rf"{head} *: (.*)", run.stderr)[1].split() for head in ("Events", "Collected"))
    counted = dict(zip(names, map(int, numbers)))
    if counted["Ir"] == 0:
        sys.exit("guard.py: nothing was counted; was the program built with callgrind's header?")
    return counted, int(re.search(r": (\d+) bytes", run.stdout)[1])


def instructions_per_byte(program, level, stage, folder):
    counted, size = count(program, level, stage, [str(folder)])
    return round(counted["Ir"] / size, 3)


def measure(program, level, stage):
    """All that is guarded, by its name in the file."""
    counted, size = count(program, level, stage, LARGE_PAGE, *CACHES)
    return {INSTRUCTIONS: instructions_per_byte(program, level, stage, SAMPLES),
            **{name: round(1024 * sum(counted[event] for event in events) / size, 2) for name, events in MISSES.items()}}


def for_each_stage(ask):
    return {level: {stage: ask(level, stage) for stage in STAGES} for level in LEVELS if has_level(level)}


def tools():
    compiler = subprocess.run(["g++", "-dumpfullversion"], capture_output=True, text=True, check=True)
    return f"g++ {compiler.stdout.strip()}, {' '.join(platform.libc_ver())}"


def compare(found, stored):
    """Prints all figures beside the stored ones, and tells how many are above their limit."""
    above = 0
    print(f"with {tools()}; stored with {stored['tools']}")
    for name, limit in LIMITS.items():
        print(name.replace("_", " "))
        for level, stages in found.items():
            for stage, values in stages.items():
                value, before = values[name], stored[name][level][stage]
                above += value > limit * before
                print(f"  {level:9} {stage:9} {value:8.3f}  stored {before:8.3f}  {100 * (value / before - 1):+5.1f} %"
                      + ("  too much" if value > limit * before else ""))
    return above


def main():
    program, options = sys.argv[1], sys.argv[2:]
    if options[:1] == ["--on"]:
        print(json.dumps(for_each_stage(
            lambda level, stage: instructions_per_byte(program, level, stage, options[1]))))
        return
    found = for_each_stage(lambda level, stage: measure(program, level, stage))
    if options == ["--store"]:
        if len(found) != len(LEVELS):
            sys.exit("guard.py: this processor lacks a level; nothing stored")
        figures = {name: {level: {stage: values[name] for stage, values in stages.items()}
                          for level, stages in found.items()} for name in LIMITS}
        STORED.write_text(json.dumps({"tools": tools(), **figures}, indent=2) + "\n")
    if compare(found, json.loads(STORED.read_text())):
        print("Faster code is wanted; where more work is right, store new figures: bench/check.sh --store")
        sys.exit(1)


main()
