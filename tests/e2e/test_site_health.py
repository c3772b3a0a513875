"""Tools, Site Health in WordPress, as the owner of the site sees it: whether wallets can read the published names."""
import contextlib

import desk
import site_world
from browser import browser

HOST = "brasslet.test"
ANSWERED = f"Your site gave the right answers about alice@{HOST}."
CHOOSE_PERMALINKS = "Under Settings, Permalinks, choose a structure other than"
PERMALINKS_FIRST = "Your permalinks do not lead to WordPress."

PUBLISH = """
    brasslet_put_rows( array( array(
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


def test_the_owner_reads_in_site_health_whether_wallets_can_read_the_names(user):
    site_world.run_php(HOST, PUBLISH)
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
