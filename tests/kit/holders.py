"""What holds the tests of some names: holders.py LAYER NAME... prints, one a line, the programs and the tests in Python of
the layer (see scripts/test) that one of these regular expressions matches.
"""
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
CPP_TEST = re.compile(r"^TEST(?:_[FP])?\(\s*(\w+),\s*(\w+)\)", re.M)
PYTHON_TEST = re.compile(r"^def (test_\w+)", re.M)

# The program that the tests of a folder named so are in; all others are in unit_tests.
PROGRAMS = {"host": {"wire": "wire_tests", "windows": None},
            "windows": {"wire": None, "host": None, "windows": "windows_tests"}}
PROGRAMS["wine-next"] = PROGRAMS["windows"]
FOLDERS = {"host": ["structure"], "windows": ["world", "release"], "kit": ["windows_kit"], "site": ["plugin"], "versions": ["plugin"], "e2e": ["e2e"],
           "wine-next": ["e2e"]}


def tests(layer: str):
    """(test, what holds it) of every test of the layer."""
    for source in ROOT.glob("tests/**/*_tests.cpp") if layer in PROGRAMS else []:
        program = PROGRAMS[layer].get(source.parent.name, "unit_tests")
        for suite, test in CPP_TEST.findall(source.read_text(encoding="utf-8")) if program else []:
            yield f"{suite}.{test}", program
    if layer in ("host", "windows"):
        yield "Bench.TheQueriesGiveTheRightAnswers", "bench_queries"
    for source in ROOT.glob("tests/windows_kit/*_checks.cpp") if layer == "kit" else []:
        for suite, test in CPP_TEST.findall(source.read_text(encoding="utf-8")):
            yield f"{suite}.{test}", "check"
    for target in ROOT.glob("tests/fuzz/targets/*.cpp") if layer == "host" else []:
        yield f"Replay.{target.stem}", "fuzz_replay"
    for folder in FOLDERS[layer]:
        for source in ROOT.glob(f"tests/{folder}/**/test_*.py"):
            for test in PYTHON_TEST.findall(source.read_text(encoding="utf-8")):
                path = f"{source.relative_to(ROOT).as_posix()}::{test}"
                yield path, path


def main(layer: str, names: list) -> int:
    found = {holder for test, holder in tests(layer) if any(re.search(name, test) for name in names)}
    print("\n".join(sorted(found)))
    return 0 if found else 1


if __name__ == "__main__":
    sys.exit(main(sys.argv[1], sys.argv[2:]))
