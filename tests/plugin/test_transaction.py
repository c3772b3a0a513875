"""Transactions are parsed from their first byte to their last, and their ids are those that the world knows them by."""

import json
import subprocess
from pathlib import Path

import pytest

from names import OTHER_SCRIPT, SCRIPT
from payments import count, transaction

SDK = Path(__file__).parents[2] / ".deps/paymail-clients/node_modules/@bsv/sdk"

# The coinbase of the first block, the first payment (in block 170), and the example in BRFC 5f1323cddf31.
PUBLISHED = {
    "4a5e1e4baab89f3a32518a88c31bc87f618f76673e2cc77ab2127b7afdeda33b":
        "01000000010000000000000000000000000000000000000000000000000000000000000000ffffffff4d04ffff001d0104455468652054696d6573"
        "2030332f4a616e2f32303039204368616e63656c6c6f72206f6e206272696e6b206f66207365636f6e64206261696c6f757420666f722062616e6b"
        "73ffffffff0100f2052a01000000434104678afdb0fe5548271967f1a67130b7105cd6a828e03909a67962e0ea1f61deb649f6bc3f4cef38c4f355"
        "04e51ec112de5c384df7ba0b8d578a4c702b6bf11d5fac00000000",
    "f4184fc596403b9d638783cf57adfe4c75c605f6356fbc91338530e9831e9e16":
        "0100000001c997a5e56e104102fa209c6a852dd90660a20b2d9c352423edce25857fcd3704000000004847304402204e45e16932b8af514961a1d3"
        "a1a25fdf3f4f7732e9d624c6c61548ab5fb8cd410220181522ec8eca07de4860a4acdd12909d831cc56cbbac4622082221a8768d1d0901ffffffff"
        "0200ca9a3b00000000434104ae1a62fe09c5f51b13905f07f06b99a2f7159b2225f374cd378d71302fa28414e7aab37397f554a7df5f142c21c1b7"
        "303b8a0626f1baded5c72a704f7e6cd84cac00286bee0000000043410411db93e1dcdb8a016b49840f8c53bc1eb68a382e97b1482ecad7b148a690"
        "9a5cb2e0eaddfb84ccf9744464f82e160bfa9b8b64f9d4c03f999b8643f656b412a3ac00000000",
}
AMOUNTS = {"4a5e": [5000000000], "f418": [1000000000, 4000000000]}

PARSE = """
    $found = array();
    foreach ( $v as $hex ) {
        $outputs = brasslet_outputs_in( hex2bin( $hex ) );
        foreach ( $outputs ?? array() as $at => $output ) {
            $outputs[ $at ]['script'] = bin2hex( $output['script'] );
        }
        $found[] = array( brasslet_txid( hex2bin( $hex ) ), $outputs );
    }
    return $found;
"""

# What the SDK of the ecosystem makes of the transactions that Bitcoin's own tests call valid.
KNOWN = """
    const { Transaction } = require('@bsv/sdk');
    const vectors = require(process.argv[1]).filter(vector => Array.isArray(vector[0]));
    console.log(JSON.stringify(vectors.map(([, hex]) => {
        const parsed = Transaction.fromHex(hex);
        const outputs = parsed.outputs.map(output => ({ satoshis: output.satoshis, script: output.lockingScript.toHex() }));
        return [hex, parsed.id('hex'), outputs];
    })));
"""

ONE = transaction((SCRIPT, 1000))
VERSION, INPUT, LOCK = "01000000", ONE[10:92], "00000000"


def parse(site, *transactions):
    return site.php(PARSE, transactions)


def refused(site, hexadecimal):
    return parse(site, hexadecimal)[0][1] is None


@pytest.mark.parametrize("txid", PUBLISHED)
def test_a_published_transaction_has_its_published_id(site, txid):
    [[found, outputs]] = parse(site, PUBLISHED[txid])
    assert (found, [output["satoshis"] for output in outputs]) == (txid, AMOUNTS[txid[:4]])
    assert PUBLISHED[txid].count(outputs[0]["script"]) == 1


