"""The page of the site's owner lists the published names, and shows what wallets see of each."""

import re

import pytest

from admin_pages import Admin, notices
from broadcaster import listening
from names import ADDRESS, HOUSE, OTHER_ADDRESS, OTHER_PUBKEY, PUBKEY, SCRIPT, record, row
from owner_page import PATH, OwnerPage
from payments import switch_on
from site_health import answer, own_document
from wordpress import WORLD_DIR

CANNOT_PAY, CANNOT_CHECK = "Wallets cannot pay %s.", "Your server cannot check %s."
MARKUP = "<script>alert(1)</script>'\" & x"


@pytest.fixture
def page(site):
    return OwnerPage(site, site.admin)


def shown(site, alias, address=ADDRESS, house=""):
    paymail = f"{alias}@{site.host}"
    return [alias, paymail, f"{address} [Copy the address of {paymail}]", house, f"[Check {paymail}]"]


def test_the_names_are_listed_with_all_that_is_published_of_them(site, page):
    site.set_record({"rows": [row("bob", OTHER_PUBKEY, OTHER_ADDRESS), row("alice", house=HOUSE)]})
    assert page.read().names() == [shown(site, "alice", house=HOUSE), shown(site, "bob", OTHER_ADDRESS)]
    assert page.total() == 2


def test_without_names_the_page_says_so(site, page):
    assert page.read().names() == [["No name is published yet."]]
    assert "Names are published and removed with the Brasslet program on your PC." in page.page
    assert page.read("&s=alice").names() == [["No name holds that."]]


def test_a_page_of_the_list_has_20_names_in_alphabetical_order(site, page):
    site.set_record(record(*(f"name{number}" for number in reversed(range(45)))))
    pages = [[cells[0] for cells in page.read(f"&paged={number}").names()] for number in (1, 2, 3)]
    assert pages == [[f"name{number}" for number in range(*ends)] for ends in ((0, 20), (20, 40), (40, 45))]
    assert (page.total(), len(page.read("&paged=99").names())) == (45, 5)


@pytest.mark.parametrize("words, found", [
    ("ali", ["alice", "alistair"]), ("ALICE", ["alice"]), ("1cMh", ["bob"]), (OTHER_ADDRESS, ["bob"]), ("ada@", ["alistair"]),
    ("alice@", ["alice"]), ("nobody", ["No name holds that."]), ("%", ["No name holds that."]), ("+", ["a+b"]),
    (" bob ", ["bob"]),
])
def test_the_list_can_be_searched(site, page, words, found):
    site.set_record({"rows": [row("alice"), row("alistair", house=HOUSE), row("bob", OTHER_PUBKEY, OTHER_ADDRESS), row("a+b")]})
    page.page = page.http.get(page.start + PATH, params={"s": words}, timeout=60).text
    assert [cells[0] for cells in page.names()] == found


def test_whatever_the_record_holds_is_escaped(site, page):
    site.set_record({"rows": [{"alias": MARKUP, "pubkey": MARKUP, "address": MARKUP, "house": MARKUP}, row("123")]})
    page.read()
    assert "<script>alert(1)" not in page.page
    cells = {cells[0]: cells for cells in page.names()}
    assert cells[MARKUP] == [MARKUP, f"{MARKUP}@{site.host}", f"{MARKUP} [Copy the address of {MARKUP}@{site.host}]", MARKUP,
                             f"[Check {MARKUP}@{site.host}]"]
    assert cells["123"] == shown(site, "123")


@pytest.mark.parametrize("query", [
    "&s=<script>alert(2)</script>", '&s="><b x="', "&paged=<script>", "&s[]=a", "&paged[]=2", "&s=%00%ff",
])
def test_what_the_address_of_the_page_holds_is_escaped(site, page, query):
    site.set_record(record("alice"))
    page.read(query)
    escaped = page.page.replace("&lt;script&gt;alert(2)", "").replace("%3Cscript%3Ealert(2)", "")
    assert "alert(2)" not in escaped and "<b x=" not in escaped


def test_the_page_is_for_those_who_may_manage_the_sites_options(site):
    for user, status in ((site.admin, 200), (site.editor, 403)):
        admin = Admin(site, user)
        reply = admin.http.get(admin.start + PATH, timeout=60)
        assert reply.status_code == status
        assert ("options-general.php?page=brasslet" in admin.open("/wp-admin/index.php")) == (status == 200)
    assert "wp-login.php" in site.request("GET", PATH).headers["Location"]


def test_a_name_that_wallets_can_pay_is_shown_as_they_see_it(site, page):
    site.set_record({"rows": [row("alice"), row("bob", OTHER_PUBKEY, OTHER_ADDRESS)]})
    assert page.check("alice").checked() == ("success", [
        f"Wallets can pay alice@{site.host}. They see:", f"Public key: {PUBKEY}", f"Address: {ADDRESS}", f"Script: {SCRIPT}"])
    assert len(page.names()) == 2


