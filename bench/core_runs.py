"""Measurements within one process: reading, saving, coding, and a round trip on loopback."""

import json
import statistics

from table import Row

FULL, HOTEL = 198_000, 36_734


def medians(bench):
    """Maps each name to the medians of its repetitions: the time in microseconds, and the counters."""
    text = bench.run("core_bench", "--benchmark_format=json", "--benchmark_repetitions=5", "--benchmark_min_time=0.1",
                     "--benchmark_enable_random_interleaving=true", cwd=bench.new_folder())
    found = {}
    to_us = {"ns": 1e-3, "us": 1.0, "ms": 1e3}
    for run in json.loads(text)["benchmarks"]:
        if run.get("run_type") == "aggregate":
            continue
        name = "/".join(run["name"].split("/")[:3])
        assert not run.get("error_occurred"), f"{name}: {run.get('error_message')}"
        values = {"us": run["real_time"] * to_us[run["time_unit"]]}
        values |= {key: run[key] for key in ("ours_us", "floor_us", "news", "bytes", "pieces") if key in run}
        for key, value in values.items():
            found.setdefault(name, {}).setdefault(key, []).append(value)
    return {name: {key: statistics.median(values) for key, values in kept.items()} for name, kept in found.items()}


def rows(bench):
    found = medians(bench)

    def time(name):
        return found[name]["us"]

    ours = time(f"read/ours/{FULL}")
    yield Row("parse and read every key, 198 KB", ours, "read and scan", time(f"read/scan/{FULL}"), "us", at_most=10)
    for library, least in (("GKeyFile", 2), ("SimpleIni", 2), ("QSettings", 2)):
        yield Row(f"the same against {library}", ours, library, time(f"read/{library}/{FULL}"), "us", at_most=1 / least)
    for low, high in ((HOTEL, FULL), (FULL, 10 * FULL)):
        grown = time(f"read/ours/{high}") / time(f"read/ours/{low}")
        yield Row(f"the same, {low // 1000} to {high // 1000} KB", grown, "the size's growth", high / low, "times", at_most=1.3)
    for what in ("512 rows", "open, one key"):
        for size in (HOTEL, FULL):
            save = found[f"save/{what}/{size}"]
            yield Row(f"durable save, {what}, {size // 1000} KB", save["ours_us"], "write, fsync, rename, fsync", save["floor_us"],
                      "us", at_most=1.3)
    for rows_, name in ((0, "the hotel"), (1, "every row in use")):
        encode, decode = found[f"code/encode/{rows_}"], found[f"code/decode/{rows_}"]
        yield Row(f"encode and decode all of 110, {name}", encode["us"] + decode["us"], "the limit set", 2000, "us", at_most=1)
    # One per image. A decoder's project needs memory for its rows, so its goal is fewer allocations than rows.
    for rows_, name in ((0, "the hotel"), (1, "every row in use")):
        encode, decode = found[f"code/encode/{rows_}"], found[f"code/decode/{rows_}"]
        yield Row(f"allocations of encode, {name}", encode["news"], "images", encode["pieces"], "", at_most=2)
        yield Row(f"allocations of decode, {name}", decode["news"], "rows and keys made", decode["pieces"], "", at_most=0.1)
    # No project has 5,000 changed keys: this row shows the trend and has no limit.
    for what, name, low, high, most in (("decode", "decode, the hotel to every row", 0, 1, 1.3),
                                        ("check", "check behind the overview, the hotel to every row", 0, 1, 1.3),
                                        ("change", "500 to 5,000 changed keys of one section", 500, 5000, None)):
        few, many = found[f"code/{what}/{low}"], found[f"code/{what}/{high}"]
        for unit, kind in (("us", "time"), ("bytes", "memory asked for")):
            yield Row(f"{name}: {kind}", many[unit] / few[unit], "the keys' growth", many["pieces"] / few["pieces"], "times",
                      at_most=most)
    loop = found["round/loopback/iterations:5000"]
    yield Row("a round on loopback TCP, median", loop["ours_us"], "blocking calls", loop["floor_us"], "us")
    # Often zero: a polling loop wakes sooner than a blocking call.
    yield Row("what it takes beyond them", max(0, loop["ours_us"] - loop["floor_us"]), "the limit set", 100, "us", at_most=1)
