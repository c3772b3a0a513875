"""The READ ME in the zip: readable in every editor of Windows, and true."""
import re
import zipfile

import pefile
import pytest
from executable import ROOT, opened
from released import NAME, ZIP, text

READ_ME = "READ ME.txt"


@pytest.mark.parametrize("name", [READ_ME, "NOTICES.txt"])
def test_lines_end_as_windows_ends_them(name):
    with zipfile.ZipFile(ZIP) as archive:
        data = archive.read(name)
    assert data.endswith(b"\r\n")
    assert data.count(b"\r\n") == data.count(b"\n") == data.count(b"\r")


def test_it_is_plain_text_in_short_lines():
    assert text(READ_ME).isascii()
    assert max(map(len, text(READ_ME).split("\n"))) <= 78


def test_it_tells_how_to_check_the_download():
    assert f"    Get-FileHash {NAME}.zip\n" in text(READ_ME)
    assert f"    Get-Content {NAME}.zip.sha256\n" in text(READ_ME)


def test_it_says_what_the_checksum_proves_and_where_a_second_copy_of_it_is():
    said = " ".join(text(READ_ME).split())
    assert "That they agree proves only that the zip arrived whole" in said
    (page,) = re.findall(r"^    (https://\S+)$", text(READ_ME), re.MULTILINE)
    values = (ROOT / "build/windows/generated/build_values.h").read_text(encoding="utf-8")
    assert f'"{page}"' in values


def test_it_names_the_oldest_windows_as_the_program_does():
    refusal = re.search(r'L"Brasslet needs (Windows 10, version \d+) or newer\."',
                        (ROOT / "src/platform/windows/windows_version.cpp").read_text(encoding="utf-8"))[1]
    assert f"{refusal}, and newer" in " ".join(text(READ_ME).split())
    read_me = " ".join((ROOT / "README.md").read_text(encoding="utf-8").split())
    assert f"{refusal.replace('Windows', '64-bit Windows')}, and newer" in read_me


def test_it_prepares_for_windows_warning_as_long_as_the_program_is_not_signed():
    signature = opened().OPTIONAL_HEADER.DATA_DIRECTORY[pefile.DIRECTORY_ENTRY["IMAGE_DIRECTORY_ENTRY_SECURITY"]]
    assert (signature.Size == 0) == ("The program is not signed." in text(READ_ME))


def test_it_names_files_and_folders_that_the_program_keeps():
    sources = "".join(path.read_text() for path in (ROOT / "src").rglob("*.cpp"))
    files = re.findall(r"^    (\w+\.\w+)  ", text(READ_ME), re.MULTILINE)
    assert files == ["ui.json", "payname.json", "brasslet.zip"]
    folders = re.findall(r"In %LOCALAPPDATA%\\Corvane\\(\w+)", text(READ_ME))
    assert folders == ["payname", "binds"]
    for name in files + folders:
        assert re.search(rf'"[^"\n]*/{re.escape(name)}["/]', sources), name


def test_it_names_the_buttons_as_the_window_does():
    sources = "".join(path.read_text() for path in (ROOT / "src/app").rglob("*.cpp"))
    for button in ("Connect", "Unbind", "Install plugin", "Publish", "Remove"):
        assert f'L"{button}"' in sources
        assert re.search(rf"[Pp]ress\s+{button.replace(' ', chr(92) + 's+')}", text(READ_ME)), button
