"""A reference is the site's own word about a payment: nobody else can make one, and nothing is stored for it."""

import base64
import json
import re
import subprocess

import pytest

from conftest import fresh
from names import SCRIPT, row
from payments import deliver, made_reference, paid, reference_of, switch_on, transaction
from wordpress import WORLD, Site

ALICE = row("alice")
PAYS = transaction((SCRIPT, 1000))
NOT_OURS = (400, "brasslet_reference",
            "This site has not made that reference. Ask for the outputs of the payment again. Nothing was sent.")


@pytest.fixture
def paying(site):
    site.set_record({"rows": [ALICE]})
    switch_on(site)
    return site


def answer(site, reference):
    reply = deliver(site, PAYS, reference)
    found = reply.json()
    return reply.status_code, found.get("code"), found.get("message")


def options(site):
    return site.php("return $wpdb->get_results( \"SELECT option_name, option_value FROM $wpdb->options ORDER BY 1\", ARRAY_A );")


def test_nothing_is_stored_for_a_question(paying):
    before = options(paying)
    references = [reference_of(paying, satoshis=amount) for amount in (1, 2, 3)]
    assert options(paying) == before
    assert len(set(references)) == 3


def test_a_reference_says_name_address_amount_and_time(paying):
    version, text, mac = reference_of(paying, satoshis=2100000000000000).split(".")
    alias, address, satoshis, time = base64.urlsafe_b64decode(text + "=" * (-len(text) % 4)).decode().split(" ")
    assert (version, alias, address, satoshis, len(mac)) == ("1", "alice", ALICE["address"], "2100000000000000", 43)
    assert abs(int(time) - paying.php("return time();")) < 60


def test_no_character_of_a_reference_can_be_changed(paying, broadcaster):
    reference = reference_of(paying)
    other = {True: "B", False: "A"}
    for place in range(len(reference)):
        changed = reference[:place] + other[reference[place] == "A"] + reference[place + 1:]
        assert paying.php("return brasslet_read_reference( $v );", changed) is None, place
    assert answer(paying, reference[:-1] + other[reference[-1] == "A"]) == NOT_OURS
    assert answer(paying, reference)[0] == 200


@pytest.mark.parametrize("spoil", [
    "-", "x", "1..", "2{1}", "{0}x", "x{0}", "{0}.", "{0}\n", " {0}", "{0}=", "{0}" * 3, "1." + "A" * 600 + ".x",
])
def test_what_the_site_has_not_made_is_no_reference(paying, broadcaster, spoil):
    reference = reference_of(paying)
    assert answer(paying, spoil.replace("{0}", reference).replace("{1}", reference[1:])) == NOT_OURS
    assert broadcaster.requests == []


def test_a_longer_reference_than_512_characters_is_not_looked_at(paying):
    """Also not where it would be right."""
    long = made_reference(paying, {**ALICE, "alias": "a" * 330})
    assert len(long) > 512 and paying.php("return brasslet_read_reference( $v );", long) is None
    assert answer(paying, long) == NOT_OURS


def test_new_salts_end_all_references(paying, broadcaster):
    reference = reference_of(paying)
    paying.php("add_filter( 'salt', $GLOBALS['salted'] = function () { return 'new'; } );")
    try:
        assert paying.php("return brasslet_read_reference( $v );", reference) is None
    finally:
        paying.php("remove_filter( 'salt', $GLOBALS['salted'] );")
    assert answer(paying, reference)[0] == 200


def test_a_site_takes_no_reference_of_another_site_of_its_network(plugin_file, broadcaster):
    """Both have the same salts, and a name at the same address."""
    hosts = ("net.brasslet.test", "two.net.brasslet.test")
    one, two = [Site("domains", host, plugin_file, surname=host[0] + "references") for host in hosts]
    try:
        with fresh(one, two):
            for site in (one, two):
                site.set_record({"rows": [ALICE]})
                switch_on(site)
            references = [reference_of(site) for site in (one, two)]
            assert answer(one, references[1]) == answer(two, references[0]) == NOT_OURS
            assert deliver(two, PAYS, references[1]).json() == paid(PAYS)
            # Not even where both have the same host, as sites in folders do.
            same = "add_filter( 'home_url', $GLOBALS['same'] = function () { return 'https://same.example'; } );"
            macs = [site.php(same + "return brasslet_host() . ' ' . brasslet_reference_mac( 'x' );") for site in (one, two)]
            for site in (one, two):
                site.php("remove_filter( 'home_url', $GLOBALS['same'] );")
            assert [mac.split()[0] for mac in macs] == ["same.example"] * 2
            assert macs[0] != macs[1]
    finally:
        one.close()
        two.close()


def test_a_reference_for_another_host_of_the_same_site_is_another_ones(paying):
    reference = reference_of(paying)
    read = "return brasslet_read_reference( $v );"
    moved = "add_filter( 'home_url', $GLOBALS['moved'] = function () { return 'https://moved.example'; } );"
    assert paying.php(read, reference)["alias"] == "alice"
    assert paying.php(moved + read, reference) is None
    paying.php("remove_filter( 'home_url', $GLOBALS['moved'] );")


def inside(site, code, value=None):
    """What the code returns in a WordPress that begins anew, with its configuration as it is now."""
    code = f"$v = json_decode( '{json.dumps(value)}', true ); global $wpdb; {code}"
    code = f"echo json_encode( ( function () {{ {code} }} )() );"
    done = subprocess.run([WORLD / "wp", site.address, code], check=True, capture_output=True, text=True, timeout=60)
    return json.loads(done.stdout)


def test_where_the_salts_are_in_the_database_the_key_stands_beside_the_switch(site):
    """So that a flood of references looks nothing up."""
    site.set_record({"rows": [ALICE]})
    asked = "$before = $wpdb->num_queries; brasslet_read_reference( $v ); return $wpdb->num_queries - $before;"
    switch_on(site)
    reference = reference_of(site)
    (site.content / "no-salts").touch()
    try:
        assert deliver(site, PAYS, reference).json()["code"] == "brasslet_reference"
        secret = inside(site, "return brasslet_payment_secret();")
        assert re.fullmatch("[0-9a-f]{64}", secret) and secret != inside(site, "return brasslet_payment_secret();")
        assert inside(site, asked, reference) > 0
        switch_on(site, secret=secret)
        assert deliver(site, PAYS, reference).json()["code"] == "brasslet_reference"
        reference = reference_of(site)
        assert inside(site, "wp_load_alloptions();" + asked, reference) == 0
        assert inside(site, "return brasslet_read_reference( $v );", reference)["alias"] == "alice"
    finally:
        (site.content / "no-salts").unlink()
    assert site.php("""
        foreach ( array( 'auth_key', 'auth_salt' ) as $name ) { delete_site_option( $name ); }
        return brasslet_payment_secret();
    """) == ""
