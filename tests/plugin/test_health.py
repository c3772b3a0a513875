"""What Tools, Site Health tells the owner of the site, and that it asks the site as a wallet would."""

import http.server
import json
import os
import ssl
import subprocess
import threading
from datetime import datetime, timezone

import pytest
import requests

from names import ADDRESS, OTHER_ADDRESS, OTHER_PUBKEY, OTHER_SCRIPT, PUBKEY, SCRIPT, record, row
from site_health import DOCUMENT, addresses, answer, look, own_document, run, shown, url
from wordpress import WORLD, WORLD_DIR

PERMALINKS_GOOD = "Permalinks lead wallets to your payment names"
PERMALINKS_BAD = "Permalinks keep wallets from your payment names"
NAMES_GOOD = "Wallets can read your payment names"
NAMES_BAD = "Wallets cannot read your payment names"
NAMES_UNKNOWN = "Your server cannot check whether wallets can read your payment names"

PERMALINKS_LEAD = "Wallets ask below /wp-json/, and your permalink structure hands that to WordPress."
CHOOSE_PERMALINKS = ('Under Settings, Permalinks, choose a structure other than "Plain" and without "index.php", '
                     "and save it.")
NO_NAME_YET = "Your site answers wallets as it should, and no name is published yet."
RIGHT_ANSWERS = "Your site gave the right answers about %s."
PERMALINKS_FIRST = "Your permalinks do not lead to WordPress. Change them first, then look here again."
UNREACHABLE = "%1$s cannot be reached (%2$s)."
ASK_YOUR_HOST = "Ask your host to serve the site over https, with a certificate that browsers trust."
OTHER_STATUS = "%1$s answers with HTTP status %2$d instead of 200."
LET_IT_THROUGH = "Let the web server, and every plugin for security or redirects, hand that address to this WordPress."
NO_JSON = "%s answers with a page or a file instead of JSON."
NO_PAGES = "Let the web server, and every plugin that makes pages, hand that address to this WordPress."
NO_HTTPS = "%s sends wallets to addresses without https."
ADDRESSES = 'Under Settings, General, let both addresses of the site begin with "https://".'
ELSEWHERE = "%s sends wallets somewhere else than to this site."
REMOVE_THE_OTHER = "Remove the file, or the other plugin, that answers there in place of Brasslet."
OTHER_KEY = "%1$s does not answer with the key of %2$s."
OTHER_ADDRESS_ANSWERED = "%1$s does not answer with the address of %2$s."
NOBODY_ELSE = "Let no cache and no other plugin answer below /wp-json/brasslet/ in place of Brasslet."
OTHER_SCRIPT_ANSWERED = "%1$s does not answer with the script that pays %2$s."
POST_WITH_BODY = "Let the web server, and every plugin for security, hand over POST requests with their JSON body."
UNASKED = "Your own server could not ask %1$s (%2$s). Wallets may still be able to."
LOOK_YOURSELF = 'Open the link below in a browser: if it shows "bsvalias", wallets see that too.'
REACH_ITSELF = "For this check, ask your host to let the server reach itself and answer more than one request at once."
CLEAR_CACHES = "Clear the caches of your site and of its host, and let them keep nothing below /wp-json/brasslet/."

KEY_OF_ALICE = "/wp-json/brasslet/v1/id/alice"
PAY_ALICE = "/wp-json/brasslet/v1/address/alice"


def test_a_site_with_names_is_told_whose_keys_wallets_can_read(site):
    site.set_record(record("alice", "a.b+c-d_e"))
    names = f"alice@{site.host}, a.b+c-d_e@{site.host}"
    assert shown(look(site)) == ("good", NAMES_GOOD, RIGHT_ANSWERS % names)


def test_a_site_without_names_is_told_so(site):
    assert shown(look(site)) == ("good", NAMES_GOOD, NO_NAME_YET)


