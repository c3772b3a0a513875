"""The rooms under src/ include only the rooms below them, and Windows only where windows are drawn or Windows is asked."""
import pathlib
import re

import pytest

ROOT = pathlib.Path(__file__).resolve().parents[2]
SRC = ROOT / "src"

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


def sources():
    return sorted(path for path in SRC.rglob("*") if path.suffix in (".h", ".cpp"))


@pytest.mark.parametrize("room", sorted(BELOW))
def test_room_includes_only_rooms_below(room):
    wrong = []
    for path in sorted((SRC / room).glob("**/*")):
        if path.suffix not in (".h", ".cpp"):
            continue
        for other in re.findall(r'^\s*#include\s+"(\w+)/', path.read_text(encoding="utf-8"), re.M):
            if other in BELOW and other not in BELOW[room] | {room} | EVERYWHERE:
                wrong.append(f"{path.relative_to(SRC)} includes {other}/")
    assert wrong == []


def test_every_room_has_its_rule():
    assert {path.relative_to(SRC).parts[0] for path in sources()} <= set(BELOW)


def test_only_the_windows_rooms_include_windows():
    wrong = [
        str(path.relative_to(SRC))
        for path in sources()
        if path.relative_to(SRC).parts[0] not in WINDOWS_ROOMS
        and not WINDOWS_FILES.fullmatch(str(path.relative_to(SRC)))
        and re.search(r"^\s*#include\s+<(windows|winsock2|shellapi|shlobj|dwmapi|commctrl)\.h>", path.read_text(encoding="utf-8"), re.M | re.I)
    ]
    assert wrong == []


def test_only_net_includes_curl():
    wrong = [
        str(path.relative_to(SRC))
        for path in sources()
        if path.relative_to(SRC).parts[0] != "net" and "<curl/" in path.read_text(encoding="utf-8")
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
