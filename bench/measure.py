"""Measures what a user waits for, each figure with a lower bound or peer of the same run; prints a table."""

import argparse
import os
import pathlib
import platform
import sys

import core_runs
import desktop_runs
import line_runs
import table
from bench import Bench

PARTS = {"core": core_runs.rows, "desktop": desktop_runs.rows, "lines": line_runs.rows, "slow-lines": line_runs.slow_rows}


def machine():
    cpu = next((line.split(":")[1].strip() for line in open("/proc/cpuinfo", encoding="ascii") if line.startswith("model name")),
               platform.processor())
    gigabytes = os.sysconf("SC_PAGE_SIZE") * os.sysconf("SC_PHYS_PAGES") / 2**30
    return f"{os.cpu_count()} x {cpu}, {gigabytes:.0f} GB, {platform.freedesktop_os_release()['PRETTY_NAME']}"


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("bin", type=pathlib.Path, help="folder of the built programs")
    parser.add_argument("--only", choices=PARTS, action="append", help="only these parts; may be repeated")
    parser.add_argument("--markdown", type=pathlib.Path, help="file for the machine and the table")
    options = parser.parse_args()
    bench = Bench(options.bin)
    rows = []
    for name in options.only or PARTS:
        print(f"measuring: {name}", file=sys.stderr)
        rows += PARTS[name](bench)
    text = "\n".join([machine(), "", *table.lines(rows)]) + "\n"
    print(text, end="")
    if options.markdown:
        options.markdown.write_text(text, encoding="utf-8")


if __name__ == "__main__":
    main()