def test_the_first_three_names_stand_for_all_of_them(site):
    names = [row(alias) for alias in ("alice", "bob", "carol", "dave")]
    site.set_record({"rows": [row("a b"), row("x" * 65), *names]})
    _, asked = run(site, "discovery")
    wanted = [DOCUMENT] + [f"/wp-json/brasslet/v1/{what}/{alias}" for alias in ("alice", "bob", "carol")
                           for what in ("id", "address")]
    assert addresses(asked) == [url(site, path) for path in wanted]
    assert shown(look(site))[2] == RIGHT_ANSWERS % ", ".join(f"{n}@{site.host}" for n in ("alice", "bob", "carol"))


def test_it_follows_no_redirect_checks_the_certificate_and_is_through_in_half_a_minute(site):
    site.set_record(record("alice", "bob", "carol", "dave"))
    _, asked = run(site, "discovery")
    assert [options[1:3] for _, *options in asked] == [[0, True]] * 7
    assert sum(seconds for _, seconds, *_ in asked) < 30


def test_it_asks_where_to_pay_as_a_wallet_does(site):
    site.set_record(record("alice"))
    _, asked = run(site, "discovery")
    assert [method for *_, method, _, _ in asked] == ["GET", "GET", "POST"]
    *_, headers, body = asked[2]
    assert headers == {"Content-Type": "application/json"}
    assert list(body) == ["senderName", "senderHandle", "dt", "amount", "purpose", "signature"]
    assert body["senderHandle"] == f"alice@{site.host}"
    age = datetime.now(timezone.utc) - datetime.strptime(body["dt"], "%Y-%m-%dT%H:%M:%S.%fZ").replace(tzinfo=timezone.utc)
    assert abs(age.total_seconds()) < 60


def test_the_first_wrong_answer_ends_it(site):
    site.set_record(record("alice", "bob"))
    wanted = [url(site, path) for path in (DOCUMENT, KEY_OF_ALICE, PAY_ALICE)]
    for count, path in enumerate((DOCUMENT, KEY_OF_ALICE, PAY_ALICE), 1):
        answer(site, path, "{}")
        _, asked = run(site, "discovery")
        assert addresses(asked) == wanted[:count]
    _, asked = run(site, "discovery", failure="gone")
    assert addresses(asked) == wanted[:1]


def test_without_a_name_a_fault_is_worth_a_word_and_with_one_it_is_critical(site):
    answer(site, DOCUMENT, "{}", 500)
    assert look(site)["status"] == "recommended"
    site.set_record(record("alice"))
    assert look(site)["status"] == "critical"


@pytest.mark.parametrize("status", [201, 301, 401, 404, 500, 503])
def test_a_document_with_another_status_is_none(site, status):
    site.set_record(record("alice"))
    answer(site, DOCUMENT, json.dumps(own_document(site)), status)
    wanted = OTHER_STATUS.replace("%1$s", url(site, DOCUMENT)).replace("%2$d", str(status)) + " " + LET_IT_THROUGH
    assert shown(look(site)) == ("critical", NAMES_BAD, wanted)


def test_a_redirect_is_not_followed_even_to_the_right_document(site):
    site.hook(f"""
        if ( '{DOCUMENT}' === ( $_SERVER['REQUEST_URI'] ?? '' ) ) {{
            header( 'Location: {DOCUMENT}?' , true, 302 );
            exit;
        }}
    """)
    wanted = OTHER_STATUS.replace("%1$s", url(site, DOCUMENT)).replace("%2$d", "302") + " " + LET_IT_THROUGH
    assert shown(look(site)) == ("recommended", NAMES_BAD, wanted)


@pytest.mark.parametrize("body", ["", "<html>", "null", "5", '"text"', "{", "true"])
def test_a_page_in_place_of_the_document_is_told(site, body):
    answer(site, DOCUMENT, body)
    assert shown(look(site)) == ("recommended", NAMES_BAD, NO_JSON % url(site, DOCUMENT) + " " + NO_PAGES)


