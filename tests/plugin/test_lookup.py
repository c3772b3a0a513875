"""The public lookups: /wp-json/brasslet/v1/id/NAME and /wp-json/brasslet/v1/address/NAME."""

import pytest

from names import ADDRESS, NO_PAYMAIL, OTHER_ADDRESS, OTHER_PUBKEY, PUBKEY, record, row

TWO = {"rows": [row("alice"), row("bob", OTHER_PUBKEY, OTHER_ADDRESS)]}


def key_body(site, alias, pubkey=PUBKEY):
    return f'{{"bsvalias":"1.0","handle":"{alias}@{site.host}","pubkey":"{pubkey}"}}'


def address_body(address=ADDRESS):
    return f'{{"address":"{address}"}}'


def test_the_key_of_each_name_is_answered(site):
    site.set_record(TWO)
    for alias, key in (("alice", PUBKEY), ("bob", OTHER_PUBKEY)):
        reply = site.get("/id/" + alias)
        assert (reply.status_code, reply.text) == (200, key_body(site, alias, key))


@pytest.mark.parametrize("method", ["GET", "POST"])
def test_the_address_of_each_name_is_answered(site, method):
    site.set_record(TWO)
    for alias, address in (("alice", ADDRESS), ("bob", OTHER_ADDRESS)):
        reply = site.request(method, "/wp-json/brasslet/v1/address/" + alias)
        assert (reply.status_code, reply.text) == (200, address_body(address))


@pytest.mark.parametrize("options", [
    {"json": {"alias": "bob"}}, {"data": {"alias": "bob"}}, {"params": {"alias": "bob"}},
    {"json": {"alias": ["bob"]}, "params": {"alias": "bob"}},
])
def test_only_the_route_says_who_is_paid(site, options):
    site.set_record(TWO)
    assert site.request("POST", "/wp-json/brasslet/v1/address/alice", **options).text == address_body(ADDRESS)


def test_only_the_route_says_whose_key_it_is(site):
    site.set_record(TWO)
    assert site.get("/id/alice", params={"alias": "bob"}).text == key_body(site, "alice")


@pytest.mark.parametrize("spelling", ["ALICE", "Alice", "aLiCe"])
def test_the_lookup_does_not_regard_case(site, spelling):
    site.set_record(record("alice"))
    assert site.get("/id/" + spelling).text == key_body(site, "alice")
    assert site.get("/address/" + spelling).text == address_body()


@pytest.mark.parametrize("alias", ["a.b+c-d_e", "0", "123", "+", "x" * 64])
def test_every_kind_of_alias_is_found(site, alias):
    site.set_record(record(alias))
    assert site.get("/id/" + alias).text == key_body(site, alias)
    assert site.get("/address/" + alias).text == address_body()


def test_an_alias_in_the_query_form_of_the_route_is_found(site):
    site.set_record(record("a+b"))
    reply = site.request("GET", "/?rest_route=/brasslet/v1/id/a%2Bb")
    assert (reply.status_code, reply.text) == (200, key_body(site, "a+b"))


@pytest.mark.parametrize("given", ["a%2Bb", "a+b", "A%2bB", "%61+b"])
def test_the_alias_of_the_route_is_percent_decoded(site, given):
    site.set_record(record("a+b"))
    found = site.php("""
        $request = new WP_REST_Request( 'GET', '/brasslet/v1/id/x' );
        $request->set_url_params( array( 'alias' => $v ) );
        return brasslet_row_for( $request );
    """, given)
    assert found == row("a+b")


@pytest.mark.parametrize("route", ["/id/", "/address/"])
@pytest.mark.parametrize("alias", ["carol", "alic", "alicee", "rows", "x" * 65, "x" * 4000, "1", "-"])
def test_an_unknown_name_is_no_paymail(site, route, alias):
    site.set_record(record("alice", "0"))
    reply = site.get(route + alias)
    assert (reply.status_code, reply.text) == (404, NO_PAYMAIL)


