"""Names are guarded: what the program says at its start when somebody has changed a name in the site's database."""
import pytest

import desk
import site_world
from test_dpi import monitor_of

KEPT = "Vaultry kept alice@brasslet.test."
LINE = "Vaultry kept alice@brasslet.test"
MARKED = "Vaultry kept alice@brasslet.test (pays somebody else)"
WARNING = "alice@brasslet.test pays somebody else. Look who changed it on the site, then publish it again."
NO_ANSWER = ("No answer about alice@brasslet.test. "
             "Look whether the site opens and the plugin is active there, or publish again.")
OTHERS = {
    "address": "1BoatSLRHtKNngkdXEeobR76b53LETtpyT",
    "pubkey": "0279be667ef9dcbbac55a06295ce870b07029bfcdb2dce28d959f2815b16f81798",
}


@pytest.fixture
def published(user):
    with desk.running_program():
        assert desk.publish("alice") == KEPT
    return desk.payname_rows()[0]


def asked_by_press(sentence: str) -> None:
    desk.click(desk.NOTE)
    desk.drive("wait-text", desk.STATUS, sentence)


@pytest.mark.parametrize("member", OTHERS)
def test_a_name_that_was_changed_is_told_and_marked_until_it_is_published_again(published, member):
    site_world.change_name("brasslet.test", member, OTHERS[member])
    with desk.running_program():
        desk.drive("wait-text", desk.STATUS, WARNING)
        assert desk.drive("text", desk.NOTE) == MARKED
        assert desk.publish("alice") == KEPT
        assert desk.drive("text", desk.NOTE) == LINE
        asked_by_press("The name pays this wallet.")


def test_a_name_that_was_changed_back_loses_its_mark_by_a_press(published):
    site_world.change_name("brasslet.test", "address", OTHERS["address"])
    with desk.running_program():
        desk.drive("wait-text", desk.STATUS, WARNING)
        site_world.change_name("brasslet.test", "address", published["address"])
        asked_by_press("The name pays this wallet.")
        assert desk.drive("text", desk.NOTE) == LINE


def test_a_plugin_that_is_gone_is_told_only_to_a_user_who_asks(published):
    with site_world.without_plugin("brasslet.test", desk.EXE), desk.running_program():
        asked_by_press(NO_ANSWER)
        assert desk.drive("text", desk.NOTE) == LINE


def test_names_on_two_sites_are_all_asked_for(published):
    password = site_world.app_password("newer.brasslet.test")
    desk.put_settings("newer.brasslet.test", "owner", password)
    with desk.running_program():
        assert desk.publish("bob") == "Vaultry kept bob@newer.brasslet.test."
        asked_by_press("All 2 names pay this wallet.")
    site_world.change_name("newer.brasslet.test", "address", OTHERS["address"])
    with desk.running_program():
        desk.drive("wait-text", desk.STATUS, WARNING.replace("alice@", "bob@newer."))
        assert desk.drive("text", desk.NOTE) == (
            "Vaultry kept bob@newer.brasslet.test (pays somebody else), alice@brasslet.test")


@pytest.mark.parametrize("dpi", [96, 144, 192])
def test_the_warning_has_room_at_every_dpi(published, dpi):
    site_world.change_name("brasslet.test", "address", OTHERS["address"])
    with monitor_of(dpi), desk.running_program():
        desk.drive("wait-text", desk.STATUS, WARNING)
        desk.screenshot(desk.PICTURES / f"name-guard-{dpi}.png")
        desk.xdotool("key", *["Tab"] * 5)
        desk.screenshot(desk.PICTURES / f"name-guard-focus-{dpi}.png")
        desk.click(desk.SETTINGS)
        desk.drive("wait-text", desk.CLOSE_SETTINGS, "Close")
        desk.xdotool("key", *["Tab"] * 4)
        desk.screenshot(desk.PICTURES / f"password-hint-{dpi}.png", desk.SETTINGS_WINDOW)
