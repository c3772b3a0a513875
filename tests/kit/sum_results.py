"""Adds up the result files (JUnit XML) of a test run. A test that was skipped proves nothing: it counts as failed."""
import pathlib
import sys
import xml.etree.ElementTree as ElementTree


def main(folder: str) -> int:
    passed, failed = 0, []
    for path in sorted(pathlib.Path(folder).glob("*.xml")):
        try:
            cases = list(ElementTree.parse(path).iter("testcase"))
        except ElementTree.ParseError:
            cases = []
        if not cases:
            failed.append(f"{path.stem}: no result")
        for case in cases:
            bad = [tag for tag in ("failure", "error", "skipped") if case.find(tag) is not None]
            if bad or case.get("status") in ("fail", "notrun", "disabled"):
                failed.append(f"{path.stem}: {case.get('name')}")
            else:
                passed += 1
    for name in failed:
        print(f"failed: {name}")
    print(f"{passed} passed, {len(failed)} failed")
    return 0 if passed and not failed else 1


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))
