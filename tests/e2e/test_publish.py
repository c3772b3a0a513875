"""Publishing a name, the whole road: the real program in its real window, a real WordPress, real DNS and TLS."""
import base64
import json
import os
import pathlib
import subprocess

import pytest

import desk
import site_world

KEPT = "Vaultry kept alice@brasslet.test."


def served(host, alias):
    """What a paying client gets for the name: the identity key and the payment address."""
    urls = site_world.capabilities(host)
    key = site_world.get(urls["pki"].replace("{alias}", alias)).json()["pubkey"]
    address = site_world.get(urls["paymentDestination"].replace("{alias}", alias)).json()["address"]
    return key, address


def assert_kept(paymail="alice@brasslet.test"):
    rows = [row for row in desk.payname_rows() if row["paymail"] == paymail]
    assert len(rows) == 1
    alias, host = paymail.split("@")
    assert served(host, alias) == (rows[0]["pubkey"], rows[0]["address"])


def test_a_name_is_published_and_kept(user):
    with desk.running_program():
        assert desk.publish("Alice") == KEPT
        assert desk.drive("text", desk.NOTE) == "Vaultry kept alice@brasslet.test"
        assert desk.drive("text", desk.PREVIEW) == "alice@brasslet.test"
    assert_kept()
    assert json.loads((desk.data_directory() / "payname/ui.json").read_text())["alias"] == "Alice"


def test_a_name_resolves_through_an_srv_record(user, zone):
    site_world.set_zone(*zone, "_bsvalias._tcp.brasslet.test SRV 10 0 443 pay.brasslet.test")
    with desk.running_program():
        assert desk.publish("alice") == KEPT
    assert_kept()
    assert any("GET /.well-known/bsvalias" in line and "pay.brasslet.test" in line for line in access_log())


def test_a_dead_srv_target_is_tried_once_more_on_the_domain(user, zone):
    site_world.set_zone(*zone, "_bsvalias._tcp.brasslet.test SRV 10 0 443 dead.brasslet.test")
    with desk.running_program():
        assert desk.publish("alice") == KEPT
    assert_kept()


def test_a_name_under_the_house_domain_stays_in_the_wallet_application(user):
    with site_world.own_address("https://corvane.example"), desk.running_program():
        assert desk.publish("alice") == "The house paymail stays on Vaultry."
    assert desk.payname_rows() == []
    assert not any("/.well-known/bsvalias" in line for line in access_log())


def test_a_name_that_is_kept_already_keeps_its_one_row(user):
    with desk.running_program():
        assert desk.publish("alice") == KEPT
        assert desk.publish("alice") == KEPT
    assert_kept()
    assert len(desk.payname_rows()) == 1


def test_other_names_stay_and_are_told(user):
    with desk.running_program():
        desk.publish("bob")
        assert desk.publish("alice") == KEPT + " Still on the site: bob@brasslet.test."
        assert desk.drive("text", desk.NOTE) == "Vaultry kept bob@brasslet.test, alice@brasslet.test"
    assert_kept()
    assert_kept("bob@brasslet.test")


def test_a_newer_wordpress_takes_the_name_too(user):
    password = site_world.app_password("newer.brasslet.test")
    desk.put_settings("newer.brasslet.test", "owner", password)
    with desk.running_program():
        assert desk.publish("alice") == "Vaultry kept alice@newer.brasslet.test."
    assert_kept("alice@newer.brasslet.test")


def test_an_address_that_the_site_has_changed_is_put_right_without_a_word(user):
    with desk.running_program():
        desk.publish("alice")
        site_world.run_php("brasslet.test", """
            $record = get_option('brasslet_record');
            $record['rows'][0]['address'] = '1BoatSLRHtKNngkdXEeobR76b53LETtpyT';
            update_option('brasslet_record', $record);""")
        assert served("brasslet.test", "alice")[1] == "1BoatSLRHtKNngkdXEeobR76b53LETtpyT"
        assert desk.publish("alice") == KEPT
    assert_kept()


