"""The command up: what it takes, what it returns, and that nothing of a world is seen or left outside."""

import hashlib
import os
import pathlib
import signal
import subprocess
import uuid

import pytest

from worlds import BUNDLE, WORLD, living, start_marked, up, wait_until_gone

RUN_FOLDER = WORLD.parents[1] / "build" / "world"


def test_the_command_s_exit_status_is_returned():
    done = subprocess.run([WORLD / "up", "--no-desktop", "--no-sites", "--", "sh", "-c", "exit 37"], check=False)
    assert done.returncode == 37


@pytest.mark.parametrize("name", ["WORLD_WORDPRESS", "WORLD_PHP", "WORLD_WEB", "WORLD_WINE"])
def test_a_version_that_the_world_does_not_have_is_refused(name):
    done = subprocess.run([WORLD / "up", "--no-desktop", "--", "true"], capture_output=True, text=True, check=False,
                          env={**os.environ, name: "5.6"})
    assert (done.returncode, done.stderr.split(":")[0]) == (2, name + " is one of")


@pytest.mark.parametrize("arguments", [[], ["--"], ["true"], ["--no-desktop"], ["--no-sites"], ["--desktop", "--", "true"]])
def test_a_wrong_command_line_is_refused(arguments):
    assert subprocess.run([WORLD / "up", *arguments], capture_output=True, check=False).returncode == 2


@pytest.mark.parametrize("options, services", [
    ([], {"Xvfb", "wineserver64", "mariadbd", "nginx", "php-fpm8.2"}),
    (["--no-desktop"], {"mariadbd", "nginx", "php-fpm8.2"}),
    (["--no-sites"], {"Xvfb", "wineserver64"}),
    (["--no-sites", "--no-desktop"], set()),
])
def test_only_what_is_asked_for_is_started(options, services):
    running = set(up("ps -eo comm=", *options).split())
    assert running & {"Xvfb", "wineserver64", "mariadbd", "nginx", "php-fpm8.2"} == services


def test_the_machine_s_certificates_and_names_stay_as_they_are():
    kept = [BUNDLE, pathlib.Path("/etc/hosts"), pathlib.Path("/etc/resolv.conf")]
    before = [hashlib.sha256(path.read_bytes()).digest() for path in kept]
    world, _ = start_marked("--no-desktop")
    during = [hashlib.sha256(path.read_bytes()).digest() for path in kept]
    world.kill()
    world.wait()
    assert before == during


@pytest.mark.parametrize(
    ("ending", "status"),
    [(signal.SIGKILL, -signal.SIGKILL), (signal.SIGTERM, 143), (signal.SIGINT, 130), (signal.SIGHUP, 129)],
)
@pytest.mark.parametrize("options", [["--no-desktop"], []])
def test_nothing_survives_the_end_of_up(ending, status, options):
    world, mark = start_marked(*options)
    assert len(living(mark)) > 4
    world.send_signal(ending)
    assert world.wait(timeout=60) == status
    assert wait_until_gone(mark) == []
    assert list(RUN_FOLDER.iterdir()) == []


def test_what_the_command_leaves_running_ends_with_it():
    mark = f"WORLD_TEST_MARK={uuid.uuid4()}"
    up(f"export {mark}; setsid sleep infinity </dev/null >/dev/null 2>&1 &", "--no-desktop")
    assert wait_until_gone(mark.encode()) == []


def test_what_lies_in_tmp_is_seen_and_what_is_left_there_goes(tmp_path):
    (tmp_path / "seen").write_text("from outside")
    left = pathlib.Path("/tmp") / f"left-by-a-world-{uuid.uuid4()}"
    assert up(f"touch {left}; cat '{tmp_path}/seen'", "--no-desktop") == "from outside"
    assert not left.exists()


def test_two_worlds_at_once_do_not_meet():
    first, _ = start_marked()
    assert up("echo 'corvane.example A 127.0.0.1' >$WORLD_ZONE; wine cmd /c 'exit 0'; "
              "curl -sS https://brasslet.test/wp-json/ -o /dev/null -w '%{http_code}'") == "200"
    assert first.poll() is None
    first.kill()
    first.wait()
