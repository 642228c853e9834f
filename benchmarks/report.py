#!/usr/bin/env python3
"""Runs the benchmarks and prints how the house compares with the naive way, and whether the goals are met.

usage: report.py FOLDER [FILTER]   FOLDER holds the program varnel_bench; FILTER is a regular expression

Both sides of a pair run in one process, their repetitions interleaved, so that whatever else the machine does
falls on both. Times are medians of processor time and those of this machine; ratios hold elsewhere too. Where
the disk is waited for, the row says so. Memory, the start and the road from a port to the screen are measured
in processes of their own. FILTER looks at the names of benchmarks.
"""
import json
import os
import re
import subprocess
import sys
import tempfile
import time
from pathlib import Path

BYTES_IN_MB = 1e6
LONG = 262144
NS_IN_MS = 1e6


def ratio(above, below):
    return lambda t: t[above] / t[below]


# name shown, what is computed from {benchmark: median}, unit, goal ("> 12" or "< 10" or none)
ROWS = [
    ("framing, x naive", ratio("framing/naive", "framing/house"), "x", None),
    ("framing, speed", lambda t: t["framing/house:bytes"] / BYTES_IN_MB, "MB/s", "> 50"),
    ("from a port to the screen, none lost", lambda t: t["road"], "l/s", "> 20000"),
    ("parse a line, x naive", ratio("parse line/naive", "parse line/house"), "x", None),
    ("format a line, x naive", ratio("format line/naive", "format line/house"), "x", None),
    ("read 262144 records, x naive",
     ratio(f"read file/naive/{LONG}", f"read file/house/{LONG}"), "x", "> 12"),
    ("read: 262144 against 32768", ratio(f"read file/once/{LONG}", "read file/once/32768"), "x", "< 10"),
    ("the same, opened again and again",
     ratio(f"read file/house/{LONG}", "read file/house/32768"), "x", None),
    ("read, x a script with csv and int", ratio("read file/python", f"read file/house/{LONG}"), "x", "> 10"),
    ("save 262144 records, x naive", ratio("save file/naive", "save file/house"), "x", "> 15"),
    ("the same by the clock, synced",
     ratio("save file/naive synced:real", "save file/house:real"), "x", None),
    ("export 262144 records as CSV, x naive", ratio("export table/naive", "export table/house"), "x", "> 10"),
    ("append to 262144, x naive", ratio(f"append/naive/{LONG}", f"append/house/{LONG}"), "x", None),
    ("append to 262144, beyond the copy",
     lambda t: t[f"append/house/{LONG}"] - t["append/copy"], "ns", "< 1000"),
    ("append: to 262144 against 32768", ratio(f"append/house/{LONG}", "append/house/32768"), "x", "< 1.5"),
    ("paint 20 x 262144, x naive", ratio(f"paint/naive/{LONG}", f"paint/house/{LONG}"), "x", "> 50"),
    ("the same, 2 pixels wide", ratio(f"paint wide/naive/{LONG}", f"paint wide/house/{LONG}"), "x", "> 50"),
    ("the same, zoomed", ratio(f"paint zoomed/naive/{LONG}", f"paint zoomed/house/{LONG}"), "x", "> 50"),
    ("sixteen cells", ratio(f"paint cells/naive/{LONG}", f"paint cells/house/{LONG}"), "x", "> 50"),
    ("the same, 2 pixels wide",
     ratio(f"paint wide cells/naive/{LONG}", f"paint wide cells/house/{LONG}"), "x", "> 50"),
    ("paint: 262144 against 10000", ratio(f"paint/house/{LONG}", "paint/house/10000"), "x", "< 2.5"),
    ("the same, 2 pixels wide", ratio(f"paint wide/house/{LONG}", "paint wide/house/10000"), "x", "< 2.5"),
    ("the same, zoomed", ratio(f"paint zoomed/house/{LONG}", "paint zoomed/house/10000"), "x", "< 2.5"),
    ("the same, sixteen cells", ratio(f"paint cells/house/{LONG}", "paint cells/house/10000"), "x", "< 2.5"),
    ("the same, and 2 pixels wide",
     ratio(f"paint wide cells/house/{LONG}", "paint wide cells/house/10000"), "x", "< 2.5"),
    ("the same, a window and all in it",
     ratio(f"paint window/house/{LONG}", "paint window/house/10000"), "x", "< 2.5"),
    ("paint: two joined against one",
     ratio(f"paint two joined/house/{LONG}", f"paint/house/{LONG}"), "x", "< 4"),
    ("24 joined against one, 2 pixels wide",
     ratio(f"paint dozens joined/house/{LONG}", f"paint wide/house/{LONG}"), "x", None),
    ("paint: four million against 10000", ratio("paint/house/4000000", "paint/house/10000"), "x", "< 1.6"),
    ("the same, sixteen cells", ratio("paint cells/house/4000000", "paint cells/house/10000"), "x", "< 1.6"),
    ("paint: a record more, x nothing new",
     ratio(f"paint/grown/{LONG}", f"paint/again/{LONG}"), "x", "< 2"),
    ("paint: nothing new against anew", ratio(f"paint/again/{LONG}", f"paint/house/{LONG}"), "x", None),
    ("paint: nothing new, x spans alone", ratio(f"paint/again/{LONG}", f"paint/spans/{LONG}"), "x", "< 1.3"),
    ("logbook of 10000 recordings, opened", lambda t: t["logbook/open:real"] / NS_IN_MS, "ms", "< 300"),
    ("the same, filtered", lambda t: t["logbook/filter"] / NS_IN_MS, "ms", "< 50"),
    ("the same, its window on the screen", lambda t: t["logbook/window:real"] / NS_IN_MS, "ms", "< 300"),
    ("a letter typed in its filter", lambda t: t["logbook/typed:real"] / NS_IN_MS, "ms", "< 50"),
    ("the same, 1000 files of 5000 records read", lambda t: t["logbook/read:real"] / 1e9, "s", "< 20"),
    ("longest pause meanwhile", lambda t: t["logbook/read:held"], "ms", "< 50"),
    ("100000 files that are none", lambda t: t["logbook/none:real"] / 1e9, "s", None),
    ("longest pause meanwhile", lambda t: t["logbook/none:held"], "ms", "< 50"),
    ("eight windows, a record each", lambda t: t["memory/eight windows:held"], "MB", "< 4"),
    ("a million records, opened and drawn", lambda t: t["memory/a million records"] / NS_IN_MS, "ms", None),
    ("memory meanwhile", lambda t: t["memory/a million records:held"], "MB", "< 100"),
    ("memory when the window has gone", lambda t: t["memory/a million records:left"], "MB", "< 4"),
    ("an overlay of twenty days, from files", lambda t: t["memory/twenty days"] / NS_IN_MS, "ms", "< 2000"),
    ("memory meanwhile", lambda t: t["memory/twenty days:held"], "MB", "< 400"),
    ("start until the window is painted", lambda t: t["start"], "ms", "< 300"),
]