def test_the_house_paymail_is_shown_and_sent(user):
    desk.put_wallet(paymail="Sofia@elsewhere.example")
    with desk.running_program():
        assert desk.drive("text", desk.HOUSE_PAYMAIL) == "Sofia@corvane.example"
        assert desk.publish("alice") == KEPT
    assert site_world.run_php("brasslet.test", "echo get_option('brasslet_record')['rows'][0]['house'];") == (
        "sofia@corvane.example"
    )


def test_a_host_that_strips_the_login_header_takes_the_name_too(user):
    desk.put_settings("strip.brasslet.test", "owner", user)
    with desk.running_program():
        assert desk.publish("alice").startswith("Vaultry kept alice@")


def test_the_wallet_application_is_told(user, tmp_path):
    with desk.wallet_application(tmp_path) as notices, desk.running_program():
        assert desk.publish("alice") == KEPT
        assert notices.wait_for(1)


def test_a_published_name_is_there_after_a_new_start(user):
    with desk.running_program():
        desk.publish("alice")
    with desk.running_program():
        assert desk.drive("text", desk.NOTE) == "Vaultry kept alice@brasslet.test"
        assert desk.drive("text", desk.NAME) == "alice"


@pytest.mark.parametrize(
    ("settings", "name", "sentence"),
    [
        ({}, "two words", "Type the name. Letters, numbers, and . _ + -"),
        ({}, "x" * 65, "Type the name. Letters, numbers, and . _ + -"),
        ({"site": "http://brasslet.test"}, "alice", "Add the site in settings. It needs https."),
        ({"site": "intranet"}, "alice", "Add the site in settings. It needs https."),
        ({"user": ""}, "alice", "Add the WordPress user and application password in settings."),
        ({"password": ""}, "alice", "Add the WordPress user and application password in settings."),
        ({"password": "abcd efgh ijkl mnop"}, "alice", "WordPress refused that application password."),
        ({"user": "nobody"}, "alice", "WordPress does not know that user. Use the username from the profile page."),
        ({"site": "dead.brasslet.test"}, "alice", "Press Install plugin and upload the zip over the one on the site."),
    ],
)
def test_a_wrong_turn_ends_in_its_sentence(user, settings, name, sentence):
    desk.put_settings(**{"site": "brasslet.test", "user": "owner", "password": user, **settings})
    with desk.running_program():
        assert desk.publish(name) == sentence
    assert desk.payname_rows() == []


def test_an_editor_is_refused(user):
    password = site_world.app_password("brasslet.test", "editor")
    desk.put_settings("brasslet.test", "editor", password)
    with desk.running_program():
        assert desk.publish("alice") == "That user is not an Administrator."


def test_without_a_wallet_nothing_is_sent(user):
    (desk.data_directory() / "wallets.json").unlink()
    with desk.running_program():
        assert desk.publish("alice") == "Connect a Vaultry wallet first."
        assert desk.drive("text", desk.PAYMENT_ADDRESS) == "Connect Vaultry"
    assert not any("/wp-json/brasslet/v1/name" in line for line in access_log())


def test_the_password_stands_nowhere_on_the_disk(user):
    with desk.running_program():
        desk.publish("alice")
    password = user.replace(" ", "")
    login = base64.b64encode(f"owner:{password}".encode())
    secrets = [user.encode(), password.encode(), password.encode("utf-16-le"), base64.b64encode(password.encode()), login]
    files = [path for path in desk.data_directory().rglob("*") if path.is_file()]
    logs = [path for path in (pathlib.Path(os.environ["WORLD_DIR"]) / "logs").iterdir() if path.is_file()]
    assert len(files) >= 4 and len(logs) >= 4
    for path in files + logs:
        assert not any(secret in path.read_bytes() for secret in secrets), path


def access_log():
    return (pathlib.Path(os.environ["WORLD_DIR"]) / "logs/access.log").read_text(encoding="utf-8").splitlines()


@pytest.fixture(autouse=True)
def fresh_access_log():
    (pathlib.Path(os.environ["WORLD_DIR"]) / "logs/access.log").write_text("")


def test_a_second_start_brings_the_first_window_forward(user):
    with desk.running_program():
        desk.drive("minimise")
        assert desk.is_true("is-minimised")
        second = desk.start_program()
        assert second.wait(timeout=60) == 0
        assert not desk.is_true("is-minimised")
