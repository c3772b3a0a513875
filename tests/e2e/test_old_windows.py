"""What the program does on a Windows that is older than those it is meant for."""
import contextlib
import subprocess

import pytest

import desk

KEY = r"HKCU\Software\Wine\AppDefaults\Brasslet.exe"
OK = 1


@contextlib.contextmanager
def windows(version):
    """The program, and it alone, runs on this version: one of Wine's own names."""
    subprocess.run(["wine", "reg", "add", KEY, "/v", "Version", "/d", version, "/f"], check=True, timeout=60,
                   capture_output=True)
    try:
        yield
    finally:
        subprocess.run(["wine", "reg", "delete", KEY, "/f"], check=True, timeout=60, capture_output=True)


@pytest.fixture(autouse=True)
def pc():
    desk.clear_data_directory()
    desk.put_wallet()


@pytest.mark.parametrize("version", ["win7", "win81"])
def test_a_windows_that_is_too_old_is_told_and_nothing_is_touched(version):
    with windows(version):
        process = desk.start_program()
        desk.drive("wait-question")
        assert desk.drive("question") == "Brasslet needs Windows 10, version 1703 or newer."
        desk.drive("answer", OK)
        assert process.wait(timeout=30) == 0
    assert not (desk.data_directory() / "binds").exists()


@pytest.mark.parametrize("version", ["win10", "win11"])
def test_a_windows_that_is_new_enough_shows_the_window(version):
    with windows(version), desk.running_program():
        assert desk.drive("question", check=False) == ""
