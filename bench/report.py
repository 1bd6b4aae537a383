#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""report.py RESULTS DOCS   prints one table of what run.sh measured; writes DOCS/speed.json and DOCS/speed.svg."""
import datetime
import json
import pathlib
import re
import subprocess
import sys
from xml.sax.saxutils import escape

LEVELS = {"avx512": "AVX-512", "avx2": "AVX2", "sse2": "SSE2", "portable": "portable"}
PEERS = {"libxml2": "libxml2, SAX", "gumbo": "gumbo, tree"}
LIMITS = {"memcpy": "memcpy of each page", "memchr": "memchr through each page"}
STAGES = ("job", "pass", "lists", "text", "standard", "tokens")
COLUMNS = ["allocations", "allocations_max", "peak", "peak_max", "links", "images", "text"]


def output_of(*command):
    run = subprocess.run(command, capture_output=True, text=True, check=False)
    return run.stdout.strip()


def machine():
    cpu = pathlib.Path("/proc/cpuinfo")
    model = re.search(r"^model name\s*: (.*)$", cpu.read_text(), re.M) if cpu.exists() else None
    peers = [f"{name} {output_of('pkg-config', '--modversion', package)}"
             for name, package in (("libxml2", "libxml-2.0"), ("gumbo", "gumbo"))]
    return {"machine": model[1].strip() if model else "unknown",
            "compiler": "g++ " + output_of("g++", "-dumpfullversion"),
            "peers": peers,
            "revision": output_of("git", "describe", "--always", "--dirty"),
            "date": datetime.date.today().isoformat()}


def medians(path):
    """By name of the benchmark, in the order of registration: what one row shows."""
    rows = {}
    for run in sorted(json.loads(path.read_text())["benchmarks"], key=lambda run: run["family_index"]):
        if run["aggregate_name"] == "median" and not run["run_name"].startswith("cost/"):
            rows[run["run_name"]] = {"GB/s": run["bytes_per_second"] / 1e9,
                                     "us/page": run["cpu_time"] / run["pages"],
                                     **{name: run[name] for name in COLUMNS}}
    return rows


def collect_costs(folder):
    """What one thing costs: nanoseconds at each level that was timed, instructions at each that was counted."""
    costs = {}
    for level, label in LEVELS.items():
        if (path := folder / f"{level}.json").exists():
            for run in json.loads(path.read_text())["benchmarks"]:
                if run["aggregate_name"] == "median" and run["run_name"].startswith("cost/"):
                    costs.setdefault(run["run_name"][len("cost/"):], {})[f"ns, {label}"] = run["ns"]
    for level, counted in json.loads((folder / "costs.json").read_text()).items():
        for name, count in counted.items():
            costs[name[len("cost/"):]][f"instructions, {LEVELS[level]}"] = count
    return dict(sorted(costs.items()))


def collect(folder):
    levels = {level: medians(folder / f"{level}.json") for level in LEVELS if (folder / f"{level}.json").exists()}
    best = levels[next(iter(levels))]
    rows = {}
    for stage in STAGES:
        for level, found in levels.items():
            rows[f"{stage}, {LEVELS[level]}"] = found[f"corpus/{stage}"]
    for stage, label in {**PEERS, **LIMITS}.items():
        if f"corpus/{stage}" in best:
            rows[label] = best[f"corpus/{stage}"]
    for level, found in levels.items():
        rows[f"samples, {LEVELS[level]}"] = found["samples/job"]
        # Measured by the same process, so that both saw the machine in the same state.
        for peer in PEERS:
            for stage in ("job", "standard", "tokens"):
                if f"corpus/{peer}" in found:
                    times = found[f"corpus/{stage}"]["GB/s"] / found[f"corpus/{peer}"]["GB/s"]
                    rows[f"{stage}, {LEVELS[level]}"][f"times {peer}"] = times
        rows[f"text, {LEVELS[level]}"]["of memcpy"] = found["corpus/text"]["GB/s"] / found["corpus/memcpy"]["GB/s"]
    rows.update({name: row for name, row in best.items() if name.startswith(("kind/", "growth/", "hostile/"))})
    return rows


def warn_of_unlike_processes(folder):
    """Each level runs in a process of its own. The peer, which knows no levels, tells whether the machine was as fast."""
    found = {level: medians(path).get("corpus/libxml2", {}).get("GB/s")
             for level in LEVELS if (path := folder / f"{level}.json").exists()}
    speeds = {level: speed for level, speed in found.items() if speed}
    if speeds and max(speeds.values()) > 1.1 * min(speeds.values()):
        print("WARNING: the machine was not equally fast for all levels; libxml2 ran at "
              + ", ".join(f"{speed:.4f} GB/s beside {LEVELS[level]}" for level, speed in speeds.items())
              + ". Compare levels by `times libxml2`, or measure again.")


