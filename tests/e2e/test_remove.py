"""Removing a name, through the window and from a real WordPress."""
import pytest

import desk
import site_world

HOST = "brasslet.test"
REMOVED = f"Removed alice@{HOST}."
INSTALL = "Press Install plugin and upload the zip over the one on the site."


def resolves(alias: str) -> bool:
    return site_world.get(site_world.capabilities(HOST)["pki"].replace("{alias}", alias)).status_code == 200


@pytest.fixture
def published(user):
    with desk.running_program():
        desk.publish("bob")
        desk.publish("alice")
    assert resolves("alice") and resolves("bob")
    return user


def test_a_removed_name_resolves_no_more_and_the_others_do(published, tmp_path):
    with desk.wallet_application(tmp_path) as notices, desk.running_program():
        assert desk.remove("Alice") == REMOVED
        assert desk.drive("text", desk.NOTE) == f"Vaultry kept bob@{HOST}"
        assert notices.wait_for(1)
    assert not resolves("alice") and resolves("bob")
    assert [row["paymail"] for row in desk.payname_rows()] == [f"bob@{HOST}"]


def test_the_last_name_leaves_no_file(published):
    with desk.running_program():
        desk.remove("bob")
        assert desk.remove("alice") == REMOVED
        assert desk.drive("text", desk.NOTE) == ""
    assert not (desk.data_directory() / "payname/payname.json").exists()


def test_a_removed_name_can_be_published_again(published):
    with desk.running_program():
        desk.remove("alice")
        assert desk.publish("alice").startswith(f"Vaultry kept alice@{HOST}.")
    assert resolves("alice")


def test_a_name_that_the_site_never_had_is_removed(published):
    with desk.running_program():
        assert desk.remove("carol") == f"Removed carol@{HOST}."
    assert resolves("alice") and resolves("bob")


def test_no_wallet_is_needed(published):
    with desk.running_program():
        desk.drive("press", desk.UNBIND)
        assert desk.drive("text", desk.PAYMENT_ADDRESS) == "Connect Vaultry"
        assert desk.remove("alice") == REMOVED
    assert not resolves("alice")


@pytest.mark.parametrize(
    ("settings", "name", "sentence"),
    [
        ({}, "", "Type the name to remove."),
        ({}, "two words", "Type the name to remove."),
        ({}, "x" * 65, "Type the name to remove."),
        ({"site": "http://brasslet.test"}, "alice", "Add the site login in settings."),
        ({"site": ""}, "alice", "Add the site login in settings."),
        ({"user": ""}, "alice", "Add the site login in settings."),
        ({"password": ""}, "alice", "Add the site login in settings."),
        ({"site": "dead.brasslet.test"}, "alice", INSTALL),
        ({"site": "intranet"}, "alice", INSTALL),
        ({"password": "abcd efgh ijkl mnop"}, "alice", "WordPress refused that application password."),
        ({"user": "nobody"}, "alice", "WordPress does not know that user. Use the username from the profile page."),
    ],
)
def test_a_wrong_turn_ends_in_its_sentence_and_nothing_is_lost(published, settings, name, sentence):
    desk.put_settings(**{"site": HOST, "user": "owner", "password": published, **settings})
    before = desk.payname_rows()
    with desk.running_program():
        assert desk.remove(name) == sentence
    assert resolves("alice") and resolves("bob")
    assert desk.payname_rows() == before


def test_an_editor_is_refused(published):
    desk.put_settings(HOST, "editor", site_world.app_password(HOST, "editor"))
    with desk.running_program():
        assert desk.remove("alice") == "That user is not an Administrator."
    assert resolves("alice")


def test_without_the_plugin_the_button_asks_for_it(published):
    with site_world.without_plugin(HOST, desk.EXE), desk.running_program():
        assert desk.remove("alice") == INSTALL
    assert resolves("alice")


def test_a_plugin_that_goes_in_between_is_missed(published):
    gone = "add_filter( 'rest_endpoints', function ( $e ) { unset( $e['/brasslet/v1/name'] ); return $e; } );"
    with site_world.troubled_by(gone), desk.running_program():
        assert desk.remove("alice") == "Install the plugin first."
    assert resolves("alice")


def test_a_site_in_trouble_keeps_the_name(published):
    trouble = """add_filter( 'rest_pre_dispatch', function ( $result, $server, $request ) {
        return 'DELETE' === $request->get_method()
            ? new WP_Error( 'db', 'The database is gone.', array( 'status' => 500 ) ) : $result;
    }, 10, 3 );"""
    with site_world.troubled_by(trouble), desk.running_program():
        assert desk.remove("alice") == "The site kept the name."
    assert resolves("alice")
    assert len(desk.payname_rows()) == 2
