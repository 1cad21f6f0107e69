#!/usr/bin/env python3
"""Turns benchmark results into ratios of a subject to its peer, with the goal beside each.

    ratios.py [--filter REGEX] [--write FILE] RESULT.json...

reads every *_goals.txt beside this script (bench/README.md tells their form) and prints one table
for each of them. With --write the tables go to FILE as a page of documentation. The exit code is 1
if a goal fits no benchmark, which --filter excuses, and 0 else: a missed goal is told, not punished,
because a busy machine may miss it too.

Example: with Store/big4 at 200 ns and memcpy/big4 at 150 ns the line
"Store/big4 memcpy/big4 speed >= 0.6 four bytes" gives the ratio 0.75, which meets its goal.
"""

import argparse
import fnmatch
import json
import pathlib
import re
import sys

UNITS = {"ns": 1e-9, "us": 1e-6, "ms": 1e-3, "s": 1.0}


def read_times(paths):
    """Seconds of each benchmark: the median of its repetitions, or its only run."""
    times = {}
    for path in paths:
        for run in json.loads(pathlib.Path(path).read_text())["benchmarks"]:
            if run.get("error_occurred"):
                sys.exit(f"{run['name']}: {run.get('error_message', 'failed')}")
            if run.get("run_type") == "aggregate" and run.get("aggregate_name") != "median":
                continue
            name = run.get("run_name", run["name"])
            times[name] = run["cpu_time"] * UNITS[run.get("time_unit", "ns")]
    return times


def read_goals(path):
    """Yields (subject, peer, measure, relation, bound, text) of each line; bound is None for '-'."""
    for number, line in enumerate(path.read_text().splitlines(), 1):
        if not line.strip() or line.startswith("#"):
            continue
        match = re.match(r"(\S+)\s+(\S+)\s+(speed|time)\s+(?:(>=|<=)\s*([0-9.]+)|-)\s*(.*)$", line)
        if not match or match[1].count("*") != match[2].count("*") or match[1].count("*") > 1:
            sys.exit(f"{path.name}:{number}: not a goal: {line}")
        subject, peer, measure, relation, bound, text = match.groups()
        yield subject, peer, measure, relation, float(bound) if bound else None, text


def pairs(subject, peer, times):
    """The benchmarks that a line of goals compares."""
    if "*" not in subject:
        return [(subject, peer)] if subject in times and peer in times else []
    head, tail = subject.split("*")
    found = []
    for name in sorted(times):
        if fnmatch.fnmatchcase(name, subject):
            partner = peer.replace("*", name[len(head):len(name) - len(tail)])
            if partner in times:
                found.append((name, partner))
    return found


def table(path, times, missing):
    rows = []
    for subject, peer, measure, relation, bound, text in read_goals(path):
        found = pairs(subject, peer, times)
        if not found:
            missing.append(f"{path.name}: no benchmarks for {subject} and {peer}")
        for name, partner in found:
            ratio = times[name] / times[partner]
            if measure == "speed":
                ratio = 1 / ratio
            goal, met = "", ""
            if bound is not None:
                goal = f"{'at least' if relation == '>=' else 'at most'} {bound:g}"
                met = "yes" if (ratio >= bound if relation == ">=" else ratio <= bound) else "**no**"
            rows.append((name, partner, f"{measure} {ratio:.2f}", goal, met, text))
    return rows


def markdown(title, rows):
    head = ("Subject", "Peer", "Ratio", "Goal", "Met", "What")
    lines = [f"## {title}", "", "| " + " | ".join(head) + " |", "|---" * len(head) + "|"]
    lines += ["| " + " | ".join(row) + " |" for row in rows]
    return "\n".join(lines) + "\n"


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n")[0])
    parser.add_argument("results", nargs="+")
    parser.add_argument("--filter", action="store_true", help="some benchmarks did not run")
    parser.add_argument("--write", metavar="FILE")
    parser.add_argument("--machine", default="", help="one line on where this ran")
    arguments = parser.parse_args()

    times = read_times(arguments.results)
    missing = []
    page = [
        "# Benchmarks\n",
        "Written by `scripts/bench`; `bench/README.md` tells how. `speed` is the subject's throughput"
        " as a share of the peer's, `time` its time as a multiple of the peer's."
        + (f" {arguments.machine}" if arguments.machine else "") + "\n",
    ]
    for path in sorted(pathlib.Path(__file__).parent.glob("*_goals.txt")):
        rows = table(path, times, missing)
        if rows:
            page.append(markdown(path.name.removesuffix("_goals.txt").replace("_", " ").capitalize(), rows))
    text = "\n".join(page)
    if arguments.write:
        pathlib.Path(arguments.write).write_text(text)
    print(text)
    if missing and not arguments.filter:
        sys.exit("\n".join(missing))


if __name__ == "__main__":
    main()