def print_table(report):
    print(", ".join(f"{name}: {value if isinstance(value, str) else ' '.join(value)}"
                    for name, value in report["context"].items()))
    print(f"{'':44}{'GB/s':>9}{'us/page':>12}{'allocs':>9}{'most':>8}{'peak kB':>9}{'most':>8}"
          f"{'links':>9}{'images':>8}{'text':>11}")
    for name, row in report["rows"].items():
        print(f"{name:44}{row['GB/s']:9.3f}{row['us/page']:12.1f}{row['allocations']:9.1f}"
              f"{row['allocations_max']:8.0f}{row['peak'] / 1000:9.0f}{row['peak_max'] / 1000:8.0f}"
              f"{row['links']:9.0f}{row['images']:8.0f}{row['text']:11.0f}"
              + "".join(f"  {row[key]:.2f} {key}" for key in row if key.startswith(("times", "of "))))
    for name, costs in report["costs"].items():
        print(f"one {name:42}" + ", ".join(f"{value:.1f} {unit}" for unit, value in costs.items()))
    for level, stages in report["instructions_per_byte"].items():
        print(f"instructions per byte, {level}: " + ", ".join(f"{stage} {n:.2f}" for stage, n in stages.items()))


STYLE = """text { font: 13px sans-serif; fill: #24292f } .head { font-weight: bold; font-size: 14px }
.note { font-size: 11px; fill: #57606a } .ours { fill: #0969da } .peer { fill: #8c959f }
@media (prefers-color-scheme: dark) { text { fill: #e6edf3 } .note { fill: #9198a1 } .ours { fill: #4493f8 }
.peer { fill: #6e7681 } }"""
WIDTH, LEFT, BAR, STEP = 760, 160, 500, 24


def bars(title, rows, top):
    """One group of bars, its longest filling the width."""
    longest = max(speed for _, speed, _ in rows)
    yield f'<text class="head" x="10" y="{top + 16}">{escape(title)}</text>'
    for i, (label, speed, kind) in enumerate(rows):
        y = top + 28 + i * STEP
        width = max(1.0, BAR * speed / longest)
        yield f'<text x="{LEFT - 8}" y="{y + 14}" text-anchor="end">{escape(label)}</text>'
        yield f'<rect class="{kind}" x="{LEFT}" y="{y}" width="{width:.1f}" height="18" rx="2"/>'
        yield f'<text x="{LEFT + width + 6:.1f}" y="{y + 14}">{speed:.3g} GB/s</text>'


def chart(report):
    rows, context = report["rows"], report["context"]
    peers = [(label, rows[label]["GB/s"], "peer") for label in PEERS.values() if label in rows]
    groups = {"The whole job by the classic rules": ("job", peers), "The whole job by the HTML Standard": ("standard", peers),
              "Plain text alone, classic": ("text", [])}
    body, bottom = [], 0
    for title, (stage, others) in groups.items():
        ours = [(f"pageslice, {label}", rows[f"{stage}, {label}"]["GB/s"], "ours") for label in LEVELS.values()
                if f"{stage}, {label}" in rows]
        body += bars(title, ours + others, bottom)
        bottom += 28 + len(ours + others) * STEP + 24
    notes = [f"{context['machine']}, one core; {context['compiler']}; {', '.join(context['peers'])}; "
             f"revision {context['revision']}, {context['date']}",
             "258 pages of the web, 24.6 MB, held in memory; the whole job: title, links with texts, images, plain text"]
    body += [f'<text class="note" x="10" y="{bottom + 14 * i}">{escape(note)}</text>' for i, note in enumerate(notes)]
    height = bottom + 14 * len(notes)
    return (f'<svg xmlns="http://www.w3.org/2000/svg" width="{WIDTH}" height="{height}" viewBox="0 0 {WIDTH} {height}">\n'
            f"<title>Speed of pageslice beside libxml2 and gumbo</title>\n<style>{STYLE}</style>\n"
            + "\n".join(body) + "\n</svg>\n")


def main():
    results, docs = (pathlib.Path(name) for name in sys.argv[1:])
    report = {"context": machine(), "rows": collect(results), "costs": collect_costs(results),
              "instructions_per_byte": json.loads((results / "instructions.json").read_text())}
    print_table(report)
    warn_of_unlike_processes(results)
    docs.mkdir(exist_ok=True)
    rounded = json.loads(json.dumps(report), parse_float=lambda s: float(f"{float(s):.4g}"))
    (docs / "speed.json").write_text(json.dumps(rounded, indent=1) + "\n")
    (docs / "speed.svg").write_text(chart(report))


main()
