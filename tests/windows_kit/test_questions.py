"""The two questions that check.exe asks before the first check."""
import json
import subprocess

import pytest

STARTS = "--gtest_filter=Start.ShowsItsWindowAndEndsWhenItIsClosed"
AUTHORITY, CONTRAST = "May trust the kit's authority", "May switch high contrast"


@pytest.mark.parametrize("typed, authority, contrast", [
    ("y\nn\n", "yes", "no"),
    ("n\ny\n", "no", "yes"),
    ("what?\n\nYES\nNo\n", "yes", "no"),
    ("", "no", "no"),
])
def test_each_question_has_its_own_answer(kit, typed, authority, contrast):
    subprocess.run(["wine", kit / "check.exe", "--ask", STARTS], input=typed.encode(), stdout=subprocess.DEVNULL,
                   check=True, timeout=120)
    facts = json.loads((kit / "report.json").read_text(encoding="utf-8"))["facts"]
    assert (facts[AUTHORITY], facts[CONTRAST]) == (authority, contrast)