def test_the_transactions_of_bitcoins_own_tests_are_read_as_the_sdk_reads_them(site):
    vectors = SDK / "src/script/__tests/fixtures/bitcoin-sv/tx_valid.json"
    command = ["node", "-e", KNOWN, str(vectors)]
    env = {"NODE_PATH": str(SDK.parents[1])}
    told = subprocess.run(command, check=True, capture_output=True, text=True, timeout=60, cwd=SDK.parent, env=env)
    known = json.loads(told.stdout)
    assert len(known) > 50
    assert [[hexadecimal, *found] for (hexadecimal, *_), found in zip(known, parse(site, *(one[0] for one in known)))] == known


def test_each_cut_of_a_transaction_and_each_longer_one_is_refused(site):
    whole = transaction((SCRIPT, 1000), (OTHER_SCRIPT, 5), inputs=2)
    cuts = [whole[:length] for length in range(2, len(whole), 2)]
    assert {outputs is None for _, outputs in parse(site, *cuts, whole + "00", whole + whole)} == {True}
    assert not refused(site, whole)


@pytest.mark.parametrize("number", ["fd0100", "fe01000000", "ff0100000000000000", "fdfc00"])
def test_a_number_that_is_not_in_its_shortest_form_is_refused(site, number):
    """Nodes refuse it too; and two spellings would give one payment two ids."""
    assert refused(site, VERSION + number + INPUT + ONE[92:])
    assert refused(site, VERSION + "01" + INPUT + number + ONE[94:])
    assert refused(site, ONE.replace("19" + SCRIPT, number.replace("01", "19", 1) + SCRIPT))


@pytest.mark.parametrize("length", [0, 1, 0xFC, 0xFD, 0xFFFF, 0x10000])
def test_lengths_are_read_in_their_shortest_form(site, length):
    [[_, outputs]] = parse(site, transaction(("ab" * length, 1), (SCRIPT, 2)))
    assert outputs == [{"satoshis": 1, "script": "ab" * length}, {"satoshis": 2, "script": SCRIPT}]
    assert count(length)[0] == min(length, {True: 0xFD, False: 0xFE}[length <= 0xFFFF])


def test_a_transaction_without_inputs_or_without_outputs_is_refused(site):
    assert refused(site, transaction((SCRIPT, 1000), inputs=0))
    assert refused(site, transaction())
    assert not refused(site, ONE)


def test_a_transaction_of_the_extended_format_is_refused(site):
    assert refused(site, VERSION + "0000000000ef" + ONE[8:])


@pytest.mark.parametrize("number", ["fdffff", "feffffffff", "ffffffffffffffffff", "ff0000000000000080", "ffffffffffffffff7f"])
def test_more_inputs_outputs_or_bytes_than_are_there_are_refused_at_once(site, number):
    assert refused(site, VERSION + number + INPUT + ONE[92:])
    assert refused(site, VERSION + "01" + INPUT + number + ONE[94:])
    assert refused(site, ONE.replace("19" + SCRIPT, number + SCRIPT))


MOST = 2100000000000000


@pytest.mark.parametrize("amounts, right", [
    ([MOST], True), ([0, MOST], True), ([MOST - 1, 1], True), ([0], True), ([MOST + 1], False), ([MOST, 1], False),
    ([1, MOST], False), ([2 ** 63], False), ([2 ** 64 - 1], False), ([2 ** 64 - 1, 1000], False), ([2 ** 63 - 1], False),
])
def test_no_transaction_pays_more_than_there_is(site, amounts, right):
    assert refused(site, transaction(*((SCRIPT, amount) for amount in amounts))) is not right


def test_a_transaction_of_100000_bytes_is_read_and_a_longer_one_is_not(site):
    room = 100000 - len(transaction(("00" * 70000, 0))) // 2 + 70000
    assert not refused(site, transaction(("00" * room, 0)))
    assert refused(site, transaction(("00" * (room + 1), 0)))
    most = (100000 - 10) // 9 - 10
    assert len(parse(site, transaction(*[("", 0)] * most))[0][1]) == most
