"""run_program.py tells of every test, whatever becomes of the process that it runs in."""
import fnmatch
import re
import subprocess
import sys
import xml.etree.ElementTree as ElementTree

import pytest

from rooms import ROOT

RUNNER = ROOT / "tests/kit/run_program.py"

# Speaks as a program of GoogleTest does. Its tests do what their names say.
PROGRAM = r"""
import os, sys, time
names = ["Passes", "Fails", "Crashes", "Hangs", "IsSkipped", "PassesToo"]
if "--gtest_list_tests" in sys.argv:
    print("Suite.\n  " + "\n  ".join(names) + "\nEvery/Other.\n  Passes/0  # GetParam() = 1", flush=True)
    sys.exit()
flags = [word.split("=", 1)[1] for word in sys.argv if word.startswith("--gtest_flagfile=")][0]
wanted = open(flags).read().strip().split("=", 1)[1].split(":")
status = 0
for name in wanted:
    print("[ RUN      ] " + name, flush=True)
    if "Crashes" in name: os.abort()
    if "Hangs" in name: time.sleep(60)
    word = {"Suite.Fails": "[  FAILED  ]", "Suite.IsSkipped": "[  SKIPPED ]"}.get(name, "[       OK ]")
    if word == "[  FAILED  ]": print("why it failed"); status = 1
    print(f"no line feed{word} {name} (0 ms)", flush=True)
if "leak" in sys.argv: status = 23
sys.exit(status)
"""


def run(folder, *options, more=()):
    (folder / "program.py").write_text(PROGRAM, encoding="utf-8")
    done = subprocess.run([sys.executable, RUNNER, "--limit", "1", *options, "result.xml", sys.executable, "program.py", *more],
                          cwd=folder, capture_output=True, text=True, check=False, timeout=60)
    cases = ElementTree.parse(folder / "result.xml").iter("testcase")
    return done, {case.get("name"): [(child.tag, child.text) for child in case] for case in cases}


def test_a_crash_and_a_hang_fail_and_the_others_run(tmp_path):
    done, cases = run(tmp_path)
    assert {name: [tag for tag, _ in children] for name, children in cases.items()} == {
        "Suite.Passes": [], "Suite.Fails": ["failure"], "Suite.Crashes": ["error"], "Suite.Hangs": ["error"],
        "Suite.IsSkipped": ["failure"], "Suite.PassesToo": [], "Every/Other.Passes/0": []}
    assert "why it failed" in cases["Suite.Fails"][0][1]
    assert "status -6" in cases["Suite.Crashes"][0][1]
    assert "longer than 1 seconds" in cases["Suite.Hangs"][0][1]
    assert done.returncode == 1


@pytest.mark.parametrize("options, seen", [
    (["--name", "Passes"], {"Suite.Passes", "Suite.PassesToo", "Every/Other.Passes/0"}),
    (["--name", "Passes$", "--name", "Too"], {"Suite.Passes", "Suite.PassesToo"}),
    (["--name", "Passes", "--jobs", "2"], {"Suite.Passes", "Suite.PassesToo", "Every/Other.Passes/0"}),
    (["--name", "Passes", "--part", "1/2"], {"Suite.Passes", "Every/Other.Passes/0"}),
    (["--name", "Passes", "--part", "2/2"], {"Suite.PassesToo"}),
])
def test_those_run_that_are_asked_for(options, seen, tmp_path):
    done, cases = run(tmp_path, *options)
    assert set(cases) == seen
    assert done.returncode == 0


def test_no_test_at_all_is_a_failure(tmp_path):
    done, cases = run(tmp_path, "--name", "NoSuchTest")
    assert (done.returncode, cases) == (1, {})


def test_a_process_that_ends_badly_after_its_last_test_is_a_failure(tmp_path):
    done, cases = run(tmp_path, "--name", "Suite.Passes", more=["leak"])
    assert done.returncode == 1
    assert cases.pop("result: the process itself")[0][0] == "error"
    assert set(cases) == {"Suite.Passes", "Suite.PassesToo"}


def test_what_needs_a_process_of_its_own_is_there_and_says_why():
    """A row whose test has another name by now would let that test run among the others."""
    sources = "".join(path.read_text(encoding="utf-8") for path in (ROOT / "tests").rglob("*.cpp"))
    names = [".".join(words) for words in re.findall(r"^TEST(?:_[FP])?\((\w+), (\w+)\)", sources, re.MULTILINE)]
    lines = (ROOT / "tests/kit/own_process.txt").read_text(encoding="utf-8").splitlines()
    rows = [line for line in lines if line and not line.startswith("#")]
    for row in rows:
        pattern, _, reason = row.partition("#")
        assert fnmatch.filter(names, pattern.strip()), row
        assert reason.strip(), row
