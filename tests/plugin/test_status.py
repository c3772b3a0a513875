"""GET /wp-json/brasslet/v1/status: is the plugin here, and which names does it serve?"""

import pytest

from names import record, row


def status_body(site, alias, is_set):
    return (f'{{"ok":true,"version":"0.001","login":"names","host":"{site.host}",'
            f'"alias":"{alias}","set":{is_set}}}')


def test_without_a_record_no_name_is_set(site):
    reply = site.get("/status")
    assert (reply.status_code, reply.text) == (200, status_body(site, "", "false"))


def test_an_empty_list_of_rows_counts_as_no_name(site):
    site.set_record(record())
    assert site.get("/status").text == status_body(site, "", "false")


def test_all_names_are_listed_in_the_order_of_the_record(site):
    site.set_record(record("zoe", "alice", "bob"))
    reply = site.get("/status")
    assert (reply.status_code, reply.text) == (200, status_body(site, "zoe alice bob", "true"))


def test_the_mark_of_the_login_scheme_stands_as_the_program_looks_for_it(site):
    assert '"login":"names"' in site.get("/status").text


def test_anyone_may_ask(site):
    assert site.get("/status", headers={"Authorization": "Bearer nothing"}).status_code == 200


def test_a_name_of_digits_is_listed_as_text(site):
    site.set_record(record("123", "0"))
    assert site.get("/status").text == status_body(site, "123 0", "true")


def test_only_get_is_answered(site):
    for method in ("POST", "PUT", "PATCH", "DELETE"):
        assert site.request(method, "/wp-json/brasslet/v1/status").json()["code"] == "rest_no_route"


@pytest.mark.parametrize("method", ["GET", "HEAD"])
def test_head_answers_like_get_without_a_body(site, method):
    reply = site.request(method, "/wp-json/brasslet/v1/status")
    assert reply.status_code == 200
    assert reply.headers["Content-Type"] == "application/json; charset=UTF-8"
    assert bool(reply.text) == (method == "GET")


def test_options_describes_the_route(site):
    reply = site.request("OPTIONS", "/wp-json/brasslet/v1/status")
    assert (reply.status_code, reply.json()["namespace"]) == (200, "brasslet/v1")
    assert reply.headers["Allow"] == "GET"


def test_the_host_is_in_lower_case_and_without_port(site):
    host = site.php("""
        $home = function () { return 'https://Shop.EXAMPLE.org:443/Blog'; };
        add_filter( 'home_url', $home );
        $host = brasslet_host();
        remove_filter( 'home_url', $home );
        return $host;
    """)
    assert host == "shop.example.org"


def test_every_reply_names_the_host_of_the_home_url_in_lower_case(site):
    site.hook("""
        add_filter( 'home_url', function ( $url, $path ) {
            return 'https://Shop.EXAMPLE.org/Blog' . $path;
        }, 10, 2 );
    """)
    published = site.publish(alias="alice").json()
    assert (published["paymail"], published["host"]) == ("alice@shop.example.org", "shop.example.org")
    assert site.get("/status").json()["host"] == "shop.example.org"
    assert site.get("/id/alice").json()["handle"] == "alice@shop.example.org"


@pytest.mark.parametrize("home", ["", "/blog", "https://", "no host"])
def test_a_home_url_without_a_host_gives_empty_text(site, home):
    host = site.php("""
        $home = function () use ( $v ) { return $v; };
        add_filter( 'home_url', $home );
        $host = brasslet_host();
        remove_filter( 'home_url', $home );
        return $host;
    """, home)
    assert host == ""


def test_a_row_without_a_usable_alias_is_not_listed(site):
    unusable = [{"pubkey": "x"}, row(""), row(5), row(["bob"]), "text", None]
    site.set_record({"rows": [row("alice"), *unusable, row("carol")]})
    assert site.get("/status").text == status_body(site, "alice carol", "true")
