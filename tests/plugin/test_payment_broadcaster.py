"""How the broadcaster is asked: over checked TLS, nowhere else than where the owner said, and with the key that is for it."""

import subprocess

import pytest

from broadcaster import ADDRESS as BROADCASTERS_ADDRESS
from broadcaster import HOST, listening
from names import SCRIPT, row
from payments import ALLOW, deliver, paid, reference_of, switch_on, transaction
from test_payment_broadcast import CLOSED, KEY, UNREACHABLE, refused
from wordpress import WORLD_DIR

PAYS = transaction((SCRIPT, 1000))


@pytest.fixture
def paying(site):
    site.set_record({"rows": [row("alice")]})
    switch_on(site)
    return site


def test_where_nobody_listens_nothing_was_sent(paying):
    refused(paying, UNREACHABLE)


@pytest.mark.parametrize("address", [
    "https://nobody.example", "https://127.0.0.20", "https://arc.brasslet.test:4430", "https://brasslet.test:22",
])
def test_what_cannot_be_asked_or_may_not_be_was_not_sent(site, broadcaster, address):
    """An unknown name, a private address, and ports that WordPress does not let plugins use."""
    site.set_record({"rows": [row("alice")]})
    switch_on(site, address)
    refused(site, UNREACHABLE)
    assert broadcaster.requests == []


def test_a_host_of_a_private_network_is_not_asked(paying, broadcaster):
    paying.hook(f"define( 'WP_ACCESSIBLE_HOSTS', '{HOST}' );")
    refused(paying, UNREACHABLE)
    assert broadcaster.requests == [] and BROADCASTERS_ADDRESS.startswith("127.")


def test_a_certificate_that_nobody_trusts_is_refused(paying):
    folder = WORLD_DIR / "authority"
    make = ["openssl", "req", "-x509", "-newkey", "ec", "-pkeyopt", "ec_paramgen_curve:P-256", "-noenc", "-days", "9",
            "-subj", f"/CN={HOST}", "-addext", f"subjectAltName=DNS:{HOST}"]
    subprocess.run([*make, "-keyout", folder / "own.key", "-out", folder / "own.pem"], check=True, capture_output=True)
    with listening("own") as broadcaster:
        refused(paying, UNREACHABLE)
        assert broadcaster.requests == []


def test_the_request_is_arcs(paying, broadcaster):
    switch_on(paying, f"https://{HOST}/arc", key=KEY)
    broadcaster.key = KEY
    # Below another path than ARC's own there is nothing.
    refused(paying, CLOSED)
    [asked] = broadcaster.requests
    assert (asked["method"], asked["path"], asked["body"]) == ("POST", "/arc/v1/tx", {"rawTx": PAYS})
    assert asked["headers"]["Content-Type"] == "application/json"
    assert asked["headers"]["Authorization"] == f"Bearer {KEY}"
    assert asked["headers"]["User-Agent"] == "Brasslet/0.001"
    assert "Cookie" not in asked["headers"] and paying.host not in str(asked).replace(HOST, "")


def test_without_a_key_none_is_sent(paying, broadcaster):
    assert deliver(paying, PAYS, reference_of(paying)).json() == paid(PAYS)
    assert "Authorization" not in broadcaster.requests[0]["headers"]


def test_a_key_that_the_broadcaster_does_not_want_is_the_owners_business(paying, broadcaster):
    switch_on(paying, key="another")
    broadcaster.key = KEY
    refused(paying, CLOSED)


def test_a_key_that_cannot_be_read_any_more_sends_nothing(paying, broadcaster):
    switch_on(paying, key=KEY)
    paying.hook(ALLOW + """
        add_filter( 'salt', function ( $salt, $scheme ) { return 'secure_auth' === $scheme ? 'new' : $salt; }, 10, 2 );
    """)
    refused(paying, CLOSED)
    assert broadcaster.requests == []


def test_no_warning_or_log_names_the_key(paying, broadcaster):
    broadcaster.key = KEY
    switch_on(paying, key=KEY)
    assert deliver(paying, PAYS, reference_of(paying)).json() == paid(PAYS)
    for log in (WORLD_DIR / "logs").glob("*.log"):
        assert KEY not in log.read_text(errors="replace"), log
