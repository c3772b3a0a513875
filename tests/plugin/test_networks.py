"""Networks of sites (multisite): every site has names of its own, and wallets find those whose host leads to it."""

from dataclasses import dataclass

import pytest

from conftest import fresh
from names import (NO_ADMINISTRATOR, NO_PAYMAIL, OTHER_ADDRESS, OTHER_PUBKEY, OTHER_SCRIPT, PUBKEY, WRONG_PASSWORD,
                   record, row)
from test_clients import ask
from test_discovery import PATH, document, is_document
from wordpress import Site

NETWORKS = {
    "domains": ["net.brasslet.test", "two.net.brasslet.test"],
    "folders": ["folders.brasslet.test", "folders.brasslet.test/second"],
}

PASSWORD_OF = """
    $user = get_user_by( 'login', $v );
    return WP_Application_Passwords::create_new_application_password( $user->ID, array( 'name' => 'networks' ) )[0];
"""
PLUGIN = "require_once ABSPATH . 'wp-admin/includes/plugin.php'; $plugin = 'brasslet/brasslet.php';"
DEACTIVATE = PLUGIN + "deactivate_plugins( $plugin );"
ACTIVATE_NETWORK_WIDE = PLUGIN + "return activate_plugin( $plugin, '', true );"
DEACTIVATE_NETWORK_WIDE = PLUGIN + "deactivate_plugins( $plugin, false, true );"


@dataclass
class Network:
    first: Site
    second: Site
    super_admin: dict  # the login members

    @property
    def both(self):
        return [self.first, self.second]


@pytest.fixture(scope="module")
def networks(plugin_file):
    opened = {name: [Site(name, address, plugin_file, surname=f"{number}")
                     for number, address in enumerate(addresses)] for name, addresses in NETWORKS.items()}
    yield {name: Network(*sites, {"login_user": "owner", "login_pass": sites[0].php(PASSWORD_OF, "owner")})
           for name, sites in opened.items()}
    for sites in opened.values():
        for site in sites:
            site.close()


@pytest.fixture(params=NETWORKS)
def network(request, networks):
    with fresh(*networks[request.param].both):
        yield networks[request.param]


def other_alice():
    return {"alias": "alice", "pubkey": OTHER_PUBKEY, "address": OTHER_ADDRESS}


def keys(*sites):
    return [site.get("/id/alice").json().get("pubkey") for site in sites]


def test_two_sites_publish_the_same_name_with_a_key_of_their_own(network):
    assert network.first.publish(alias="alice").status_code == 200
    assert network.second.publish(**other_alice()).status_code == 200
    assert network.first.record() == record("alice")
    assert network.second.record() == {"rows": [row(**other_alice())]}
    assert keys(*network.both) == [PUBKEY, OTHER_PUBKEY]
    assert [site.get("/address/alice").json()["address"] for site in network.both] == [row("x")["address"], OTHER_ADDRESS]


def test_no_site_lists_answers_or_removes_the_names_of_another(network):
    network.first.set_record(record("alice", "bob"))
    network.second.set_record(record("carol"))
    assert [site.get("/status").json()["alias"] for site in network.both] == ["alice bob", "carol"]
    assert network.second.get("/id/alice").text == NO_PAYMAIL
    assert network.second.remove("alice").json()["aliases"] == ["carol"]
    assert network.first.record() == record("alice", "bob")
    assert network.first.remove("alice").json()["aliases"] == ["bob"]


def test_every_reply_names_the_host_of_its_site(network):
    for site in network.both:
        published = site.publish(alias="alice").json()
        assert (published["paymail"], published["host"]) == (f"alice@{site.host}", site.host)
        assert site.get("/status").json()["host"] == site.host
        assert site.get("/id/alice").json()["handle"] == f"alice@{site.host}"


@pytest.mark.parametrize("network", ["domains"], indirect=True)
def test_every_site_with_a_host_of_its_own_answers_a_document_of_its_own(network):
    for site in network.both:
        assert site.request("GET", PATH).text == document(f"https://{site.host}")


@pytest.mark.parametrize("network", ["domains"], indirect=True)
def test_a_wallet_finds_the_name_of_the_host_that_it_was_given(network):
    network.first.publish(alias="alice")
    network.second.publish(**other_alice())
    found = ask("bsv_paymail", f"alice@{network.second.host}")
    assert (found["handle"], found["pubkey"], found["output"]) == (
        f"alice@{network.second.host}", OTHER_PUBKEY, OTHER_SCRIPT)


@pytest.mark.parametrize("network", ["folders"], indirect=True)
def test_the_document_of_a_host_is_the_one_of_the_site_at_its_root(network):
    assert network.first.request("GET", PATH).text == document(f"https://{network.first.host}")
    in_the_folder = network.second.request("GET", network.second.path + PATH)
    assert (in_the_folder.status_code, is_document(in_the_folder)) == (404, False)


@pytest.mark.parametrize("network", ["folders"], indirect=True)
def test_a_wallet_asks_the_site_at_the_root_also_for_a_name_of_a_site_in_a_folder(network):
    paymail = network.second.publish(**other_alice()).json()["paymail"]
    assert network.second.get("/id/alice").json()["handle"] == paymail
    assert ask("bsv_paymail", paymail) == {"error": NO_PAYMAIL}
    network.first.publish(alias="alice")
    assert ask("bsv_paymail", paymail)["pubkey"] == PUBKEY


