#!/usr/bin/env python3
"""Measures what loading the language component adds to the start of a process.

    bench/start_bench.py build/release

Its peer is a budget of one millisecond. The times are medians of many starts, the two processes in
turn.
"""

import json
import pathlib
import statistics
import subprocess
import sys
import time

STARTS = 400


def started(program):
    """Milliseconds from start to end of a process."""
    before = time.perf_counter()
    subprocess.run([program], check=True)
    return (time.perf_counter() - before) * 1000


def main():
    programs = [pathlib.Path(sys.argv[1]) / "bench" / name for name in ("start_bare", "start_tables")]
    pairs = [[started(program) for program in programs] for _ in range(STARTS)]
    bare, tables = (statistics.median(times) for times in zip(*pairs))
    print(json.dumps({"benchmarks": [
        {"name": "Start/tables", "cpu_time": max(tables - bare, 0.0), "time_unit": "ms"},
        {"name": "Budget/tables", "cpu_time": 1.0, "time_unit": "ms"},
    ]}))


if __name__ == "__main__":
    main()
