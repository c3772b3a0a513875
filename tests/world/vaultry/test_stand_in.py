"""The wallet application's stand-in says when it is ready, shows itself as asked, holds the shared lock, and answers
connect requests."""

import json
import pathlib
import shlex
import subprocess

import pytest

PROJECT = pathlib.Path(__file__).resolve().parents[3]
STAND_IN = PROJECT / "build" / "windows" / "tests" / "world" / "vaultry" / "vaultry_stand_in.exe"

# wait_for FILE: until it exists; whoever calls ends it all after its time limit.
WAIT_FOR = 'wait_for() { until [ -e "$1" ]; do sleep 0.02; done; }; cd $WORLD_DIR; '

ID = "1700000000123"
REQUEST = {"app": "Brasslet", "id": ID, "instance": "C:\\Tools", "ts": 1700000000}


def up(script):
    if not STAND_IN.exists():
        pytest.fail("The stand-in is not built: build the target vaultry_stand_in.", pytrace=False)
    done = subprocess.run(
        [PROJECT / "tests" / "world" / "up", "--", "bash", "-euc", WAIT_FOR + script],
        capture_output=True, text=True, timeout=120, check=False)
    assert done.returncode == 0, done.stderr
    return done.stdout.strip()


def with_request(request):
    return f"""connect="$WINEPREFIX/drive_c/users/$USER/AppData/Local/Corvane/connect"
        mkdir -p "$connect"
        printf %s {shlex.quote(json.dumps(request))} >"$connect/{ID}.req.json"
        """


@pytest.mark.parametrize("show, state", [("hidden", "IsUnMapped"), ("visible", "IsViewable")])
def test_it_shows_its_window_as_asked(show, state):
    assert up(f"""wine {STAND_IN} count --show {show} &
        wait_for count; cat count; echo
        xwininfo -name Vaultry >window
        sed -n 's/.*Map State: //p' window""").split() == ["0", state]


def test_it_holds_the_shared_lock_until_it_is_told_to_let_go():
    assert up(f"""wine {STAND_IN} first --hold-lock-until let_go_first &
        wait_for first
        wine {STAND_IN} second --hold-lock-until let_go_second &
        wine cmd /c 'exit 0'
        [ -e second ] || echo waits
        touch let_go_first
        wait_for second; echo goes on""").split("\n") == ["waits", "goes on"]


@pytest.mark.parametrize("answer, reply", [
    ("approve:7", {"ok": True, "wallet_id": "7"}),
    ("approve", {"ok": True}),
    ("deny", {"ok": False}),
    ('raw:{"ok": "per haps"}', {"ok": "per haps"}),
])
def test_it_answers_a_connect_request(answer, reply):
    assert json.loads(up(with_request(REQUEST) + f"""wine {STAND_IN} count --connect {shlex.quote(answer)} &
        wait_for "$connect/{ID}.rep.json"; cat "$connect/{ID}.rep.json" """)) == reply


def test_it_answers_a_request_that_comes_while_it_runs():
    assert json.loads(up(f"""wine {STAND_IN} count --connect deny &
        wait_for count
        """ + with_request(REQUEST) + f"""
        wait_for "$connect/{ID}.rep.json"; cat "$connect/{ID}.rep.json" """)) == {"ok": False}


def test_without_an_answer_a_request_stays_without_a_reply():
    assert up(with_request(REQUEST) + f"""wine {STAND_IN} first &
        wait_for first
        wine {STAND_IN} second --hold-lock-until let_go &
        wait_for second
        ls "$connect" """) == f"{ID}.req.json"


@pytest.mark.parametrize("member, value", [
    ("app", "brasslet"), ("id", "1700000000124"), ("id", 1700000000123), ("instance", ""), ("instance", None),
    ("ts", 1700000001), ("ts", "1700000000"), ("more", 1),
])
def test_a_request_that_is_not_as_agreed_ends_it(member, value):
    assert up(with_request({**REQUEST, member: value}) + f"wine {STAND_IN} count --connect deny || echo $?") == "6"


def test_a_copy_that_a_program_starts_takes_its_orders_from_the_environment():
    assert json.loads(up(with_request(REQUEST) + f"""cp {STAND_IN} Vaultry.exe
        VAULTRY_ORDERS='"the count" --connect deny' wine Vaultry.exe &
        wait_for "$connect/{ID}.rep.json"; [ -e 'the count' ]; cat "$connect/{ID}.rep.json" """)) == {"ok": False}


@pytest.mark.parametrize("arguments", ["", "count --show", "count --show sideways", "count --hide yes",
                                       "count --connect perhaps"])
def test_a_wrong_command_line_is_refused(arguments):
    assert up(f"wine {STAND_IN} {arguments} || echo $?") == "2"
