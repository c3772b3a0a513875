"""The same transaction delivered twice is broadcast once, and leaves a row only when the broadcaster has it."""

import os
import signal
import threading
import time
from concurrent.futures import ThreadPoolExecutor

import pytest

from broadcaster import txid_of
from names import OTHER_ADDRESS, SCRIPT, row
from payments import ALLOW, claims, deliver, paid, reference_of, switch_on, transaction
from wordpress import WORLD_DIR

PAYS = transaction((SCRIPT, 1000))
TXID = txid_of(PAYS)
SECONDS = 60

BUSY = (503, "brasslet_busy", "This very transaction is being sent. Deliver it again in a minute to hear what became of it.")
STORE = (500, "brasslet_store",
         "The database of the site takes nothing at the moment. Deliver the same transaction again later. Nothing was sent.")

# Tells that a request has found a claim of somebody else's, by its looking a second time.
WAITS = ALLOW + """
    add_filter( 'query', function ( $sql ) {
        static $looks = 0;
        if ( 0 === strpos( $sql, 'SELECT option_value' ) && strpos( $sql, "'brasslet_tx_" ) && ++$looks > 2 ) {
            touch( getenv( 'WORLD_DIR' ) . '/waits-' . getmypid() );
        }
        return $sql;
    } );
"""
LEFT = """
    $sql = "SELECT option_value - UNIX_TIMESTAMP() FROM $wpdb->options WHERE option_name = %s";
    return (float) $wpdb->get_var( $wpdb->prepare( $sql, 'brasslet_tx_' . $v ) );
"""

CLAIM = """
    $wpdb->query( $wpdb->prepare(
        "REPLACE INTO $wpdb->options ( option_name, option_value, autoload )
        VALUES ( %s, CONCAT( UNIX_TIMESTAMP() + %d, ' ', %s ), 'no' )",
        'brasslet_tx_' . $v[0], $v[1], $v[2]
    ) );
"""


@pytest.fixture
def paying(site):
    site.set_record({"rows": [row("alice")]})
    switch_on(site)
    return site


@pytest.fixture
def slow(broadcaster):
    """A broadcaster that answers when it is let go."""
    broadcaster.let_go = threading.Event()
    broadcaster.answer = lambda txid: (broadcaster.let_go.wait(SECONDS), broadcaster.accept(txid))[1]
    yield broadcaster
    broadcaster.let_go.set()


def told(reply):
    found = reply.json()
    return reply.status_code, found["code"], found["message"]


def test_the_second_delivery_gets_the_same_answer_and_nothing_is_sent_again(paying, broadcaster):
    replies = [deliver(paying, PAYS, reference) for reference in [reference_of(paying)] * 2 + [reference_of(paying)]]
    assert {(reply.status_code, reply.text) for reply in replies} == {(200, replies[0].text)}
    assert replies[0].json() == paid(PAYS)
    assert (broadcaster.transactions, claims(paying)) == ([PAYS], {TXID: "accepted"})


def test_a_payment_that_was_made_is_told_also_after_the_name_has_changed(paying, broadcaster):
    reference = reference_of(paying)
    assert deliver(paying, PAYS, reference).json() == paid(PAYS)
    for rows in ([row("alice", address=OTHER_ADDRESS)], []):
        paying.set_record({"rows": rows})
        assert deliver(paying, PAYS, reference).json() == paid(PAYS)
    assert broadcaster.transactions == [PAYS]


def test_two_deliveries_at_the_same_moment_are_one_broadcast(paying, slow):
    paying.hook(WAITS)
    reference = reference_of(paying)
    with ThreadPoolExecutor() as payers:
        first = payers.submit(deliver, paying, PAYS, reference)
        assert slow.arrived.wait(SECONDS)
        second = payers.submit(deliver, paying, PAYS, reference)
        try:
            while not list(WORLD_DIR.glob("waits-*")):
                assert not second.done()
                time.sleep(0.01)
        finally:
            slow.let_go.set()
        assert first.result(SECONDS).json() == second.result(SECONDS).json() == paid(PAYS)
    for mark in WORLD_DIR.glob("waits-*"):
        mark.unlink()
    assert (slow.transactions, claims(paying)) == ([PAYS], {TXID: "accepted"})


def test_of_many_deliveries_at_once_each_is_answered_and_each_transaction_is_sent_once(paying, broadcaster):
    reference = reference_of(paying)
    wanted = [transaction((SCRIPT, 1000), seed=seed) for seed in range(6)]
    together = threading.Barrier(12)

    def work(hexadecimal):
        together.wait(SECONDS)
        return deliver(paying, hexadecimal, reference).json()

    with ThreadPoolExecutor(12) as payers:
        assert list(payers.map(work, wanted * 2)) == [paid(hexadecimal) for hexadecimal in wanted * 2]
    assert sorted(broadcaster.transactions) == sorted(wanted)


# The waiting is the same in every WordPress, and takes its seconds.
@pytest.mark.parametrize("site", ["stable"], indirect=True)
def test_who_waits_too_long_is_told_to_come_again(paying, broadcaster):
    paying.php(CLAIM, [TXID, 60, "somebody"])
    assert told(deliver(paying, PAYS, reference_of(paying))) == BUSY
    assert (broadcaster.requests, claims(paying)) == ([], {TXID: "somebody"})


