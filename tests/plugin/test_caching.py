"""Which answers may be kept by a cache, and the headers that WordPress sends with them."""

import pytest

from names import record

ANSWERS = [
    ("GET", "/wp-json/brasslet/v1/status", 200), ("GET", "/wp-json/brasslet/v1/id/alice", 200),
    ("GET", "/wp-json/brasslet/v1/address/alice", 200), ("POST", "/wp-json/brasslet/v1/address/alice", 200),
    ("HEAD", "/wp-json/brasslet/v1/id/alice", 200), ("OPTIONS", "/wp-json/brasslet/v1/id/alice", 200),
    ("GET", "/wp-json/brasslet/v1/id/carol", 404), ("GET", "/wp-json/brasslet/v1/address/carol", 404),
    ("POST", "/wp-json/brasslet/v1/name", 401), ("DELETE", "/wp-json/brasslet/v1/name", 401),
    ("GET", "/wp-json/brasslet/v1/name", 404), ("GET", "/wp-json/brasslet/v1/none", 404),
    ("GET", "/wp-json/brasslet/v1/health", 401), ("GET", "/wp-json/brasslet/v1", 200), ("GET", "/wp-json/brasslet/none", 404),
    ("GET", "/wp-json/BRASSLET/V1/id/alice", 200), ("GET", "/?rest_route=/brasslet/v1/id/alice", 200),
]


@pytest.mark.parametrize("method,path,status", ANSWERS)
def test_no_answer_of_the_plugin_is_stored(site, method, path, status):
    site.set_record(record("alice"))
    reply = site.request(method, path)
    assert (reply.status_code, reply.headers["Cache-Control"]) == (status, "no-store")
    assert reply.headers["Content-Type"] == "application/json; charset=UTF-8"
    assert reply.headers["X-Content-Type-Options"] == "nosniff"


def test_no_answer_to_an_administrator_is_stored_either(site):
    for reply in (site.publish(), site.publish(alias="a b"), site.remove("alice"), site.remove("a b"),
                  site.publish(headers=site.login_headers()), site.get("/status", headers=site.login_headers()),
                  site.get("/health", headers=site.login_headers())):
        assert reply.headers["Cache-Control"] == "no-store"


def test_a_refused_login_is_not_stored(site):
    for reply in (site.publish(login_pass="wrong"), site.publish(login_user="nobody"),
                  site.publish(login_user=site.editor.login, login_pass=site.editor.password)):
        assert reply.status_code in (401, 403)
        assert reply.headers["Cache-Control"] == "no-store"


@pytest.mark.parametrize("path,status", [
    ("/wp-json/brasslet/v1/id/alice", 200), ("/wp-json/brasslet/v1/id/carol", 404), ("/wp-json/brasslet/v1/name", 404),
])
def test_an_answer_in_an_envelope_is_not_stored_either(site, path, status):
    site.set_record(record("alice"))
    for headers in (None, site.login_headers()):
        reply = site.request("GET", path + "?_envelope", headers=headers)
        assert (reply.status_code, reply.json()["status"]) == (200, status)
        assert reply.headers["Cache-Control"] == "no-store"
        assert reply.json()["headers"]["Cache-Control"] == "no-store"


def test_what_wordpress_answers_before_it_asks_the_plugin_is_not_stored_either(site):
    reply = site.get("/status?_jsonp=a-b")
    assert (reply.status_code, reply.json()["code"]) == (400, "rest_callback_invalid")
    assert reply.headers["Cache-Control"] == "no-store"


@pytest.mark.parametrize("path", [
    "/wp-json/", "/wp-json/wp/v2/types", "/wp-json/wp/v2/none", "/wp-json/other/brasslet/v1",
    "/wp-json/brassletx/v1/id/alice",
])
def test_answers_of_others_are_left_as_they_are(site, path):
    assert "Cache-Control" not in site.request("GET", path).headers


def test_wordpress_keeps_its_own_headers_for_a_user_who_is_logged_in(site):
    reply = site.request("GET", "/wp-json/wp/v2/users/me", headers=site.login_headers())
    wanted = site.php("return wp_get_nocache_headers();")
    assert (reply.status_code, reply.headers["Cache-Control"]) == (200, wanted["Cache-Control"])
