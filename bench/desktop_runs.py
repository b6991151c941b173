"""The desktop program as built, watched while it paints, compared with plain Qt windows."""

import contextlib
import itertools
import os
import shutil
import statistics
import subprocess
import time

from bench import run_for
from line_runs import HOTEL
from table import NotMeasured, Row, measured

RUNS = 18  # of the starts: each order of the three programs three times
COMMAND_RUNS = 9
LIMIT_S = 60  # for one run of a program


def new_home(bench):
    home = bench.new_folder()
    home.chmod(0o700)
    return home


def painted(home, bench, program, *arguments, **environment):
    """Runs a program to its end. Returns the milliseconds from start to paint, and its other lines."""
    environment = {**os.environ, "QT_QPA_PLATFORM": "offscreen", **environment, "QT_QPA_GENERIC_PLUGINS": "paint_watch",
                   "QT_PLUGIN_PATH": str(bench.bin / "plugins"), "HOME": str(home), "XDG_CONFIG_HOME": str(home / "config"),
                   "XDG_DATA_HOME": str(home / "data"), "XDG_RUNTIME_DIR": str(home)}
    start = time.clock_gettime(time.CLOCK_MONOTONIC)
    lines = [line.split(" ") for line in run_for(LIMIT_S, [bench.bin / program, *arguments], env=environment).splitlines()]
    if not lines or lines[0][0] != "painted":
        raise NotMeasured(f"{program} painted nothing")
    return int(lines[0][1]) / 1000 - start * 1000, lines


class Turns:
    """Runs of several programs in turns. One that fails is not started again, and has no median."""

    def __init__(self):
        self.runs, self.failed = {}, {}

    def add(self, name, run):
        if name in self.failed:
            return
        try:
            self.runs.setdefault(name, []).append(run())
        except NotMeasured as problem:
            self.failed[name] = problem

    def median(self, name, value):
        if name in self.failed:
            raise self.failed[name]
        return statistics.median(value(run) for run in self.runs[name])


def memory_mb(lines):
    return max(int(line[1]) for line in lines if line[0] == "memory") / 1024


@contextlib.contextmanager
def display():
    """Starts a separate display and returns the environment for it."""
    number, ready = os.pipe()
    server = subprocess.Popen(["Xvfb", "-displayfd", str(ready), "-screen", "0", "1600x1000x24", "-nolisten", "tcp"],
                              pass_fds=[ready], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    os.close(ready)
    try:
        with os.fdopen(number) as line:
            yield {"QT_QPA_PLATFORM": "xcb", "DISPLAY": ":" + line.readline().strip()}
    finally:
        server.terminate()
        server.wait()


def start_rows(bench, project):
    programs = {"ours": ("tarvok-setup", project), "empty Qt window": ("plain_window",),
                "window with menu, tools, tree, text": ("plain_window", "dressed")}
    home, turns = new_home(bench), Turns()
    with display() as place:
        # In turns, so that other load on the machine affects all of them, and each after each of the others: a
        # start finds in the caches what the previous one left there.
        for turn in itertools.islice(itertools.cycle(itertools.permutations(programs)), 6 if bench.quick else RUNS):
            for name in turn:
                turns.add(name, lambda name=name: painted(home, bench, *programs[name], **place))
    for peer in ("empty Qt window",) if bench.quick else ("empty Qt window", "window with menu, tools, tree, text"):
        for what, value, unit in (("start to painted window with the hotel", lambda run: run[0], "ms"),
                                  ("memory of it", lambda run: memory_mb(run[1]), "MB")):
            yield from measured(what, lambda: Row(what, turns.median("ours", value), peer, turns.median(peer, value), unit,
                                                  at_most=1.5))


def command_times(lines):
    """Maps each command and each work on the longest table to its size and milliseconds."""
    return {(kind, size, " ".join(name)): int(time_us) / 1000
            for kind, time_us, size, *name in (line for line in lines if line[0] in ("command", "table"))}


def command_rows(bench, project):
    home, turns = new_home(bench), Turns()
    # The first run stores settings such as column widths, and reports the sizes of the tables.
    _, lines = painted(home, bench, "tarvok-setup", project, BENCH_COMMANDS="1")
    first = command_times(lines)
    sizes = sorted({size for kind, size, _ in first if kind == "command" and size != "0x0"})
    for _ in range(COMMAND_RUNS):
        for name, program in (("ours", ("tarvok-setup", project)), ("plain Qt table", ("plain_window", *sizes))):
            turns.add(name, lambda: command_times(painted(home, bench, *program, BENCH_COMMANDS="1")[1]))

    def plain(kind, size):  # its rows have no names
        return turns.median("plain Qt table", lambda run: next(run[key] for key in run if key[:2] == (kind, size)))

    for key in first:
        kind, size, name = key

        def ours():
            return turns.median("ours", lambda run: run[key])

        if kind == "table":
            yield from measured(f"{size}, {name}", lambda: Row(f"{size}, {name}", ours(), "plain Qt table", plain(kind, size), "ms"))
            continue
        what = f"first paint, {name}" + (f", {size}" if size != "0x0" else "")
        yield from measured(what, lambda: Row(what, ours(), "the limit set", 50, "ms", at_most=1))
        if size != "0x0":
            yield from measured(what, lambda: Row(what, ours(), f"plain Qt table {size}", plain(kind, size),
                                                                 "ms", at_most=1.5))


def rows(bench):
    project = bench.new_folder() / "hotel.tvk"
    shutil.copy(HOTEL, project)
    yield from start_rows(bench, project)
    if bench.quick:
        return
    try:
        yield from command_rows(bench, project)
    except NotMeasured as problem:
        yield Row("first paint of each command", 0, "", 0, "", why=str(problem))
