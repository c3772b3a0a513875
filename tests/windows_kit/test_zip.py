"""The zip of the kit."""
import pathlib
import subprocess
import zipfile

import unpacked
from unpacked import ROOT, ZIP

TWIN = ROOT / "build/a twin folder with another name"


def test_it_is_the_same_from_every_folder(tmp_path):
    subprocess.run(["/usr/bin/python3", "-B", "release/windows_kit.py", "build/windows", tmp_path], cwd=TWIN, check=True)
    with zipfile.ZipFile(ZIP) as here, zipfile.ZipFile(tmp_path / ZIP.name) as there:
        assert here.namelist() == there.namelist()
        assert [name for name in here.namelist() if here.read(name) != there.read(name)] == []
    assert (tmp_path / ZIP.name).read_bytes() == ZIP.read_bytes()


def test_its_program_is_that_of_the_release():
    with zipfile.ZipFile(ZIP) as archive:
        assert archive.read("files/src/Brasslet.exe") == (ROOT / "build/windows/src/Brasslet.exe").read_bytes()


def test_a_person_sees_one_program_and_one_text():
    with zipfile.ZipFile(ZIP) as archive:
        assert {name for name in archive.namelist() if "/" not in name} == {"READ ME.txt", "check.exe"}


def test_every_recording_is_in_it():
    recorded = {path.relative_to(ROOT / "tests/windows_kit").as_posix() for path in ROOT.glob("tests/windows_kit/recordings/*/*")}
    with zipfile.ZipFile(ZIP) as archive:
        packed = {name.removeprefix("files/tests/site/") for name in archive.namelist() if "/recordings/" in name}
    assert packed == recorded != set()


def test_what_wine_does_not_show_are_checks():
    assert unpacked.not_shown_under_wine() <= set(unpacked.names_of_checks())


def test_it_tells_nothing_of_the_machine_that_built_it():
    with zipfile.ZipFile(ZIP) as archive:
        for name in archive.namelist():
            assert str(pathlib.Path(ROOT)).encode() not in archive.read(name), name


def test_the_works_of_others_in_it_are_named_with_their_licences():
    with zipfile.ZipFile(ZIP) as archive:
        text = archive.read("files/NOTICES.txt").decode()
    for words in ("libcurl", "GoogleTest", "Copyright 2008, Google Inc.", "(openssl 3.", "TERMS AND CONDITIONS FOR USE, REPRODUCTION"):
        assert words in text, words
