"""The broadcaster's key is stored so that a copy of the database does not tell it."""

import base64
import json

import pytest

from broadcaster import URL

KEY = "mainnet_0123456789abcdefABCDEF"
STORE = "return brasslet_store_broadcaster_key( $v[0], $v[1] );"
READ = "return brasslet_broadcaster_key( $v );"
STORED = """
    $sql = "SELECT option_value, autoload FROM $wpdb->options WHERE option_name = 'brasslet_broadcaster_key'";
    return $wpdb->get_row( $sql, ARRAY_A );
"""


def test_a_key_is_read_as_it_was_stored(site):
    for key in ("k", KEY, "~" * 512):
        assert site.php(STORE, [URL, key]) is True
        assert site.php(READ, URL) == key


def test_without_a_key_there_is_none(site):
    assert (site.php(READ, URL), site.php(STORED)) == ("", None)
    site.php(STORE, [URL, KEY])
    assert site.php(STORE, [URL, ""]) is True
    assert (site.php(READ, URL), site.php(STORED)) == ("", None)


def test_the_database_does_not_show_the_key_nor_is_it_loaded_with_every_page(site):
    site.php(STORE, [URL, KEY])
    stored = site.php(STORED)
    assert stored["autoload"] in ("no", "off")
    raw = base64.b64decode(stored["option_value"])
    assert KEY not in stored["option_value"] and KEY.encode() not in raw and len(raw) == 24 + 16 + len(URL) + 1 + len(KEY)
    everything = json.dumps(site.php("return $wpdb->get_results( \"SELECT * FROM $wpdb->options\", ARRAY_A );"))
    assert KEY not in everything and base64.b64encode(KEY.encode()).decode()[:-4] not in everything


def test_the_same_key_is_stored_in_another_way_each_time(site):
    rows = []
    for _ in range(2):
        site.php(STORE, [URL, KEY])
        rows.append(site.php(STORED)["option_value"])
    assert rows[0][:32] != rows[1][:32] and rows[0][32:] != rows[1][32:]


def test_with_new_salts_the_key_cannot_be_read_any_more(site):
    site.php(STORE, [URL, KEY])
    read = """
        $salt = function ( $salt, $scheme ) use ( $v ) { return $v[1] === $scheme ? 'new' : $salt; };
        add_filter( 'salt', $salt, 10, 2 );
        $key = brasslet_broadcaster_key( $v[0] );
        remove_filter( 'salt', $salt );
        return $key;
    """
    assert site.php(read, [URL, "secure_auth"]) is None
    assert (site.php(read, [URL, "auth"]), site.php(READ, URL)) == (KEY, KEY)


def test_a_key_is_for_one_address_alone(site):
    """Whoever may change the address shall not have the key sent there."""
    site.php(STORE, [URL, KEY])
    assert [site.php(READ, other) for other in ("https://elsewhere.example", URL + "/arc", URL[:-1], "")] == [None] * 4


@pytest.mark.parametrize("damage", ["", "x", "$", "AAAA", "A" * 200, "5"])
def test_a_damaged_row_is_no_key(site, damage):
    site.php(STORE, [URL, KEY])
    site.php("update_option( 'brasslet_broadcaster_key', $v );", damage)
    assert site.php(READ, URL) == ("" if damage == "" else None)


def test_each_byte_of_the_row_counts(site):
    site.php(STORE, [URL, KEY])
    raw = bytearray(base64.b64decode(site.php(STORED)["option_value"]))
    for place in range(len(raw)):
        raw[place] ^= 1
        site.php("update_option( 'brasslet_broadcaster_key', $v );", base64.b64encode(raw).decode())
        assert site.php(READ, URL) is None, place
        raw[place] ^= 1
