"""Sends and loads over paced lines: ours, a minimal blocking program with the same rounds, and XMODEM and ZMODEM."""

import pathlib
import select
import shutil
import subprocess
import threading

from bench import run_for
from table import NotMeasured, Row, measured

ROOT = pathlib.Path(__file__).resolve().parents[1]
HOTEL = ROOT / "examples" / "hotel.tvk"
PASSWORD = "1234"
UNPACED = 4_000_000
READY_S = 30
# A load pauses this long before it requests a section; no other turn of ours takes nearly as long.
PAUSE_US = 100_000
# The link layer ticks this often, and a mini bar load asks for one record a tick.
TICK_US = 10_000
MINI_BAR_RECORDS = 512
# Speed and one-way delay in us of the lines that run alone, and the number of runs: the fastest ones suffer from
# any other load on the machine, so they run repeatedly, in turns, and the median counts.
ALONE = {(115_200, 0): 3, (115_200, 500): 3, (57_600, 0): 1}
SIDE_BY_SIDE = ((9_600, 0), (19_200, 0), (115_200, 10_000), (115_200, 50_000))


def wait_until_ready(process):
    readable, _, _ = select.select([process.stdout], [], [], READY_S)
    line = process.stdout.readline() if readable else ""
    if not line.startswith("ready"):
        process.kill()
        raise NotMeasured(f"{pathlib.Path(process.args[0]).name} is not ready after {READY_S} s")
    return line


class Line:
    """A paced line with a log of all bytes; end B is the device of a program, or is created."""

    def __init__(self, bench, bps, delay_us, end_b=None):
        self.folder, self.bps, self.delay_us = bench.new_folder(), bps, delay_us
        self.a, self.b = self.folder / "a", end_b or self.folder / "b"
        self.process = subprocess.Popen([bench.bin / "paced_line", str(bps), str(delay_us), self.a, self.b, self.folder / "log"],
                                        stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)
        wait_until_ready(self.process)

    def stop(self):
        if self.process.poll() is None:
            self.process.communicate()

    def close(self):
        self.stop()
        events = []
        for line in (self.folder / "log").read_text().splitlines():
            time_us, direction, count, *hexadecimal = line.split()
            events.append((int(time_us), direction, int(count), hexadecimal[0] if hexadecimal else ""))
        return Passed(events, self.bps, self.delay_us)