@pytest.mark.parametrize("token", ["somebody", "accepted"])
def test_a_claim_that_counts_no_more_is_taken_over(paying, broadcaster, token):
    """As that of a PHP process that was killed, and of a transaction that was sent the day before."""
    paying.php(CLAIM, [TXID, -1, token])
    assert deliver(paying, PAYS, reference_of(paying)).json() == paid(PAYS)
    assert (broadcaster.transactions, claims(paying)) == ([PAYS], {TXID: "accepted"})


def test_a_killed_php_process_leaves_a_claim_that_ends_by_itself(paying, slow):
    paying.hook(ALLOW + "file_put_contents( getenv( 'WORLD_DIR' ) . '/pid', getmypid() );")
    reference = reference_of(paying)
    with ThreadPoolExecutor() as payers:
        first = payers.submit(deliver, paying, PAYS, reference)
        assert slow.arrived.wait(SECONDS)
        os.kill(int((WORLD_DIR / "pid").read_text()), signal.SIGKILL)
        # nginx says the first, Apache the second of them.
        assert first.result(SECONDS).status_code in (502, 503)
    slow.let_go.set()
    [holder] = claims(paying).values()
    assert holder != "accepted"
    assert 0 < paying.php(LEFT, TXID) <= 30
    paying.php(CLAIM, [TXID, -1, holder])
    assert deliver(paying, PAYS, reference).json() == paid(PAYS)


@pytest.mark.parametrize("end", ["exit( 'over' );", "trigger_error( 'over', E_USER_ERROR );"])
def test_a_claim_is_let_go_when_php_ends_in_the_middle(paying, broadcaster, end):
    paying.hook(ALLOW + "add_filter( 'pre_http_request', function () { " + end + " } );")
    deliver(paying, PAYS, reference_of(paying))
    assert (broadcaster.requests, claims(paying)) == ([], {})


def test_after_a_refusal_the_payer_may_try_again(paying, broadcaster):
    reference = reference_of(paying)
    broadcaster.answer = broadcaster.refuse(465)
    assert deliver(paying, PAYS, reference).status_code == 422
    assert claims(paying) == {}
    broadcaster.answer = broadcaster.accept
    assert deliver(paying, PAYS, reference).json() == paid(PAYS)
    assert broadcaster.transactions == [PAYS, PAYS]


def test_what_was_accepted_stays_for_a_day_and_is_cleaned_away_then(paying, broadcaster):
    old, held, other = (txid_of(transaction((SCRIPT, 1), seed=seed)) for seed in (7, 8, 9))
    for txid, seconds, token in ((old, -1, "accepted"), (held, 20, "somebody"), (other, 60, "accepted")):
        paying.php(CLAIM, [txid, seconds, token])
    deliver(paying, PAYS, reference_of(paying))
    assert claims(paying) == {held: "somebody", other: "accepted", TXID: "accepted"}
    assert 86400 - 60 < paying.php(LEFT, TXID) <= 86400


def test_only_rows_about_transactions_are_cleaned_away(paying, broadcaster):
    paying.php("add_option( 'brassletXtx_1', '5' ); add_option( 'brasslet_tx', '5' );")
    deliver(paying, PAYS, reference_of(paying))
    assert paying.php("return array( get_option( 'brassletXtx_1' ), get_option( 'brasslet_tx' ) );") == ["5", "5"]
    paying.php("delete_option( 'brassletXtx_1' ); delete_option( 'brasslet_tx' );")


def test_where_the_database_takes_no_claim_nothing_is_sent(paying, broadcaster):
    paying.hook(ALLOW + """
        add_filter( 'query', function ( $sql ) {
            return 0 === strpos( $sql, 'INSERT' ) && strpos( $sql, "'brasslet_tx_" ) ? 'INSERT INTO nowhere VALUES ( 1 )' : $sql;
        } );
    """)
    assert told(deliver(paying, PAYS, reference_of(paying))) == STORE
    assert broadcaster.requests == []


def test_where_the_database_does_not_remember_the_payer_is_told_all_the_same(paying, broadcaster):
    """And delivered again, the transaction is sent again: the broadcaster knows it."""
    paying.hook(ALLOW + """
        add_filter( 'query', function ( $sql ) {
            return strpos( $sql, 'ON DUPLICATE KEY' ) && strpos( $sql, "'brasslet_tx_" ) ? 'SELECT 1' : $sql;
        } );
    """)
    for _ in range(2):
        assert deliver(paying, PAYS, reference_of(paying)).json() == paid(PAYS)
        assert claims(paying) == {}
    assert broadcaster.transactions == [PAYS, PAYS]


def test_who_sleeps_while_sending_does_not_undo_what_another_has_brought_about(paying, slow):
    """Its claim is taken over meanwhile by somebody whose broadcast fails; the sleeper's was taken."""
    reference = reference_of(paying)
    with ThreadPoolExecutor() as payers:
        sleeper = payers.submit(deliver, paying, PAYS, reference)
        assert slow.arrived.wait(SECONDS)
        paying.php("$wpdb->query( \"DELETE FROM $wpdb->options WHERE option_name LIKE 'brasslet\\_tx\\_%'\" );")
        slow.let_go.set()
        assert sleeper.result(SECONDS).json() == paid(PAYS)
    assert claims(paying) == {TXID: "accepted"}
