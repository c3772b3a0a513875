"""The site as its owner types it: with "www." on a site that lives without, at an address that the site has left, with
letters outside ASCII."""
import os
import pathlib

import pytest

import desk
import site_world

APEX = "newer.brasslet.test"
OLD_ADDRESS = "moved.brasslet.test"
BOOKS = "bücher.example"
BOOKS_IN_ASCII = "xn--bcher-kva.example"


def key_of(host: str, alias: str):
    return site_world.get(site_world.capabilities(host)["pki"].replace("{alias}", alias))


def log() -> list:
    return (pathlib.Path(os.environ["WORLD_DIR"]) / "logs/access.log").read_text(encoding="utf-8").splitlines()


def requests_with_a_login(host: str) -> list:
    return [line for line in log() if line.startswith((f'{host} "POST /wp-json/brasslet/v1/name', f'{host} "DELETE'))]


def test_a_user_who_types_www_publishes_and_removes_on_a_site_at_the_apex(user):
    desk.put_settings("www." + APEX, "owner", site_world.app_password(APEX))
    with desk.running_program():
        assert desk.publish("alice") == f"Vaultry kept alice@{APEX}."
        assert key_of(APEX, "alice").json()["pubkey"] == desk.payname_rows()[0]["pubkey"]
        assert [row["paymail"] for row in desk.payname_rows()] == [f"alice@{APEX}"]
        assert desk.drive("text", desk.NOTE) == f"Vaultry kept alice@{APEX}"

        assert desk.remove("alice") == f"Removed alice@www.{APEX}."
        assert desk.drive("text", desk.NOTE) == ""
    assert key_of(APEX, "alice").status_code == 404
    assert not (desk.data_directory() / "payname/payname.json").exists()


@pytest.mark.parametrize("act", [desk.publish, desk.remove])
def test_a_user_of_an_address_that_the_site_has_left_reads_the_new_one_and_the_login_stays_here(user, act):
    desk.put_settings(OLD_ADDRESS, "owner", user)
    before = len(requests_with_a_login("brasslet.test"))
    with desk.running_program():
        assert act("alice") == "The site sends on to brasslet.test. Type that site in settings."
    assert len(requests_with_a_login("brasslet.test")) == before
    assert desk.payname_rows() == []


@pytest.mark.parametrize("home", [BOOKS_IN_ASCII, BOOKS])
def test_a_site_outside_ascii_is_published_kept_and_removed(user, home):
    desk.put_settings(BOOKS, "owner", user)
    with site_world.own_address("https://" + home), desk.running_program():
        assert desk.publish("alice") == f"Vaultry kept alice@{BOOKS_IN_ASCII}."
        assert desk.drive("text", desk.PREVIEW) == f"alice@{BOOKS}"
        assert key_of(BOOKS_IN_ASCII, "alice").json()["handle"] == f"alice@{BOOKS_IN_ASCII}"
        assert [row["paymail"] for row in desk.payname_rows()] == [f"alice@{BOOKS_IN_ASCII}"]

        assert desk.remove("alice") == f"Removed alice@{BOOKS}."
        assert key_of(BOOKS_IN_ASCII, "alice").status_code == 404
    assert not (desk.data_directory() / "payname/payname.json").exists()


def test_the_srv_record_of_a_site_outside_ascii_is_asked_for_in_ascii(user, zone):
    site_world.set_zone(*zone, f"_bsvalias._tcp.{BOOKS_IN_ASCII} SRV 10 0 443 pay.brasslet.test")
    desk.put_settings(BOOKS, "owner", user)
    with site_world.own_address("https://" + BOOKS_IN_ASCII), desk.running_program():
        assert desk.publish("alice") == f"Vaultry kept alice@{BOOKS_IN_ASCII}."
    assert any(line.startswith('pay.brasslet.test "GET /.well-known/bsvalias') for line in log())
