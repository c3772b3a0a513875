"""Chooses a few files for a corpus from what libFuzzer wrote down in a merge: few.py CONTROL_FILE MOST prints, the most
useful first, at most so many files that each reach what neither the first corpus nor a file before them does."""
import sys


def reach_of(lines, names):
    """What each file reaches, by its name."""
    reach = {name: set() for name in names}
    for line in lines:
        kind, *numbers = line.split()
        if kind == "FT":
            reach[names[int(numbers[0])]] = set(numbers[1:])
    return reach


def chosen(reach, covered, most):
    while most > 0:
        # Of two that reach as much, the one with the smaller name: the choice is the same every time.
        name = max(sorted(reach), key=lambda name: len(reach[name] - covered), default=None)
        if name is None or not reach[name] - covered:
            return
        yield name
        covered |= reach.pop(name)
        most -= 1


def main(control_file: str, most: str) -> None:
    with open(control_file, encoding="utf-8") as control:
        lines = control.read().splitlines()
    count, first = int(lines[0]), int(lines[1])
    names = lines[2 : 2 + count]
    reach = reach_of(lines[2 + count :], names)
    covered = set().union(*(reach.pop(name) for name in names[:first]))
    for name in chosen(reach, covered, int(most)):
        print(name)


if __name__ == "__main__":
    main(*sys.argv[1:])
