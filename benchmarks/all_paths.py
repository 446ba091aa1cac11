#!/usr/bin/env python3
"""Measures every path of the program against the yardstick, and prints two tables.

all_paths.py BUILD-FOLDER [ROUNDS]

Each ratio is one of medians, both sides measured in turn within this run. The paths in a window
need a display. Data is made by yardstick/gen.py and kept in BUILD-FOLDER/bench.
"""

import json
import os
import pathlib
import re
import shutil
import statistics
import subprocess
import sys
import time

HERE = pathlib.Path(__file__).parent
BLANKS = "HH MM SS;+DD MM SS;N;2;1"
COLONS = "HH:MM:SS;+DD:MM:SS;N;2;1"


class Bench:
    def __init__(self, build, rounds):
        self.programs = build / "benchmarks"
        self.data = build / "bench"
        self.rounds = rounds
        self.data.mkdir(exist_ok=True)
        self.settings = self.data / "settings"

    def file(self, rows, kind):
        """A list of that many positions, made once."""
        path = self.data / f"{rows}.{kind}"
        if not path.exists():
            text = subprocess.run([HERE / "yardstick/gen.py", str(rows), kind], stdout=subprocess.PIPE, check=True)
            lines = text.stdout.split(b"\n", 1)
            path.write_bytes(lines[1] if kind == "csv" else text.stdout)
        return path

    def output(self, *command):
        run = subprocess.run([str(part) for part in command], stdout=subprocess.PIPE,
                             stderr=subprocess.STDOUT, text=True, check=True)
        return run.stdout

    def number(self, unit, *command):
        """The last number with this unit that a command prints."""
        return float(re.findall(r"([0-9.]+) " + unit, self.output(*command))[-1])

    def seconds(self, *command):
        """The time that a whole process takes."""
        begin = time.perf_counter()
        self.output(*command)
        return time.perf_counter() - begin

    def forget(self):
        """Starts from settings that hold no rows."""
        shutil.rmtree(self.settings, ignore_errors=True)
        self.settings.mkdir()

    def limit(self, rows=1000000, stage="all"):
        return self.number("ns/row", self.programs / "limit", self.file(rows, "tab"), self.data / "limit.tsv", stage)

    def path(self, path, rows=1000000, kind="tab", dialect="Tab-separated", notation=BLANKS, program="paths", unit="ns/row"):
        return self.number(unit, self.programs / program, path, self.file(rows, kind), self.settings / "out.txt",
                           dialect, notation, notation)

    def process(self, path, rows=20):
        return self.seconds(self.programs / "window_paths", path, self.file(rows, "tab"), self.settings / "out.txt",
                            "Tab-separated", BLANKS, BLANKS)

    def in_turn(self, ours, theirs):
        times = [(ours(), theirs()) for _ in range(self.rounds)]
        return [statistics.median(column) for column in zip(*times)]

    def slowest_notation(self):
        """The slowest and the first of all pairs of notations, in nanoseconds a row."""
        text = self.output(self.programs / "engine_benchmark", "--benchmark_filter=^row",
                           "--benchmark_format=json", "--benchmark_min_time=0.02",
                           "--benchmark_repetitions=5", "--benchmark_report_aggregates_only=true")
        runs = [run for run in json.loads(text[text.index("{"):])["benchmarks"]
                if run["aggregate_name"] == "median"]
        first = next(run for run in runs if "HH MM SS/" in run["name"] and "+DD MM SS" in run["name"])
        return max(run["cpu_time"] for run in runs), first["cpu_time"]

    def saved(self, rows):
        self.forget()
        return self.path("save", rows)

    def loaded(self, rows):
        if not (self.settings / "Skyvert").exists():
            self.saved(rows)
        return self.path("load", rows)


def row(name, ours, theirs, goal, unit):
    ratio = ours / theirs
    verdict = "reached" if ratio <= goal else "NOT REACHED"
    print(f"| {name} | {ours:.4g} {unit} | {theirs:.4g} {unit} | {ratio:.2f} | {goal:g} | {verdict} |", flush=True)


