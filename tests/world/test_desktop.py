"""The Windows desktop of the world."""

import os
import pathlib
import subprocess
import uuid

import pytest

from worlds import WORLD, up


def desktop(script, **more):
    """What a script in a world without sites wrote."""
    return up(script, "--no-sites", **more)


def test_displays_do_not_share_the_keymaps_that_they_make():
    mark = pathlib.Path("/var/lib/xkb") / f"made-in-a-world-{uuid.uuid4()}"
    desktop(f"touch {mark}")
    assert not mark.exists()


def test_a_world_whose_display_ends_does_not_come_up(tmp_path):
    # Without a keymap it ends when its socket is there already.
    (tmp_path / "nothing").write_text("")
    as_root = [] if os.geteuid() == 0 else ["--map-root-user"]
    world = subprocess.run(
        ["unshare", "--mount", *as_root, "bash", "-euc",
         f"mount --bind '{tmp_path}/nothing' /usr/bin/xkbcomp; exec '{WORLD}/up' --no-sites -- true"],
        capture_output=True, text=True, timeout=120, check=False)
    assert world.returncode == 70
    assert "The test world's display does not answer." in world.stderr


def test_the_desktop_is_up_before_the_command():
    assert "explorer.exe /desktop" in desktop("ps -eo args")


def test_the_desktop_stays_while_threads_of_its_own_end():
    # A folder that is opened gives the desktop's own process some threads more; closed, they end one after the other.
    seen = desktop("""
        desktop=$(pgrep -f '[e]xplorer.exe /desktop')
        threads() { ls "/proc/$desktop/task" 2>/dev/null | wc -l; }
        wine explorer 'C:\\windows' &
        until [ "$(threads)" -gt 5 ]; do sleep 0.1; done
        pkill -KILL -f '[e]xplorer.exe C:'
        until [ "$(threads)" -lt 5 ]; do sleep 0.1; done
        sleep 5
        kill -0 "$desktop" && echo stayed""")
    assert seen == "stayed"


def test_windows_programs_find_their_places_in_memory_free_every_time():
    personality = "cat /proc/self/personality"
    fixed = up(f"setarch --addr-no-randomize {personality} || {personality}", "--no-desktop", "--no-sites")
    seen = desktop("for program in $(pgrep -f '[.]exe'); do cat /proc/$program/personality; done").split()
    assert len(seen) > 4 and set(seen) == {fixed}


def test_the_windows_user_has_a_name_outside_ascii():
    assert desktop("wine cmd /u /c 'echo %LOCALAPPDATA%' | iconv -f utf-16le -t utf-8 | tr -d '\\r'") == (
        "C:\\users\\Zoë 用户\\AppData\\Local")


def test_the_windows_user_s_folders_lie_in_the_desktop_itself():
    assert desktop("ls \"$WINEPREFIX/drive_c/users/$USER\"").split()
    assert desktop("find \"$WINEPREFIX/drive_c\" -type l") == ""


@pytest.mark.parametrize("dpi", ["96", "144", "192"])
def test_the_resolution_is_the_one_asked_for(dpi):
    seen = desktop("wine reg query 'HKCU\\Control Panel\\Desktop' /v LogPixels", env={**os.environ, "WORLD_DPI": dpi})
    assert int(seen.split()[-1], 16) == int(dpi)


def test_the_pages_that_programs_open_are_recorded():
    assert desktop("""for page in first 'second?a=1&b=%20c'; do
            wine start "https://corvane.example/$page"
        done
        until [ "$(wc -l <$WORLD_DIR/opened_pages)" = 2 ]; do sleep 0.02; done 2>/dev/null
        cat $WORLD_DIR/opened_pages""").split() == [
        "https://corvane.example/first", "https://corvane.example/second?a=1&b=%20c"]
