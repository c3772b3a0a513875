"""What the broadcaster answers, and what the payer is told: an id only when the broadcaster has the transaction."""

import json
import threading

import pytest

from broadcaster import MARKUP, txid_of
from names import SCRIPT, row
from payments import ALLOW, claims, deliver, paid, reference_of, switch_on, transaction
from wordpress import WORLD_DIR

PAYS = transaction((SCRIPT, 1000))
TXID = txid_of(PAYS)
KEY = "mainnet_0123456789abcdef"

REFUSED = (422, "brasslet_refused", "The broadcaster refused the transaction. The payment was not made.")
FEE = (422, "brasslet_fee", "The broadcaster refused the transaction: its fee is too low. Pay again with a higher one.")
SPENT = (409, "brasslet_double_spend",
         "The coins of this transaction are unknown to the broadcaster, or spent by another. Do not count on it.")
ORPHAN = (424, "brasslet_orphan",
          "The network may take this transaction when it knows what it spends. Send that, then deliver this again.")
CLOSED = (502, "brasslet_closed",
          "The broadcaster of this site takes no transactions from it. Tell the owner of the site. Nothing was sent.")
UNREACHABLE = (502, "brasslet_unreachable",
               "The broadcaster of this site cannot be reached. Deliver the same transaction again later. Nothing was sent.")
UNCLEAR = "The broadcaster gave no clear answer: the payment may have been sent. Deliver the same transaction again."
UNUSABLE, LATE = (502, "brasslet_unknown", UNCLEAR), (504, "brasslet_unknown", UNCLEAR)


@pytest.fixture
def paying(site):
    site.set_record({"rows": [row("alice")]})
    switch_on(site)
    return site


def told(reply):
    """Status, code and message of a refusal; nothing of what the broadcaster wrote is in it."""
    found = reply.json()
    assert MARKUP not in reply.text and "said by" not in reply.text and KEY not in reply.text
    return reply.status_code, found["code"], found["message"]


def refused(site, as_what):
    """Whether the delivery was refused so, and leaves nothing behind: another one is as good as the first."""
    assert told(deliver(site, PAYS, reference_of(site))) == as_what
    assert claims(site) == {}


@pytest.mark.parametrize("status", [
    "QUEUED", "RECEIVED", "STORED", "ANNOUNCED_TO_NETWORK", "REQUESTED_BY_NETWORK", "SENT_TO_NETWORK", "ACCEPTED_BY_NETWORK",
    "SEEN_ON_NETWORK", "MINED",
])
@pytest.mark.parametrize("http", [200, 201])
def test_a_transaction_that_arc_has_is_paid(paying, broadcaster, status, http):
    broadcaster.answer = broadcaster.say(status, http)
    reply = deliver(paying, PAYS, reference_of(paying))
    assert (reply.status_code, reply.json()) == (200, paid(PAYS))
    assert claims(paying) == {TXID: "accepted"}


@pytest.mark.parametrize("status, as_what", [
    ("REJECTED", REFUSED), ("DOUBLE_SPEND_ATTEMPTED", SPENT), ("SEEN_IN_ORPHAN_MEMPOOL", ORPHAN), ("UNKNOWN", UNUSABLE),
    ("MINED_IN_STALE_BLOCK", UNUSABLE), ("", UNUSABLE), ("seen_on_network", UNUSABLE), ("SEEN_ON_NETWORK ", UNUSABLE),
    ("NEW", UNUSABLE),
    (None, UNUSABLE), (True, UNUSABLE), (["MINED"], UNUSABLE), ("QUEUED RECEIVED", UNUSABLE),
])
def test_a_transaction_that_arc_does_not_have_is_not_paid(paying, broadcaster, status, as_what):
    broadcaster.answer = broadcaster.say(status)
    refused(paying, as_what)


@pytest.mark.parametrize("status, as_what", [
    (400, REFUSED), (409, REFUSED), (422, REFUSED), (460, REFUSED), (461, REFUSED), (462, SPENT), (463, REFUSED),
    (464, REFUSED), (465, FEE),
    (466, SPENT), (467, REFUSED), (471, REFUSED), (472, REFUSED), (473, FEE), (475, REFUSED), (401, CLOSED), (403, CLOSED),
    (404, CLOSED),
    (429, CLOSED), (500, UNUSABLE), (503, UNUSABLE),
])
def test_a_problem_document_becomes_a_sentence_of_the_site(paying, broadcaster, status, as_what):
    broadcaster.answer = broadcaster.refuse(status)
    refused(paying, as_what)
    # ARC writes some of them into an answer with the status 200.
    broadcaster.answer = broadcaster.refuse(status, 200)
    refused(paying, as_what)


