"""Runs the checks of the unpacked kit and writes their results as JUnit XML: run_unpacked.py RESULT.xml [NAME...], those
alone whose name one of these regular expressions matches. What Wine does not show is printed with its reason, and must be
on the list of not_shown_under_wine.txt; what is on the list and was shown is a failure as well."""
import pathlib
import re
import sys
import tempfile
import xml.etree.ElementTree as ElementTree

from unpacked import SOME_TESTS, names_of_checks, not_shown_under_wine, run, unpack


def failure_of(entry: dict, known: set) -> str:
    name, result = entry["check"], entry["result"]
    if result == "failed":
        return entry["text"]
    if result == "passed" and name in known:
        return "It is shown under Wine after all: take it off the list."
    if result == "not shown here" and name not in known:
        return "Nothing was shown: " + entry["text"]
    return ""


def write(results: dict, target: str) -> None:
    suite = ElementTree.Element("testsuite", name="kit")
    for name, failure in results.items():
        case = ElementTree.SubElement(suite, "testcase", name=name)
        if failure:
            ElementTree.SubElement(case, "failure").text = failure
            print(f"[failure] {name}\n{failure}")
    ElementTree.ElementTree(suite).write(target, encoding="utf-8", xml_declaration=True)


def main(target: str, patterns: list) -> int:
    wanted = [name for name in names_of_checks() if not patterns or any(re.search(pattern, name) for pattern in patterns)]
    with tempfile.TemporaryDirectory() as folder:
        outcome = run(unpack(pathlib.Path(folder)), "--yes", SOME_TESTS, "--gtest_filter=" + ":".join(wanted))
    known, entries = not_shown_under_wine(), outcome.report.get("checks", [])
    results = {entry["check"]: failure_of(entry, known) for entry in entries}
    for name in set(wanted) - set(results):
        results[name] = "It did not run."
    if outcome.status != 0 and not any(results.values()):
        results["check.exe"] = f"It ended with status {outcome.status}."
    for entry in entries:
        if entry["result"] == "not shown here":
            print(f"not shown under Wine: {entry['check']}: {entry['text']}")
    write({name: failure for name, failure in results.items() if failure or name not in known}, target)
    print(outcome.lines[-1] if outcome.lines else "check.exe said nothing")
    return 1 if any(results.values()) else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1], sys.argv[2:]))
