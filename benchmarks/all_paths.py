#!/usr/bin/env python3
"""Measures every path of the program against a yardstick, and prints two tables.

all_paths.py BUILD-FOLDER ROUNDS [ROW...]

Both sides of a row run in turn, a round after an unmeasured one, on one core; the side that runs
first alternates. Each round gives one ratio. A row shows their median and quartiles, first alone and then
with a neighbour: a process on another core that streams through memory. A goal is reached when the
upper quartile is within it.

ROW is how the name of a row begins; "growth" is the second table. The rows in a window need a display.
Data is made by yardstick/gen.py and kept in BUILD-FOLDER/bench.
"""

import contextlib
import functools
import json
import os
import pathlib
import re
import shutil
import statistics
import subprocess
import sys
import time
from functools import partial
from typing import Callable, NamedTuple, Optional

HERE = pathlib.Path(__file__).parent
MILLION = 1000000
BLANKS = "HH MM SS;+DD MM SS;N;2;1"
COLONS = "HH:MM:SS;+DD:MM:SS;N;2;1"
OPEN_TIMER = 0.5  # seconds that the program waits before it restores its list

# How far the middle half of a yardstick's times may spread, as a part of their median. Beyond it the
# machine was not the same from round to round. Quartiles and not extremes: a verdict is about
# quartiles, and one disturbed round of eleven moves no quartile.
STEADY = 0.2


def middle(values):
    """Lower quartile, median and upper quartile."""
    return statistics.quantiles(values, n=4, method="inclusive")


class Row(NamedTuple):
    """A line of the table. Both sides are functions that run a program and return its figures by unit.

    Rows with the same two sides share their rounds. A row without `against` is about the figure itself; one
    without a goal is for information only.
    """

    name: str
    ours: Callable
    theirs: Callable
    goal: Optional[float]
    figure: str = "ns/row"
    against: Optional[str] = "ns/row"


