"""The settings file in a state that the program cannot use: what the user reads, and that nothing of it is lost."""
import json

import pytest

import desk

DAMAGED = "The settings file is damaged. Press the gear and type the settings again. The old file is kept."
LOCKED = "The saved application password does not open for this Windows user. Press the gear and type it again."


@pytest.fixture(autouse=True)
def pc():
    desk.clear_data_directory()
    (desk.data_directory() / "payname").mkdir(parents=True)


def settings_file():
    return desk.data_directory() / "payname/ui.json"


def kept_beside():
    return [path.read_text() for path in settings_file().parent.glob("ui.json.damaged-*")]


def type_settings(site, user, password):
    desk.drive("press", desk.SETTINGS)
    for field, text in ((desk.SITE, site), (desk.USER, user), (desk.PASSWORD, password)):
        desk.drive("type", field, text)
    desk.drive("press", desk.CLOSE_SETTINGS)


def test_a_damaged_file_is_told_of_and_kept_when_new_settings_are_typed():
    damaged = '{"site": "https://brasslet.test", "user": "ow'
    settings_file().write_text(damaged)
    with desk.running_program():
        assert desk.drive("text", desk.STATUS) == DAMAGED
    assert settings_file().read_text() == damaged  # nothing was typed
    with desk.running_program():
        assert desk.drive("text", desk.STATUS) == DAMAGED
        type_settings("brasslet.test", "owner", "abcd efgh")
        assert kept_beside() == [damaged]
    with desk.running_program():
        assert desk.drive("text", desk.STATUS) == ""
        desk.drive("press", desk.SETTINGS)
        assert desk.drive("text", desk.SITE) == "brasslet.test"
    assert kept_beside() == [damaged]


def test_a_password_that_does_not_open_is_told_of_and_stays_until_a_new_one_is_typed():
    desk.put_settings("https://brasslet.test", "owner", "abcdefgh", "alice")
    members = json.loads(settings_file().read_text())
    members["pass"] = "AQAAANCMnd8BFdERjHoAwE/Cl+sBAAAA"
    members["later"] = [1]
    settings_file().write_text(json.dumps(members))
    with desk.running_program():
        assert desk.drive("text", desk.STATUS) == LOCKED
        assert desk.publish("alice") == "Connect a Vaultry wallet first."
    assert json.loads(settings_file().read_text()) == members
    with desk.running_program():
        type_settings("brasslet.test", "owner", "abcd efgh")
    assert json.loads(settings_file().read_text())["pass"] not in ("", members["pass"])
    with desk.running_program():
        assert desk.drive("text", desk.STATUS) == ""