def goals(bench):
    print("| path | ours | against | ratio | goal | |\n|---|---|---|---|---|---|")
    bench.forget()
    engine = [bench.programs / "engine_path", bench.file(1000000, "tab")]
    row("engine", *bench.in_turn(lambda: bench.number("ns/row", *engine), lambda: bench.limit(stage="format")), 1.5, "ns")
    row("import, tab", *bench.in_turn(lambda: bench.path("import"), bench.limit), 2, "ns")
    row("import, comma", *bench.in_turn(
        lambda: bench.path("import", kind="csv", dialect="Comma-separated", notation=COLONS), bench.limit), 2.5, "ns")
    row("import, space", *bench.in_turn(
        lambda: bench.path("import", kind="colon", dialect="Space-separated", notation=COLONS), bench.limit), 2.5, "ns")
    row("slowest of 18 x 10 notations, against the first row's", *bench.slowest_notation(), 2, "ns")
    row("export", *bench.in_turn(lambda: bench.path("export"), lambda: bench.limit(stage="io")), 3, "ns")
    row("import in the window, against headless", *bench.in_turn(
        lambda: bench.path("import", program="window_paths"), lambda: bench.path("import")), 1.5, "ns")
    row("start of an empty program, against an empty window", *bench.in_turn(
        lambda: bench.process("empty"), lambda: bench.process("plain")), 1.6, "s")
    memory = bench.path("import", program="window_paths", unit="MB") - bench.path(
        "import", rows=20, program="window_paths", unit="MB")
    print(f"| memory of 1,000,000 rows | {memory:.0f} MB | | | 120 MB | {'reached' if memory <= 120 else 'NOT REACHED'} |")
    row("a frame of scrolling 1,000,000 rows, against 20", *bench.in_turn(
        lambda: bench.path("scroll", program="window_paths", unit="ms/frame"),
        lambda: bench.path("scroll", rows=20, program="window_paths", unit="ms/frame")), 1.15, "ms")
    row("save 1,000,000 rows", *bench.in_turn(lambda: bench.saved(1000000), bench.limit), 15, "ns")
    row("save 100,000 rows", *bench.in_turn(lambda: bench.saved(100000), lambda: bench.limit(100000)), 12, "ns")
    bench.saved(100000)
    row("load 100,000 rows", *bench.in_turn(lambda: bench.loaded(100000), lambda: bench.limit(100000)), 12, "ns")
    start, limit = bench.in_turn(lambda: bench.process("start"), lambda: bench.limit(100000) * 100000 / 1e9)
    allowed = 1 + 12 * limit
    print(f"| start with 100,000 stored rows | {start:.3f} s | {limit:.4f} s | | 1 s + 12 x = {allowed:.3f} s | "
          f"{'reached' if start <= allowed else 'NOT REACHED'} |")


def growth(bench):
    counts = [1000, 10000, 100000, 1000000, 5000000]
    print("\nNanoseconds a row:\n\n| path | " + " | ".join(f"{count:,}" for count in counts) + " |")
    print("|---" * (len(counts) + 1) + "|")
    for path in ("import", "export", "save", "load"):
        figures = []
        for count in counts:
            bench.saved(count) if path == "load" else bench.forget()
            figures.append(f"{bench.path(path, count):.0f}")
        print(f"| {path} | " + " | ".join(figures) + " |", flush=True)
    figures = [f"{bench.limit(count):.0f}" for count in counts]
    print("| yardstick | " + " | ".join(figures) + " |")
    bench.forget()


def main():
    os.environ.setdefault("XDG_RUNTIME_DIR", "/tmp")
    bench = Bench(pathlib.Path(sys.argv[1]).resolve(), int(sys.argv[2]) if len(sys.argv) > 2 else 5)
    goals(bench)
    growth(bench)


if __name__ == "__main__":
    main()
