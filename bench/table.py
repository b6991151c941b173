"""The table of results: each figure with a lower bound or peer of the same run, and its target."""

import dataclasses


@dataclasses.dataclass
class Row:
    what: str
    ours: float
    peer_name: str
    peer: float
    unit: str
    at_most: float | None = None   # of ours / peer
    at_least: float | None = None  # of ours / peer

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
