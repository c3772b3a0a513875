"""With a persistent object cache in a real Redis: the plugin reads and writes past it, and leaves nothing old in it."""

import contextlib
import json
import shutil
import subprocess
import time
from pathlib import Path

import pytest

from broadcaster import URL, listening
from crowd import addresses, work_at_once
from names import OTHER_ADDRESS, SCRIPT, record, row
from owner_page import OwnerPage
from payments import ALLOW, deliver, paid, reference_of, transaction
from wordpress import WORLD, WORLD_DIR

SOCKET = WORLD_DIR / "redis.sock"
OLD, NEW = {"rows": [row("alice")]}, {"rows": [row("alice", address=OTHER_ADDRESS)]}

# What a reader of the option gets; the cache keeps it from then on.
GET = "return array( wp_using_ext_object_cache(), get_option( 'brasslet_record', null ) );"


@contextlib.contextmanager
def redis():
    command = ["redis-server", "--port", "0", "--unixsocket", SOCKET, "--save", "", "--dir", WORLD_DIR, "--daemonize", "no"]
    with subprocess.Popen(command, stdout=subprocess.DEVNULL) as server:
        try:
            limit = time.monotonic() + 60
            while subprocess.run(["redis-cli", "-s", SOCKET, "ping"], capture_output=True, check=False).stdout != b"PONG\n":
                assert time.monotonic() < limit and server.poll() is None, "Redis does not answer."
                time.sleep(0.01)
            yield
        finally:
            server.terminate()
    SOCKET.unlink(missing_ok=True)


@pytest.fixture
def cached(site):
    drop_in = site.content / "object-cache.php"
    with redis():
        shutil.copy(Path(__file__).parent / "object_cache.php", drop_in)
        try:
            yield site
        finally:
            drop_in.unlink()


def inside(site, code, value=None):
    """What the code returns in a WordPress that has begun after the object cache was there."""
    code = f"$v = json_decode( '{json.dumps(value)}', true ); global $wpdb; echo json_encode( ( function () use ( $v, $wpdb ) {{ {code} }} )() );"
    done = subprocess.run([WORLD / "wp", site.host, code], check=True, capture_output=True, text=True, timeout=60)
    return json.loads(done.stdout)


def write_past_the_cache(site, value):
    """As another program writes to the database, or a cache misses what was told to forget."""
    site.php("""
        $wpdb->update( $wpdb->options, array( 'option_value' => serialize( $v ) ), array( 'option_name' => 'brasslet_record' ) );
    """, value)


def test_the_object_cache_serves_old_values_to_those_who_ask_it(cached):
    cached.set_record(OLD)
    assert inside(cached, GET) == [True, OLD]
    write_past_the_cache(cached, NEW)
    assert inside(cached, GET) == [True, OLD]


def test_a_lookup_never_answers_an_old_address_from_the_cache(cached):
    cached.set_record(OLD)
    inside(cached, GET)
    write_past_the_cache(cached, NEW)
    assert cached.get("/address/alice").json() == {"address": OTHER_ADDRESS}


def test_a_save_is_made_from_the_record_and_not_from_an_old_one_in_the_cache(cached):
    cached.set_record(record("alice"))
    inside(cached, GET)
    write_past_the_cache(cached, record("alice", "bob"))
    assert cached.publish(alias="carol").json()["aliases"] == ["alice", "bob", "carol"]
    assert inside(cached, GET) == [True, record("alice", "bob", "carol")]


def test_a_removal_is_made_from_the_record_and_not_from_an_old_one_in_the_cache(cached):
    cached.set_record(record("alice"))
    inside(cached, GET)
    write_past_the_cache(cached, record("alice", "bob"))
    assert cached.remove("alice").json()["aliases"] == ["bob"]
    assert inside(cached, GET) == [True, record("bob")]


def test_the_first_record_is_seen_by_those_who_had_found_none(cached):
    assert inside(cached, GET) == [True, None]
    assert cached.publish(alias="alice").status_code == 200
    assert inside(cached, GET) == [True, record("alice")]


def test_a_record_that_was_loaded_with_every_page_is_forgotten_there_too(cached):
    cached.set_record(OLD, autoload=True)
    assert inside(cached, GET) == [True, OLD]
    cached.publish(alias="alice", address=OTHER_ADDRESS)
    assert inside(cached, GET) == [True, NEW]
    assert "brasslet_record" not in inside(cached, "return array_keys( wp_load_alloptions() );")


PLANT = """
    $old = serialize( $v );
    wp_cache_set( 'brasslet_record', $old, 'options' );
    wp_cache_set( 'alloptions', array( 'brasslet_record' => $old ) + wp_load_alloptions(), 'options' );
    wp_cache_set( 'notoptions', array( 'brasslet_record' => true ), 'options' );
    return wp_using_ext_object_cache();
"""


def test_whatever_stands_in_the_cache_names_are_read_and_written_in_the_database(cached):
    cached.set_record(NEW)
    assert inside(cached, PLANT, OLD) is True
    assert cached.get("/address/alice").json() == {"address": OTHER_ADDRESS}
    assert inside(cached, PLANT, OLD) is True
    assert cached.publish(alias="bob").json()["aliases"] == ["alice", "bob"]
    assert inside(cached, GET) == [True, {"rows": [*NEW["rows"], row("bob")]}]


def test_of_400_saves_and_removes_at_once_each_keeps_what_its_reply_promised(cached):
    promised, complaints = work_at_once(cached)
    assert complaints == []
    assert inside(cached, GET)[0] is True
    assert addresses(cached.record()) == promised
    assert addresses(inside(cached, GET)[1]) == promised


def test_the_switch_and_the_key_are_read_as_the_page_has_stored_them(cached):
    def offered():
        return "2a40af698840" in cached.request("GET", "/.well-known/bsvalias").text

    cached.set_record(record("alice"))
    cached.hook(ALLOW)
    page = OwnerPage(cached, cached.admin)
    with listening() as broadcaster:
        assert not offered()
        for key in ("one-key", "another-key"):
            broadcaster.key = key
            assert page.save(on="1", broadcaster=URL, key=key).said() == [("success", "Saved.")]
            assert offered()
            pays = transaction((SCRIPT, 1000), seed=len(key))
            answers = [deliver(cached, pays, reference_of(cached)).json() for _ in range(2)]
            assert answers == [paid(pays)] * 2
        assert len(broadcaster.transactions) == 2
    page.save(broadcaster=URL, key="")
    assert not offered()
    assert inside(cached, "return wp_using_ext_object_cache();") is True
