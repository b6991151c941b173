"""The table of results: each figure with a lower bound or peer of the same run, and its target."""

import contextlib
import dataclasses
import json


class NotMeasured(Exception):
    """A program of a measurement failed or stalled; the text says why."""


@dataclasses.dataclass
class Row:
    what: str
    ours: float
    peer_name: str
    peer: float
    unit: str
    at_most: float | None = None   # of ours / peer
    at_least: float | None = None  # of ours / peer
    why: str = ""                  # why it was not measured

    @property
    def higher_is_better(self):
        return self.unit in ("B/s", "%")

    @property
    def ratio(self):
        return self.ours / self.peer if self.peer else float("inf")

    @property
    def target(self):
        if self.at_most is not None:
            return f"at most {self.at_most:.3g}"
        return "" if self.at_least is None else f"at least {self.at_least:.3g}"

    @property
    def met(self):
        if not self.target:
            return ""
        good = (self.at_most is None or self.ratio <= self.at_most) and (self.at_least is None or self.ratio >= self.at_least)
        return "yes" if good else "MISSED"

    def cells(self):
        if self.why:
            return (self.what, "not measured", self.why, "", self.target, "")
        return (self.what, f"{number(self.ours)} {self.unit}", f"{self.peer_name}: {number(self.peer)} {self.unit}",
                f"{self.ratio:.3g}", self.target, self.met)


HEAD = ("what", "ours", "floor or peer of the same run", "ratio", "target", "met")


def number(value):
    return f"{value:,.0f}" if value >= 100 else f"{value:.3g}"


def lines(rows):
    """The table as text that is also Markdown."""
    cells = [HEAD, *(row.cells() for row in rows)]
    widths = [max(len(row[i]) for row in cells) for i in range(len(HEAD))]
    text = ["| " + " | ".join(cell.ljust(width) for cell, width in zip(row, widths)) + " |" for row in cells]
    text.insert(1, "|" + "|".join("-" * (width + 2) for width in widths) + "|")
    return text


def measured(what, *makes):
    """Yields the row of each function. One that fails becomes a row that says why; the others are not affected."""
    for make in makes:
        try:
            yield make()
        except (NotMeasured, OSError, KeyError, ValueError, IndexError, StopIteration) as problem:
            yield Row(what, 0, "", 0, "", why=in_one_line(problem))


def in_one_line(problem):
    text = f"no result named {problem}" if isinstance(problem, KeyError) else str(problem) or type(problem).__name__
    return " ".join(text.split())[:120].replace("|", "/")


def as_json(machine, rows):
    """One object a row, with the same fields as Row, and its ratio."""
    return json.dumps({"machine": machine, "rows": [dataclasses.asdict(row) | {"ratio": None if row.why else row.ratio}
                                                    for row in rows]}, indent=1)


def worse_than(rows, before, limit):
    """One line for each row whose ratio got worse than `limit` times that of the run before, or that is missing."""
    with contextlib.suppress(KeyError, TypeError):
        then = {(row["what"], row["peer_name"]): row["ratio"] for row in json.loads(before)["rows"] if row["ratio"]}
        for row in rows:
            ratio = then.get((row.what, row.peer_name))
            if row.why and any(what == row.what for what, _ in then):
                yield f"{row.what}: not measured: {row.why}"
            elif ratio and row.ratio:
                change = ratio / row.ratio if row.higher_is_better else row.ratio / ratio
                if change > limit:
                    yield f"{row.what}, {row.peer_name}: {ratio:.3g} became {row.ratio:.3g}"
        return
    raise NotMeasured("the file of the other run is not a result of --json")
