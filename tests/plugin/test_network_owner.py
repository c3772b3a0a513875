"""What the owner of a network of sites is told: in folders of it, names cannot be paid."""

import contextlib

import pytest

from admin_pages import Admin, notices
from broadcaster import URL, listening
from conftest import fresh
from names import record
from owner_page import OwnerPage
from payments import ALLOW
from site_health import shown
from test_health import NAMES_BAD, NAMES_GOOD, NO_NAME_YET, RIGHT_ANSWERS
from test_notice import NO_HTTPS, PERMALINKS, PLAIN, SWITCHED_OFF, TITLE, WITHOUT_HTTPS, WITHOUT_PASSWORDS
from wordpress import Site, User

FOLDER = "This site is a folder of its network, but wallets ask at the root of the host: its names cannot be paid."
MAIN_SITE = "Publish names on the main site, or let the administrator of the network give this site its own domain."
FOLDER_SITES = ("Some sites are folders of this network, but wallets ask at the root of the host: "
                "their names cannot be paid.")
MAIN_SITE_OR_DOMAINS = "Publish names on the main site, or give those sites domains of their own under Sites."
UNDER_SITES = "Once it answers over https, let the administrator of the network change the address under Sites."
IN_THE_DATABASE = "Once it answers over https, ask your host to change the address of the main site in the database."

NETWORKS = {
    "folders.brasslet.test": "folders", "folders.brasslet.test/second": "folders",
    "net.brasslet.test": "domains", "two.net.brasslet.test": "domains",
}

OWNER = User("owner", "owner@brasslet.test", "owner")
PLUGIN = "require_once ABSPATH . 'wp-admin/includes/plugin.php'; $plugin = 'brasslet/brasslet.php';"

SWITCH = f"return array( brasslet_payments()['on'], brasslet_broadcaster_key( '{URL}' ) );"

# WordPress shows the plugins page to the administrators of single sites only if the network allows it.
PAGE_FOR_ALL = "add_filter( 'pre_site_option_menu_items', function () { return array( 'plugins' => 1 ); } );"


@pytest.fixture(scope="module")
def opened(plugin_file):
    found = {address: Site(network, address, plugin_file, surname=f"owner{number}")
             for number, (address, network) in enumerate(NETWORKS.items())}
    with fresh(*found.values()):
        yield found
    for site in found.values():
        site.close()


@pytest.fixture
def main(opened):
    with fresh(opened["folders.brasslet.test"]):
        yield opened["folders.brasslet.test"]


@pytest.fixture
def second(opened):
    """A site in a folder of the main one."""
    with fresh(opened["folders.brasslet.test/second"]):
        yield opened["folders.brasslet.test/second"]


@pytest.fixture(params=["net.brasslet.test", "two.net.brasslet.test"])
def apart(request, opened):
    """A site of a network in which each has a host."""
    with fresh(opened[request.param]):
        yield opened[request.param]


@contextlib.contextmanager
def network_wide(site):
    assert site.php(PLUGIN + "return activate_plugin( $plugin, '', true );") is None
    try:
        yield
    finally:
        site.php(PLUGIN + "deactivate_plugins( $plugin, false, true );")
        site.php(PLUGIN + "activate_plugin( $plugin );")


def link_to_site(site):
    number = site.php("return get_current_blog_id();")
    start = "https://" + site.php("return get_network()->domain;")
    return f"{start}/wp-admin/network/site-info.php?id={number}", "Open this site in the network"


def test_site_health_says_that_names_of_a_site_in_a_folder_cannot_be_paid(second):
    admin = Admin(second, OWNER)
    assert shown(admin.look()) == ("recommended", NAMES_BAD, f"{FOLDER} {MAIN_SITE}")
    second.set_record(record("alice"))
    assert shown(admin.look()) == ("critical", NAMES_BAD, f"{FOLDER} {MAIN_SITE}")


def test_a_site_in_a_folder_is_not_asked(second):
    second.set_record(record("alice"))
    assert second.php("""
        $asked = 0;
        $count = function () use ( &$asked ) { $asked++; return new WP_Error( 'none', 'none' ); };
        add_filter( 'pre_http_request', $count );
        brasslet_health_discovery();
        remove_filter( 'pre_http_request', $count );
        return $asked;
    """) == 0


def test_the_main_site_of_a_network_is_asked_like_any_other(main):
    admin = Admin(main, OWNER)
    assert shown(admin.look()) == ("good", NAMES_GOOD, NO_NAME_YET)
    assert notices(admin.plugins()) == []


def test_a_site_with_a_host_of_its_own_is_asked_like_any_other(apart):
    apart.set_record(record("alice"))
    admin = Admin(apart, OWNER)
    assert shown(admin.look()) == ("good", NAMES_GOOD, RIGHT_ANSWERS % f"alice@{apart.host}")
    assert notices(admin.plugins()) == []


def test_the_notice_of_a_site_in_a_folder_names_that_alone(second):
    second.hook(PLAIN % "" + WITHOUT_HTTPS + WITHOUT_PASSWORDS)
    page = Admin(second, OWNER).plugins()
    assert notices(page) == [[TITLE, (f"{FOLDER} {MAIN_SITE}", [link_to_site(second)])]]


