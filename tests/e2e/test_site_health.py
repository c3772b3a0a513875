"""What WordPress shows the owner of the site: the notice after activation, and whether wallets can read the names."""
import contextlib

import pytest

import desk
import site_world
from browser import browser

HOST = "brasslet.test"
ANSWERED = f"Your site gave the right answers about alice@{HOST}."
CHOOSE_PERMALINKS = "Under Settings, Permalinks, choose a structure other than"
PERMALINKS_FIRST = "Your permalinks do not lead to WordPress."
NOTICE = "Brasslet: payment names cannot be published or paid as things stand."
NOT_CHECKED = "Your server cannot check whether wallets can read your payment names"
LOOK_YOURSELF = 'Open the link below in a browser: if it shows "bsvalias", wallets see that too.'

PUBLISH = """
    brasslet_change( fn() => array( array(
        'alias'   => 'alice',
        'pubkey'  => '0279be667ef9dcbbac55a06295ce870b07029bfcdb2dce28d959f2815b16f81798',
        'address' => '1BgGZ9tcN4rm9KBzDn7KprQz87SZ26SAMH',
    ) ) );"""


@contextlib.contextmanager
def plain_permalinks():
    site_world.run_php(HOST, "$GLOBALS['wp_rewrite']->set_permalink_structure('');")
    try:
        yield
    finally:
        site_world.run_php(HOST, "$GLOBALS['wp_rewrite']->set_permalink_structure('/%postname%/');")


@pytest.fixture
def site(plugin):
    """With one name."""
    site_world.forget_names(HOST)
    site_world.run_php(HOST, PUBLISH)


def test_the_notice_after_activation_leads_to_the_permalinks_and_is_gone_once_they_are_chosen(site):
    with browser() as page, plain_permalinks():
        page.log_in(f"https://{HOST}", "owner", "owner")
        page.activate_plugin_again(f"https://{HOST}", "brasslet")
        page.wait_for_text(NOTICE)
        page.wait_for_text(PERMALINKS_FIRST)
        page.picture_of_page(desk.PICTURES / "notice.png")
        page.follow_link("Open the permalink settings")
        page.choose_pretty_permalinks()
        page.open(f"https://{HOST}/wp-admin/plugins.php")
        page.wait_for_text("Vaultry holds the keys.")
        assert not page.shows(NOTICE)


def test_a_server_that_is_too_busy_to_ask_itself_says_so_and_shows_where_to_look(site):
    host = "oneworker.brasslet.test"
    with browser() as page:
        page.log_in(f"https://{host}", "owner", "owner")
        page.open_site_health(f"https://{host}", "brasslet_discovery")
        page.wait_for_text(NOT_CHECKED)
        page.wait_for_text(LOOK_YOURSELF)
        page.picture_of_page(desk.PICTURES / "site-health-busy.png")
        page.follow_link("Open what wallets ask for first")
        page.wait_for_text('"bsvalias":"1.0"')


def test_the_owner_reads_in_site_health_whether_wallets_can_read_the_names(site):
    with browser() as page:
        page.log_in(f"https://{HOST}", "owner", "owner")
        page.open_site_health(f"https://{HOST}", "brasslet_permalinks", "brasslet_discovery")
        page.wait_for_text(ANSWERED)
        page.picture_of_page(desk.PICTURES / "site-health-good.png")
        with plain_permalinks():
            page.open_site_health(f"https://{HOST}", "brasslet_permalinks", "brasslet_discovery")
            page.wait_for_text(CHOOSE_PERMALINKS)
            page.wait_for_text(PERMALINKS_FIRST)
            page.picture_of_page(desk.PICTURES / "site-health-plain.png")
