"""Who floods the site with payments that are none costs it little, and nothing in the database."""

import json
import re

import pytest

from names import SCRIPT, refusal, row
from payments import ALLOW, deliver, made_reference, paid, reference_of, switch_on, transaction
from wordpress import WORLD_DIR

ALICE = row("alice")
PAYS = transaction((SCRIPT, 1000))
LIMIT = 262144
TOO_LONG = refusal(
    "brasslet_too_long", "This request is longer than 262,144 bytes. Nothing was sent; pay with a smaller transaction.", 413)

# Writes down what each request asked of the database, and whether it parsed a transaction or JSON.
COUNT = ALLOW + """
    define( 'SAVEQUERIES', true );
    add_action( 'shutdown', function () {
        $said = array_map( function ( $query ) { return $query[0]; }, $GLOBALS['wpdb']->queries );
        file_put_contents( getenv( 'WORLD_DIR' ) . '/queries', json_encode( $said ) );
    } );
    add_filter( 'rest_pre_dispatch', function ( $result ) {
        touch( getenv( 'WORLD_DIR' ) . '/dispatched' );
        return $result;
    } );
"""


@pytest.fixture
def paying(site):
    site.set_record({"rows": [ALICE]})
    switch_on(site)
    return site


def queries(site, send):
    """What the request asked of the database, with the numbers of its moment left out."""
    reply = send()
    said = json.loads((WORLD_DIR / "queries").read_text())
    return reply.json()["code"], [re.sub(r"\d{9,}", "N", query) for query in said]


def posted(site, path, body):
    return lambda: site.request("POST", f"/wp-json/brasslet/v1/{path}", json=body)


def test_a_wrong_reference_costs_no_query(paying, broadcaster):
    good = made_reference(paying, ALICE)
    old = made_reference(paying, ALICE, age=90000)
    paying.hook(COUNT)
    _, unknown = queries(paying, posted(paying, "no-such-route", {"hex": PAYS, "reference": good}))
    for reference, code in ((good[:-1] + "_", "brasslet_reference"), ("x", "brasslet_reference"), (old, "brasslet_expired")):
        seen = queries(paying, posted(paying, "receive-transaction/alice", {"hex": PAYS, "reference": reference}))
        assert seen == (code, unknown)
    for name, hexadecimal, code in (("bob", PAYS, "brasslet_other_name"), ("alice", "00", "brasslet_transaction"),
                                    ("alice", transaction((SCRIPT, 1)), "brasslet_unpaid")):
        seen = queries(paying, posted(paying, f"receive-transaction/{name}", {"hex": hexadecimal, "reference": good}))
        assert seen == (code, unknown)
    assert queries(paying, posted(paying, "p2p-payment-destination/alice", {"satoshis": 0})) == ("brasslet_amount", unknown)
    assert broadcaster.requests == []


def test_the_switch_costs_no_query(site):
    """Neither on nor off, nor where it was never touched."""
    site.hook(COUNT)
    _, never = queries(site, posted(site, "no-such-route", {}))
    switch_on(site)
    site.hook(COUNT)
    _, switched_on = queries(site, posted(site, "no-such-route", {}))
    switch_on(site, on=False)
    site.hook(COUNT)
    _, switched_off = queries(site, posted(site, "no-such-route", {}))
    assert never == switched_on == switched_off
    assert "brasslet_payments" not in str(never)


def test_the_reference_is_looked_at_before_the_transaction(paying):
    """A transaction that would take the parser its time is not even looked at."""
    found = paying.php("""
        $request = new WP_REST_Request( 'POST' );
        $request->set_url_params( array( 'alias' => 'alice' ) );
        $request->set_header( 'Content-Type', 'application/json' );
        $request->set_body( json_encode( array( 'hex' => 'not hex', 'reference' => 'x' ) ) );
        $before = $wpdb->num_queries;
        return array( brasslet_receive_transaction( $request )->get_error_code(), $wpdb->num_queries - $before );
    """)
    assert found == ["brasslet_reference", 0]


@pytest.fixture
def watched(paying):
    """Its requests are looked at from here on."""
    paying.hook(COUNT)
    (WORLD_DIR / "dispatched").unlink(missing_ok=True)
    return paying


def test_a_body_that_is_too_long_is_refused_before_wordpress_reads_it(watched, broadcaster):
    for path in ("receive-transaction/alice", "p2p-payment-destination/alice"):
        for body in (json.dumps({"hex": "00" * LIMIT}), "{" * (LIMIT + 1), " " * 3000000):
            headers = {"Content-Type": "application/json"}
            reply = watched.request("POST", f"/wp-json/brasslet/v1/{path}", data=body, headers=headers)
            assert (reply.status_code, reply.text) == (413, TOO_LONG)
            assert reply.headers["Access-Control-Allow-Origin"] == "*"
    assert not (WORLD_DIR / "dispatched").exists()


def test_a_body_of_just_the_length_is_read(watched, broadcaster):
    body = {"hex": PAYS, "reference": made_reference(watched, ALICE), "metadata": {"note": ""}}
    body["metadata"]["note"] = "n" * (LIMIT - len(json.dumps(body)))
    assert len(json.dumps(body)) == LIMIT
    headers = {"Content-Type": "application/json"}
    assert deliver(watched, "", "", json=None, data=json.dumps(body), headers=headers).json() == paid(PAYS)
    assert (WORLD_DIR / "dispatched").exists()
    longer = deliver(watched, "", "", json=None, data=json.dumps(body) + " ", headers=headers)
    assert longer.status_code == 413


@pytest.mark.parametrize("told", ["unset( $_SERVER['CONTENT_LENGTH'] );", "$_SERVER['CONTENT_LENGTH'] = '5';"])
def test_a_body_is_measured_whatever_its_length_is_said_to_be(watched, broadcaster, told):
    """Web servers hand over bodies that come in chunks without a length."""
    watched.hook(COUNT + told)
    body = json.dumps({"hex": PAYS, "reference": made_reference(watched, ALICE)})
    headers = {"Content-Type": "application/json"}
    assert deliver(watched, "", "", json=None, data=body, headers=headers).status_code == 200
    (WORLD_DIR / "dispatched").unlink()
    assert deliver(watched, "", "", json=None, data=body + " " * LIMIT, headers=headers).status_code == 413
    assert not (WORLD_DIR / "dispatched").exists()


def test_while_it_is_switched_off_no_body_is_measured(site):
    reply = site.send("POST", site.name_members(more="x" * LIMIT))
    assert reply.status_code == 200
    switch_on(site)
    assert site.send("POST", site.name_members(more="x" * LIMIT)).status_code == 413
    assert site.request("POST", "/wp-json/wp/v2/posts", json={"x": "x" * LIMIT}).status_code == 401


def test_a_flood_of_questions_leaves_nothing_in_the_database(paying):
    count = "return (int) $wpdb->get_var( \"SELECT COUNT(*) FROM $wpdb->options\" );"
    before = paying.php(count)
    for amount in range(1, 20):
        reference_of(paying, satoshis=amount)
        deliver(paying, transaction((SCRIPT, amount), seed=amount), "x")
    assert paying.php(count) == before
