"""Which characters a published name, its key, its address and its house paymail may hold."""

import pytest

from names import BAD_NAME, record, row

# All of ASCII that can be seen, apart from letters, digits and . _ + -
OTHERS = "!\"#$%&'()*,/:;<=>?@[\\]^`{|}~"


@pytest.mark.parametrize("address", ["123456789ABCDEFGHJKLMNPQRSTUVWXYZ", "1abcdefghijkmnopqrstuvwxyz", "1" * 26])
def test_an_address_may_hold_every_character_of_base58(site, address):
    assert site.publish(address=address).status_code == 200
    assert site.record() == {"rows": [row("alice", address=address)]}


@pytest.mark.parametrize("pubkey", ["0123456789abcdef" * 4 + "00", "f" * 66])
def test_a_key_may_hold_every_hex_digit(site, pubkey):
    assert site.publish(pubkey=pubkey).status_code == 200
    assert site.record() == {"rows": [row("alice", pubkey=pubkey)]}


def test_no_other_character_of_ascii_is_usable_in_a_name(site):
    for character in OTHERS:
        assert site.publish(alias=f"a{character}b").text == BAD_NAME, character


def test_no_other_character_of_ascii_is_usable_in_a_house_paymail(site):
    for character in OTHERS:
        site.publish(house=f"a{character}b@corvane.example")
        assert site.record() == record("alice"), character