@pytest.mark.parametrize("status", [400, 402, 404, 405, 409, 413, 429, 461, 465])
@pytest.mark.parametrize("body", [f"<html>{MARKUP}</html>", "", '{"status":400.5}', '{"message":"no"}', "null", '"465"'])
def test_a_page_with_an_error_is_not_arcs_word_about_the_transaction(paying, broadcaster, status, body):
    broadcaster.answer = broadcaster.plain(status, body)
    refused(paying, CLOSED)


@pytest.mark.parametrize("status", [301, 302, 307, 308])
def test_no_redirect_is_followed(paying, broadcaster, status):
    broadcaster.answer = broadcaster.plain(status, "", Location=f"https://{paying.host}/elsewhere")
    since = (WORLD_DIR / "logs" / "access.log").stat().st_size
    refused(paying, CLOSED)
    assert len(broadcaster.requests) == 1
    assert "/elsewhere" not in (WORLD_DIR / "logs" / "access.log").read_text()[since:]


@pytest.mark.parametrize("body", [
    f"<html>{MARKUP}</html>", "", "{", "[]", "null", "5", '"SEEN_ON_NETWORK"', '{"txStatus":"MINED"}',
    '{"txid":5,"txStatus":"MINED"}',
    json.dumps({"txid": "00" * 32, "txStatus": "MINED"}), json.dumps({"txid": TXID}),
    json.dumps([{"txid": TXID, "txStatus": "MINED"}]),
    json.dumps({"txid": TXID, "txStatus": "MINED", "merklePath": "00" * 40000}),
], ids=["html", "empty", "cut", "list", "null", "number", "string", "no id", "id is no text", "another id", "no status",
"in a list", "too long"])
def test_an_answer_that_does_not_say_that_arc_has_this_transaction_is_none(paying, broadcaster, body):
    broadcaster.answer = broadcaster.plain(200, body)
    refused(paying, UNUSABLE)


def test_what_surrounds_the_status_does_not_matter(paying, broadcaster):
    body = json.dumps({"txid": TXID.upper(), "txStatus": "MINED", "x": "00" * 30000})
    broadcaster.answer = broadcaster.plain(200, body, **{"Content-Type": "text/html"})
    assert deliver(paying, PAYS, reference_of(paying)).json() == paid(PAYS)


def test_a_connection_that_is_cut_leaves_the_payer_in_no_doubt_about_the_doubt(paying, broadcaster):
    broadcaster.answer = lambda txid: None
    refused(paying, LATE)
    broadcaster.answer = broadcaster.accept
    assert deliver(paying, PAYS, reference_of(paying)).json() == paid(PAYS)
    assert broadcaster.transactions == [PAYS, PAYS]


HASTE = "add_filter( 'http_request_args', function ( $args ) { $args['timeout'] = 1; return $args; } );"


def test_an_answer_that_comes_too_late_is_asked_for_by_the_next_delivery(paying, broadcaster):
    """The broadcaster has the transaction by then, as ARC takes one that it has."""
    paying.hook(ALLOW + HASTE)
    told_so = threading.Event()
    broadcaster.answer = lambda txid: (told_so.wait(60), broadcaster.accept(txid))[1]
    try:
        refused(paying, LATE)
        assert broadcaster.transactions == [PAYS]
    finally:
        told_so.set()
    broadcaster.answer = broadcaster.say("MINED")
    assert deliver(paying, PAYS, reference_of(paying)).json() == paid(PAYS)


def test_the_time_for_an_answer_is_longer_than_arcs_own_and_shorter_than_the_hosts(site):
    assert 5 < site.php("return BRASSLET_BROADCAST_SECONDS;") <= 20
    names = ("BRASSLET_BROADCAST_SECONDS", "BRASSLET_CLAIM_PATIENCE", "BRASSLET_CLAIM_SECONDS")
    broadcast, patience, claim = site.php(f"return array( {', '.join(names)} );")
    assert broadcast < patience < claim