def test_who_may_not_change_the_network_gets_no_link_to_it(second):
    second.hook(PAGE_FOR_ALL)
    page = Admin(second, second.admin).plugins()
    assert notices(page) == [[TITLE, (f"{FOLDER} {MAIN_SITE}", [])]]


def test_a_site_that_got_a_domain_of_its_own_is_none_in_a_folder(second):
    second.hook("add_filter( 'home_url', function ( $url, $path ) { return 'https://own.example' . $path; }, 10, 2 );")
    assert notices(Admin(second, OWNER).plugins()) == []


def test_the_main_site_of_a_network_in_a_folder_is_like_any_other(main):
    admin = Admin(main, OWNER)
    main.hook("""
        add_filter( 'home_url', function ( $url, $path ) { return 'https://folders.brasslet.test/blog' . $path; }, 10, 2 );
    """)
    assert notices(admin.plugins()) == []
    # As if the network lay in the folder of its second site.
    assert main.php("""
        $at = function ( $path ) {
            $move = function ( $network ) use ( $path ) {
                $network       = clone $network;
                $network->path = $path;
                return $network;
            };
            add_filter( 'get_network', $move );
            $found = brasslet_has_folder_sites();
            remove_filter( 'get_network', $move );
            return $found;
        };
        return array( $at( '/' ), $at( '/second/' ) );
    """) == [True, False]


def test_an_address_without_https_is_changed_in_the_network_or_by_the_host(apart):
    apart.hook(WITHOUT_HTTPS)
    is_main = apart.php("return is_main_site();")
    wanted = (f"{NO_HTTPS} {IN_THE_DATABASE}", []) if is_main else (f"{NO_HTTPS} {UNDER_SITES}", [link_to_site(apart)])
    assert notices(Admin(apart, OWNER).plugins()) == [[TITLE, wanted]]


def test_the_network_s_plugins_page_tells_of_sites_in_folders_until_there_are_none(main, second):
    admin = Admin(main, OWNER)
    sites = ("https://folders.brasslet.test/wp-admin/network/sites.php", "Open the sites")
    with network_wide(main):
        assert notices(admin.plugins_of_network()) == [[TITLE, (f"{FOLDER_SITES} {MAIN_SITE_OR_DOMAINS}", [sites])]]
        assert notices(admin.plugins()) == []
        for state in ("archived", "deleted", "spam"):
            change = f"update_blog_status( get_current_blog_id(), '{state}', $v );"
            second.php(change, 1)
            assert notices(admin.plugins_of_network()) == []
            second.php(change, 0)


def test_the_network_s_plugins_page_tells_what_is_wrong_with_the_main_site(main):
    main.hook(PLAIN % "" + WITHOUT_PASSWORDS)
    with network_wide(main):
        (notice,) = notices(Admin(main, OWNER).plugins_of_network())
    assert [text for text, _ in notice[1:]] == [PERMALINKS, SWITCHED_OFF, f"{FOLDER_SITES} {MAIN_SITE_OR_DOMAINS}"]


def test_the_network_s_plugins_page_is_silent_where_every_site_has_a_host(apart):
    with network_wide(apart):
        assert notices(Admin(apart, OWNER, "https://net.brasslet.test").plugins_of_network()) == []


def test_the_network_s_plugins_page_is_silent_while_only_single_sites_have_the_plugin(main):
    main.hook(PLAIN % "")
    admin = Admin(main, OWNER)
    assert notices(admin.plugins_of_network()) == []
    assert len(notices(admin.plugins())) == 1


def test_the_page_of_a_site_has_its_own_names_and_its_own_switch(opened, apart):
    others = [site for site in (opened["net.brasslet.test"], opened["two.net.brasslet.test"]) if site is not apart]
    with fresh(*others):
        others[0].set_record(record("bob"))
        apart.set_record(record("alice"))
        page = OwnerPage(apart, OWNER)
        assert [cells[1] for cells in page.read().names()] == [f"alice@{apart.host}"]
        assert page.check("alice").checked()[0] == "success"
        with listening():
            apart.hook(ALLOW)
            assert page.save(on="1", broadcaster=URL, key="a-key").said() == [("success", "Saved.")]
        assert (apart.php(SWITCH), others[0].php(SWITCH)) == ([True, "a-key"], [False, ""])
        of_network = "https://net.brasslet.test/wp-admin/network/settings.php?page=brasslet"
        assert page.http.get(of_network, timeout=60).status_code == 403


def test_the_page_of_a_site_in_a_folder_says_that_its_names_cannot_be_paid(second):
    second.set_record(record("alice"))
    page = OwnerPage(second, OWNER)
    assert notices(page.read().page)[0][1][0] == f"{FOLDER} {MAIN_SITE}"
    assert page.check("alice").checked() == ("error", [f"Wallets cannot pay alice@{second.host}.", f"{FOLDER} {MAIN_SITE}"])
