"""POST /wp-json/brasslet/v1/name: publishing a name."""

import pytest

from names import ADDRESS, BAD_NAME, HOUSE, OTHER_ADDRESS, OTHER_PUBKEY, PUBKEY, record, row


def published_body(site, alias, aliases):
    listed = ",".join(f'"{name}"' for name in aliases)
    return f'{{"ok":true,"paymail":"{alias}@{site.host}","host":"{site.host}","aliases":[{listed}]}}'


def test_the_first_name_is_stored_and_answered(site):
    reply = site.publish(alias="alice", house=HOUSE)
    assert (reply.status_code, reply.text) == (200, published_body(site, "alice", ["alice"]))
    assert site.record() == {"rows": [row("alice", house=HOUSE)]}


def test_the_stored_bytes_have_the_four_fields_in_order(site):
    site.publish(alias="al", house="a@corvane.example")
    assert site.stored()["option_value"] == (
        'a:1:{s:4:"rows";a:1:{i:0;a:4:{'
        's:5:"alias";s:2:"al";'
        f's:6:"pubkey";s:66:"{PUBKEY}";'
        f's:7:"address";s:34:"{ADDRESS}";'
        's:5:"house";s:17:"a@corvane.example";}}}')


def test_a_new_name_goes_to_the_end(site):
    site.set_record(record("zoe", "bob"))
    assert site.publish(alias="alice").text == published_body(site, "alice", ["zoe", "bob", "alice"])
    assert site.record() == record("zoe", "bob", "alice")


def test_a_replaced_name_keeps_its_place_and_leaves_the_others(site):
    site.set_record(record("zoe", "bob", "carol"))
    reply = site.publish(alias="bob", pubkey=OTHER_PUBKEY, address=OTHER_ADDRESS, house=HOUSE)
    assert reply.text == published_body(site, "bob", ["zoe", "bob", "carol"])
    assert site.record() == {"rows": [row("zoe"), row("bob", OTHER_PUBKEY, OTHER_ADDRESS, HOUSE), row("carol")]}


def test_publishing_the_same_again_succeeds(site):
    first = site.publish(alias="alice")
    again = site.publish(alias="alice")
    assert (again.status_code, again.text) == (200, first.text)
    assert site.record() == record("alice")


def test_alias_key_and_house_are_trimmed_and_lowered_and_the_address_keeps_its_case(site):
    reply = site.publish(alias=" \tAlice\n", pubkey=f" {PUBKEY.upper()} ", address=f"\n{ADDRESS} ",
                         house=" Ada@Corvane.EXAMPLE ")
    assert reply.text == published_body(site, "alice", ["alice"])
    assert site.record() == {"rows": [row("alice", house="ada@corvane.example")]}


def test_a_name_in_capitals_replaces_the_one_in_lower_case(site):
    site.set_record(record("alice"))
    site.publish(alias="ALICE", address=OTHER_ADDRESS)
    assert site.record() == {"rows": [row("alice", address=OTHER_ADDRESS)]}


@pytest.mark.parametrize("alias", [
    "a", "a.b+c-d_e", "+", "...", "0", "x" * 64, "007", "abcdefghijklmnopqrstuvwxyz0123456789._+-",
])
def test_a_usable_alias_is_stored(site, alias):
    assert site.publish(alias=alias).text == published_body(site, alias, [alias])
    assert site.record() == record(alias)


def test_names_of_digits_stay_text_in_every_reply(site):
    site.publish(alias="123")
    assert site.publish(alias="-5").text == published_body(site, "-5", ["123", "-5"])
    assert site.record() == record("123", "-5")
    assert site.publish(alias="123", address=OTHER_ADDRESS).text == published_body(site, "123", ["123", "-5"])


@pytest.mark.parametrize("length", [26, 35])
def test_the_shortest_and_the_longest_address_are_stored(site, length):
    address = "1" + "z" * (length - 1)
    assert site.publish(address=address).status_code == 200
    assert site.record() == {"rows": [row("alice", address=address)]}


