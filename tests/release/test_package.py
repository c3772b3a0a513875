"""The release as a user downloads it: the zip, its SHA-256, and that both are the same wherever they are made."""
import os
import re
import subprocess
import zipfile

import pytest
from executable import EXE, ROOT, RT_RCDATA, TWIN, TWIN_ROOT, opened, resource
from released import FOLDER, NAME, VERSION, ZIP, text

# The tool runs as a release does, and under what may differ between two machines.
ELSEWHERE = {
    "at once": ({}, 0o022),
    "by a careful user in the far east": ({"TZ": "Pacific/Kiritimati", "LC_ALL": "C", "PYTHONHASHSEED": "1"}, 0o077),
    "by a careless user in the far west": ({"TZ": "Pacific/Niue", "LC_ALL": "C.UTF-8", "PYTHONHASHSEED": "2"}, 0o000),
}


def test_it_consists_of_three_files():
    assert sorted(path.name for path in FOLDER.iterdir()) == [f"{NAME}.cdx.json", f"{NAME}.zip", f"{NAME}.zip.sha256"]


def test_the_zip_is_whole():
    assert subprocess.run(["unzip", "-tqq", ZIP], check=False).returncode == 0


def test_the_zip_holds_the_program_and_two_texts():
    with zipfile.ZipFile(ZIP) as archive:
        assert archive.namelist() == ["Brasslet.exe", "READ ME.txt", "NOTICES.txt"]
        assert archive.read("Brasslet.exe") == EXE.read_bytes()


def test_the_zip_tells_nothing_of_when_and_by_whom_it_was_packed():
    with zipfile.ZipFile(ZIP) as archive:
        for entry in archive.infolist():
            assert entry.date_time == (1980, 1, 1, 0, 0, 0)
            assert entry.external_attr >> 16 == 0o100644
            assert entry.extra == b"" and entry.comment == b""
        assert archive.comment == b""


def test_its_sha_256_can_be_checked():
    answer = subprocess.run(
        ["sha256sum", "-c", f"{NAME}.zip.sha256"], cwd=FOLDER, capture_output=True, text=True, check=False)
    assert answer.stdout == f"{NAME}.zip: OK\n"


@pytest.mark.parametrize("how", ELSEWHERE)
def test_it_is_the_same_from_every_folder(how, tmp_path):
    environment, umask = ELSEWHERE[how]
    subprocess.run(
        ["/usr/bin/python3", "-B", "release/package.py", TWIN.parents[1], tmp_path / "package"],
        cwd=TWIN_ROOT, env={**os.environ, **environment}, umask=umask, check=True)
    for path in FOLDER.iterdir():
        assert (tmp_path / "package" / path.name).read_bytes() == path.read_bytes(), path.name


def test_every_place_that_tells_a_version_tells_the_same():
    exe = EXE.read_bytes()
    assert set(re.findall(rb"Brasslet/([0-9.]+)", exe)) == {VERSION.encode()}
    plugin = resource(opened(), RT_RCDATA, 2).decode()
    assert set(re.findall(r"Version: (\S+)|'BRASSLET_VERSION', '(.*?)'", plugin)) == {(VERSION, ""), ("", VERSION)}
    assert text("READ ME.txt").startswith(f"Brasslet {VERSION}\n")
