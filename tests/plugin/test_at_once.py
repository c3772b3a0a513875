"""Several who publish and remove at the same time: no name is lost, and nobody waits for the dead for ever."""

import os
import re
import signal
import threading
from pathlib import Path

import pytest

from crowd import CLIENTS, ORDERS, addresses, work_at_once
from holding import held
from names import OTHER_ADDRESS, record, refusal, row

BUSY = refusal("brasslet_busy", "The site is busy with other names. Try again in a minute.", 503)

PLANT = """
    $wpdb->query( $wpdb->prepare(
        "REPLACE INTO $wpdb->options ( option_name, option_value, autoload ) VALUES ( 'brasslet_record.lock', %s, 'no' )", $v
    ) );
"""
LOCK = """return $wpdb->get_var( "SELECT option_value FROM $wpdb->options WHERE option_name = 'brasslet_record.lock'" );"""


@pytest.fixture
def one(sites):
    """The waiting is the same in every WordPress, and takes its seconds."""
    site = sites["stable"]
    site.reset()
    yield site
    site.hook("")
    assert site.php(LOCK) is None


def names(site):
    return [found["alias"] for found in site.record()["rows"]]


def test_of_400_saves_and_removes_at_once_each_keeps_what_its_reply_promised(site):
    assert CLIENTS * ORDERS == 400
    promised, complaints = work_at_once(site)
    assert complaints == []
    assert len(promised) > CLIENTS
    assert addresses(site.record()) == promised
    assert site.php(LOCK) is None


@pytest.mark.parametrize("engine", ["MyISAM", "Aria"])
def test_an_engine_without_transactions_loses_no_name_either(one, engine):
    one.php("$wpdb->query( \"ALTER TABLE $wpdb->options ENGINE = $v\" );", engine)
    try:
        promised, complaints = work_at_once(one)
        assert (complaints, addresses(one.record())) == ([], promised)
    finally:
        one.php("$wpdb->query( \"ALTER TABLE $wpdb->options ENGINE = InnoDB\" );")


def test_a_removal_waits_for_a_save_that_is_writing(one):
    one.set_record(record("bob"))
    removals = []
    with held(one, lambda headers: one.publish(alias="alice", headers=headers)) as save:
        other = threading.Thread(target=lambda: removals.append(one.remove("bob")))
        other.start()
        save.wait_until_another_waits()
        assert names(one) == ["bob"]
        assert save.let_go().json()["aliases"] == ["bob", "alice"]
        other.join(60)
    assert removals[0].json()["aliases"] == ["alice"]
    assert names(one) == ["alice"]


def test_a_lookup_never_waits(one):
    one.set_record(record("bob"))
    with held(one, lambda headers: one.publish(alias="alice", headers=headers)) as first:
        assert one.get("/status").json()["alias"] == "bob"
        assert one.get("/id/bob").status_code == 200
        assert first.let_go().json()["aliases"] == ["bob", "alice"]


def test_a_killed_php_process_keeps_the_next_save_waiting_for_seconds_only(one):
    one.set_record(record("bob"))
    with held(one, lambda headers: one.publish(alias="alice", headers=headers)) as first:
        os.kill(first.process, signal.SIGKILL)
        # nginx says the first, Apache the second of them.
        assert first.reply().status_code in (502, 503)
        assert one.php(LOCK) is not None
        reply = one.publish(alias="carol")
        assert (reply.status_code, reply.json()["aliases"]) == (200, ["bob", "carol"])
    assert names(one) == ["bob", "carol"]


def test_who_sleeps_while_holding_the_lock_loses_nothing_of_those_who_took_it_over(one):
    one.set_record(record("alice", "bob"))
    with held(one, lambda headers: one.publish(alias="alice", address=OTHER_ADDRESS, headers=headers)) as sleeper:
        assert one.publish(alias="carol").json()["aliases"] == ["alice", "bob", "carol"]
        assert one.remove("bob").json()["aliases"] == ["alice", "carol"]
        reply = sleeper.let_go()
        assert (reply.status_code, reply.json()["aliases"]) == (200, ["alice", "carol"])
    assert one.record() == {"rows": [row("alice", address=OTHER_ADDRESS), row("carol")]}


def test_who_sleeps_while_making_the_first_record_loses_nothing_either(one):
    with held(one, lambda headers: one.publish(alias="alice", headers=headers)) as sleeper:
        assert one.publish(alias="bob").json()["aliases"] == ["bob"]
        assert sleeper.let_go().json()["aliases"] == ["bob", "alice"]
    assert names(one) == ["bob", "alice"]


def test_who_waits_too_long_is_told_so(one):
    """The lock changes hands all the time, and never comes free."""
    one.set_record(record("bob"))
    before = one.stored()
    replies = []
    waiter = threading.Thread(target=lambda: replies.append(one.publish(alias="alice")))
    one.php(PLANT, "holder 0")
    waiter.start()
    for number in range(1, 10 ** 6):
        waiter.join(1)
        if not waiter.is_alive():
            break
        one.php(PLANT, f"holder {number}")
    assert (replies[0].status_code, replies[0].text) == (503, BUSY)
    assert (one.stored(), one.php(LOCK)) == (before, f"holder {number - 1}")
    one.php("$wpdb->delete( $wpdb->options, array( 'option_name' => 'brasslet_record.lock' ) );")


def test_who_waits_gives_up_in_good_time_before_the_program_does(site):
    request = (Path(__file__).parents[2] / "src/site/site_request.cpp").read_text(encoding="utf-8")
    program = int(re.search(r"transfer_timeout = std::chrono::seconds\((\d+)\)", request)[1])
    expires, patience = site.php("return array( BRASSLET_LOCK_EXPIRES, BRASSLET_LOCK_PATIENCE );")
    assert 0 < expires < patience <= program - 5


@pytest.mark.parametrize("end", [
    "exit( 'over' );", "trigger_error( 'over', E_USER_ERROR );",
    "set_exception_handler( '__return_true' ); throw new Exception( 'over' );",
])
def test_the_lock_is_let_go_when_php_ends_in_the_middle(site, end):
    site.set_record(record("bob"))
    site.hook("""
        add_filter( 'query', function ( $sql ) {
            static $ended = false;
            if ( ! $ended && 0 === strpos( $sql, 'UPDATE' ) && strpos( $sql, "'brasslet_record'" ) ) {
                $ended = true;
                """ + end + """
            }
            return $sql;
        } );
    """)
    site.publish(alias="alice")
    assert (names(site), site.php(LOCK)) == (["bob"], None)


@pytest.mark.parametrize("change", ["return $rows;", "throw new Exception( 'over' );"])
def test_the_lock_is_free_as_soon_as_the_change_is_over(site, change):
    """PHP may go on for long afterwards, and the shell of these tests does."""
    free = site.php("""
        try {
            brasslet_change( function ( $rows ) { """ + change + """ } );
        } catch ( Exception $over ) {
            unset( $over );
        }
        """ + LOCK)
    assert free is None


def test_a_write_that_does_not_stand_is_no_success(site):
    """A filter of another plugin may turn a write into something else, or a database into less than it was given."""
    site.set_record(record("zoe"))
    site.hook("""
        add_filter( 'query', function ( $sql ) {
            return 0 === strpos( $sql, 'UPDATE' ) && strpos( $sql, "'brasslet_record'" ) ? 'SELECT 1' : $sql;
        } );
    """)
    for reply in (site.publish(alias="alice"), site.remove("zoe")):
        assert (reply.status_code, reply.json()["code"]) == (500, "brasslet_store")
    assert names(site) == ["zoe"]