@pytest.mark.parametrize("route", ["/id/alice", "/address/alice"])
def test_without_a_record_every_name_is_no_paymail(site, route):
    assert site.get(route).text == NO_PAYMAIL


def test_an_unknown_name_in_a_post_is_no_paymail(site):
    reply = site.request("POST", "/wp-json/brasslet/v1/address/carol", json={"alias": "alice"})
    assert (reply.status_code, reply.text) == (404, NO_PAYMAIL)


@pytest.mark.parametrize("given", ["a%2Bb", "a%2bb", "A%2BB", "%61%2B%62", "a+b"])
def test_a_name_is_found_in_every_spelling_of_its_path(site, given):
    site.set_record({"rows": [row("a b"), row("a+b", OTHER_PUBKEY, OTHER_ADDRESS), row("a%2bb")]})
    assert site.get("/id/" + given).text == key_body(site, "a+b", OTHER_PUBKEY)
    for method in ("GET", "POST"):
        reply = site.request(method, "/wp-json/brasslet/v1/address/" + given)
        assert (reply.status_code, reply.text) == (200, address_body(OTHER_ADDRESS))


@pytest.mark.parametrize("nonsense", [
    "%2500", "%25zz", "a%20", "%20a", "%C3%A4", "%FF%FE", "%3Cb%3E", "a%252Bb", "a%2540b", "%25" * 200,
])
def test_nonsense_in_a_path_is_no_paymail(site, nonsense):
    site.set_record(record("a", "a+b", "b"))
    for route in ("/id/", "/address/"):
        reply = site.get(route + nonsense)
        assert (reply.status_code, reply.text) == (404, NO_PAYMAIL)


@pytest.mark.parametrize("nonsense", ["%00", "a%00", "%zz", "%", "a%", "a%2", "%FF", "a%0A", "%" * 200])
def test_nonsense_that_web_servers_refuse_is_no_paymail_either(site, nonsense):
    site.set_record(record("a"))
    for route in ("id", "address"):
        path = f"/brasslet/v1/{route}/{nonsense}".replace("%", "%25")
        reply = site.request("GET", "/?rest_route=" + path)
        assert (reply.status_code, reply.text) == (404, NO_PAYMAIL)


@pytest.mark.parametrize("tail", ["", "a@b", "a/b", "'"])
def test_what_cannot_be_an_alias_is_no_route(site, tail):
    site.set_record(record("a", "b"))
    for route in ("/id/", "/address/"):
        reply = site.get(route + tail)
        assert (reply.status_code, reply.json()["code"]) == (404, "rest_no_route")


@pytest.mark.parametrize("route,allowed", [("/id/alice", "GET"), ("/address/alice", "GET, POST")])
def test_options_names_the_methods(site, route, allowed):
    site.set_record(record("alice"))
    reply = site.request("OPTIONS", "/wp-json/brasslet/v1" + route)
    assert (reply.status_code, reply.headers["Allow"]) == (200, allowed)


@pytest.mark.parametrize("route,others", [
    ("/id/alice", ["POST", "PUT", "PATCH", "DELETE"]), ("/address/alice", ["PUT", "PATCH", "DELETE"]),
])
def test_other_methods_are_no_route(site, route, others):
    site.set_record(record("alice"))
    for method in others:
        assert site.request(method, "/wp-json/brasslet/v1" + route).json()["code"] == "rest_no_route"


@pytest.mark.parametrize("route", ["/id/", "/address/"])
def test_head_answers_the_status_without_a_body(site, route):
    site.set_record(record("alice"))
    for alias, status in (("alice", 200), ("carol", 404)):
        reply = site.request("HEAD", "/wp-json/brasslet/v1" + route + alias)
        assert (reply.status_code, reply.content) == (status, b"")


def test_a_lookup_never_changes_the_record(site):
    site.set_record({"rows": [row("Alice", pubkey=5)]})
    before = site.stored()
    for path in ("/status", "/id/alice", "/address/alice", "/id/bob"):
        site.get(path)
    assert site.stored() == before
