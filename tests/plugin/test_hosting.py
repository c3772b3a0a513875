"""Healthy sites on hosts of all kinds: the owner is not frightened, neither by Site Health nor by the notice."""

import time

import pytest

from admin_pages import Admin, notices
from conftest import fresh
from names import record
from site_health import DOCUMENT, look, shown
from test_health import (ADDRESSES, LOOK_YOURSELF, NAMES_BAD, NAMES_GOOD, NAMES_UNKNOWN, REACH_ITSELF, RIGHT_ANSWERS,
                         UNASKED)
from test_health import NO_HTTPS as DOCUMENT_WITHOUT_HTTPS
from test_notice import IN_THE_FILE, NO_HTTPS


@pytest.fixture
def site(sites):
    """The site that all these hosts lead to, with a name."""
    with fresh(sites["stable"]):
        sites["stable"].set_record(record("alice"))
        yield sites["stable"]


# Where WordPress does not know that its pages travel over https, its own use of application passwords is off.
@pytest.mark.parametrize("host,own_use", [("proxied.brasslet.test", 200), ("unaware.brasslet.test", 401)])
def test_behind_a_proxy_that_ends_tls_all_is_good(site, host, own_use):
    asked = site.request("GET", "/wp-json/wp/v2/users/me", host=host, headers=site.login_headers())
    assert asked.status_code == own_use
    published = site.request("POST", "/wp-json/brasslet/v1/name", host=host, json=site.name_members(alias="bob"))
    assert published.json()["paymail"] == f"bob@{host}"
    admin = Admin(site, site.admin, f"https://{host}")
    assert shown(admin.look()) == ("good", NAMES_GOOD, RIGHT_ANSWERS % f"alice@{host}, bob@{host}")
    assert notices(admin.plugins()) == []


# WordPress takes the scheme of the request for its own address where it knows that scheme; so the document does.
@pytest.mark.parametrize("host,has_https", [("proxied.brasslet.test", True), ("unaware.brasslet.test", False)])
def test_an_address_stored_without_https_is_told_where_wallets_are_sent_to_it(site, host, has_https):
    site.hook("""
        add_filter( 'option_home', function ( $url ) { return set_url_scheme( $url, 'http' ); }, 99 );
    """)
    admin = Admin(site, site.admin, f"https://{host}")
    told = notices(admin.plugins())
    result = admin.look()
    if has_https:
        assert (told, result["status"]) == ([], "good")
    else:
        assert [text for _, (text, _) in told] == [f"{NO_HTTPS} {IN_THE_FILE}"]
        finding = DOCUMENT_WITHOUT_HTTPS % f"https://{host}{DOCUMENT}"
        assert shown(result) == ("critical", NAMES_BAD, f"{finding} {ADDRESSES}")


def could_not_ask(result, host, said):
    status, label, text = shown(result)
    before, after = UNASKED.replace("%1$s", f"https://{host}{DOCUMENT}").split("%2$s")
    assert (status, label) == ("recommended", NAMES_UNKNOWN)
    assert text.startswith(before + said) and text.endswith(f"{after} {LOOK_YOURSELF} {REACH_ITSELF}")


@pytest.mark.parametrize("host,said", [
    ("inward.brasslet.test", "cURL error 7"), ("silent.brasslet.test", "cURL error 28"),
])
def test_a_name_that_leads_the_server_elsewhere_is_not_critical(site, host, said):
    document = site.request("GET", DOCUMENT, headers={"Host": host}).json()
    assert document["capabilities"]["pki"].startswith(f"https://{host}/")
    could_not_ask(look(site, host=host), host, said)


def test_a_site_with_a_single_process_waits_for_itself_only_once_and_is_not_critical(site):
    host = "oneworker.brasslet.test"
    assert site.request("GET", DOCUMENT, host=host).status_code == 200
    start = time.monotonic()
    could_not_ask(look(site, host=host), host, "cURL error 28")
    assert site.request("GET", DOCUMENT, host=host).status_code == 200
    assert time.monotonic() - start < 12
