"""The wallet application's stand-in says when it is ready, shows itself as asked, and holds the shared lock."""

import pathlib
import subprocess

import pytest

PROJECT = pathlib.Path(__file__).resolve().parents[3]
STAND_IN = PROJECT / "build" / "windows" / "tests" / "world" / "vaultry" / "vaultry_stand_in.exe"

# wait_for FILE: until it exists; whoever calls ends it all after its time limit.
WAIT_FOR = "wait_for() { until [ -e $1 ]; do sleep 0.02; done; }; cd $WORLD_DIR; "


def up(script):
    if not STAND_IN.exists():
        pytest.fail("The stand-in is not built: build the target vaultry_stand_in.", pytrace=False)
    done = subprocess.run(
        [PROJECT / "tests" / "world" / "up", "--", "bash", "-euc", WAIT_FOR + script],
        capture_output=True, text=True, timeout=120, check=False)
    assert done.returncode == 0, done.stderr
    return done.stdout.strip()


@pytest.mark.parametrize("show, windows", [("hidden", 0), ("visible", 1)])
def test_it_shows_its_window_as_asked(show, windows):
    assert up(f"""wine {STAND_IN} count --show {show} &
        wait_for count; cat count; echo
        (xdotool search --onlyvisible --name '^Vaultry$' || true) | wc -l""").split() == ["0", str(windows)]


def test_it_holds_the_shared_lock_until_it_is_told_to_let_go():
    assert up(f"""wine {STAND_IN} first --hold-lock-until let_go_first &
        wait_for first
        wine {STAND_IN} second --hold-lock-until let_go_second &
        wine cmd /c 'exit 0'
        [ -e second ] || echo waits
        touch let_go_first
        wait_for second; echo goes on""").split("\n") == ["waits", "goes on"]


@pytest.mark.parametrize("arguments", ["", "count --show", "count --show sideways", "count --hide yes"])
def test_a_wrong_command_line_is_refused(arguments):
    assert up(f"wine {STAND_IN} {arguments} || echo $?") == "2"