def test_no_more_is_read_than_a_document_takes(site):
    answer(site, DOCUMENT, " " * 70000 + json.dumps(own_document(site)))
    assert shown(look(site))[2] == NO_JSON % url(site, DOCUMENT) + " " + NO_PAGES


@pytest.mark.parametrize("change", [
    {"pki": None}, {"paymentDestination": None}, {"pki": 5}, {"paymentDestination": ["x"]},
    {"pki": "https://elsewhere.test/wp-json/brasslet/v1/id/{alias}"},
    {"paymentDestination": "https://elsewhere.test/wp-json/brasslet/v1/address/{alias}"},
])
def test_a_document_of_somebody_else_is_told(site, change):
    document = own_document(site)
    document["capabilities"].update(change)
    answer(site, DOCUMENT, json.dumps(document))
    wanted = ELSEWHERE % url(site, DOCUMENT) + " " + REMOVE_THE_OTHER
    assert shown(look(site)) == ("recommended", NAMES_BAD, wanted)


@pytest.mark.parametrize("capability", ["pki", "paymentDestination"])
def test_addresses_without_https_are_told(site, capability):
    document = own_document(site)
    document["capabilities"][capability] = document["capabilities"][capability].replace("https:", "http:")
    answer(site, DOCUMENT, json.dumps(document))
    assert shown(look(site)) == ("recommended", NAMES_BAD, NO_HTTPS % url(site, DOCUMENT) + " " + ADDRESSES)


def test_a_look_from_a_page_without_https_is_the_same(site):
    site.set_record(record("alice"))
    result, asked = run(site, "discovery", scheme="http")
    assert shown(result) == ("good", NAMES_GOOD, RIGHT_ANSWERS % f"alice@{site.host}")
    assert addresses(asked) == [url(site, path) for path in (DOCUMENT, KEY_OF_ALICE, PAY_ALICE)]


@pytest.mark.parametrize("body", [
    "{}", "[]", '{"capabilities":"pki"}', '{"capabilities":["pki"]}', '{"capabilities":5}',
])
def test_a_document_without_capabilities_is_somebody_elses(site, body):
    answer(site, DOCUMENT, body)
    assert shown(look(site))[2] == ELSEWHERE % url(site, DOCUMENT) + " " + REMOVE_THE_OTHER


@pytest.mark.parametrize("change", [
    {"pubkey": OTHER_PUBKEY}, {"pubkey": PUBKEY.upper()}, {"pubkey": None},
    {"handle": "bob@brasslet.test"}, {"handle": None},
])
def test_a_key_that_is_not_the_stored_one_is_told(site, change):
    site.set_record(record("alice"))
    handle = f"alice@{site.host}"
    answer(site, KEY_OF_ALICE, json.dumps({"bsvalias": "1.0", "handle": handle, "pubkey": PUBKEY, **change}))
    finding = OTHER_KEY.replace("%1$s", url(site, KEY_OF_ALICE)).replace("%2$s", handle)
    assert shown(look(site)) == ("critical", NAMES_BAD, finding + " " + CLEAR_CACHES)


def test_a_key_that_is_not_answered_is_told(site):
    site.set_record(record("alice"))
    answer(site, KEY_OF_ALICE, "{}", 403)
    finding = OTHER_STATUS.replace("%1$s", url(site, KEY_OF_ALICE)).replace("%2$d", "403")
    assert shown(look(site)) == ("critical", NAMES_BAD, finding + " " + LET_IT_THROUGH)


@pytest.mark.parametrize("address", [OTHER_ADDRESS, None, [ADDRESS], ADDRESS.lower()])
def test_an_address_that_is_not_the_stored_one_is_told(site, address):
    site.set_record(record("alice"))
    answer(site, PAY_ALICE, json.dumps({"address": address, "output": SCRIPT}))
    finding = OTHER_ADDRESS_ANSWERED.replace("%1$s", url(site, PAY_ALICE)).replace("%2$s", f"alice@{site.host}")
    assert shown(look(site)) == ("critical", NAMES_BAD, finding + " " + NOBODY_ELSE)


