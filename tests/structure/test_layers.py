"""The rooms under src/ include only the rooms below them, and Windows only where windows are drawn or Windows is asked."""
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
WINDOWS_ROOMS = {"app", "ui", "platform"}
WINDOWS_FILES = re.compile(r"settings/settings_window\w*\.(h|cpp)")


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


def test_only_the_windows_rooms_include_windows():
    wrong = [
        str(path.relative_to(SRC))
        for path in sources()
        if room_of(path) not in WINDOWS_ROOMS
        and not WINDOWS_FILES.fullmatch(str(path.relative_to(SRC)))
        and re.search(r"^\s*#include\s+<(windows|winsock2|shellapi|shlobj|dwmapi|commctrl)\.h>", path.read_text(encoding="utf-8"), re.M | re.I)
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
