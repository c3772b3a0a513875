"""The authority of the kit's site is trusted with the tester's yes, and no longer than the checks run."""
import shutil
import subprocess
import time

import pytest

import unpacked

SEES = "Journey.InstallSeesThePluginOnTheSite"
STORE = r"HKCU\Software\Microsoft\SystemCertificates\Root\Certificates"


def trusted() -> set:
    """The fingerprints of what the Windows user has added to the authorities."""
    found = subprocess.run(["wine", "reg", "query", STORE], capture_output=True, check=False, timeout=60).stdout.decode()
    return {line.strip().rpartition("\\")[2] for line in found.splitlines() if line.strip().count("\\") > 5}


def comes_true(condition) -> bool:
    end = time.monotonic() + 60
    while not condition():
        if time.monotonic() > end:
            return False
        time.sleep(0.1)
    return True


def kill(*programs):
    for program in programs:
        subprocess.run(["wine", "taskkill", "/F", "/IM", program], capture_output=True, check=False, timeout=60)


@pytest.fixture
def before():
    found = trusted()
    yield found
    kill("check.exe", "kit_site.exe", "Brasslet.exe")


@pytest.fixture
def in_the_middle(kit, before):
    """check.exe, at a moment when its authority is trusted."""
    process = unpacked.start(kit, "--yes", "--gtest_filter=Journey.*", "--gtest_repeat=50")
    assert comes_true(lambda: trusted() != before)
    yield process
    process.kill()
    process.communicate()


def test_it_is_taken_away_at_the_end(kit, before):
    assert unpacked.run(kit, "--yes", "--gtest_filter=Journey.InstallSees*").status == 0
    assert trusted() == before


def test_it_is_taken_away_when_the_checks_are_killed(in_the_middle, before):
    kill("check.exe")
    assert comes_true(lambda: trusted() == before)


def test_it_is_taken_away_at_the_next_start_when_all_was_killed(kit, in_the_middle, before):
    kill("kit_site.exe", "check.exe")
    assert trusted() != before
    outcome = unpacked.run(kit, "--no-questions", "--gtest_filter=Start.*")
    assert outcome.lines[0].endswith("and that are taken away now: 1")
    assert trusted() == before


def test_without_a_yes_nothing_is_trusted_and_what_needs_it_is_not_shown(kit, before):
    outcome = unpacked.run(kit, "--no-questions", "--gtest_filter=Journey.InstallSees*:Start.*")
    assert outcome.result("Journey.InstallSeesThePluginOnTheSite")["result"] == "not shown here"
    assert outcome.lines[-2:] == ["1 not shown here", "1 passed, 0 failed"]
    assert trusted() == before


@pytest.mark.parametrize("error, result, told", [
    (1223, "not shown here", "The tester told Windows not to trust"),
    (0x800704C7, "not shown here", "The tester told Windows not to trust"),
    (5, "failed", "Windows does not trust the authority"),
])
def test_a_refusal_by_the_tester_is_none_of_windows(kit, tmp_path, monkeypatch, error, result, told):
    copy = tmp_path / "kit"
    shutil.copytree(kit, copy)
    shutil.copy(unpacked.ROOT / "build/windows/tests/distrusted.exe", copy / "files/tests/site/kit_site.exe")
    monkeypatch.setenv("BRASSLET_TRUST_ERROR", str(error))
    found = unpacked.run(copy, "--yes", f"--gtest_filter={SEES}").result(SEES)
    assert found["result"] == result
    assert told in found["text"]