@pytest.mark.parametrize("script", [OTHER_SCRIPT, None, SCRIPT.upper(), ""])
def test_a_script_that_does_not_pay_the_address_is_told(site, script):
    site.set_record(record("alice"))
    answer(site, PAY_ALICE, json.dumps({"address": ADDRESS, "output": script}))
    finding = OTHER_SCRIPT_ANSWERED.replace("%1$s", url(site, PAY_ALICE)).replace("%2$s", f"alice@{site.host}")
    assert shown(look(site)) == ("critical", NAMES_BAD, finding + " " + POST_WITH_BODY)


def test_a_server_that_loses_the_body_of_a_request_is_told(site):
    site.set_record(record("alice"))
    site.hook("$_SERVER['CONTENT_TYPE'] = 'text/plain';")
    assert shown(look(site))[2].endswith(POST_WITH_BODY)


def test_an_address_that_has_no_script_is_right_without_one(site):
    site.set_record({"rows": [row("alice", address=ADDRESS[:-1] + "J")]})
    assert shown(look(site)) == ("good", NAMES_GOOD, RIGHT_ANSWERS % f"alice@{site.host}")


def test_a_payment_that_is_refused_is_told(site):
    site.set_record(record("alice"))
    answer(site, PAY_ALICE, "{}", 405)
    finding = OTHER_STATUS.replace("%1$s", url(site, PAY_ALICE)).replace("%2$d", "405")
    assert shown(look(site)) == ("critical", NAMES_BAD, finding + " " + LET_IT_THROUGH)


def test_a_site_that_asks_everybody_for_a_password_is_critical_once_it_has_names(site):
    site.hook("""
        if ( ! isset( $_SERVER['HTTP_X_BRASSLET_AUTH'] ) ) {
            header( 'WWW-Authenticate: Basic realm="staging"' );
            http_response_code( 401 );
            exit( 'No.' );
        }
    """)
    wanted = OTHER_STATUS.replace("%1$s", url(site, DOCUMENT)).replace("%2$d", "401") + " " + LET_IT_THROUGH
    assert shown(look(site)) == ("recommended", NAMES_BAD, wanted)
    site.set_record(record("alice"))
    assert shown(look(site)) == ("critical", NAMES_BAD, wanted)


def living_at(host):
    return f"""
        define( 'WP_ACCESSIBLE_HOSTS', '{host}' );
        add_filter( 'home_url', function ( $url, $path ) {{ return 'https://{host}' . $path; }}, 10, 2 );
    """


@pytest.fixture(scope="module")
def self_signed(tmp_path_factory):
    """127.0.0.8 answers with a certificate that nobody trusts."""
    folder = tmp_path_factory.mktemp("self_signed")
    names = ["-keyout", folder / "key.pem", "-out", folder / "certificate.pem"]
    subprocess.run(["openssl", "req", "-x509", "-newkey", "ec", "-pkeyopt", "ec_paramgen_curve:P-256", "-noenc",
                    "-subj", "/CN=127.0.0.8", *names], check=True, capture_output=True)
    context = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
    context.load_cert_chain(folder / "certificate.pem", folder / "key.pem")
    server = http.server.ThreadingHTTPServer(("127.0.0.8", 443), http.server.BaseHTTPRequestHandler)
    server.socket = context.wrap_socket(server.socket, server_side=True)
    threading.Thread(target=server.serve_forever, daemon=True).start()
    yield
    server.shutdown()
    server.server_close()


# The first has the certificate of another host, the second one that nobody trusts.
@pytest.mark.parametrize("host", ["127.0.0.1", "127.0.0.8"])
def test_a_certificate_that_browsers_refuse_is_critical_once_there_are_names(site, host, self_signed):
    site.hook(living_at(host))
    before, after = UNREACHABLE.replace("%1$s", f"https://{host}{DOCUMENT}").split("%2$s")
    for status in ("recommended", "critical"):
        found, label, text = shown(look(site))
        assert (found, label) == (status, NAMES_BAD)
        assert text.startswith(before + "cURL error 60") and text.endswith(after + " " + ASK_YOUR_HOST)
        site.set_record(record("alice"))


