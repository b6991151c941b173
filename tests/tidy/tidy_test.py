"""Holds the rules of the house: floors, Qt outside of the core, sizes, and no test that no build knows."""

import pathlib
import re
import sys
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
SRC = ROOT / "src"

# What each folder may include beside itself.
FLOORS = {
    "store": set(),
    "platform": {"store"},
    "link": {"store"},
    "sections": {"store"},
    "sessions": {"sections", "link", "store"},
    "exchange": {"sections", "link", "store"},
    "project": {"sections", "store"},
    "frame": {"project", "store"},
    "editing": {"store"},
    "editors": {"editing", "project", "sections", "store"},
    "io": {"link", "store"},
    "desktop": {"io", "editors", "editing", "frame", "project", "sessions", "sections", "link", "store"},
    "programs": {"desktop", "io", "editors", "editing", "frame", "project", "exchange", "sessions", "sections", "link",
                 "platform", "store"},
}
CORE = {"store", "link", "sections", "sessions", "exchange", "project", "frame", "editing", "editors"}
# Of the tool's side the practice exchange may know bytes and codes, not the modules that it is there to try out.
TOOL_SIDE = {"link/link_layer.h", "link/message_layer.h", "link/message_modules.h", "link/exchange_line.h"}
MOST_LINES = 500

INCLUDE = re.compile(r'^\s*#include\s+["<]([^">]+)[">]', re.M)


def sources(*roots):
    return sorted(p for root in roots for p in root.rglob("*") if p.suffix in {".h", ".cpp"})


def includes(path):
    return INCLUDE.findall(path.read_text(encoding="utf-8"))


def code_lines(path):
    lines = (line.strip() for line in path.read_text(encoding="utf-8").splitlines())
    return sum(1 for line in lines if line and not line.startswith(("//", "#", "*", "/*")))


class Tidy(unittest.TestCase):
    def test_floors(self):
        wrong = []
        for path in sources(SRC):
            folder = path.relative_to(SRC).parts[0]
            for name in includes(path):
                top = name.split("/")[0]
                if "/" in name and top in FLOORS and top != folder and top not in FLOORS[folder]:
                    wrong.append(f"{path.relative_to(ROOT)} includes {name}")
                if folder == "exchange" and name in TOOL_SIDE:
                    wrong.append(f"{path.relative_to(ROOT)} includes {name}")
        self.assertEqual(wrong, [])

    def test_no_qt_in_the_core(self):
        for path in sources(*(SRC / folder for folder in CORE)):
            for name in includes(path):
                self.assertFalse(re.match(r"Q[A-Z]|CLI/|platform/", name), f"{path} includes {name}")
                self.assertFalse(re.match(r"(unistd|fcntl|sys/|termios)", name), f"{path} includes {name}")

    def test_no_circles(self):
        graph = {str(p.relative_to(SRC)): [n for n in includes(p) if (SRC / n).exists()] for p in sources(SRC)}
        done, path = set(), []

        def visit(name):
            self.assertNotIn(name, path, f"a circle of includes: {path}")
            if name in done:
                return
            path.append(name)
            for other in graph[name]:
                visit(other)
            path.pop()
            done.add(name)

        for name in graph:
            visit(name)

    def test_sizes(self):
        for path in sources(SRC, ROOT / "tests"):
            count = len(path.read_text(encoding="utf-8").splitlines())
            self.assertLessEqual(count, MOST_LINES, f"{path.relative_to(ROOT)} is too long")

    def test_share_of_tests(self):
        code = sum(code_lines(p) for p in sources(SRC))
        tests = sum(code_lines(p) for p in [*sources(ROOT / "tests"), *(ROOT / "tests").rglob("*.py")])
        print(f"code {code} lines, tests {tests}: {tests / code:.2f}", file=sys.stderr)
        # A quarter to a third is wanted. Too few is a gap, which fails here; too many is waste, which readers judge.
        self.assertGreaterEqual(tests / code, 0.25)

    def test_every_test_is_built(self):
        built = (ROOT / "tests" / "CMakeLists.txt").read_text(encoding="utf-8")
        for folder in {p.relative_to(ROOT / "tests").parts[0] for p in (ROOT / "tests").rglob("*_test.*")}:
            self.assertIn(f"{folder}/", built, f"no build knows tests/{folder}")


if __name__ == "__main__":
    unittest.main()