def test_with_payments_handed_over_wallets_get_outputs_too(site, page):
    site.set_record(record("alice"))
    with listening():
        switch_on(site)
        assert page.check("alice").checked()[1][-1] == "Payments are handed over to this site."
        path = "/wp-json/brasslet/v1/p2p-payment-destination/alice"
        for reply in ('{"outputs":[{"script":"00","satoshis":1}],"reference":"x"}', "[]"):
            answer(site, path, reply)
            kind, lines = page.check("alice").checked()
            assert (kind, lines) == ("error", [
                CANNOT_PAY % f"alice@{site.host}",
                f"https://{site.host}{path} does not answer with the output that pays alice@{site.host}. "
                "Let no cache and no other plugin answer below /wp-json/brasslet/ in place of Brasslet."])


def test_a_document_of_before_the_switch_is_found_out(site, page):
    """As one that a cache has kept."""
    site.set_record(record("alice"))
    old = site.request("GET", "/.well-known/bsvalias").text
    switch_on(site)
    assert "2a40af698840" in own_document(site)["capabilities"]
    answer(site, "/.well-known/bsvalias", old)
    kind, lines = page.check("alice").checked()
    assert kind == "error" and "sends wallets somewhere else than to this site" in lines[1]


def test_a_name_that_wallets_cannot_pay_is_shown_with_what_to_do(site, page):
    site.set_record(record("alice"))
    answer(site, "/wp-json/brasslet/v1/address/alice", '{"address":"' + OTHER_ADDRESS + '"}')
    kind, lines = page.check("alice").checked()
    assert (kind, lines[0]) == ("error", CANNOT_PAY % f"alice@{site.host}")
    assert f"does not answer with the address of alice@{site.host}" in lines[1]


def test_a_server_that_cannot_ask_itself_says_that_and_gives_a_link(site, page):
    site.set_record(record("alice"))
    site.hook("add_filter( 'pre_http_request', function () { return new WP_Error( 'x', 'cURL error 28: <b>too late</b>' ); } );")
    kind, lines = page.check("alice").checked()
    assert (kind, lines[0], lines[2]) == ("warning", CANNOT_CHECK % f"alice@{site.host}", "Open what wallets ask for first")
    assert "(cURL error 28: <b>too late</b>)" in lines[1] and "<b>too late" not in page.page


@pytest.mark.parametrize("alias", ["nobody", "", MARKUP, "ALICE"])
def test_a_check_of_a_name_that_is_not_there_says_so(site, page, alias):
    site.set_record(record("alice"))
    assert page.check(alias).checked() == ("error", ["That name is not published any more."])
    assert "<script>alert(1)" not in page.page


@pytest.mark.parametrize("nonce", ["", "0123456789"])
def test_a_check_that_was_not_pressed_on_the_page_is_refused(site, page, nonce):
    site.set_record(record("alice"))
    site.hook("""
        add_filter( 'pre_http_request', function ( $reply, $args, $url ) {
            if ( strpos( $url, 'bsvalias' ) ) {
                touch( getenv( 'WORLD_DIR' ) . '/asked-itself' );
            }
            return $reply;
        }, 10, 3 );
    """)
    mark = WORLD_DIR / "asked-itself"
    page.read()
    reply = page.post({"brasslet_check_nonce": nonce, "brasslet_check": "alice"})
    assert reply.status_code == 403 and "brasslet-checked" not in reply.text
    assert not mark.exists()
    page.check("alice")
    assert mark.exists()
    mark.unlink()


def test_a_check_leaves_the_search_and_the_page_of_the_list_as_they_are(site, page):
    site.set_record(record(*(f"name{number}" for number in range(25)), "other"))
    page.check("name24", "&s=name&paged=2")
    assert [cells[0] for cells in page.names()] == [f"name{number}" for number in range(20, 25)]
    assert page.checked()[0] == "success"


def test_what_keeps_names_from_being_paid_stands_on_the_page_too(site, page):
    assert notices(page.read().page) == []
    site.hook("add_filter( 'pre_option_permalink_structure', '__return_empty_string' );")
    assert "Your permalinks do not lead to WordPress." in notices(page.read().page)[0][1][0]


def test_the_list_of_plugins_leads_to_the_page(site):
    admin = Admin(site, site.admin)
    [row] = re.findall(r'<tr [^>]*data-plugin="brasslet/brasslet.php".*?</tr>', admin.plugins(), re.S)
    link = f'<a href="https://{site.host}{PATH}">Settings</a>'
    assert link in row and admin.plugins().count(link) == 1


def test_other_pages_of_wordpress_carry_nothing_of_it(site):
    admin = Admin(site, site.admin)
    for path in ("/wp-admin/options-general.php", "/wp-admin/index.php", "/wp-admin/plugins.php"):
        assert "brasslet-" not in admin.open(path).replace("brasslet-php", "")