# Nothing listens at the first, nobody knows the second, and from the third nothing comes back.
@pytest.mark.parametrize("host,said", [
    ("dead.brasslet.test", "cURL error 7"), ("nowhere.invalid", "cURL error 6"), ("203.0.113.9", "cURL error 28"),
])
def test_a_server_that_cannot_ask_itself_is_no_fault_of_the_names(site, host, said):
    site.set_record(record("alice"))
    site.hook(living_at(host))
    result = look(site)
    status, label, text = shown(result)
    before, after = UNASKED.replace("%1$s", f"https://{host}{DOCUMENT}").split("%2$s")
    assert (status, label) == ("recommended", NAMES_UNKNOWN)
    assert text.startswith(before + said) and text.endswith(f"{after} {LOOK_YOURSELF} {REACH_ITSELF}")
    assert result["actions"] == f'<p><a href="https://{host}{DOCUMENT}">Open what wallets ask for first</a></p>'


CERTIFICATES = [
    "cURL error 51: SSL: certificate subject name (x) does not match target host name 'y'",
    "cURL error 60: SSL certificate problem: certificate has expired",
]
OTHER_FAILURES = [
    "cURL error 2: Failed initialization", "cURL error 5: Could not resolve proxy: x", "cURL error 6: Could not resolve",
    "cURL error 7: Failed to connect", "cURL error 28: Connection timed out", "cURL error 35: wrong version number",
    "cURL error 52: Empty reply", "cURL error 56: Recv failure", "cURL error 510: x", "cURL error 600: x",
    "cURL error 77: error setting certificate verify locations", "cURL error 16: certificate verify failed",
    "User has blocked requests through HTTP.", "fsocket timed out", "x cURL error 60: y", "gone",
]


def test_only_a_refused_certificate_is_called_one(site):
    site.set_record(record("alice"))
    told = {said: run(site, "discovery", failure=said)[0]["status"] for said in CERTIFICATES + OTHER_FAILURES}
    assert told == {said: "critical" for said in CERTIFICATES} | {said: "recommended" for said in OTHER_FAILURES}


@pytest.fixture
def without_curl(site, tmp_path):
    """Looks at the site with a PHP that lacks the extension, while this code runs before the plugin."""
    # A PHP of another release reads its settings from the world's own folder only.
    folder = WORLD_DIR / "etc/php" if (WORLD_DIR / "etc/php").exists() else tmp_path
    settings = folder / "without_curl.ini"
    settings.write_text("disable_functions = curl_init, curl_exec")

    def looked_at(code):
        site.hook(code)
        command = [WORLD / "wp", site.host, "echo json_encode( brasslet_health_discovery() );"]
        environment = {**os.environ, "PHP_INI_SCAN_DIR": f":{tmp_path}"}
        return json.loads(subprocess.run(command, env=environment, capture_output=True, check=True).stdout)

    yield looked_at
    settings.unlink()


# Where PHP has no curl, WordPress asks through streams, which know other words and no numbers.
@pytest.mark.parametrize("host,status", [
    ("127.0.0.1", "critical"), ("127.0.0.8", "critical"),
    ("dead.brasslet.test", "recommended"), ("nowhere.invalid", "recommended"),
])
def test_without_curl_a_refused_certificate_is_known_too(site, host, status, without_curl, self_signed):
    site.set_record(record("alice"))
    found = without_curl(living_at(host))
    assert (found["status"], "cURL" in found["description"]) == (status, False)
    assert (ASK_YOUR_HOST in shown(found)[2]) == (status == "critical")


