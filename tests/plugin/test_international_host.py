"""A site whose name is not ASCII: names, keys and URLs carry the form of its host that wallets compare."""

import subprocess

import pytest

HOSTS = [
    # The first is an example of RFC 3492's kind, checked with Python's own encoder below.
    ("b\u00fccher.example", "xn--bcher-kva.example"),
    ("B\u00dcCHER.Example", "xn--bcher-kva.example"),
    ("www.b\u00fccher.example", "www.xn--bcher-kva.example"),
    ("\u043f\u0440\u0438\u043c\u0435\u0440.example", "xn--e1afmkfd.example"),
    ("\u4f8b\u3048.example", "xn--r8jz45g.example"),
    ("xn--bcher-kva.example", "xn--bcher-kva.example"),
    ("Plain.Example", "plain.example"),
]

HOME = "add_filter( 'home_url', function ( $url, $path ) {{ return 'https://{}' . $path; }}, 10, 2 );"


def test_the_expected_forms_are_those_of_another_encoder():
    for typed, ascii_form in HOSTS:
        assert typed.lower().encode("idna").decode() == ascii_form


@pytest.mark.parametrize("typed,host", HOSTS)
def test_every_reply_names_the_host_in_ascii(site, typed, host):
    site.hook(HOME.format(typed))
    reply = site.publish(alias="alice").json()
    assert (reply["paymail"], reply["host"]) == (f"alice@{host}", host)
    assert site.get("/status").json()["host"] == host
    assert site.get("/id/alice").json()["handle"] == f"alice@{host}"


@pytest.mark.parametrize("home,root", [
    ("b\u00fccher.example", "xn--bcher-kva.example"),
    ("B\u00fccher.example/b\u00fccher.example/", "xn--bcher-kva.example/b\u00fccher.example"),
    ("b\u00fccher.example:8443/Blog", "xn--bcher-kva.example:8443/Blog"),
    ("Plain.Example/b\u00fccher", "Plain.Example/b\u00fccher"),
])
def test_the_urls_of_the_discovery_document_have_the_host_in_ascii(site, home, root):
    site.hook(HOME.format(home))
    capabilities = site.request("GET", "/.well-known/bsvalias").json()["capabilities"]
    assert capabilities["pki"] == f"https://{root}/wp-json/brasslet/v1/id/{{alias}}"
    assert capabilities["paymentDestination"] == f"https://{root}/wp-json/brasslet/v1/address/{{alias}}"


@pytest.mark.parametrize("host", ["\u00fc" * 64 + ".example", "\u00ff" * 300])
def test_a_host_that_cannot_be_written_in_ascii_stays_as_it_is(site, host):
    site.hook(HOME.format(host))
    for path in ("/.well-known/bsvalias", "/wp-json/brasslet/v1/status"):
        assert site.request("GET", path).status_code == 200
    assert site.get("/status").json()["host"] == host


def test_bytes_that_are_no_text_stay_as_they_are(site):
    assert site.php("return bin2hex( brasslet_ascii_host( hex2bin( $v ) ) );", "62fc63682e6578616d706c65") == "62fc63682e6578616d706c65"


def test_a_php_without_its_extension_for_such_text_encodes_what_is_in_lower_case(site, plugin_file):
    """PHP starts without any extension; WordPress lends it the encoder, and the functions that the plugin calls."""
    script = """
        define( 'ABSPATH', $argv[1] );
        function add_action() {}
        function add_filter() {}
        function home_url() { return 'https://b\u00fccher.example/Blog/'; }
        function wp_parse_url( $url, $part ) { return parse_url( $url, $part ); }
        function untrailingslashit( $text ) { return rtrim( $text, '/' ); }
        foreach ( array( 'src/Autoload.php', 'Exception.php', 'IDNAEncoder.php' ) as $file ) {
            if ( is_file( ABSPATH . "wp-includes/Requests/$file" ) ) {
                require_once ABSPATH . "wp-includes/Requests/$file";
            }
        }
        if ( class_exists( 'WpOrg\\\\Requests\\\\Autoload' ) ) {
            WpOrg\\Requests\\Autoload::register();
        }
        require $argv[2];
        echo function_exists( 'mb_strtolower' ) ? 'extended' : 'bare', ' ', brasslet_host(), ' ', brasslet_root();
    """
    command = ["php", "-n", "-r", script, site.php("return ABSPATH;"), plugin_file]
    done = subprocess.run(command, capture_output=True, text=True, check=True)
    assert done.stdout == "bare xn--bcher-kva.example https://xn--bcher-kva.example/Blog"
