"""The desktop program as built, watched while it paints, compared with plain Qt windows."""

import contextlib
import itertools
import os
import shutil
import statistics
import subprocess
import time

from line_runs import HOTEL
from table import Row

RUNS = 18  # of the starts: each order of the three programs three times
COMMAND_RUNS = 9


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
    run = subprocess.run([bench.bin / program, *arguments], env=environment, capture_output=True, text=True, timeout=300)
    lines = [line.split(" ") for line in run.stdout.splitlines()]
    assert run.returncode == 0 and lines and lines[0][0] == "painted", f"{program}: {run.stdout[-300:]}{run.stderr[-300:]}"
    return int(lines[0][1]) / 1000 - start * 1000, lines


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
    home = new_home(bench)
    with display() as place:
        # In turns, so that other load on the machine affects all of them, and each after each of the others: a
        # start finds in the caches what the previous one left there.
        runs = [{name: painted(home, bench, *programs[name], **place) for name in turn}
                for turn in itertools.islice(itertools.cycle(itertools.permutations(programs)), RUNS)]

    def median(name, value):
        return statistics.median(value(run[name]) for run in runs)

    for peer, at_most in (("empty Qt window", 1.5), ("window with menu, tools, tree, text", 1.5)):
        yield Row("start to painted window with the hotel", median("ours", lambda run: run[0]), peer,
                  median(peer, lambda run: run[0]), "ms", at_most=at_most)
        yield Row("memory of it", median("ours", lambda run: memory_mb(run[1])), peer,
                  median(peer, lambda run: memory_mb(run[1])), "MB", at_most=at_most)


def command_rows(bench, project):
    home, found, plain = new_home(bench), {}, {}
    # The first run stores settings such as column widths, and reports the sizes of the tables.
    _, lines = painted(home, bench, "tarvok-setup", project, BENCH_COMMANDS="1")
    sizes = sorted({line[2] for line in lines if line[0] == "command" and line[2] != "0x0"})
    for _ in range(COMMAND_RUNS):  # in turns, as above
        for runs, program in ((found, ("tarvok-setup", project)), (plain, ("plain_window", *sizes))):
            _, lines = painted(home, bench, *program, BENCH_COMMANDS="1")
            for kind, time_us, size, *name in (line for line in lines if line[0] in ("command", "table")):
                key = (kind, size) if runs is plain else (kind, size, " ".join(name))
                runs.setdefault(key, []).append(int(time_us) / 1000)
    for (kind, size, name), times in found.items():
        ours = statistics.median(times)
        if kind == "table":
            yield Row(f"{size}, {name}", ours, "plain Qt table", statistics.median(plain[kind, size]), "ms")
        elif size == "0x0":
            yield Row(f"first paint, {name}", ours, "the limit set", 50, "ms", at_most=1)
        else:
            yield Row(f"first paint, {name}, {size}", ours, "the limit set", 50, "ms", at_most=1)
            yield Row(f"the same", ours, f"plain Qt table {size}", statistics.median(plain["command", size]), "ms",
                      at_most=1.5)


def rows(bench):
    project = bench.new_folder() / "hotel.tvk"
    shutil.copy(HOTEL, project)
    yield from start_rows(bench, project)
    yield from command_rows(bench, project)
