"""A page cache that heeds no header serves nothing of the plugin that has changed since."""

import shutil
from pathlib import Path

import pytest

from names import ADDRESS, OTHER_ADDRESS, OTHER_PUBKEY, PUBKEY, record, row
from payments import switch_on
from wordpress import WORLD_DIR

NEW = {"rows": [row("alice", OTHER_PUBKEY, OTHER_ADDRESS), row("bob")]}


@pytest.fixture(params=["constant", "action"])
def cached(site, request):
    folder = WORLD_DIR / "page_cache"
    folder.mkdir()
    (folder / "obeys").write_text(request.param)
    drop_in = site.content / "advanced-cache.php"
    shutil.copy(Path(__file__).parent / "page_cache.php", drop_in)
    yield site
    drop_in.unlink()
    shutil.rmtree(folder)


def from_cache(site, path):
    site.request("GET", path)
    return "X-From-Cache" in site.request("GET", path).headers


@pytest.mark.parametrize("path", ["/", "/no-such-page", "/wp-json/wp/v2/types", "/wp-json/", "/wp-json/wp/v2/none"])
def test_the_cache_keeps_what_is_not_the_plugins(cached, path):
    assert from_cache(cached, path)


@pytest.mark.parametrize("path", [
    "/.well-known/bsvalias", "/.well-known/bsvalias?x=1", "/%2Ewell-known/bsvalias",
    "/wp-json/brasslet/v1/status", "/wp-json/brasslet/v1/id/alice", "/wp-json/brasslet/v1/address/alice",
    "/wp-json/brasslet/v1/id/alice?_envelope", "/?rest_route=/brasslet/v1/id/alice", "/wp-json/BRASSLET/v1/id/alice",
    "/wp-json/brasslet/v1/id/carol", "/wp-json/brasslet/v1/address/carol", "/wp-json/brasslet/v1/name",
    "/wp-json/brasslet/v1/health", "/wp-json/brasslet/v1/none", "/wp-json/brasslet/v1",
    "/wp-json/brasslet/v1/status?_jsonp=a-b",
    "/wp-json/brasslet/v1/verify-public-key/alice/" + PUBKEY,
])
@pytest.mark.parametrize("handed_over", [False, True])
def test_the_cache_keeps_no_answer_of_the_plugin(cached, path, handed_over):
    cached.set_record(record("alice"))
    if handed_over:
        switch_on(cached)
    assert not from_cache(cached, path)


def test_a_key_and_an_address_that_changed_are_answered_anew(cached):
    cached.set_record(record("alice"))
    assert cached.get("/address/alice").json() == {"address": ADDRESS}
    assert [cached.get("/id/bob").status_code, cached.get("/status").json()["alias"]] == [404, "alice"]
    cached.set_record(NEW)
    assert cached.get("/address/alice").json() == {"address": OTHER_ADDRESS}
    assert [cached.get("/id/bob").status_code, cached.get("/status").json()["alias"]] == [200, "alice bob"]


def test_a_cache_that_has_forbidden_pages_already_is_left_alone(cached):
    """The constant may be there before the plugin defines it, which PHP would complain about."""
    cached.hook("define( 'DONOTCACHEPAGE', true );")
    assert cached.get("/status").status_code == 200
    assert cached.request("GET", "/.well-known/bsvalias").status_code == 200
