"""The check for a newer build: a page of the maker's, the window's label, its question, and the page in the browser."""
import contextlib
import os
import pathlib

import pytest

import desk
from desk import opened_pages
from site_world import makers_page

PAGE = "https://corvane.example/brasslet"
WORLD = pathlib.Path(os.environ["WORLD_DIR"])
YES, NO = 6, 7


def requests_for_the_page():
    return [line for line in (WORLD / "logs/access.log").read_text(encoding="utf-8").splitlines() if "corvane" in line]


@pytest.fixture(autouse=True)
def nothing_seen_yet():
    desk.forget_opened_pages()
    (WORLD / "logs/access.log").write_text("")


def test_a_newer_build_is_told_and_its_page_opened(user):
    with makers_page("<p>Current build: 0.002</p>\n"), desk.running_program():
        desk.drive("wait-question")
        assert desk.drive("question").splitlines() == ["Version 0.002 is on the shelf.", "", "Open the page?"]
        assert desk.drive("text", desk.VERSION) == f"Update available, {PAGE}"
        desk.capture(desk.PICTURES / "update-question.png", desk.drive("question-rectangle"))
        desk.drive("answer", YES)
        assert desk.wait_until(lambda: opened_pages() == [PAGE])
    assert requests_for_the_page() == ['corvane.example "GET /brasslet HTTP/1.1" 200 "Brasslet/0.001"']


def test_the_label_is_a_link_afterwards(user):
    with makers_page("Version = 1.5 and Current build 0.009"), desk.running_program():
        desk.drive("wait-question")
        assert desk.drive("question").startswith("Version 1.500 is on the shelf.")
        desk.drive("answer", NO)
        desk.screenshot(desk.PICTURES / "update-label.png")
        desk.click(desk.VERSION)
        assert desk.wait_until(lambda: opened_pages() == [PAGE])


@pytest.mark.parametrize("page", ["Version 0.001", "Version 12", "nothing of the kind", "", None])
def test_without_a_newer_build_the_label_stays(user, page):
    with makers_page(page) if page is not None else contextlib.nullcontext(), desk.running_program():
        assert desk.wait_until(requests_for_the_page)
        desk.drive("answers")
        assert desk.drive("text", desk.VERSION) == "Version 0.001"
        assert desk.drive("question", check=False) == ""
        desk.click(desk.VERSION)
        desk.drive("answers")
    assert opened_pages() == []