NOT_TEXT = [None, True, 7, 1.5, [], ["alice"], {"alias": "alice"}, [["a"]]]
BAD = {
    "alias": ["", " ", "x" * 65, "a b", "a@b", "a/b", "al\u00efce", "\uff41lice", "alice\nbob", "a\x00b",
              "<b>bold</b>", "a'b", 'a"b', "a,b", "a%20b", "x" * 200000] + NOT_TEXT,
    "pubkey": ["", PUBKEY[:-1], PUBKEY + "0", PUBKEY[:-1] + "g", "0x" + PUBKEY[2:-2] + "zz",
               PUBKEY[:33] + "\n" + PUBKEY[33:], "0" * 200000] + NOT_TEXT,
    "address": ["", "3" + ADDRESS[1:], "m" + ADDRESS[1:], "bc1qw508d6qejxtdg4y5r3zarvary0c5xw7kv8f3t4",
                "1" + "z" * 24, "1" + "z" * 35, ADDRESS[:-1] + "0", ADDRESS[:-1] + "O", ADDRESS[:-1] + "I",
                ADDRESS[:-1] + "l", ADDRESS[:10] + " " + ADDRESS[10:], "x" + ADDRESS, "1" * 200000] + NOT_TEXT,
}


@pytest.mark.parametrize("field", BAD)
def test_a_bad_field_is_refused_and_the_record_stays_as_it_is(site, field):
    site.set_record(record("alice", "bob"))
    before = site.stored()
    for value in BAD[field]:
        reply = site.publish(**{field: value})
        assert (reply.status_code, reply.text) == (400, BAD_NAME), repr(value)[:80]
        assert site.stored() == before, repr(value)[:80]


@pytest.mark.parametrize("field", ["alias", "pubkey", "address"])
def test_a_missing_field_is_refused_and_writes_nothing(site, field):
    reply = site.publish(without=field)
    assert (reply.status_code, reply.text) == (400, BAD_NAME)
    assert site.stored() is None


@pytest.mark.parametrize("house", [
    "ada@other.example", "ada@corvane-example", "ada@corvanexexample", "ada@sub.corvane.example",
    "ada@corvane.example.org", "ada@corvane.example\nx", "@corvane.example", "ada", "", "a da@corvane.example",
    "a@b@corvane.example", "<b>@corvane.example", 'a"@corvane.example', "x ada@corvane.example",
    None, 5, True, ["ada@corvane.example"], {"a": "ada@corvane.example"},
])
def test_a_house_paymail_that_is_none_is_stored_as_empty(site, house):
    assert site.publish(house=house).status_code == 200
    assert site.record() == record("alice")


def test_a_missing_house_is_stored_as_empty(site):
    assert site.publish(without="house").status_code == 200
    assert site.record() == record("alice")


@pytest.mark.parametrize("house", [
    "ada@corvane.example", "a.b+c-d_e@corvane.example", "0@corvane.example", "x" * 65 + "@corvane.example",
])
def test_a_house_paymail_is_stored(site, house):
    site.publish(house=house)
    assert site.record() == {"rows": [row("alice", house=house)]}


def test_an_emptied_house_replaces_the_one_stored_before(site):
    site.set_record({"rows": [row("alice", house=HOUSE)]})
    site.publish(house="ada@other.example")
    assert site.record() == record("alice")


@pytest.mark.parametrize("body", [b"{", b"\xff\xfe", b'{"alias":"\xff"}', b"{'alias':1}", b'{"a":1}}'])
def test_a_body_that_is_no_json_is_refused_by_wordpress(site, body):
    reply = site.request("POST", "/wp-json/brasslet/v1/name", data=body, headers={"Content-Type": "application/json"})
    assert (reply.status_code, reply.json()["code"]) == (400, "rest_invalid_json")
    assert site.stored() is None


def test_the_body_says_what_is_published_and_not_the_query(site):
    given = {"alias": "eve", "pubkey": OTHER_PUBKEY, "address": OTHER_ADDRESS, "house": HOUSE}
    site.send("POST", site.name_members(), params=given)
    assert site.record() == record("alice")


def test_members_that_nobody_asked_for_are_not_stored(site):
    site.publish(role="administrator", rows=[row("eve")], set=False)
    assert site.record() == record("alice")


def test_the_program_sends_the_login_three_times_over_and_that_works(site):
    reply = site.publish(alias="alice", headers=site.login_headers())
    assert (reply.status_code, reply.text) == (200, published_body(site, "alice", ["alice"]))
