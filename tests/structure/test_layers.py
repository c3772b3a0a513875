"""The rooms under src/ include only the rooms below them, and what needs Windows stands in a folder named windows/."""
import re

import pytest

from rooms import PICTURE, ROOT, SRC, includes, room_of, rooms_included_by, sources, svg

EVERYWHERE = {"text"}
BELOW = {
    "text": set(),
    "platform": set(),
    "net": {"platform"},
    "wallet": set(),
    "wallet_bridge": {"wallet", "platform"},
    "paymail": {"net", "wallet_bridge", "wallet", "platform"},
    "site": {"net", "platform"},
    "plugin": {"site", "wallet_bridge", "platform"},
    "settings": {"wallet_bridge", "ui", "platform"},
    "update": {"net", "platform"},
    "flows": {"site", "plugin", "paymail", "wallet_bridge", "settings", "platform"},
    "ui": {"platform"},
    "app": {"flows", "settings", "update", "plugin", "site", "paymail", "wallet_bridge", "wallet", "net", "ui", "platform"},
}


@pytest.mark.parametrize("room", sorted(BELOW))
def test_room_includes_only_rooms_below(room):
    wrong = [
        f"{path.relative_to(SRC)} includes {other}/"
        for path in sources()
        if room_of(path) == room
        for other in (rooms_included_by(path) & set(BELOW)) - BELOW[room] - EVERYWHERE
    ]
    assert wrong == []


def test_every_room_has_its_rule():
    assert {room_of(path) for path in sources()} <= set(BELOW)


def test_the_picture_of_the_rooms_is_what_the_sources_say():
    assert PICTURE.read_text(encoding="utf-8") == svg(includes()), "python3 tests/structure/rooms.py draws it anew"


def test_no_windows_header_outside_a_folder_named_windows():
    # Every header in angle brackets that ends in ".h" is one of Windows, but for those of the libraries.
    wrong = [
        f"{path.relative_to(SRC)} includes {header}"
        for path in sources()
        if "windows" not in path.relative_to(SRC).parts
        for header in re.findall(r'^\s*#\s*include\s+(<\w+\.h>|"\w+/windows/[^"]*")', path.read_text(encoding="utf-8"), re.M)
    ]
    assert wrong == []


def test_only_net_includes_curl():
    wrong = [
        str(path.relative_to(SRC))
        for path in sources()
        if room_of(path) != "net" and "<curl/" in path.read_text(encoding="utf-8")
    ]
    assert wrong == []


def test_nothing_waits_on_an_atomic():
    # Cross-built, libstdc++ 12 looks at the value before it takes the lock that it waits under: a wake-up in between
    # is lost, and the waiter sleeps for ever. Mutexes, condition variables, promises and futures are sound.
    wrong = [
        str(path.relative_to(ROOT))
        for folder in ("src", "tests")
        for path in sorted((ROOT / folder).rglob("*.cpp")) + sorted((ROOT / folder).rglob("*.h"))
        if re.search(r"#include <(semaphore|latch|barrier|stop_token)>|\batomic_wait\b", path.read_text(encoding="utf-8"))
    ]
    assert wrong == []


def test_files_stay_small():
    long = {
        str(path.relative_to(SRC)): lines
        for path in sources()
        if (lines := len(path.read_text(encoding="utf-8").splitlines())) > 300
    }
    assert long == {}
