#!/usr/bin/env python3
"""Runs the benchmarks and prints how the house compares with the naive way and with the least that any way
can take, and whether the goals are met.

usage: report.py [--write FILE] FOLDER [FILTER]

FOLDER holds the program varnel_bench; FILTER is a regular expression for names of benchmarks. FILE is
Markdown with a table between two marks: the column of this machine is filled or made there.

All that a row compares runs in one process, three times in turn; the middle of the three rows counts. Times
are processor time, but for a start, and where a disk or a thread is waited for: the row says so. Memory, the
start and the road from a port to the screen are measured in processes of their own.
"""
import argparse
import json
import os
import re
import subprocess
import sys
import tempfile
import time
from pathlib import Path

import table

BYTES_IN_MB = 1e6
LONG = 262144
NS_IN_MS = 1e6
ROUNDS = 3


def ratio(above, below):
    return lambda t: t[above] / t[below]


def value(name, divisor=1.0):
    return lambda t: t[name] / divisor


def drawing(what, name):
    """The rows of one view."""
    house = f"{name}/house/{LONG}"
    return [
        (f"paint {what}, x naive", ratio(f"{name}/naive/{LONG}", house), "x", None),
        (f"paint {what}, x spans alone", ratio(house, f"{name}/spans/{LONG}"), "x", None),
        (f"paint {what}: 262144 against 10000", ratio(house, f"{name}/house/10000"), "x", "< 1.3"),
    ]


# name shown, what is computed from {benchmark: time}, unit, goal ("> 12" or "< 10" or none)
ROWS = [
    ("framing, x naive", ratio("framing/naive", "framing/house"), "x", None),
    ("framing, x a plain pass", ratio("framing/house", "framing/floor"), "x", None),
    ("framing, speed", value("framing/house:bytes", BYTES_IN_MB), "MB/s", "> 50"),
    ("from a port to the screen, none lost", value("road"), "l/s", "> 20000"),
    ("parse a line, x naive", ratio("parse line/naive", "parse line/house"), "x", None),
    ("parse a line, x a plain pass", ratio("parse line/house", "parse line/floor"), "x", None),
    ("format a line, x naive", ratio("format line/naive", "format line/house"), "x", None),
    ("format a line, x copying it", ratio("format line/house", "format line/floor"), "x", None),
    ("read 262144 records, x naive",
     ratio(f"read file/naive/{LONG}", f"read file/house/{LONG}"), "x", "> 20"),
    ("read, x a plain pass", ratio(f"read file/house/{LONG}", f"read file/floor/{LONG}"), "x", None),
    ("read, x a script with csv and int", ratio("read file/python", f"read file/house/{LONG}"), "x", "> 35"),
    ("read: 262144 against 32768", ratio(f"read file/once/{LONG}", "read file/once/32768"), "x", "< 9"),
    ("read again and again: 262144 against 32768",
     ratio(f"read file/house/{LONG}", "read file/house/32768"), "x", None),
    ("a million records, opened and drawn", value("memory/a million records", NS_IN_MS), "ms", "< 200"),
    ("save 262144 records, x naive", ratio("save file/naive", "save file/house"), "x", "> 15"),
    ("save, x writing the bytes", ratio("save file/house", "save file/floor"), "x", None),
    ("save by the clock, synced, x naive",
     ratio("save file/naive synced:real", "save file/house:real"), "x", None),
    ("save by the clock, synced, x writing",
     ratio("save file/house:real", "save file/floor synced:real"), "x", None),
    ("export 262144 as CSV, x naive", ratio("export table/naive", "export table/house"), "x", "> 10"),
    ("export as CSV, x writing the bytes", ratio("export table/house", "export table/floor"), "x", None),
    ("append to 262144, x naive", ratio(f"append/naive/{LONG}", f"append/house/{LONG}"), "x", None),
    ("append to 262144, x the copy", ratio(f"append/house/{LONG}", "append/copy"), "x", None),
    ("append to 262144, beyond the copy",
     lambda t: t[f"append/house/{LONG}"] - t["append/copy"], "ns", "< 1000"),
    ("append: to 262144 against 32768", ratio(f"append/house/{LONG}", "append/house/32768"), "x", "< 1.5"),
    ("append: the longest of a million", value("memory/records/16:longest"), "ms", "< 1"),
    *drawing("20 curves", "paint"),
    *drawing("20 curves, 2 pixels wide", "paint wide"),
    *drawing("20 curves, zoomed", "paint zoomed"),
    *drawing("sixteen cells", "paint cells"),
    *drawing("sixteen cells, 2 pixels wide", "paint wide cells"),
    ("paint a window with all in it: 262144 against 10000",
     ratio(f"paint window/house/{LONG}", "paint window/house/10000"), "x", "< 1.3"),
    ("paint 20 curves: four million against 10000",
     ratio("paint/house/4000000", "paint/house/10000"), "x", "< 1.6"),
    ("paint sixteen cells: four million against 10000",
     ratio("paint cells/house/4000000", "paint cells/house/10000"), "x", "< 1.6"),
    ("paint: two joined against one",
     ratio(f"paint two joined/house/{LONG}", f"paint/house/{LONG}"), "x", "< 4"),
    ("paint: 24 joined against one, 2 pixels wide",
     ratio(f"paint dozens joined/house/{LONG}", f"paint wide/house/{LONG}"), "x", None),
    ("paint a record more, x nothing new",
     ratio(f"paint/grown/{LONG}", f"paint/again/{LONG}"), "x", "< 2"),
    ("paint nothing new, x spans alone", ratio(f"paint/again/{LONG}", f"paint/spans/{LONG}"), "x", "< 1.3"),
    ("logbook of 10000 recordings, opened", value("logbook/open:real", NS_IN_MS), "ms", "< 300"),
    ("logbook, filtered", value("logbook/filter", NS_IN_MS), "ms", "< 50"),
    ("logbook, its window on the screen", value("logbook/window:real", NS_IN_MS), "ms", "< 300"),
    ("logbook, a letter typed in its filter", value("logbook/typed:real", NS_IN_MS), "ms", "< 50"),
    ("logbook, 1000 files of 5000 records read", value("logbook/read:real", 1e9), "s", "< 20"),
    ("the longest pause meanwhile", value("logbook/read:held"), "ms", "< 50"),
    ("logbook, 100000 files that are none", value("logbook/none:real", 1e9), "s", None),
    ("the longest pause with those", value("logbook/none:held"), "ms", "< 50"),
    ("memory of a record with sixteen cells", value("memory/records/16:held"), "B", "< 200"),
    ("memory of a record with six cells", value("memory/records/6:held"), "B", "< 110"),
    ("memory of a record without cells", value("memory/records/0:held"), "B", "< 64"),
    ("memory of eight windows, a record each", value("memory/eight windows:held"), "MB", "< 4"),
    ("memory of a million records, drawn", value("memory/a million records:held"), "MB", "< 100"),
    ("memory when their window has gone", value("memory/a million records:left"), "MB", "< 4"),
    ("an overlay of twenty days, from files", value("memory/twenty days", NS_IN_MS), "ms", "< 2000"),
    ("memory of that overlay", value("memory/twenty days:held"), "MB", "< 400"),
    ("start until the window is painted", value("start"), "ms", None),
    ("start, x an empty window", ratio("start", "start/empty"), "x", "< 1.4"),
    ("start, x an empty one without OpenGL", ratio("start", "start/empty, no OpenGL"), "x", None),
]

