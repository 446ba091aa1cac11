#!/usr/bin/env python3
"""Times one command against another: both in turn, and the ratio of the medians of what they say.

compare.py ROUNDS COMMAND... -- YARDSTICK...

Each of the two prints "N ns/row" somewhere. Machines differ and are noisy: only the ratio counts.
"""

import re
import statistics
import subprocess
import sys


def nanoseconds(command):
    """Runs a command and returns the time of a row that it prints."""
    run = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, check=True)
    return float(re.search(r"([0-9.]+) ns/row", run.stdout).group(1))


def compare(rounds, command, yardstick):
    """The medians of both, measured in turn."""
    times = [(nanoseconds(command), nanoseconds(yardstick)) for _ in range(rounds)]
    return [statistics.median(column) for column in zip(*times)]


def main():
    split = sys.argv.index("--")
    ours, limit = compare(int(sys.argv[1]), sys.argv[2:split], sys.argv[split + 1 :])
    print(f"{ours:.1f} ns/row against {limit:.1f} ns/row: {ours / limit:.2f}")


if __name__ == "__main__":
    main()
