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
QUICK_PARTS = ("core", "desktop", "lines")


def machine():
    cpu = next((line.split(":")[1].strip() for line in open("/proc/cpuinfo", encoding="ascii") if line.startswith("model name")),
               platform.processor())
    gigabytes = os.sysconf("SC_PAGE_SIZE") * os.sysconf("SC_PHYS_PAGES") / 2**30
    return f"{os.cpu_count()} x {cpu}, {gigabytes:.0f} GB, {platform.freedesktop_os_release()['PRETTY_NAME']}"


def main():
    parser = argparse.ArgumentParser(prog="scripts/run-bench", description=__doc__)
    parser.add_argument("bin", type=pathlib.Path, help=argparse.SUPPRESS)  # folder of the built programs
    parser.add_argument("--only", choices=PARTS, action="append", help="only these parts; may be repeated")
    parser.add_argument("--quick", action="store_true", help="the rows that matter most, in about two minutes")
    parser.add_argument("--markdown", metavar="FILE", type=pathlib.Path, help="also write the machine and the table to FILE")
    parser.add_argument("--json", metavar="FILE", type=pathlib.Path, help="also write the machine and the rows to FILE")
    parser.add_argument("--against", metavar="FILE", type=pathlib.Path,
                        help="compare with the --json file of another run; exit status 1 if a ratio got worse")
    parser.add_argument("--limit", type=float, default=1.2, help="how much worse --against allows (default: 1.2 times)")
    options = parser.parse_args()
    before = options.against.read_text(encoding="utf-8") if options.against else None

    bench = Bench(options.bin, options.quick)
    rows = []
    for name in options.only or (QUICK_PARTS if options.quick else PARTS):
        print(f"measuring: {name}", file=sys.stderr)
        rows += PARTS[name](bench)
    text = "\n".join([machine(), "", *table.lines(rows)]) + "\n"
    print(text, end="")
    if options.markdown:
        options.markdown.write_text(text, encoding="utf-8")
    if options.json:
        options.json.write_text(table.as_json(machine(), rows) + "\n", encoding="utf-8")
    if before is None:
        return 0
    worse = list(dict.fromkeys(table.worse_than(rows, before, options.limit)))
    print("\n".join(["", "worse than before:", *worse] if worse else ["", "nothing got worse"]))
    return 1 if worse else 0


if __name__ == "__main__":
    sys.exit(main())