# in processes of their own, each alone
APART = ("memory/eight windows", "memory/records/16", "memory/records/6", "memory/records/0",
         "memory/a million records", "memory/twenty days", "logbook")
COUNTERS = ("held", "left", "longest")

CSV_SCRIPT = """
import csv, sys, time
held = b"x" * (768 << 20)  # as machinememory.h does
del held
start = time.process_time()
with open(sys.argv[1], newline="") as lines:
    rows = [[row[0]] + [int(field) if field != ":" else 10 for field in row[1:]] for row in csv.reader(lines)]
print(time.process_time() - start)
"""
STARTS = 15  # in a round
BURST_LINES = 200000


def median(values):
    return sorted(values)[len(values) // 2]


def csv_reading(folder):
    """ns that a script takes for the data file that the benchmark program writes"""
    with tempfile.TemporaryDirectory() as temporary:
        path = f"{temporary}/sample.acp"
        subprocess.run([str(folder / "varnel_bench"), "--write-sample", path], check=True)
        script = [sys.executable, "-c", CSV_SCRIPT, path]
        return float(subprocess.run(script, stdout=subprocess.PIPE, check=True).stdout) * 1e9


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


def one_start(command, environment):
    """[(step, ms since the process was asked for)]"""
    begun = time.clock_gettime_ns(time.CLOCK_MONOTONIC)
    output = subprocess.run([*command, str(begun)], check=True, text=True, stdout=subprocess.PIPE,
                            stderr=subprocess.DEVNULL, env=environment).stdout
    return [(step, float(passed)) for step, passed in
            (line.rsplit(": ", 1) for line in output.splitlines())]


def start_profile(folder):
    """{name: ms} of a start, its steps and that of an empty window: the quickest of several in turn, since
    other load only makes them longer; with settings of their own"""
    runs, empty, bare = [], [], []
    with tempfile.TemporaryDirectory() as home, Screen() as screen:
        folders = ("HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_RUNTIME_DIR", "VARNEL_PORT_DIR")
        own = {**os.environ, **{name: home for name in folders}, **screen.environment}
        window = [str(folder / "varnel_empty_window")]
        for _ in range(STARTS):
            runs.append(one_start([str(folder / "varnel_bench"), "--start"], own))
            empty.append(one_start(window, own)[-1][1])
            bare.append(one_start(window, {**own, "QT_XCB_GL_INTEGRATION": "none"})[-1][1])
    quickest = min(runs, key=lambda run: run[-1][1])
    return {"start": quickest[-1][1], "start/empty": min(empty), "start/empty, no OpenGL": min(bare),
            **{f"start:{step}": passed for step, passed in quickest}}


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


def names(folder, pattern):
    """the benchmarks that the pattern finds"""
    listed = subprocess.run([str(folder / "varnel_bench"), "--benchmark_list_tests"], stdout=subprocess.PIPE,
                            text=True, check=True).stdout
    return [name for name in listed.splitlines() if re.search(pattern, name)]


def run(folder, chosen):
    """{name: ns of processor time}, and under the name with a colon what else was counted"""
    if not chosen:
        return {}
    command = [str(folder / "varnel_bench"), "--benchmark_format=json", "--benchmark_min_time=0.3",
               f"--benchmark_filter=^({'|'.join(chosen)})$"]
    return times(json.loads(subprocess.run(command, stdout=subprocess.PIPE, check=True).stdout)["benchmarks"])


def times(results):
    measured = {}
    to_ns = {"ns": 1, "us": 1e3, "ms": 1e6, "s": 1e9}
    for result in results:
        if result.get("error_occurred"):
            raise SystemExit(f"{result['name']}: {result['error_message']}")
        name = result["run_name"].split("/iterations:")[0].replace("/real_time", "")
        measured[name] = result["cpu_time"] * to_ns[result["time_unit"]]
        measured[name + ":real"] = result["real_time"] * to_ns[result["time_unit"]]
        for counter in COUNTERS:
            if counter in result:
                measured[f"{name}:{counter}"] = result[counter]
        if "bytes_per_second" in result:
            measured[name + ":bytes"] = result["bytes_per_second"]
    return measured


def measure(folder, pattern):
    """One round."""
    wanted = lambda name: re.search(pattern, name)
    found = names(folder, pattern)
    measured = run(folder, [name for name in found if not name.startswith(APART)])
    for apart in APART:
        measured.update(run(folder, [name for name in found if name.startswith(apart)]))
    if f"read file/house/{LONG}" in measured:
        measured["read file/python"] = csv_reading(folder)
    if wanted("road"):
        measured["road"] = burst_rate(folder)
    if wanted("start"):
        measured.update(start_profile(folder))
    return measured


def middle(compute, rounds):
    """The middle of what the rounds give; none where a filter has left something out."""
    try:
        return median([compute(measured) for measured in rounds])
    except KeyError:
        return None


def is_met(measured, goal):
    sign, limit = goal.split()
    return measured > float(limit) if sign == ">" else measured < float(limit)


def print_times(rounds):
    print(f"\n{'benchmark':32} {'middle':>14}")
    for name in sorted(rounds[0]):
        if "/" in name and ":" not in name and not name.startswith("start"):
            print(f"{name:32} {middle(value(name), rounds) / NS_IN_MS:11.4f} ms")


def print_start(rounds):
    steps = [name for name in rounds[0] if name.startswith("start:")]
    if not steps:
        return
    print(f"\n{'start, ms':38} {'since it':>9} {'this step':>9}")
    before = 0.0
    for name in steps:
        passed = middle(value(name), rounds)
        print(f"{name.removeprefix('start:'):38} {passed:9.1f} {passed - before:9.1f}")
        before = passed


def print_rows(rounds):
    """{row: text of its value}, and how many goals are missed"""
    shown, missed = {}, 0
    print(f"\n{table.machine()}\n{'what':52} {'measured':>14} {'goal':>8}")
    for what, compute, unit, goal in ROWS:
        measured = middle(compute, rounds)
        if measured is None:
            continue
        verdict = "" if not goal else "ok" if is_met(measured, goal) else "MISSED"
        missed += verdict == "MISSED"
        print(f"{what:52} {measured:9.1f} {unit:4} {goal or '-':>8}  {verdict}")
        shown[what] = f"{measured:.1f} {unit}" + (", missed" if verdict == "MISSED" else "")
    return shown, missed


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--write", metavar="FILE")
    parser.add_argument("folder", type=Path)
    parser.add_argument("filter", nargs="?", default="")
    arguments = parser.parse_args()
    rounds = [measure(arguments.folder, arguments.filter) for _ in range(ROUNDS)]
    print_times(rounds)
    print_start(rounds)
    shown, missed = print_rows(rounds)
    if arguments.write:
        table.write(Path(arguments.write), [(row[0], row[3]) for row in ROWS], shown)
    return 1 if missed else 0


if __name__ == "__main__":
    sys.exit(main())
