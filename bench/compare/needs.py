"""What the figures of the comparisons have to be."""

import operator
import statistics
from dataclasses import dataclass

from measure import geometric_mean
from patterns import FOUR, PART

RELATIONS = {"<=": operator.le, "<": operator.lt, ">=": operator.ge}


@dataclass
class Need:
    what: str
    values: list  # one of each comparison: the middle one counts
    relation: str
    limit: float
    unit: str = "x"
    every: bool = False  # all of the comparisons count

    @property
    def middle(self):
        return statistics.median(self.values)

    @property
    def met(self):
        values = self.values if self.every else [self.middle]
        return all(RELATIONS[self.relation](value, self.limit) for value in values)

    def cells(self):
        figure = f"{self.middle:.2f}{self.unit} ({' '.join(f'{value:.2f}' for value in self.values)})"
        return [self.what, figure, f"{self.relation} {self.limit:g}{self.unit}{' each' if self.every else ''}", "met" if self.met else "NOT met"]


def mean_ratio(comparison, peer, ours="ours"):
    return geometric_mean(getattr(row, peer) / getattr(row, ours) for row in comparison.rows.values())


def worst_pattern(comparison):
    """(ratio, name) of the pattern where the faster peer comes nearest."""
    return min((min(row.rg, row.grep) / row.ours, pattern.name) for pattern, row in comparison.rows.items())


def share_of_sum(comparison):
    """What a search with conditions takes of what its parts take alone."""
    return lambda mixture: comparison.mixed[mixture].ours / sum(comparison.mixed[mixture].alone)


def needs_of(comparisons, file_bytes):
    def each(figure):
        return [figure(comparison) for comparison in comparisons]

    def middle(figure):
        return f"{statistics.median(each(figure)):.1f}"

    worst = " ".join(dict.fromkeys(worst_pattern(comparison)[1] for comparison in comparisons))
    load = f"load {middle(lambda c: c.load)} ms / wc -l {middle(lambda c: c.wc)} ms"
    save = f"save {middle(lambda c: c.probe['save_ms'])} ms / cp {middle(lambda c: c.cp)} ms"
    reads = " ".join(f"{read:.2f}" for read in each(lambda c: c.probe["read_10mb_ms"]))
    text_reads = " ".join(f"{read:.2f}" for read in each(lambda c: c.probe["read_text_ms"]))
    made = {
        order: f"make of the {order} list {middle(lambda c: c.make[order][0])} ms / "
        f"sort -u {middle(lambda c: c.make[order][1])} ms"
        for order in ("sorted", "shuffled")
    }
    needs = [
        Need(load, each(lambda c: c.load / c.wc), "<=", 4, every=True),
        Need("rg -j1 -c / search, mean", each(lambda c: mean_ratio(c, "rg")), ">=", 132),
        Need("grep -c / search, mean", each(lambda c: mean_ratio(c, "grep")), ">=", 153),
        Need("rg -j1 -c / search taking turns, mean", each(lambda c: mean_ratio(c, "rg", "in_turn")), ">=", 100),
        Need("grep -c / search taking turns, mean", each(lambda c: mean_ratio(c, "grep", "in_turn")), ">=", 117),
        Need(f"faster peer / search, worst: {worst}", each(lambda c: worst_pattern(c)[0]), ">=", 3),
    ]
    for pattern in filter(lambda p: p.most_reads, comparisons[0].rows):
        ratios = each(lambda c: c.rows[pattern].ours / c.probe["read_text_ms"])
        needs.append(Need(f"{pattern.name} / reading the words ({text_reads} ms)", ratios, "<=", pattern.most_reads))
    for pattern in filter(lambda p: p.masks_decide, comparisons[0].rows):
        ratios = each(lambda c: c.rows[pattern].ours / c.probe["read_10mb_ms"])
        needs.append(Need(f"{pattern.name} / reading 10 MB ({reads} ms)", ratios, "<", 4))
    dearest = max(comparisons[0].mixed, key=share_of_sum(comparisons[0]))
    needs += [
        Need(f"{FOUR.name} / dearest alone", each(lambda c: c.mixed[FOUR].ours / max(c.mixed[FOUR].alone)), "<=", 1.3),
        Need(f"conditions / sum of all alone, worst: {dearest.name}", each(lambda c: share_of_sum(c)(dearest)), "<=", 1.1),
    ]
    return needs + [
        Need("*@$@$@$* / *ell*", each(lambda c: c.sets / c.rows[PART].ours), "<=", 4.3),
        Need("rg -j1 -c / whole process, mean", each(lambda c: mean_ratio(c, "rg", "whole")), ">=", 2.8),
        Need("grep -c / whole process, mean", each(lambda c: mean_ratio(c, "grep", "whole")), ">=", 3.2),
        Need(f"memory {middle(lambda c: c.memory / 1e6)} MB / file", each(lambda c: c.memory / file_bytes), "<=", 2),
        Need("list 2,000,000 results", each(lambda c: c.probe["list_ms"]), "<=", 1, " ms"),
        Need("sort 2,000,000 results", each(lambda c: c.probe["sort_ms"]), "<=", 3, " ms"),
        Need(save, each(lambda c: c.probe["save_ms"] / c.cp), "<=", 2),
        Need(made["sorted"], each(lambda c: c.make["sorted"][0] / c.make["sorted"][1]), "<=", 1.5),
        Need(made["shuffled"], each(lambda c: c.make["shuffled"][0] / c.make["shuffled"][1]), "<=", 1),
    ]
