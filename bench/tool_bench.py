#!/usr/bin/env python3
"""Measures `zantm load` and `zantm query` beside the command sqlite3.

    bench/tool_bench.py build/release [ROWS]

Both read the same generated CSV file of four numeric columns, index each column, and commit once;
then both print the rows that a range of one column selects, one in a thousand. The times are
processor seconds of the whole process, medians of several runs.
"""

import json
import pathlib
import random
import resource
import statistics
import subprocess
import sys
import tempfile

LOAD_RUNS, QUERY_RUNS = 3, 11
COLUMNS = (("small", "int", "INTEGER"), ("big", "o_8b", "INTEGER"),
           ("real", "o_double", "REAL"), ("wide", "o_u4b", "INTEGER"))


def spent(arguments, **options):
    """Processor seconds of a command, and what it wrote."""
    before = resource.getrusage(resource.RUSAGE_CHILDREN)
    done = subprocess.run(arguments, check=True, stdout=subprocess.PIPE, **options)
    after = resource.getrusage(resource.RUSAGE_CHILDREN)
    seconds = after.ru_utime - before.ru_utime + after.ru_stime - before.ru_stime
    return seconds, done.stdout.decode()


def generate(path, rows):
    draw = random.Random(7)
    with open(path, "w", encoding="ascii") as file:
        file.write(",".join(name for name, _, _ in COLUMNS) + "\n")
        for _ in range(rows):
            file.write(f"{draw.randrange(-2**31, 2**31)},{draw.randrange(-2**62, 2**62)},"
                       f"{draw.uniform(-1e6, 1e6):.6f},{draw.randrange(rows)}\n")


def main():
    zantm = pathlib.Path(sys.argv[1]) / "tool" / "zantm"
    rows = int(sys.argv[2]) if len(sys.argv) > 2 else 1_000_000
    times = {}

    def measure(name, runs, action):
        times[name] = statistics.median(action() for _ in range(runs))

    with tempfile.TemporaryDirectory() as place:
        place = pathlib.Path(place)
        generate(place / "data.csv", rows)

        def load_zantm():
            (place / "z.db").unlink(missing_ok=True)
            columns = ",".join(f"{name}:{kind}" for name, kind, _ in COLUMNS)
            return spent([zantm, "load", place / "z.db", place / "data.csv", "--columns", columns])[0]

        def load_sqlite():
            (place / "s.db").unlink(missing_ok=True)
            columns = ",".join(f"{name} {kind}" for name, _, kind in COLUMNS)
            script = [f"CREATE TABLE t({columns});", "BEGIN;",
                      f".import --csv --skip 1 {place / 'data.csv'} t",
                      *(f"CREATE INDEX i_{name} ON t({name});" for name, _, _ in COLUMNS), "COMMIT;"]
            return spent(["sqlite3", place / "s.db"], input="\n".join(script).encode())[0]

        limit = rows // 1000
        answers = {}

        def query_zantm():
            seconds, answers["zantm"] = spent([zantm, "query", place / "z.db", f"wide < {limit}"])
            return seconds

        def query_sqlite():
            seconds, answers["sqlite3"] = spent(
                ["sqlite3", "-csv", "-header", place / "s.db",
                 f"SELECT * FROM t WHERE wide < {limit} ORDER BY wide;"])
            return seconds

        measure("zantm/load", LOAD_RUNS, load_zantm)
        measure("sqlite3/load", LOAD_RUNS, load_sqlite)
        measure("zantm/query", QUERY_RUNS, query_zantm)
        measure("sqlite3/query", QUERY_RUNS, query_sqlite)
        if len(answers["zantm"].splitlines()) != len(answers["sqlite3"].splitlines()):
            sys.exit("the two give different answers")
    json.dump({"benchmarks": [{"name": name, "cpu_time": seconds * 1000, "time_unit": "ms"}
                              for name, seconds in times.items()]}, sys.stdout, indent=1)
    print()


main()
