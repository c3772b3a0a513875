"""A transaction that is delivered to a name goes to the broadcaster when it pays what its reference promises."""

import pytest

from broadcaster import txid_of
from names import OTHER_ADDRESS, OTHER_SCRIPT, SCRIPT, row
from payments import ask, claims, deliver, made_reference, paid, reference_of, switch_on, transaction

ALICE, BOB = row("alice"), row("bob", address=OTHER_ADDRESS)
PAYS = transaction((SCRIPT, 1000))


@pytest.fixture
def paying(site):
    site.set_record({"rows": [ALICE, BOB]})
    switch_on(site)
    return site


def refusal(reply):
    found = reply.json()
    assert (set(found), found["data"]) == ({"code", "message", "data"}, {"status": reply.status_code}), reply.text
    return reply.status_code, found["code"], found["message"]


def test_a_transaction_that_pays_is_broadcast_and_answered_with_its_id(paying, broadcaster):
    reply = deliver(paying, PAYS, reference_of(paying))
    assert (reply.status_code, reply.json()) == (200, paid(PAYS))
    assert broadcaster.transactions == [PAYS]


def test_the_output_may_stand_anywhere_among_others(paying, broadcaster):
    pays = transaction((OTHER_SCRIPT, 7), ("", 0), ("6a" + "00" * 300, 0), (SCRIPT, 1000), (SCRIPT, 5), inputs=300)
    assert deliver(paying, pays.upper(), reference_of(paying)).json() == paid(pays)
    assert broadcaster.transactions == [pays]


def test_an_alias_may_come_in_any_spelling(paying, broadcaster):
    assert deliver(paying, PAYS, reference_of(paying, "ALICE"), alias="%61lIcE").json() == paid(PAYS)


@pytest.mark.parametrize("outputs", [
    [(SCRIPT, 999)], [(SCRIPT, 1001)], [(SCRIPT, 500), (SCRIPT, 500)], [(OTHER_SCRIPT, 1000)],
    [(SCRIPT + "00", 1000)], [("76a9", 1000)], [(SCRIPT, 0), (OTHER_SCRIPT, 1000)],
], ids=["too little", "too much", "in halves", "to another", "longer script", "shorter script", "amount elsewhere"])
def test_a_transaction_that_does_not_pay_the_reference_is_not_sent(paying, broadcaster, outputs):
    assert refusal(deliver(paying, transaction(*outputs), reference_of(paying))) == (
        422, "brasslet_unpaid",
        "The transaction has no output with the script and the satoshis of its reference. Nothing was sent.")
    assert (broadcaster.requests, claims(paying)) == ([], {})


@pytest.mark.parametrize("hexadecimal", [
    "00", PAYS + "00", PAYS[:-2], PAYS[:-1], "zz" + PAYS[2:], " " + PAYS, PAYS + "\n", "0x" + PAYS,
])
def test_what_is_no_transaction_is_not_sent(paying, broadcaster, hexadecimal):
    assert refusal(deliver(paying, hexadecimal, reference_of(paying))) == (
        400, "brasslet_transaction", "The transaction cannot be read. Nothing was sent.")
    assert (broadcaster.requests, claims(paying)) == ([], {})


def test_a_transaction_of_100000_bytes_is_sent_and_a_longer_one_is_not(paying, broadcaster):
    room = 100000 - len(transaction((SCRIPT, 1000), ("00" * 70000, 0))) // 2 + 70000
    longest = transaction((SCRIPT, 1000), ("00" * room, 0))
    assert len(longest) == 200000
    reference = reference_of(paying)
    assert deliver(paying, longest, reference).json() == paid(longest)
    longer = transaction((SCRIPT, 1000), ("00" * (room + 1), 0))
    assert refusal(deliver(paying, longer, reference)) == (
        413, "brasslet_too_long", "The transaction is longer than 100,000 bytes. Nothing was sent.")
    assert broadcaster.transactions == [longest]


@pytest.mark.parametrize("body", [
    {}, {"hex": PAYS}, {"reference": "1.a.b"}, {"hex": "", "reference": ""}, {"hex": [PAYS], "reference": 5}, [], "text", 5,
    None,
    {"hex": {"hex": PAYS}, "reference": {"reference": "1"}},
])
def test_a_body_without_transaction_and_reference_is_refused(paying, broadcaster, body):
    reply = deliver(paying, "", "", json=body)
    assert refusal(reply) == (400, "brasslet_delivery", 'Send JSON with the members "hex" and "reference".')


def test_a_body_that_is_not_sent_as_json_is_refused(paying, broadcaster):
    form = {"hex": PAYS, "reference": reference_of(paying)}
    assert refusal(deliver(paying, "", "", json=None, data=form))[:2] == (400, "brasslet_delivery")
    query = deliver(paying, "", "", alias=f"alice?hex={PAYS}&reference={form['reference']}", json={})
    assert refusal(query)[:2] == (400, "brasslet_delivery")


def test_a_body_that_is_broken_json_is_refused_by_wordpress(paying, broadcaster):
    reply = deliver(paying, "", "", json=None, data="{", headers={"Content-Type": "application/json"})
    assert (reply.status_code, reply.json()["code"]) == (400, "rest_invalid_json")


