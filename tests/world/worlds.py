"""Test worlds for the tests of the world."""

import os
import pathlib
import subprocess
import time
import uuid

WORLD = pathlib.Path(__file__).parent
BUNDLE = pathlib.Path("/etc/ssl/certs/ca-certificates.crt")


def up(script, *options, **more):
    """Runs a bash script in a world of its own and returns what it wrote, without the last line feed."""
    command = [WORLD / "up", *options, "--", "bash", "-euc", script]
    done = subprocess.run(command, capture_output=True, text=True, timeout=300, check=False, **more)
    assert done.returncode == 0, done.stderr
    return done.stdout.strip()


def start_marked(*options):
    """A world that waits until it is ended. Everything in it carries a mark in its environment."""
    mark = f"WORLD_TEST_MARK={uuid.uuid4()}"
    name, value = mark.split("=")
    # Started in the background, this run itself may ignore SIGINT or SIGHUP, and would hand that down.
    world = subprocess.Popen(
        ["env", "--default-signal=HUP,INT,QUIT,TERM", WORLD / "up", *options, "--",
         "bash", "-c", "echo ready; exec sleep infinity"],
        stdout=subprocess.PIPE, env={**os.environ, name: value})
    assert world.stdout.readline() == b"ready\n"
    return world, mark.encode()


def living(mark):
    found = []
    for process in pathlib.Path("/proc").glob("[0-9]*"):
        try:
            if mark in (process / "environ").read_bytes():
                found.append(int(process.name))
        except OSError:
            continue  # it ended meanwhile, or is another user's
    return found


def wait_until_gone(mark):
    limit = time.monotonic() + 30
    while living(mark) and time.monotonic() < limit:
        time.sleep(0.02)
    return living(mark)
