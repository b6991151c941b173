"""Measurements within one process: reading, saving, coding, and a round trip on loopback."""

import json
import statistics

from table import NotMeasured, Row, measured

FULL, HOTEL = 198_000, 36_734


QUICK = f"read/(ours|scan|QSettings)/{FULL}|save/open, one key/{FULL}|code/(en|de)code/1|round/loopback"


def medians(bench):
    """Maps each name to the medians of its repetitions: the time in microseconds, and the counters. A measurement
    that failed is missing."""
    some = [f"--benchmark_filter={QUICK}"] if bench.quick else []
    text = bench.run("core_bench", "--benchmark_format=json", f"--benchmark_repetitions={3 if bench.quick else 5}",
                     "--benchmark_min_time=0.1", "--benchmark_enable_random_interleaving=true", *some,
                     cwd=bench.new_folder())
    found = {}
    to_us = {"ns": 1e-3, "us": 1.0, "ms": 1e3}
    for run in json.loads(text)["benchmarks"]:
        if run.get("run_type") == "aggregate" or run.get("error_occurred"):
            continue
        name = "/".join(run["name"].split("/")[:3])
        values = {"us": run["real_time"] * to_us[run["time_unit"]]}
        values |= {key: run[key] for key in ("ours_us", "floor_us", "news", "bytes", "pieces") if key in run}
        for key, value in values.items():
            found.setdefault(name, {}).setdefault(key, []).append(value)
    return {name: {key: statistics.median(values) for key, values in kept.items()} for name, kept in found.items()}


def read_row(found, what, peer, name, at_most):
    return lambda: Row(what, found[f"read/ours/{FULL}"]["us"], peer, found[f"read/{name}/{FULL}"]["us"], "us", at_most=at_most)


def growth_row(found, low, high):
    what = f"the same, {low // 1000} to {high // 1000} KB"
    return lambda: Row(what, found[f"read/ours/{high}"]["us"] / found[f"read/ours/{low}"]["us"], "the size's growth",
                       high / low, "times", at_most=1.3)


def save_row(found, what, size):
    at_most = 1.1 if what == "open, one key" else 1.3
    return lambda: Row(f"durable save, {what}, {size // 1000} KB", found[f"save/{what}/{size}"]["ours_us"],
                       "write, fsync, rename, fsync", found[f"save/{what}/{size}"]["floor_us"], "us", at_most=at_most)


def coder_row(found, rows_, name):
    return lambda: Row(f"encode and decode all of 110, {name}",
                       found[f"code/encode/{rows_}"]["us"] + found[f"code/decode/{rows_}"]["us"], "the limit set", 2000, "us",
                       at_most=1)


def allocation_rows(found, rows_, name):
    # One per image. A decoder's project needs memory for its rows, so its goal is fewer allocations than rows.
    for what, pieces, most in (("encode", "images", 2), ("decode", "rows and keys made", 0.1)):
        run = f"code/{what}/{rows_}"
        yield lambda run=run, what=what, pieces=pieces, most=most: Row(
            f"allocations of {what}, {name}", found[run]["news"], pieces, found[run]["pieces"], "", at_most=most)


def trend_rows(found, what, name, low, high, most):
    few, many = f"code/{what}/{low}", f"code/{what}/{high}"
    for unit, kind in (("us", "time"), ("bytes", "memory asked for")):
        yield lambda unit=unit, kind=kind: Row(f"{name}: {kind}", found[many][unit] / found[few][unit], "the keys' growth",
                                               found[many]["pieces"] / found[few]["pieces"], "times", at_most=most)


LOOP = "round/loopback/iterations:5000"


def rows(bench):
    try:
        found = medians(bench)
    except NotMeasured as problem:
        yield Row("reading, saving and coding", 0, "", 0, "", why=str(problem))
        return
    projects = ((0, "the hotel"), (1, "every row in use"))
    yield from measured("parse and read every key, 198 KB",
                        read_row(found, "parse and read every key, 198 KB", "read and scan", "scan", 10))
    for library in ("QSettings",) if bench.quick else ("GKeyFile", "SimpleIni", "QSettings"):
        yield from measured(f"the same against {library}", read_row(found, f"the same against {library}", library, library, 0.5))
    if bench.quick:
        yield from measured("durable save, open, one key", save_row(found, "open, one key", FULL))
        yield from measured("encode and decode all of 110", coder_row(found, *projects[1]))
    else:
        for low, high in ((HOTEL, FULL), (FULL, 10 * FULL)):
            yield from measured("reading, by size", growth_row(found, low, high))
        for what in ("512 rows", "open, one key"):
            for size in (HOTEL, FULL):
                yield from measured(f"durable save, {what}", save_row(found, what, size))
        for project in projects:
            yield from measured(f"encode and decode all of 110, {project[1]}", coder_row(found, *project))
        for project in projects:
            yield from measured(f"allocations, {project[1]}", *allocation_rows(found, *project))
        # No project has 5,000 changed keys: this row shows the trend and has no limit.
        for what, name, low, high, most in (("decode", "decode, the hotel to every row", 0, 1, 1.3),
                                            ("check", "check behind the overview, the hotel to every row", 0, 1, 1.3),
                                            ("change", "500 to 5,000 changed keys of one section", 500, 5000, None)):
            yield from measured(name, *trend_rows(found, what, name, low, high, most))
    yield from measured(
        "a round on loopback TCP, median",
        lambda: Row("a round on loopback TCP, median", found[LOOP]["ours_us"], "blocking calls", found[LOOP]["floor_us"], "us"),
        # Often zero: a polling loop wakes sooner than a blocking call.
        lambda: Row("what it takes beyond them", max(0, found[LOOP]["ours_us"] - found[LOOP]["floor_us"]), "the limit set", 100,
                    "us", at_most=1))
