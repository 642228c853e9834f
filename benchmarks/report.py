#!/usr/bin/env python3
"""Runs the benchmarks and prints how the house compares with the naive way, and whether the goals are met.

usage: report.py FOLDER [FILTER]   FOLDER holds the program varnel_bench; FILTER is a regular expression on names

Both sides of a pair run in one process, their repetitions interleaved, so that whatever else the machine does
falls on both. Times are medians of processor time and those of this machine; ratios hold elsewhere too. Where the disk
is waited for, the row says so.
"""
import json
import subprocess
import sys
import tempfile
from pathlib import Path

MEBI = 1e6

# name shown, what is computed from {benchmark: median}, unit, goal ("> 12" or "< 10" or none)
ROWS = [
    ("framing, x naive", lambda t: t["framing/naive"] / t["framing/house"], "x", None),
    ("framing, speed", lambda t: t["framing/house:bytes"] / MEBI, "MB/s", "> 50"),
    ("parse a line, x naive", lambda t: t["parse line/naive"] / t["parse line/house"], "x", None),
    ("format a line, x naive", lambda t: t["format line/naive"] / t["format line/house"], "x", None),
    ("read 262144 records, x naive", lambda t: t["read file/naive/262144"] / t["read file/house/262144"], "x", "> 12"),
    ("read: 262144 against 32768 records", lambda t: t["read file/house/262144"] / t["read file/house/32768"], "x",
     "< 10"),
    ("read, x a script with csv and int", lambda t: t["read file/python"] / t["read file/house/262144"], "x", "> 10"),
    ("save 262144 records, x naive", lambda t: t["save file/naive"] / t["save file/house"], "x", "> 15"),
    ("the same, waiting for the disk", lambda t: t["save file/naive:real"] / t["save file/house:real"], "x", None),
    ("append to 262144, x naive", lambda t: t["append/naive/262144"] / t["append/house/262144"], "x", None),
    ("append to 262144, beyond the copy", lambda t: t["append/house/262144"] - t["append/copy"], "ns", "< 1000"),
    ("append: to 262144 against 32768", lambda t: t["append/house/262144"] / t["append/house/32768"], "x", "< 2"),
    ("paint 20 x 262144, x naive", lambda t: t["paint/naive/262144/1"] / t["paint/house/262144/1"], "x", "> 50"),
    ("the same, 2 pixels wide", lambda t: t["paint/naive/262144/2"] / t["paint/house/262144/2"], "x", None),
    ("paint: 262144 against 10000", lambda t: t["paint/house/262144/1"] / t["paint/house/10000/1"], "x", "< 2.5"),
    ("paint: nothing new against anew", lambda t: t["paint/again/262144/1"] / t["paint/house/262144/1"], "x", "< 1"),
]

CSV_SCRIPT = """
import csv, sys, time
start = time.process_time()
with open(sys.argv[1], newline="") as lines:
    rows = [[row[0]] + [int(field) if field != ":" else 10 for field in row[1:]] for row in csv.reader(lines)]
print(time.process_time() - start)
"""


def csv_reading(folder):
    """ns that a script takes for the data file that the benchmark program writes"""
    with tempfile.TemporaryDirectory() as temporary:
        path = f"{temporary}/sample.acp"
        subprocess.run([str(folder / "varnel_bench"), "--write-sample", path], check=True)
        runs = [float(subprocess.run([sys.executable, "-c", CSV_SCRIPT, path], stdout=subprocess.PIPE, check=True).stdout)
                for _ in range(3)]
    return sorted(runs)[1] * 1e9


def run(folder, pattern):
    command = [str(folder / "varnel_bench"), "--benchmark_format=json", "--benchmark_repetitions=5",
               "--benchmark_enable_random_interleaving=true"]
    if pattern:
        command.append(f"--benchmark_filter={pattern}")
    output = subprocess.run(command, stdout=subprocess.PIPE, check=True).stdout
    return json.loads(output)["benchmarks"]


def medians(results):
    table = {}
    to_ns = {"ns": 1, "us": 1e3, "ms": 1e6, "s": 1e9}
    for result in results:
        if result.get("error_occurred"):
            raise SystemExit(f"{result['name']}: {result['error_message']}")
        if result.get("aggregate_name") != "median":
            continue
        name = result["run_name"].split("/iterations:")[0].replace("/real_time", "")
        table[name] = result["cpu_time"] * to_ns[result["time_unit"]]
        table[name + ":real"] = result["real_time"] * to_ns[result["time_unit"]]
        if "bytes_per_second" in result:
            table[name + ":bytes"] = result["bytes_per_second"]
    return table


def met(value, goal):
    if not goal:
        return ""
    sign, limit = goal.split()
    return "ok" if (value > float(limit) if sign == ">" else value < float(limit)) else "MISSED"


def main():
    folder = Path(sys.argv[1])
    pattern = sys.argv[2] if len(sys.argv) > 2 else ""
    table = medians(run(folder, pattern))
    if "read file/house/262144" in table:
        table["read file/python"] = csv_reading(folder)
    print(f"\n{'benchmark':32} {'median':>14}")
    for name, nanoseconds in sorted(table.items()):
        if ":" not in name:
            print(f"{name:32} {nanoseconds / 1e6:11.4f} ms")
    print(f"\n{'what':38} {'measured':>14} {'goal':>8}")
    missed = 0
    for what, compute, unit, goal in ROWS:
        try:
            value = compute(table)
        except KeyError:
            continue  # filtered out
        verdict = met(value, goal)
        missed += verdict == "MISSED"
        print(f"{what:38} {value:9.1f} {unit:4} {goal or '-':>8}  {verdict}")
    return 1 if missed else 0


if __name__ == "__main__":
    sys.exit(main())
