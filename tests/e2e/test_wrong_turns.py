"""Where a user's road goes wrong beyond a mistyped field: what the program says, that nothing is lost, and that the road
goes on from there."""
import contextlib
import os
import pathlib
import subprocess

import pytest

import desk
import site_world

HOST = "brasslet.test"
KEPT = f"Vaultry kept alice@{HOST}."
REMOVED = f"Removed alice@{HOST}."
INSTALL = "Press Install plugin and upload the zip over the one on the site."
CONNECT_FIRST = "Connect a Vaultry wallet first."
WORLD = pathlib.Path(os.environ["WORLD_DIR"])


def resolves(alias: str) -> bool:
    return site_world.get(site_world.capabilities(HOST)["pki"].replace("{alias}", alias)).status_code == 200


@contextlib.contextmanager
def network_gone():
    def link(state):
        subprocess.run(["ip", "link", "set", "lo", state], check=True, timeout=30)

    link("down")
    try:
        yield
    finally:
        link("up")


@contextlib.contextmanager
def network_gone_at(hook: str, condition: str):
    """From the moment in which the site runs the hook, under the condition, no packet arrives anywhere any more."""
    reached, gone = WORLD / "reached", WORLD / "gone"
    held = f"""add_filter( '{hook}', function ( $passed, $server = null, $request = null ) {{
        if ( {condition} ) {{
            touch( '{reached}' );
            while ( ! file_exists( '{gone}' ) ) {{ usleep( 10000 ); clearstatcache(); }}
        }}
        return $passed;
    }}, 1, 3 );"""
    with site_world.troubled_by(held):
        yield reached, gone
    for path in (reached, gone):
        path.unlink(missing_ok=True)


def publish_while_the_network_goes(hook: str, condition: str) -> str:
    with network_gone_at(hook, condition) as (reached, gone):
        desk.drive("type", desk.NAME, "alice")
        desk.drive("press", desk.PUBLISH)
        assert desk.wait_until(reached.exists)
        with network_gone():
            gone.touch()
            desk.drive("wait-idle", 90)
            return desk.drive("text", desk.STATUS)


@pytest.mark.parametrize(("button", "sentence"), [(desk.PUBLISH, KEPT), (desk.REMOVE, REMOVED)])
def test_the_network_goes_while_the_site_takes_the_name(user, button, sentence):
    with desk.running_program():
        taken = "$request && 'POST' === $request->get_method() && '/brasslet/v1/name' === $request->get_route()"
        assert publish_while_the_network_goes("rest_post_dispatch", taken) == "The site did not answer."
        assert desk.payname_rows() == []
        assert resolves("alice")  # the site has it, this PC does not know
        assert desk.press(button) == sentence
    assert resolves("alice") == (button == desk.PUBLISH)


@pytest.mark.parametrize(("button", "sentence"), [(desk.PUBLISH, KEPT), (desk.REMOVE, REMOVED)])
def test_the_network_goes_before_the_name_is_verified(user, button, sentence):
    with desk.running_program():
        asked = "strpos( $_SERVER['REQUEST_URI'], '/.well-known/bsvalias' ) === 0"
        assert publish_while_the_network_goes("pre_option_home", asked) == "The site did not answer the paymail address."
        assert desk.payname_rows() == []
        assert desk.press(button) == sentence
    assert resolves("alice") == (button == desk.PUBLISH)


def test_an_address_with_a_path_where_no_wordpress_is(user):
    desk.put_settings(f"https://{HOST}/blog", "owner", user)
    with desk.running_program():
        assert desk.publish("alice") == INSTALL
    desk.put_settings(HOST, "owner", user)
    with desk.running_program():
        assert desk.publish("alice") == KEPT


def test_an_e_mail_address_is_as_good_as_the_user_name(user):
    desk.put_settings(HOST, "owner@brasslet.test", user)
    with desk.running_program():
        assert desk.publish("alice") == KEPT
    desk.put_settings(HOST, "nobody@brasslet.test", user)
    with desk.running_program():
        assert desk.publish("alice") == "WordPress does not know that user. Use the username from the profile page."
        assert desk.drive("text", desk.NOTE) == f"Vaultry kept alice@{HOST}"


def test_the_plugin_is_deactivated(user):
    with desk.running_program():
        desk.publish("alice")
        with site_world.without_plugin(HOST, desk.EXE):
            assert desk.publish("bob") == INSTALL
            assert desk.drive("text", desk.NOTE) == f"Vaultry kept alice@{HOST}"
        assert desk.publish("bob") == f"Vaultry kept bob@{HOST}. Still on the site: alice@{HOST}."
    assert resolves("alice") and resolves("bob")


def test_pretty_permalinks_are_off(user):
    def set_permalinks(structure):
        site_world.run_php(HOST, f"""global $wp_rewrite;
            $wp_rewrite->set_permalink_structure('{structure}'); $wp_rewrite->flush_rules();""")

    with desk.running_program():
        desk.publish("alice")
        set_permalinks("")
        try:
            assert desk.publish("bob") == INSTALL
            assert desk.remove("alice") == INSTALL
        finally:
            set_permalinks("/%postname%/")
        assert desk.drive("text", desk.NOTE) == f"Vaultry kept alice@{HOST}"
        assert desk.remove("alice") == REMOVED


def test_the_wallet_is_locked_between_two_presses(user):
    seal = desk.put_wallet().with_name("wallet.json.seal")
    with desk.running_program():
        assert desk.publish("alice") == KEPT
        seal.write_text("")
        assert desk.publish("bob") == CONNECT_FIRST
        assert desk.drive("text", desk.PAYMENT_ADDRESS) == "Connect Vaultry"
        seal.unlink()
        assert desk.publish("bob").startswith(f"Vaultry kept bob@{HOST}.")
        assert desk.drive("text", desk.NOTE) == f"Vaultry kept alice@{HOST}, bob@{HOST}"


def test_vaultry_is_closed(user, tmp_path):
    """Publishing does without it; connecting waits for it, and says so in the end."""
    with desk.wallet_application(tmp_path) as notices:
        desk.drive("close-vaultry")
        assert notices.count() == 0
    with desk.running_program():
        assert desk.publish("alice") == KEPT
        desk.drive("press", desk.UNBIND)
        desk.drive("press", desk.CONNECT)
        desk.drive("wait-idle", 120)
        assert desk.drive("text", desk.STATUS) == (
            "error: Vaultry did not approve in time. Open Vaultry.exe and try Connect again."
        )
    with desk.running_program():
        assert desk.drive("text", desk.NOTE) == f"Vaultry kept alice@{HOST}"
