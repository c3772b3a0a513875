"""Nothing that somebody planted beside the program, under the name of something of Windows' own, is run."""
import os
import pathlib
import shutil
import subprocess

import pytest

import desk
import process_memory

HOST = "brasslet.test"
DECOYS = sorted((desk.BUILD / "tests/e2e/planted").glob("*.dll"))
NAMES = {path.name for path in DECOYS}


@pytest.fixture
def planted(tmp_path):
    """A folder with the program, and with a library for each name that marks when it is loaded."""
    folder = tmp_path / "Brasslet"
    folder.mkdir()
    for file in (desk.EXE, *DECOYS):
        shutil.copy(file, folder)
    return folder


def marks_in(folder):
    return sorted(path.name for path in folder.iterdir() if path.name.endswith(".was-loaded"))


def libraries_of_windows(folder):
    """The names of the libraries that the running program has loaded from elsewhere than its folder."""
    maps = pathlib.Path(f"/proc/{process_memory.process_of(desk.EXE.name)}/maps").read_text(errors="replace")
    paths = {pathlib.Path(line.split(maxsplit=5)[5]) for line in maps.splitlines() if line.endswith(".dll")}
    return {path.name for path in paths if path.parent != folder}


def test_there_is_a_decoy_for_each_library_that_is_bound_late():
    bound_late = {path.stem for path in (desk.ROOT / "cmake/delay_imports").glob("*.def")} - {"user32_newer", "shcore"}
    assert {pathlib.Path(name).stem for name in NAMES} == bound_late | {"dnsapi", "secur32"}


def test_a_decoy_tells_when_it_is_loaded(planted):
    subprocess.run(["wine", "rundll32", f"Z:{planted}/dwmapi.dll,Nothing"], timeout=60, check=False)
    assert marks_in(planted) == ["dwmapi.dll.was-loaded"]


def test_no_library_beside_the_program_is_loaded(user, planted):
    with desk.running_program(planted):
        assert desk.publish("alice") == f"Vaultry kept alice@{HOST}."
        desk.drive("press", desk.SETTINGS)
        desk.drive("wait-text", desk.SITE, f"https://{HOST}")
        desk.drive("type", desk.SITE, "b\u00fccher.brasslet.test")
        desk.drive("press", desk.CLOSE_SETTINGS)
        desk.press(desk.INSTALL)
        assert NAMES <= libraries_of_windows(planted)
    assert marks_in(planted) == []


@pytest.mark.parametrize("library", ["dwmapi", "msimg32", "normaliz", "crypt32", "bcrypt"])
def test_a_windows_that_lacks_a_library_still_shows_the_window(user, library, monkeypatch):
    monkeypatch.setenv("WINEDLLOVERRIDES", f"{os.environ['WINEDLLOVERRIDES']};{library}=d")
    with desk.running_program():
        desk.drive("type", desk.NAME, "alice")
        desk.press(desk.PUBLISH)
        assert desk.drive("text", desk.STATUS).endswith(".")
