"""What the pairs of a measurement say: medians, the ratio pair by pair, and how far it is spread."""
import dataclasses
import statistics


@dataclasses.dataclass
class Figures:
    floor: float  # median, in the unit of the pairs
    own: float  # median
    ratio: float  # median of the pairs' ratios
    low: float  # a quarter of the pairs' ratios lies below
    high: float  # a quarter lies above
    pairs: int


def figures_of(pairs: list) -> Figures:
    """Of (floor, own) pairs, at least two."""
    ratios = [own / floor for floor, own in pairs]
    low, middle, high = statistics.quantiles(ratios, n=4, method="inclusive")
    return Figures(statistics.median(floor for floor, _ in pairs), statistics.median(own for _, own in pairs), middle,
                   low, high, len(pairs))


def pairs_by_name(text: str) -> dict:
    """The pairs in the lines "name<tab>floor<tab>own" of the measuring programs."""
    found: dict = {}
    for line in text.splitlines():
        name, floor, own = line.split("\t")
        found.setdefault(name, []).append((float(floor), float(own)))
    return found
