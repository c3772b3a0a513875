"""Paths are UTF-8 also where Windows knows nothing of the manifest's code page: before Windows 10, version 1903."""
import json

import pytest

import desk

HOST = "brasslet.test"


@pytest.fixture
def program(tmp_path):
    """The program in a folder with a name outside ASCII, its manifest without the code page."""
    data = desk.EXE.read_bytes()
    said, unsaid = b">UTF-8</activeCodePage>", b">     </activeCodePage>"
    assert data.count(said) == 1
    folder = tmp_path / "Gr\u00fc\u00dfe \u7528\u6237"
    folder.mkdir()
    (folder / desk.EXE.name).write_bytes(data.replace(said, unsaid))
    return folder


def test_files_of_a_user_outside_ascii_are_found_and_written(user, program):
    assert not str(desk.data_directory()).isascii()
    with desk.running_program(program):
        assert desk.drive("text", desk.PAYMENT_ADDRESS).startswith("1")
        # Wine protects the password with the user's name in the code page: what another program protected is lost.
        desk.drive("press", desk.SETTINGS)
        desk.drive("wait-text", desk.SITE, f"https://{HOST}")
        desk.drive("type", desk.PASSWORD, user)
        desk.drive("press", desk.CLOSE_SETTINGS)
        assert desk.publish("alice") == f"Vaultry kept alice@{HOST}."
    (record,) = (desk.data_directory() / "binds").iterdir()
    assert json.loads(record.read_text(encoding="utf-8"))["instance"].endswith(str(program).replace("/", "\\"))
    assert [row["paymail"] for row in desk.payname_rows()] == [f"alice@{HOST}"]
    settings = json.loads((desk.data_directory() / "payname/ui.json").read_text(encoding="utf-8"))
    assert "alice" in settings.values()
    assert [path.name for path in desk.data_directory().parent.glob("Corvane*")] == ["Corvane"]