class Bench:
    def __init__(self, build, rounds):
        self.build = build
        self.programs = build / "benchmarks"
        self.data = build / "bench"
        self.rounds = rounds
        self.data.mkdir(exist_ok=True)
        self.forget_settings()
        cores = sorted(os.sched_getaffinity(0))
        self.neighbour_core = cores[0] if len(cores) > 1 else None
        os.sched_setaffinity(0, cores[-1:])  # what is started from here inherits it

    # The data

    def file(self, rows, kind):
        """A list of that many positions, made once. Kinds are those of gen.py, and `comma`: decimal commas."""
        path = self.data / f"{rows}.{kind}"
        if not path.exists():
            made = "tab" if kind == "comma" else kind
            text = subprocess.check_output([HERE / "yardstick/gen.py", str(rows), made])
            if kind == "csv":
                text = text.split(b"\n", 1)[1]
            if kind == "comma":
                text = text.replace(b".", b",")
            path.write_bytes(text)
        return path

    def forget_settings(self):
        shutil.rmtree(self.data / "settings", ignore_errors=True)

    def empty_settings(self):
        """A settings folder that holds no rows."""
        folder = self.data / "settings" / "0"
        shutil.rmtree(folder, ignore_errors=True)
        folder.mkdir(parents=True)
        return folder

    @functools.cache
    def made_settings(self, rows):
        self.path("save", rows)
        return (self.data / "settings" / "0").rename(self.data / "settings" / str(rows))

    def settings(self, rows):
        """A settings folder that holds this many rows, and no lock of a program that was cut short."""
        if rows == 0:
            return self.empty_settings()
        folder = self.made_settings(rows)
        for lock in folder.glob("*/*.lock"):
            lock.unlink()
        return folder

    # The programs

    def run(self, *command, **environment):
        """The figures that a program prints, by their units, and the seconds that the process takes."""
        begin = time.monotonic()
        run = subprocess.run([str(part) for part in command], stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                             text=True, check=True, timeout=300, env={**os.environ, **environment})
        figures = {"process-s": time.monotonic() - begin}
        for number, unit in re.findall(r"([0-9.]+) ([a-zA-Z-]+(?:/[a-z]+)?)", run.stdout):
            figures[unit] = float(number)
        if "clock-s" in figures:  # of the clock that was read above
            figures["start-s"] = figures["clock-s"] - begin
        return figures

    def limit(self, stage="all", rows=MILLION):
        figures = self.run(self.programs / "limit", self.file(rows, "tab"), self.data / "limit.tsv", stage)
        return {**figures, "list-s": figures["ns/row"] * rows / 1e9}

    def path(self, path, rows=MILLION, kind="tab", dialect="Tab-separated", notations=BLANKS, separator=".",
             program="paths"):
        settings = self.settings(rows if path == "load" else 0)
        return self.run(self.programs / program, path, self.file(rows, kind), settings / "out.txt", dialect, notations,
                        separator)

    def engine(self, rows=MILLION, notations=()):
        return self.run(self.programs / "engine_path", self.file(rows, "tab"), *notations)

    def start(self, program, rows=0):
        figures = self.run(self.build / program, XDG_CONFIG_HOME=str(self.settings(rows)),
                           QT_PLUGIN_PATH=str(self.programs / "plugins"), QT_QPA_GENERIC_PLUGINS=f"startprobe:{rows}")
        return {**figures, "restored-s": figures["start-s"] - OPEN_TIMER}

    @functools.cache
    def slowest_notations(self):
        """The two notations whose rows take the longest, of all pairs of them."""
        text = subprocess.check_output(
            [self.programs / "engine_benchmark", "--benchmark_filter=^row", "--benchmark_format=json",
             "--benchmark_min_time=0.005", "--benchmark_repetitions=7", "--benchmark_enable_random_interleaving=true",
             "--benchmark_report_aggregates_only=true"], stderr=subprocess.DEVNULL)
        medians = [run for run in json.loads(text)["benchmarks"] if run["aggregate_name"] == "median"]
        slowest = max(medians, key=lambda run: run["cpu_time"])["run_name"].split("/")[1:]
        print(f"slowest notations: {', '.join(slowest)}", file=sys.stderr)
        return slowest

    def slowest_engine(self, rows):
        return self.engine(rows, self.slowest_notations())

    # The measuring

    @contextlib.contextmanager
    def neighbour(self, busy):
        if not busy:
            yield
            return
        process = subprocess.Popen([self.programs / "neighbour"])
        os.sched_setaffinity(process.pid, {self.neighbour_core})
        try:
            yield
        finally:
            process.kill()
            process.wait()

    @functools.cache
    def in_turn(self, ours, theirs, busy):
        """For each round the figures of both sides."""
        rounds = []
        with self.neighbour(busy):
            for count in range(self.rounds + 1):
                sides = [ours, theirs][:: 1 if count % 2 else -1]
                figures = {side: side() for side in sides}
                rounds.append((figures[ours], figures[theirs]))
        return rounds[1:]

    def judge(self, row, busy):
        """The medians of both sides, and a cell of the table: median and quartiles with the verdict."""
        rounds = self.in_turn(row.ours, row.theirs, busy)
        ours = [our[row.figure] for our, _ in rounds]
        if row.against is None:
            return statistics.median(ours), None, cell(ours, row.goal, True)
        theirs = [their[row.against] for _, their in rounds]
        low, median, high = middle(theirs)
        ratios = [our / their for our, their in zip(ours, theirs)]
        return statistics.median(ours), median, cell(ratios, row.goal, high - low <= STEADY * median)


def cell(values, goal, steady):
    low, median, high = middle(values)
    if goal is None:
        verdict = ""
    elif not steady:
        verdict = " not measurable now"
    else:
        verdict = " reached" if high <= goal else " NOT REACHED"
    return f"{median:.3g} ({low:.3g} to {high:.3g}){verdict}"