def test_an_administrator_of_one_site_is_none_of_another(network):
    for own, other in [network.both, network.both[::-1]]:
        other.set_record(record("alice"))
        for reply in (other.publish(**other_alice(), **own.login_members()),
                      other.send("DELETE", {"alias": "alice", **own.login_members()})):
            assert (reply.status_code, reply.text) == (403, NO_ADMINISTRATOR)
        assert other.record() == record("alice")


def test_an_administrator_of_another_site_with_a_wrong_password_learns_only_that(network):
    login = {"login_user": network.first.admin.login, "login_pass": "wrong"}
    assert network.second.publish(**login).text == WRONG_PASSWORD


def test_an_administrator_of_two_sites_needs_one_password(network):
    member = "add_user_to_blog( get_current_blog_id(), $v, 'administrator' );"
    guest = "remove_user_from_blog( $v, get_current_blog_id() );"
    network.second.php(member, network.first.admin.id)
    try:
        for site in network.both:
            assert site.publish(**network.first.login_members()).status_code == 200
    finally:
        network.second.php(guest, network.first.admin.id)


def test_an_editor_of_every_site_is_no_administrator_of_any(network):
    for site in network.both:
        login = {"login_user": site.editor.login, "login_pass": site.editor.password}
        assert site.publish(**login).text == NO_ADMINISTRATOR


def test_the_super_admin_publishes_and_removes_on_every_site(network):
    for site in network.both:
        assert site.publish(**other_alice(), **network.super_admin).json()["aliases"] == ["alice"]
        assert site.send("DELETE", {"alias": "alice", **network.super_admin}).json()["aliases"] == []


def test_the_super_admin_needs_no_role_on_the_site(network):
    """As WordPress has it: a super admin may do everything everywhere."""
    leave = "remove_user_from_blog( get_user_by( 'login', 'owner' )->ID, get_current_blog_id() );"
    back = "add_user_to_blog( get_current_blog_id(), get_user_by( 'login', 'owner' )->ID, 'administrator' );"
    network.second.php(leave)
    try:
        assert network.second.publish(**network.super_admin).status_code == 200
    finally:
        network.second.php(back)


def test_a_login_in_the_headers_is_bridged_on_every_site(network):
    for site in network.both:
        headers = {"X-Brasslet-Auth": site.login_headers()["X-Brasslet-Auth"]}
        me = site.request("GET", site.path + "/wp-json/wp/v2/users/me", headers=headers)
        assert me.json()["id"] == site.admin.id


def test_a_plugin_of_one_site_leaves_the_other_alone(network):
    network.first.set_record(record("alice"))
    network.second.set_record(record("bob"))
    network.second.php(DEACTIVATE)
    try:
        assert network.second.get("/status").json()["code"] == "rest_no_route"
        assert network.second.record() == record("bob")
        assert network.first.get("/status").json()["alias"] == "alice"
    finally:
        network.second.install(network.second.plugin)
    assert network.second.get("/status").json()["alias"] == "bob"


@pytest.fixture
def network_wide(network):
    """A network that has the plugin for all its sites at once."""
    for site in network.both:
        site.php(DEACTIVATE)
    assert network.first.php(ACTIVATE_NETWORK_WIDE) is None
    yield network
    network.first.php(DEACTIVATE_NETWORK_WIDE)
    for site in network.both:
        site.install(site.plugin)


def test_a_plugin_for_the_whole_network_keeps_the_names_of_each_site_apart(network_wide):
    network_wide.first.publish(alias="alice")
    network_wide.second.publish(**other_alice())
    assert keys(*network_wide.both) == [PUBKEY, OTHER_PUBKEY]
    assert network_wide.first.remove("alice").json()["aliases"] == []
    assert keys(*network_wide.both) == [None, OTHER_PUBKEY]


def test_a_site_that_joins_a_network_with_the_plugin_has_it_too_and_no_names(network_wide):
    first = network_wide.first
    first.set_record(record("alice"))
    host, path = ("three." + first.host, "/") if network_wide.second.path == "" else (first.host, "/three/")
    site = first.php("""
        return wp_insert_site( array( 'domain' => $v[0], 'path' => $v[1], 'title' => 'Third', 'user_id' => 1 ) );
    """, [host, path])
    try:
        status = first.request("GET", path + "wp-json/brasslet/v1/status", host=host).json()
        assert (status["host"], status["alias"], status["set"]) == (host, "", False)
        published = first.request("POST", path + "wp-json/brasslet/v1/name", host=host,
                                  json=first.name_members(**network_wide.super_admin)).json()
        assert published["paymail"] == f"alice@{host}"
    finally:
        first.php("wp_delete_site( (int) $v );", site)


def health(site, login):
    return site.get("/health", auth=(login["login_user"], login["login_pass"]))


def test_site_health_is_for_the_super_admin_as_wordpress_has_it(network):
    for site in network.both:
        assert health(site, site.login_members()).json()["code"] == "rest_forbidden"
        assert health(site, network.super_admin).json()["test"] == "brasslet_discovery"


def test_site_health_asks_a_site_with_a_host_of_its_own_for_its_own_names(network):
    network.first.set_record(record("alice"))
    network.second.set_record({"rows": [row(**other_alice())]})
    for site in network.both:
        if site.path == "":
            found = health(site, network.super_admin).json()
            assert (found["status"], f"alice@{site.host}" in found["description"]) == ("good", True)
