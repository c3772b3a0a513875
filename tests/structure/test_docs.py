"""What the pages of the documentation name is there."""
import re

import pytest

from rooms import ROOT

PAGES = [ROOT / "README.md", ROOT / "tests/world/README.md", *sorted((ROOT / "docs").glob("*.md"))]


@pytest.mark.parametrize("page", PAGES, ids=lambda page: page.relative_to(ROOT).as_posix())
def test_every_file_that_a_page_names_is_there(page):
    text = page.read_text(encoding="utf-8")
    named = re.findall(r"(?:^|[\s`(\"])((?:src|tests|scripts|cmake|docs)/[\w./-]*\w)", text)
    assert [path for path in named if not (ROOT / path).exists()] == []


@pytest.mark.parametrize("page", PAGES, ids=lambda page: page.relative_to(ROOT).as_posix())
def test_every_link_of_a_page_leads_somewhere(page):
    text = page.read_text(encoding="utf-8")
    for target in re.findall(r"\]\(([^)]+)\)", text):
        path, _, anchor = target.partition("#")
        linked = page.parent / path if path else page
        assert linked.exists(), target
        if anchor:
            titles = re.findall(r"^#+ (.+)$", linked.read_text(encoding="utf-8"), re.M)
            assert anchor in {re.sub(r"[^\w -]", "", title.lower()).replace(" ", "-") for title in titles}, target