def table(bench):
    io = partial(bench.limit, "io")
    tab, export, save, load = (partial(bench.path, path) for path in ("import", "export", "save", "load"))
    comma = partial(bench.path, "import", kind="csv", dialect="Comma-separated", notations=COLONS)
    space = partial(bench.path, "import", kind="colon", dialect="Space-separated", notations=COLONS)
    localised = partial(bench.path, "import", kind="comma", notations=BLANKS.replace("N", "Y"), separator=",")
    window = partial(bench.path, "import", program="window_paths")
    scroll = partial(bench.path, "scroll", program="window_paths")
    short_scroll = partial(bench.path, "scroll", rows=20, program="window_paths")
    return [
        Row("engine", bench.engine, partial(bench.limit, "format"), 1.15),
        Row("import, tab", tab, bench.limit, 1.5),
        Row("import, comma", comma, bench.limit, 1.7),
        Row("import, space", space, bench.limit, 1.7),
        Row("import, decimal comma against points", localised, tab, 1.3),
        Row("slowest of 18 x 10 notations against HH MM SS, +DD MM SS", partial(bench.slowest_engine, 200000),
            partial(bench.engine, 200000, ("HH MM SS", "+DD MM SS")), 1.25),
        Row("export", export, io, 2),
        Row("export without its syncs", export, io, None, "unsynced-ns/row"),
        Row("export, its syncs alone", export, io, None, "sync-ns/row"),
        Row("import and export, whole processes", export, bench.limit, 2, "process-s", "process-s"),
        Row("save without its syncs", save, bench.limit, 6, "unsynced-ns/row"),
        Row("save, its syncs alone", save, bench.limit, None, "sync-ns/row"),
        Row("save, peak of memory", save, bench.limit, 400, "peak-MB", None),
        Row("load", load, bench.limit, 6),
        Row("load, peak of memory", load, bench.limit, 350, "peak-MB", None),
        Row("window: import against headless", window, tab, 1.5),
        Row("window: memory of 1,000,000 rows", window, tab, 48, "MB", None),
        Row("window: a frame of scrolling 1,000,000 rows against 20", scroll, short_scroll, 1.15,
            "ms/frame", "ms/frame"),
        Row("start, empty, against an empty window", partial(bench.start, "skyvert"),
            partial(bench.start, "benchmarks/plain_window"), 1.25, "start-s", "start-s"),
        Row("start with 100,000 rows, without the wait of 0.5 s", partial(bench.start, "skyvert", 100000),
            partial(bench.limit, rows=100000), 6, "restored-s", "list-s"),
    ]


def goals(bench, rows):
    print("| path | ours | against | goal | alone | with a busy neighbour |\n|---|---|---|---|---|---|")
    for row in rows:
        ours, theirs, alone = bench.judge(row, False)
        busy = bench.judge(row, True)[2] if bench.neighbour_core is not None else ""
        against = "" if theirs is None else f"{theirs:.4g} {unit(row.against)}"
        goal = "" if row.goal is None else f"{row.goal:g}"
        print(f"| {row.name} | {ours:.4g} {unit(row.figure)} | {against} | {goal} | {alone} | {busy} |", flush=True)


def unit(figure):
    """Without what it is counted by: `ns` for `sync-ns/row`."""
    return figure.split("/")[0].split("-")[-1]


def growth(bench):
    counts = [1000, 10000, 100000, MILLION, 5 * MILLION]
    sides = {path: partial(bench.path, path) for path in ("import", "export", "save", "load")}
    print("\nNanoseconds a row, medians of three runs:\n")
    print("| path | " + " | ".join(f"{count:,}" for count in counts) + " |")
    print("|---" * (len(counts) + 1) + "|")
    for name, side in {**sides, "yardstick": bench.limit}.items():
        times = [statistics.median(side(rows=count)["ns/row"] for _ in range(3)) for count in counts]
        print(f"| {name} | " + " | ".join(f"{time:.0f}" for time in times) + " |", flush=True)


def main():
    os.environ.setdefault("XDG_RUNTIME_DIR", "/tmp")
    bench = Bench(pathlib.Path(sys.argv[1]).resolve(), int(sys.argv[2]))
    begins = tuple(sys.argv[3:]) or ("",)
    rows = [row for row in table(bench) if row.name.startswith(begins)]
    growing = "growth".startswith(begins)
    if not rows and not growing:
        sys.exit(f"no row begins with: {', '.join(begins)}")
    print(f"{bench.rounds} rounds; load of the machine before: {os.getloadavg()[0]:.2f}\n")
    if rows:
        goals(bench, rows)
    if growing:
        growth(bench)
    bench.forget_settings()


if __name__ == "__main__":
    main()
