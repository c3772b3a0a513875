"""The client library of the ecosystem's own SDK pays a name: it asks, signs, delivers, and hears the transaction's id."""

import json

import pytest

from broadcaster import txid_of
from names import OTHER_ADDRESS, OTHER_PUBKEY, OTHER_SCRIPT, PUBKEY, row
from payments import switch_on
from wallets import ask

NAME = "a.b+c-d_e"


@pytest.fixture
def paying(site):
    site.set_record({"rows": [row("alice"), row(NAME, OTHER_PUBKEY, OTHER_ADDRESS)]})
    switch_on(site)
    return site


def pay(site, name=NAME, satoshis=123456, pubkey=OTHER_PUBKEY):
    return ask("bsv_paymail_p2p", f"{name}@{site.host}", str(satoshis), pubkey)


@pytest.mark.parametrize("satoshis", [1, 123456, 2099999999998000])
def test_bsv_paymail_pays_a_name(paying, broadcaster, satoshis):
    found = pay(paying, satoshis=satoshis)
    assert "error" not in found, found
    assert found["outputs"] == [{"script": OTHER_SCRIPT, "satoshis": satoshis}]
    assert (found["valid"], found["txid"], found["match"]) == (True, txid_of(found["hex"]), True)
    assert found["answers"] == [{"txid": found["txid"], "note": "The payment was handed to the network."}] * 2
    assert [request["body"] for request in broadcaster.requests] == [{"rawTx": found["hex"]}]


def test_bsv_paymail_hears_that_a_key_is_not_the_names(paying, broadcaster):
    assert pay(paying, pubkey=PUBKEY)["match"] is False


def test_bsv_paymail_hears_of_a_refusal(paying, broadcaster):
    broadcaster.answer = broadcaster.refuse(465)
    told = json.loads(pay(paying)["error"])
    assert told["code"] == "brasslet_fee"


def test_bsv_paymail_does_not_pay_a_name_that_nobody_published(paying, broadcaster):
    assert json.loads(pay(paying, "carol")["error"])["message"] == "No paymail."
    assert broadcaster.requests == []


def test_while_it_is_switched_off_bsv_paymail_goes_away(site):
    site.set_record({"rows": [row(NAME)]})
    assert pay(site) == {"error": f'Domain "{site.host}" does not support capability "2a40af698840"'}
