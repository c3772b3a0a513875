"""The paymail discovery document at /.well-known/bsvalias."""

import pytest

PATH = "/.well-known/bsvalias"


def document(root):
    rest = root.replace("/", "\\/") + "\\/wp-json\\/brasslet\\/v1\\/"
    key, address = rest + "id\\/{alias}", rest + "address\\/{alias}"
    return (f'{{"bsvalias":"1.0","capabilities":{{"pki":"{key}","0c4339ef99c2f5cc":"{key}",'
            f'"paymentDestination":"{address}","759684b1a7631987":"{address}"}}}}')


def is_document(reply):
    return reply.status_code == 200 and reply.text.startswith('{"bsvalias"')


def test_the_document_names_both_capabilities_twice(site):
    reply = site.request("GET", PATH)
    assert (reply.status_code, reply.text) == (200, document(f"https://{site.host}"))
    assert reply.json()["capabilities"] == {
        "pki": f"https://{site.host}/wp-json/brasslet/v1/id/{{alias}}",
        "0c4339ef99c2f5cc": f"https://{site.host}/wp-json/brasslet/v1/id/{{alias}}",
        "paymentDestination": f"https://{site.host}/wp-json/brasslet/v1/address/{{alias}}",
        "759684b1a7631987": f"https://{site.host}/wp-json/brasslet/v1/address/{{alias}}",
    }


def test_its_urls_lead_to_the_key_and_the_address(site):
    site.publish(alias="alice")
    capabilities = site.request("GET", PATH).json()["capabilities"]
    root = f"https://{site.host}"
    for url in capabilities.values():
        assert url.startswith(root)
        assert site.request("GET", url[len(root):].replace("{alias}", "alice")).status_code == 200


def test_it_is_json_that_no_cache_keeps(site):
    headers = site.request("GET", PATH).headers
    assert headers["Content-Type"] == "application/json; charset=utf-8"
    wanted = site.php("return wp_get_nocache_headers();")
    assert headers["Cache-Control"] == wanted["Cache-Control"]
    assert headers["Expires"] == "Wed, 11 Jan 1984 05:00:00 GMT"
    assert "no-cache" in headers["Cache-Control"]
    assert "Last-Modified" not in headers


@pytest.mark.parametrize("query", [
    "?", "?x=1", "?a=b&c=/.well-known", "?url=https://example.org:80/", "?x=%0A", "?rest_route=/",
])
def test_a_query_does_not_matter(site, query):
    assert is_document(site.request("GET", PATH + query))


@pytest.mark.parametrize("path", ["/%2Ewell-known/bsvalias", "/.well%2Dknown/bsvalias", "/%2e%77ell-known/%62svalias"])
def test_the_path_is_percent_decoded(site, path):
    assert is_document(site.request("GET", path))


def test_an_encoded_slash_is_one_wherever_the_server_lets_it_through(site):
    reply = site.request("GET", "/.well-known%2Fbsvalias")
    # Apache has its own answer to it, unless the owner of the server allows it (AllowEncodedSlashes).
    assert is_document(reply) or (reply.status_code == 404 and reply.headers["Server"].startswith("Apache"))


def test_the_slashes_that_wordpress_adds_are_taken_off_first(site):
    site.hook(r"""
        add_action( 'init', function () {
            $_SERVER['REQUEST_URI'] = '/.well-known/bsv\alias';
        }, -1 );
    """)
    assert is_document(site.request("GET", "/"))


@pytest.mark.parametrize("path", [
    PATH + "/", PATH + "x", PATH + ".json", PATH + "/x", PATH + "%0A", PATH + "%00", PATH + "%20", PATH + "+",
    "/.well-known/", "/.well-known/bsvalia", "/.well-known/BSVALIAS", "/.Well-Known/bsvalias", "/.well-known//bsvalias",
    "/.well%252Dknown/bsvalias", "/blog" + PATH, "//.well-known/bsvalias", "/?" + PATH, "/?x=" + PATH,
    "/index.php" + PATH, "/", "/:80", "/x?y=//z",
])
def test_every_other_path_is_left_to_wordpress(site, path):
    assert not is_document(site.request("GET", path))


@pytest.mark.parametrize("method", ["POST", "PUT", "DELETE", "PATCH", "OPTIONS"])
def test_every_method_is_answered_alike(site, method):
    reply = site.request(method, PATH, data=b"x=1" if method == "POST" else None)
    assert (reply.status_code, reply.text) == (200, document(f"https://{site.host}"))


def test_head_has_the_same_headers_and_no_body(site):
    reply = site.request("HEAD", PATH)
    assert (reply.status_code, reply.content) == (200, b"")
    assert reply.headers["Content-Type"] == "application/json; charset=utf-8"


@pytest.mark.parametrize("home,root", [
    ("https://brasslet.test/blog", "https://brasslet.test/blog"),
    ("https://brasslet.test/blog/", "https://brasslet.test/blog"),
    ("https://brasslet.test/", "https://brasslet.test"),
    ("https://www.brasslet.test", "https://www.brasslet.test"),
])
def test_the_root_is_the_home_url_without_a_trailing_slash(site, home, root):
    site.hook(f"add_filter( 'home_url', function ( $url, $path ) {{ return '{home}' . $path; }}, 10, 2 );")
    assert site.request("GET", PATH).text == document(root)
    assert not is_document(site.request("GET", "/blog" + PATH))


@pytest.mark.parametrize("change", [
    "add_filter( 'pre_option_permalink_structure', '__return_empty_string' );",
    "add_filter( 'rest_url_prefix', function () { return 'api'; } );",
    "add_filter( 'site_url', function () { return 'https://elsewhere.test/core'; } );",
])
def test_no_other_setting_changes_the_urls(site, change):
    site.hook(change)
    assert site.request("GET", PATH).text == document(f"https://{site.host}")


def test_what_is_sent_has_the_status_given_and_ends_the_request(site):
    site.hook("""
        add_action( 'init', function () {
            brasslet_send_json( 418, array( 'a' => 'b' ) );
        }, -1 );
    """)
    reply = site.request("GET", "/")
    assert (reply.status_code, reply.text) == (418, '{"a":"b"}')


@pytest.mark.parametrize("uri", [
    "unset( $_SERVER['REQUEST_URI'] );",
    "$_SERVER['REQUEST_URI'] = array( '/.well-known/bsvalias' );",
    "$_SERVER['REQUEST_URI'] = 'http:///';",
    "$_SERVER['REQUEST_URI'] = '?x=1';",
])
def test_a_request_without_a_readable_path_is_left_alone(site, uri):
    site.hook("""
        add_action( 'init', function () { """ + uri + """ }, -1 );
        add_action( 'init', function () { exit( 'went on' ); }, 1 );
    """)
    assert site.request("GET", PATH).text == "went on"