@pytest.mark.parametrize("metadata", [
    None, "text", 5, ["list"], {},
    {"note": "<script>alert(1)</script>", "sender": "o'neill@x\"y", "pubkey": 5, "signature": None},
])
def test_what_the_payer_tells_about_himself_goes_nowhere(paying, broadcaster, metadata):
    body = {"hex": PAYS, "reference": reference_of(paying), "metadata": metadata, "alias": "bob", "satoshis": 5}
    reply = deliver(paying, "", "", json=body)
    assert (reply.json(), broadcaster.requests[0]["body"]) == (paid(PAYS), {"rawTx": PAYS})
    assert claims(paying) == {txid_of(PAYS): "accepted"}


def test_a_reference_of_another_name_is_refused(paying, broadcaster):
    reply = deliver(paying, PAYS, reference_of(paying), alias="bob")
    assert refusal(reply) == (
        403, "brasslet_other_name",
        "That reference belongs to another name. Ask for the outputs of the payment again. Nothing was sent.")
    assert broadcaster.requests == []


def test_a_reference_holds_for_a_day(paying, broadcaster):
    assert deliver(paying, PAYS, made_reference(paying, ALICE, age=86400 - 60)).json() == paid(PAYS)
    reply = deliver(paying, transaction((SCRIPT, 1000), seed=2), made_reference(paying, ALICE, age=86400 + 1))
    assert refusal(reply) == (
        410, "brasslet_expired",
        "That reference is older than a day. Ask for the outputs of the payment again. Nothing was sent.")
    assert broadcaster.transactions == [PAYS]


def test_a_name_that_was_removed_meanwhile_is_not_paid(paying, broadcaster):
    reference = reference_of(paying)
    paying.set_record({"rows": [BOB]})
    assert refusal(deliver(paying, PAYS, reference)) == (
        404, "brasslet_miss", "This name is not published any more. Nothing was sent.")
    assert (broadcaster.requests, claims(paying)) == ([], {})


def test_a_name_that_has_got_another_address_meanwhile_is_not_paid_at_the_old_one(paying, broadcaster):
    reference = reference_of(paying)
    paying.set_record({"rows": [row("alice", address=OTHER_ADDRESS)]})
    assert refusal(deliver(paying, PAYS, reference)) == (
        412, "brasslet_moved",
        "This name has got another address meanwhile. Ask for the outputs of the payment again. Nothing was sent.")
    assert (broadcaster.requests, claims(paying)) == ([], {})
    again = ask(paying).json()
    pays = transaction((again["outputs"][0]["script"], 1000))
    assert again["outputs"] == [{"script": OTHER_SCRIPT, "satoshis": 1000}]
    assert deliver(paying, pays, again["reference"]).json() == paid(pays)


def test_one_reference_may_be_paid_twice_by_two_transactions(paying, broadcaster):
    """Each is money for the name, and the payer gets to know of each what became of it."""
    reference, more = reference_of(paying), transaction((SCRIPT, 1000), seed=2)
    assert [deliver(paying, pays, reference).json() for pays in (PAYS, more)] == [paid(PAYS), paid(more)]
    assert broadcaster.transactions == [PAYS, more]


def test_one_transaction_may_pay_two_names(paying, broadcaster):
    both = transaction((SCRIPT, 1000), (OTHER_SCRIPT, 2000))
    assert deliver(paying, both, reference_of(paying)).json() == paid(both)
    assert deliver(paying, both, reference_of(paying, "bob", 2000), alias="bob").json() == paid(both)
    assert broadcaster.transactions == [both]


@pytest.mark.parametrize("method", ["GET", "HEAD", "PUT", "DELETE"])
@pytest.mark.parametrize("route", ["p2p-payment-destination", "receive-transaction"])
def test_nothing_but_post_asks_and_delivers(paying, broadcaster, method, route):
    reply = paying.request(method, f"/wp-json/brasslet/v1/{route}/alice", json={"satoshis": 5})
    assert (reply.status_code, reply.headers["Cache-Control"]) == (404, "no-store")


@pytest.mark.parametrize("route", ["p2p-payment-destination", "receive-transaction", "address"])
def test_a_page_of_another_origin_may_ask_and_deliver(paying, broadcaster, route):
    """As for the question where to pay, which browsers' wallets have always asked."""
    reply = paying.request("OPTIONS", f"/wp-json/brasslet/v1/{route}/alice", headers={
        "Origin": "https://wallet.example", "Access-Control-Request-Method": "POST",
        "Access-Control-Request-Headers": "content-type"})
    assert reply.status_code == 200
    assert reply.headers["Access-Control-Allow-Origin"] == "https://wallet.example"
    assert "POST" in reply.headers["Access-Control-Allow-Methods"]
    assert "Content-Type" in reply.headers["Access-Control-Allow-Headers"]


def test_no_answer_is_kept_by_a_cache(paying, broadcaster):
    reference = reference_of(paying)
    replies = [ask(paying), deliver(paying, PAYS, reference), deliver(paying, PAYS, "x"), ask(paying, satoshis=0),
               paying.get(f"/verify-public-key/alice/{ALICE['pubkey']}")]
    assert {reply.headers["Cache-Control"] for reply in replies} == {"no-store"}