class Passed:
    """The traffic of a line, from A's first byte to the very last byte."""

    def __init__(self, events, bps, delay_us):
        self.events, self.fixed_us = events, 0
        first = next((i for i, event in enumerate(events) if event[1] == "A"), None)
        if first is None:
            raise NotMeasured("nothing was sent over the line")
        self.total_us = events[-1][0] - events[first][0]
        self.bytes = sum(count for _, direction, count, _ in events[first:] if direction in "AB")
        self.turns_us, self.rounds = [], 0
        last_out = None
        for before, event in zip(events[first:], events[first + 1:]):
            self.rounds += (before[1], event[1]) in (("a", "B"), ("b", "A"))
            if before[1] == "b" and event[1] == "A":
                self.turns_us.append(event[0] - before[0])
        self.turns_us.sort()
        # Every byte takes its time, and every change of direction takes the delay; nothing overlaps.
        self.limit_us = self.bytes * 10_000_000 / bps + self.rounds * delay_us

    def pauses(self):
        return sum(turn >= 0.9 * PAUSE_US for turn in self.turns_us)

    def leave_out(self, pauses):
        """Excludes the prescribed pauses, which do not depend on speed, as far as no bytes arrived in them."""
        longest = self.turns_us[len(self.turns_us) - pauses:]
        self.fixed_us = sum(min(turn, PAUSE_US) for turn in longest)

    @property
    def net_us(self):
        return self.total_us - self.fixed_us

    @property
    def turn_us(self):
        return self.turns_us[len(self.turns_us) // 2]

    def script(self):
        """The same rounds as a script for the blocking program: what to write, and how many bytes to wait for."""
        rounds = []
        for _, direction, count, hexadecimal in self.events:
            if direction == "A":
                if rounds and rounds[-1][1] == 0:
                    rounds[-1][0] += hexadecimal
                else:
                    rounds.append([hexadecimal, 0])
            elif direction == "b" and rounds:
                rounds[-1][1] += count
        return "".join(f"{out} {count}\n" for out, count in rounds)


class Sessions:
    """Sends the hotel to a practice exchange and loads it back."""

    def __init__(self, bench):
        self.bench = bench
        folder = bench.new_folder()
        self.images = folder / "images"
        self.project = folder / "hotel.tvk"
        shutil.copy(HOTEL, self.project)
        bench.ctl("set", self.project, "Chk_Tarvok", "By", "1")
        bench.ctl("encode", self.project, "--all", "--version", "110", "-o", self.images)
        self.payload = sum(image.stat().st_size for image in self.images.iterdir())
        self.scripts, self.pauses, self.store = {}, {"send": 0, "load": 0}, None
        self.bytes = 2 * self.payload  # of a session over a line, both ways, at most
        for kind in ("send", "load"):
            passed, store = self.run(kind, UNPACED, 0)
            self.scripts[kind], self.pauses[kind] = folder / kind, passed.pauses()
            self.scripts[kind].write_text(passed.script())
            self.store = self.store or store

    def run(self, kind, bps, delay_us, peer=False):
        """Runs a session with its own line and exchange. Returns the traffic, and the exchange's store."""
        bench, folder = self.bench, self.bench.new_folder()
        store = folder / "store"
        if self.store:
            shutil.copytree(self.store, store)
        exchange = subprocess.Popen([bench.bin / "tarvok-exchange", "--version", "110", "--store", store, "--password", PASSWORD,
                                     "--serial", folder / "exchange"], stdout=subprocess.PIPE, text=True)
        # A line that moves its bytes and rounds at half the speed is not waited for.
        limit_s = 60 + 2 * (self.bytes * 10 / bps + self.bytes / 100 * delay_us / 1e6)
        try:
            wait_until_ready(exchange)
            line = Line(bench, bps, delay_us, folder / "exchange")
            try:
                if peer:
                    run_for(limit_s, [bench.bin / "blocking_peer", line.a, self.scripts[kind]])
                else:
                    what = [self.project] if kind == "send" else [folder / "loaded.tvk", "--using", self.project]
                    bench.ctl(kind, *what, "--device", line.a, "--log", folder / "history", limit_s=limit_s, TMPDIR=folder,
                              TARVOK_PASSWORD=PASSWORD)
            finally:
                line.stop()
            passed = line.close()
            if not peer:
                passed.leave_out(self.pauses[kind])
            return passed, store
        finally:
            exchange.terminate()
            exchange.communicate()


def file_transfer(bench, sessions, bps, protocol):
    """Transfers the images as one file with `sz` and `rz`. Returns the traffic."""
    folder = bench.new_folder()
    (folder / "sent").write_bytes(b"".join(image.read_bytes() for image in sorted(sessions.images.iterdir())))
    line = Line(bench, bps, 0)
    options = ["--xmodem"] if protocol == "XMODEM" else ["--zmodem", "--binary"]
    names = ["got"] if protocol == "XMODEM" else []
    (folder / "in").mkdir()
    # In a new session, because these programs look for a controlling terminal.
    with open(line.a, "r+b", buffering=0) as a, open(line.b, "r+b", buffering=0) as b, open(folder / "words", "w") as words:
        try:
            receiver = subprocess.Popen(["rz", "-v", *options, *names], stdin=b, stdout=b, stderr=words, cwd=folder / "in",
                                        start_new_session=True)
        except OSError as problem:
            raise NotMeasured(f"rz: {problem.strerror}") from problem
        try:
            sender = subprocess.run(["sz", "-v", *options, folder / "sent"], stdin=a, stdout=a, stderr=words,
                                    start_new_session=True, timeout=120, check=False)
        except (OSError, subprocess.TimeoutExpired) as problem:
            raise NotMeasured(f"sz: {problem}") from problem
        finally:
            receiver.kill()  # it has acknowledged everything and is waiting for another file
            receiver.wait()
    got = [path.read_bytes() for path in (folder / "in").iterdir()]
    # XMODEM pads its last block.
    if sender.returncode != 0 or not got or not got[0].startswith((folder / "sent").read_bytes()):
        raise NotMeasured(f"{protocol} lost bytes")
    return line.close()


class Failed:
    """Stands for the traffic of a run that failed: whoever uses it gets the reason."""

    def __init__(self, problem):
        self.problem = problem

    def __getattr__(self, _):
        raise self.problem


def attempt(job):
    try:
        return job()
    except NotMeasured as problem:
        return Failed(problem)


def together(jobs):
    """Runs slow lines in parallel: even together they hardly load the machine."""
    results = {}

    def work(name, job):
        results[name] = attempt(job)

    threads = [threading.Thread(target=work, args=item) for item in jobs.items()]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    return {name: results.get(name, Failed(NotMeasured("the measurement itself failed, see above"))) for name in jobs}


def session_rows(sessions, bps, delay_us, results):
    where = f"{bps:,} bit/s" + (f", {2 * delay_us / 1000:.0f} ms round trip" if delay_us else "")
    for kind in ("send", "load"):
        ours, peer = results[kind, "ours"], results[kind, "peer"]

        def rate(time_us):
            return sessions.payload * 1e6 / time_us

        yield from measured(
            f"{kind} at {where}",
            lambda: Row(f"{kind} at {where}", rate(ours.net_us), "blocking program", rate(peer.net_us), "B/s", at_least=0.98),
            lambda: Row(f"{kind} at {where}", rate(ours.net_us), "stop-and-wait limit", rate(ours.limit_us), "B/s"),
            lambda: Row(f"{kind} at {where}, share of the line", 100 * rate(ours.net_us) * 10 / bps, "blocking program",
                        100 * rate(peer.net_us) * 10 / bps, "%"),
            lambda: Row(f"{kind} at {where}, our turn of a round", ours.turn_us, "blocking program", peer.turn_us, "us"))
        if sessions.pauses[kind]:
            yield from measured(
                f"pauses of a {kind} at {where}",
                lambda: Row(f"{kind} at {where}, {sessions.pauses[kind]} prescribed pauses, left out above", ours.fixed_us / 1e6,
                            "whole session", ours.total_us / 1e6, "s"))


def speed_jobs(sessions, bps, delay_us):
    return {(bps, delay_us, kind, who): (lambda kind=kind, who=who: sessions.run(kind, bps, delay_us, who == "peer")[0])
            for kind in ("send", "load") for who in ("ours", "peer")}


def rows_of(sessions, results):
    for bps, delay_us in sorted({key[:2] for key in results}):
        yield from session_rows(sessions, bps, delay_us,
                                {key[2:]: passed for key, passed in results.items() if key[:2] == (bps, delay_us)})


def wait_rows(bench):
    """Sessions on loopback, where all the time is prescribed pauses."""
    folder = bench.new_folder()
    project = folder / "hotel.tvk"
    shutil.copy(HOTEL, project)
    exchange = subprocess.Popen([bench.bin / "tarvok-exchange", "--version", "110", "--store", folder / "store", "--password",
                                 PASSWORD, "--lan", "0"], stdout=subprocess.PIPE, text=True)
    try:
        port = wait_until_ready(exchange).rsplit(":", 1)[1].strip()
        for key, value in (("By", "4"), ("IPHost", "127.0.0.1"), ("IPPort", port)):
            bench.ctl("set", project, "Chk_Tarvok", key, value)
        first, second, mini_bar = (float(line.split()[1]) / 1000 for line in
                                   bench.run("load_twice", project, limit_s=60, TMPDIR=folder).splitlines())
    finally:
        exchange.terminate()
        exchange.communicate()
    yield Row("a second load over one connection", second, "the first load", first, "s", at_most=1.02)
    yield Row("a mini bar load on loopback", mini_bar, f"{MINI_BAR_RECORDS} prescribed ticks",
              MINI_BAR_RECORDS * TICK_US / 1e6, "s", at_most=1.05)


def middle(runs):
    """The run with the median time, or the first one that failed."""
    failed = [run for run in runs if isinstance(run, Failed)]
    return failed[0] if failed else sorted(runs, key=lambda passed: passed.net_us)[len(runs) // 2]


def fast_rows(bench, alone):
    sessions = Sessions(bench)
    results = {}
    for (bps, delay_us), times in alone.items():
        jobs, runs = speed_jobs(sessions, bps, delay_us), {}
        for _ in range(times):
            for name, job in jobs.items():
                if not any(isinstance(run, Failed) for run in runs.get(name, [])):
                    runs.setdefault(name, []).append(attempt(job))
        results |= {name: middle(done) for name, done in runs.items()}
    yield from rows_of(sessions, results)
    if bench.quick:
        return
    ours = results[115_200, 0, "send", "ours"]
    for protocol in ("XMODEM", "ZMODEM"):
        yield from measured(
            f"send at 115,200 bit/s, {protocol}",
            lambda: Row("send at 115,200 bit/s", sessions.payload * 1e6 / ours.net_us, f"{protocol} of lrzsz",
                        sessions.payload * 1e6 / file_transfer(bench, sessions, 115_200, protocol).total_us, "B/s"))


def or_the_reason(what, make):
    """The rows, or one that says why there are none."""
    try:
        yield from make()
    except NotMeasured as problem:
        yield Row(what, 0, "", 0, "", why=str(problem))


def rows(bench):
    """Fast lines, one after the other."""
    yield from or_the_reason("sessions on loopback", lambda: wait_rows(bench))
    yield from or_the_reason("fast lines", lambda: fast_rows(bench, {(115_200, 0): 1} if bench.quick else ALONE))


def slow_rows(bench):
    """Slow and distant lines, in parallel."""
    def make():
        sessions = Sessions(bench)
        jobs = {}
        for bps, delay_us in SIDE_BY_SIDE:
            jobs |= speed_jobs(sessions, bps, delay_us)
        yield from rows_of(sessions, together(jobs))

    yield from or_the_reason("slow and distant lines", make)
