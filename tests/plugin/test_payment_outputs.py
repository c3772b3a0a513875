"""A wallet asks for the outputs that pay a name, and whether a key belongs to it."""

import pytest

from names import NO_PAYMAIL, OTHER_ADDRESS, OTHER_PUBKEY, OTHER_SCRIPT, PUBKEY, SCRIPT, refusal, row
from payments import ask, made_reference, switch_on

ALICE = row("alice")
BAD_AMOUNT = ("brasslet_amount", 'Send JSON with the member "satoshis", a whole number from 1 to 2100000000000000.', 400)
BAD_KEY = refusal("brasslet_key", "Ask for a name and a compressed public key of 66 hex digits.", 400)


@pytest.fixture
def paying(site):
    site.set_record({"rows": [ALICE, row("a.b+c-d_e", OTHER_PUBKEY, OTHER_ADDRESS), row("damaged", address="1" + "a" * 26)]})
    switch_on(site)
    return site


def ask_with(site, body, alias="alice", kind="application/json"):
    path = f"/wp-json/brasslet/v1/p2p-payment-destination/{alias}"
    return site.request("POST", path, data=body, headers={"Content-Type": kind})


@pytest.mark.parametrize("alias, script", [
    ("alice", SCRIPT), ("ALICE", SCRIPT), ("a.b%2Bc-d_e", OTHER_SCRIPT), ("a.b+c-d_e", OTHER_SCRIPT),
])
def test_the_answer_is_one_output_of_exactly_the_amount_and_a_reference(paying, alias, script):
    reply = ask(paying, alias, 123456)
    assert reply.status_code == 200
    assert list(reply.json()) == ["outputs", "reference"]
    assert reply.json()["outputs"] == [{"script": script, "satoshis": 123456}]
    assert f'"outputs":[{{"script":"{script}","satoshis":123456}}]' in reply.text


@pytest.mark.parametrize("written, amount", [
    ("1", 1), ("2100000000000000", 2100000000000000), ("2100000000000000.0", 2100000000000000), ("1.0", 1), ("1e3", 1000),
    ("1.5E1", 15), ("2099999999999999", 2099999999999999),
])
def test_an_amount_is_any_whole_number_of_json(paying, written, amount):
    reply = ask_with(paying, f'{{"satoshis": {written}}}')
    assert (reply.status_code, reply.json()["outputs"][0]["satoshis"]) == (200, amount)
    assert f'"satoshis":{amount}}}' in reply.text


@pytest.mark.parametrize("written", [
    "0", "-1", "-0", "0.0", "1.5", "0.1", "2100000000000001", "2100000000000000.5", "1e16", "1e400", "9223372036854775807",
    "9223372036854775808", "18446744073709551616", '"5"', "true", "false", "null", "[5]", '{"satoshis": 5}', '""',
])
def test_what_is_no_amount_is_refused(paying, written):
    reply = ask_with(paying, f'{{"satoshis": {written}}}')
    assert (reply.status_code, reply.text) == (400, refusal(*BAD_AMOUNT).replace('"satoshis"', '\\"satoshis\\"'))


@pytest.mark.parametrize("body", ["", "{}", "[]", "5", '{"amount": 5}'])
def test_a_question_without_an_amount_is_refused(paying, body):
    assert ask_with(paying, body).json()["code"] == "brasslet_amount"


def test_an_amount_that_is_not_in_a_json_body_is_none(paying):
    assert ask_with(paying, "satoshis=5", kind="application/x-www-form-urlencoded").json()["code"] == "brasslet_amount"
    assert ask_with(paying, "{}", alias="alice?satoshis=5").json()["code"] == "brasslet_amount"


def test_the_payer_does_not_choose_who_is_paid(paying):
    reply = ask_with(paying, '{"satoshis": 5, "alias": "a.b+c-d_e"}', alias="alice?alias=a.b%2Bc-d_e")
    assert reply.json()["outputs"][0]["script"] == SCRIPT


def test_a_name_that_nobody_published_has_no_outputs(paying):
    reply = ask(paying, "carol")
    assert (reply.status_code, reply.text) == (404, NO_PAYMAIL)


def test_a_name_whose_address_is_damaged_is_not_offered(paying):
    reply = ask(paying, "damaged")
    assert (reply.status_code, reply.text) == (500, refusal(
        "brasslet_damaged", "What the site has stored for this name is damaged. Ask its owner to publish the name again.",
        500))


def test_references_are_short_and_need_no_escaping(paying):
    longest = made_reference(paying, {**ALICE, "alias": "a" * 64, "address": "1" * 35}, 2100000000000000)
    assert len(longest) < 256
    assert set(longest) <= set("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-_.")


@pytest.mark.parametrize("alias, key, match", [
    ("alice", PUBKEY, True), ("ALICE", PUBKEY.upper(), True), ("alice", OTHER_PUBKEY, False),
    ("a.b+c-d_e", OTHER_PUBKEY, True),
    ("a.b%2Bc-d_e", OTHER_PUBKEY, True), ("carol", PUBKEY, False),
])
def test_a_key_belongs_to_the_name_that_was_published_with_it(paying, alias, key, match):
    reply = paying.get(f"/verify-public-key/{alias}/{key}")
    handle = alias.lower().replace("%2b", "+") + "@" + paying.host
    assert (reply.status_code, reply.json()) == (200, {"bsvalias": "1.0", "handle": handle, "pubkey": key.lower(), "match": match})


@pytest.mark.parametrize("alias, key", [
    ("alice", PUBKEY[:-1]), ("alice", PUBKEY + "0"), ("alice", "04" + PUBKEY[2:]), ("alice", "x"), ("a" * 65, PUBKEY),
    ("%25", PUBKEY),
])
def test_a_question_about_no_key_or_no_name_is_refused(paying, alias, key):
    reply = paying.get(f"/verify-public-key/{alias}/{key}")
    assert (reply.status_code, reply.text) == (400, BAD_KEY)
