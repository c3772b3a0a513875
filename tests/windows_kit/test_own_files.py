"""The tester's own wallet and settings are never met."""
import contextlib
import subprocess

import unpacked
from unpacked import user_profile

STARTS = "--gtest_filter=Start.*:Journey.SettingsAreKept*"


@contextlib.contextmanager
def running(program, title):
    process = subprocess.Popen(["wine", *program], stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL)
    try:
        while subprocess.run(["xdotool", "search", "--onlyvisible", "--name", f"^{title}$"], capture_output=True,
                             check=False).returncode != 0:
            assert process.poll() is None
        yield
    finally:
        process.kill()
        subprocess.run(["wine", "taskkill", "/F", "/IM", program[0].name], capture_output=True, check=False)
        process.wait()


def found_below(folder):
    """Files with their bytes, and folders."""
    return {path.relative_to(folder): path.read_bytes() if path.is_file() else None for path in folder.rglob("*")}


def test_no_file_of_the_tester_is_touched_and_none_is_left(kit):
    own = user_profile() / "AppData/Local/Corvane/payname/ui.json"
    own.parent.mkdir(parents=True, exist_ok=True)
    own.write_text('{"site":"the-testers-own.example"}')
    before = found_below(user_profile())
    assert unpacked.run(kit, "--yes", STARTS).status == 0
    assert found_below(user_profile()) == before


def test_a_brasslet_of_the_tester_is_a_reason_not_to_start(kit):
    with running([kit / "files/src/Brasslet.exe"], "Brasslet"):
        outcome = unpacked.run(kit, "--yes", STARTS)
    assert outcome.lines == ["Brasslet is open. Close it and start check.exe again: the checks shall not meet your own."]
    assert outcome.status == 1 and outcome.report == {}


def test_a_vaultry_of_the_tester_is_a_reason_not_to_start(kit, tmp_path):
    stand_in = kit / "files/tests/world/vaultry/vaultry_stand_in.exe"
    with running([stand_in, f"Z:{tmp_path}/notices", "--show", "visible"], "Vaultry"):
        outcome = unpacked.run(kit, "--yes", STARTS)
    assert outcome.lines == ["Vaultry is open. Close it and start check.exe again: the checks shall not meet your own."]
    assert outcome.status == 1 and outcome.report == {}


def test_nothing_is_run_where_the_data_folder_is_not_that_of_the_checks(kit):
    outcome = unpacked.run(kit, "--inside=C:\\elsewhere", STARTS)
    assert outcome.lines[0].startswith("Nothing was run: Brasslet would not keep its files in the folder of the checks, but in C:")
    assert outcome.status == 1 and outcome.report == {}
