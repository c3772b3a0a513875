"""Two public paymail clients pay published names: their own code, their own name resolution, real TLS."""

import contextlib
import os
from pathlib import Path

import pytest

from names import NO_PAYMAIL, OTHER_ADDRESS, OTHER_PUBKEY, OTHER_SCRIPT, PUBKEY, SCRIPT, row
from wallets import ask
from wordpress import WORLD_DIR

TWO = {"rows": [row("alice"), row("a.b+c-d_e", OTHER_PUBKEY, OTHER_ADDRESS)]}


def capabilities(site):
    return site.request("GET", "/.well-known/bsvalias").json()["capabilities"]


@contextlib.contextmanager
def srv_record(domain, target):
    zone = Path(os.environ["WORLD_ZONE"])
    before = zone.read_text()
    zone.write_text(f"{before}_bsvalias._tcp.{domain} SRV 10 10 443 {target}\n")
    try:
        yield
    finally:
        zone.write_text(before)


def discoveries(since):
    """The hosts that were asked for a discovery document since that place of the web server's log."""
    log = (WORLD_DIR / "logs" / "access.log").read_text()[since:]
    return [line.split()[0] for line in log.splitlines() if "/.well-known/bsvalias" in line]


def test_bsv_paymail_finds_the_key_and_the_script_of_a_name(site):
    site.set_record(TWO)
    assert ask("bsv_paymail", f"a.b+c-d_e@{site.host}") == {
        "capabilities": capabilities(site), "handle": f"a.b+c-d_e@{site.host}", "pubkey": OTHER_PUBKEY,
        "address": OTHER_ADDRESS, "output": OTHER_SCRIPT,
    }


def test_moneybutton_finds_the_key_and_the_script_of_a_name(site):
    site.set_record(TWO)
    assert ask("moneybutton", f"a.b+c-d_e@{site.host}") == {
        "capabilities": capabilities(site), "pubkey": OTHER_PUBKEY, "output": OTHER_SCRIPT,
    }


# Both follow an SRV record without DNSSEC to a host below the domain alone.
@pytest.mark.parametrize("site", ["stable"], indirect=True)
@pytest.mark.parametrize("client", ["bsv_paymail", "moneybutton"])
def test_a_client_follows_the_srv_record_of_the_domain(site, client):
    site.set_record(TWO)
    since = len((WORLD_DIR / "logs" / "access.log").read_text())
    with srv_record(site.host, f"www.{site.host}"):
        found = ask(client, f"alice@{site.host}")
    assert (found["pubkey"], found["output"]) == (PUBKEY, SCRIPT)
    assert discoveries(since) == [f"www.{site.host}"]


def test_a_name_that_is_not_published_cannot_be_paid(site):
    site.set_record(TWO)
    paymail = f"carol@{site.host}"
    assert ask("bsv_paymail", paymail) == {"error": NO_PAYMAIL}
    assert ask("moneybutton", paymail) == {"error": f"Paymail not found: {paymail}"}