CSV_SCRIPT = """
import csv, sys, time
held = b"x" * (768 << 20)  # as machinememory.h does
del held
start = time.process_time()
with open(sys.argv[1], newline="") as lines:
    rows = [[row[0]] + [int(field) if field != ":" else 10 for field in row[1:]] for row in csv.reader(lines)]
print(time.process_time() - start)
"""
STARTS = 9
BURST_LINES = 200000


def median(values):
    return sorted(values)[len(values) // 2]


def csv_reading(folder):
    """ns that a script takes for the data file that the benchmark program writes"""
    with tempfile.TemporaryDirectory() as temporary:
        path = f"{temporary}/sample.acp"
        subprocess.run([str(folder / "varnel_bench"), "--write-sample", path], check=True)
        script = [sys.executable, "-c", CSV_SCRIPT, path]
        runs = [float(subprocess.run(script, stdout=subprocess.PIPE, check=True).stdout) for _ in range(3)]
    return median(runs) * 1e9


class Screen:
    """Xvfb where it is installed; without it the platform that has no screen."""

    def __enter__(self):
        self.server = None
        self.environment = {"QT_QPA_PLATFORM": "offscreen"}
        try:
            self.server = subprocess.Popen(
                ["Xvfb", "-displayfd", "1", "-screen", "0", "1400x900x24", "-nolisten", "tcp"],
                stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        except FileNotFoundError:
            return self
        display = self.server.stdout.readline().decode().strip()
        if display:
            self.environment = {"QT_QPA_PLATFORM": "xcb", "DISPLAY": f":{display}"}
        return self

    def __exit__(self, *_):
        if self.server:
            self.server.terminate()
            self.server.wait()


def start_profile(folder):
    """[(step, ms since the process was asked for)], medians of several starts with settings of their own"""
    runs = []
    with tempfile.TemporaryDirectory() as home, Screen() as screen:
        folders = ("HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_RUNTIME_DIR", "VARNEL_PORT_DIR")
        own = {name: home for name in folders}
        for _ in range(STARTS):
            begun = time.clock_gettime_ns(time.CLOCK_MONOTONIC)
            output = subprocess.run([str(folder / "varnel_bench"), "--start", str(begun)], check=True,
                                    text=True, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                                    env={**os.environ, **own, **screen.environment}).stdout
            runs.append([line.rsplit(": ", 1) for line in output.splitlines()])
    return [(step, median([float(run[index][1]) for run in runs])) for index, (step, _) in enumerate(runs[0])]


def burst_rate(folder):
    """lines a second over a pseudo-terminal, through framing, parsing, store, journal, figures and drawing;
    0 when one was lost"""
    soak = next((path for path in folder.parent.rglob("varnelsoak") if path.is_file()), None)
    if not soak:
        raise KeyError("road")
    run = subprocess.run([str(soak), "--burst", str(BURST_LINES)], stdout=subprocess.PIPE, text=True,
                         check=False)
    if not re.search(r"^records .* held$", run.stdout, re.MULTILINE):
        print(run.stdout, file=sys.stderr)
        return 0.0
    return float(re.search(r"^rate +(\d+)", run.stdout, re.MULTILINE).group(1))


def run(folder, pattern, repetitions=5):
    command = [str(folder / "varnel_bench"), "--benchmark_format=json",
               f"--benchmark_repetitions={repetitions}", "--benchmark_enable_random_interleaving=true",
               f"--benchmark_filter={pattern}"]
    output = subprocess.run(command, stdout=subprocess.PIPE, check=True).stdout
    return json.loads(output)["benchmarks"] if output.strip() else []


def medians(results):
    table = {}
    to_ns = {"ns": 1, "us": 1e3, "ms": 1e6, "s": 1e9}
    for result in results:
        if result.get("error_occurred"):
            raise SystemExit(f"{result['name']}: {result['error_message']}")
        if result["repetitions"] > 1 and result.get("aggregate_name") != "median":
            continue
        name = result["run_name"].split("/iterations:")[0].replace("/real_time", "")
        table[name] = result["cpu_time"] * to_ns[result["time_unit"]]
        table[name + ":real"] = result["real_time"] * to_ns[result["time_unit"]]
        for counter in ("held", "left"):
            if counter in result:
                table[f"{name}:{counter}"] = result[counter]
        if "bytes_per_second" in result:
            table[name + ":bytes"] = result["bytes_per_second"]
    return table


def measure(folder, pattern):
    """{name: median}, and the steps of the start, empty where that was filtered out"""
    wanted = lambda name: re.search(pattern or "", name)
    table = medians(run(folder, pattern or "-^(memory|logbook)"))
    for name, repetitions in (("memory/eight windows", 1), ("memory/a million records", 3),
                              ("memory/twenty days", 3), ("logbook", 1)):
        if wanted(name):
            table.update(medians(run(folder, f"^{name}", repetitions)))
    if f"read file/house/{LONG}" in table:
        table["read file/python"] = csv_reading(folder)
    if wanted("road"):
        table["road"] = burst_rate(folder)
    steps = start_profile(folder) if wanted("start") else []
    if steps:
        table["start"] = steps[-1][1]
    return table, steps


def met(value, goal):
    if not goal:
        return ""
    sign, limit = goal.split()
    return "ok" if (value > float(limit) if sign == ">" else value < float(limit)) else "MISSED"


def print_start(steps):
    if not steps:
        return
    print(f"\n{'start, ms':38} {'since it':>9} {'this step':>9}")
    before = 0.0
    for step, passed in steps:
        print(f"{step:38} {passed:9.1f} {passed - before:9.1f}")
        before = passed


def main():
    folder = Path(sys.argv[1])
    table, steps = measure(folder, sys.argv[2] if len(sys.argv) > 2 else "")
    print(f"\n{'benchmark':32} {'median':>14}")
    for name, nanoseconds in sorted(table.items()):
        if "/" in name and ":" not in name:
            print(f"{name:32} {nanoseconds / NS_IN_MS:11.4f} ms")
    print_start(steps)
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