def test_what_the_network_says_is_no_markup(site):
    for said in ("<b>'\"&</b>", "cURL error 60: <b>'\"&</b>"):
        result, _ = run(site, "discovery", failure=said)
        assert "&lt;b&gt;&#039;&quot;&amp;&lt;/b&gt;)" in result["description"]


@pytest.mark.parametrize("home", ["https://{host}/blog", "https://{host}/blog/"])
def test_a_wordpress_in_a_folder_is_asked_at_the_root_of_its_host(site, home):
    site.set_record(record("alice"))
    site.hook(f"add_filter( 'home_url', function ( $url, $path ) {{ return '{home}' . $path; }}, 10, 2 );"
              .replace("{host}", site.host))
    assert shown(look(site)) == ("good", NAMES_GOOD, RIGHT_ANSWERS % f"alice@{site.host}")


@pytest.mark.parametrize("structure", ["", "/index.php/%postname%/", "index.php/archives/%post_id%"])
def test_permalinks_that_do_not_lead_to_wordpress_are_critical(site, structure):
    result, asked = run(site, "permalinks", structure)
    assert (shown(result), asked) == (("critical", PERMALINKS_BAD, CHOOSE_PERMALINKS), [])
    link = f'<p><a href="https://{site.host}/wp-admin/options-permalink.php">Open the permalink settings</a></p>'
    assert result["actions"] == link


@pytest.mark.parametrize("structure", [
    "/%postname%/", "/archives/%post_id%", "/%year%/%monthnum%/%postname%/", "/x/index.php/%postname%/",
])
def test_pretty_permalinks_are_good(site, structure):
    result, asked = run(site, "permalinks", structure)
    assert (shown(result), result["actions"], asked) == (("good", PERMALINKS_GOOD, PERMALINKS_LEAD), "", [])


def test_without_permalinks_the_names_need_not_be_asked_for(site):
    site.set_record(record("alice"))
    result, asked = run(site, "discovery", structure="")
    assert (shown(result), asked) == (("critical", NAMES_BAD, PERMALINKS_FIRST), [])


def test_without_permalinks_site_health_still_gets_its_answer(site):
    site.hook("add_filter( 'pre_option_permalink_structure', '__return_empty_string' );")
    assert shown(look(site, "/?rest_route=/brasslet/v1/health"))[2] == PERMALINKS_FIRST


@pytest.mark.parametrize("test,status", [("permalinks", "critical"), ("discovery", "recommended")])
def test_a_result_has_all_that_the_page_shows(site, test, status):
    result, _ = run(site, test, structure="")
    assert list(result) == ["label", "status", "badge", "description", "actions", "test"]
    assert (result["status"], result["test"]) == (status, "brasslet_" + test)
    assert result["badge"] == {"label": "Brasslet", "color": "blue"}


def test_wordpress_finds_both_tests_and_keeps_its_own(site):
    tests = site.php("""
        require_once ABSPATH . 'wp-admin/includes/class-wp-site-health.php';
        $tests = WP_Site_Health::get_tests();
        return array(
            $tests['direct']['brasslet_permalinks'],
            $tests['async']['brasslet_discovery'],
            isset( $tests['direct']['wordpress_version'], $tests['async']['loopback_requests'] ),
        );
    """)
    assert tests == [
        {"label": "Brasslet: permalinks", "test": "brasslet_health_permalinks"},
        {"label": "Brasslet: published names", "test": url(site, "/wp-json/brasslet/v1/health"), "has_rest": True,
         "async_direct_test": "brasslet_health_discovery"},
        True,
    ]


def test_only_who_may_see_site_health_is_answered(site):
    assert site.get("/health").json()["code"] == "rest_forbidden"
    refused = site.get("/health", auth=requests.auth.HTTPBasicAuth(site.editor.login, site.editor.password))
    assert (refused.status_code, refused.json()["code"]) == (403, "rest_forbidden")
    assert look(site)["test"] == "brasslet_discovery"


def test_a_look_changes_nothing(site):
    site.set_record(record("alice"))
    before = site.stored()
    look(site)
    assert site.stored() == before
