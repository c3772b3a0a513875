"""What the site has decided about application passwords holds for publishing and removing, and its plugins see each login."""

import json

import pytest

from names import NO_APPLICATION_PASSWORDS, UNKNOWN_USER, WRONG_PASSWORD, record, refusal
from wordpress import WORLD_DIR

SWITCHED_OFF = refusal("brasslet_login", NO_APPLICATION_PASSWORDS, 401)

# Writes a line for everything that plugins of a site can see of a login by an application password.
WATCH = """
    function seen( $what ) {
        file_put_contents( getenv( 'WORLD_DIR' ) . '/seen', json_encode( $what ) . "\\n", FILE_APPEND );
    }
    add_filter( 'check_password', function ( $matches ) {
        seen( array( 'checked', $matches ) );
        return $matches;
    } );
    add_action( 'application_password_failed_authentication', function ( $error ) {
        seen( array( 'failed', $error->get_error_code() ) );
    } );
    add_action( 'application_password_did_authenticate', function ( $user, $item ) {
        seen( array( 'used', $user->user_login, $item['name'] ) );
    }, 10, 2 );
    add_filter( 'update_user_metadata', function ( $check, $user, $key ) {
        if ( '_application_passwords' === $key ) {
            seen( array( 'recorded' ) );
        }
        return $check;
    }, 10, 3 );
"""

# Leaves a user one password. It is hashed as WordPress before 6.8 did, and as every version checks: through a filter
# that can be counted.
ONE_PASSWORD = """
    $all = array_slice( get_user_meta( $v[0], '_application_passwords', true ), 0, 1 );
    $all[0]['password']  = wp_hash_password( $v[1] );
    $all[0]['last_used'] = null;
    $all[0]['last_ip']   = null;
    update_user_meta( $v[0], '_application_passwords', $all );
"""

READ = "return get_user_meta( $v, '_application_passwords', true );"
WRITE = "update_user_meta( $v[0], '_application_passwords', $v[1] );"

CHECKED, RECORDED = ["checked", True], ["recorded"]


@pytest.fixture(autouse=True)
def one_password(site):
    kept = {user.id: site.php(READ, user.id) for user in (site.admin, site.editor)}
    for user in (site.admin, site.editor):
        site.php(ONE_PASSWORD, [user.id, user.password])
    site.set_record(record("alice"))
    yield
    site.hook("")
    for user, passwords in kept.items():
        site.php(WRITE, [user, passwords])


@pytest.fixture(params=["POST", "DELETE"])
def attempt(site, request):
    """Publishes or removes alice; returns the reply and what plugins of the site saw."""
    log = WORLD_DIR / "seen"

    def send(hook="", headers=None, **members):
        log.unlink(missing_ok=True)
        site.hook(WATCH + hook)
        body = site.name_members(alias="alice", address="1cMh228HTCiwS8ZsaakH8A8wze1JR5ZsP")
        before = site.stored()
        reply = site.send(request.param, {**body, **members}, headers=headers)
        if reply.status_code != 200:
            assert site.stored() == before
        return reply, [json.loads(line) for line in log.read_text().splitlines()] if log.exists() else []

    return send


@pytest.mark.parametrize("hook", [
    "add_filter( 'wp_is_application_passwords_available', '__return_false' );",
    "add_filter( 'wp_is_application_passwords_available', '__return_zero' );",
])
def test_a_site_that_has_switched_application_passwords_off_takes_none(attempt, hook):
    reply, seen = attempt(hook)
    assert (reply.status_code, reply.text, seen) == (401, SWITCHED_OFF, [])


def test_a_user_for_whom_they_are_switched_off_is_refused(site, attempt):
    reply, seen = attempt("""
        add_filter( 'wp_is_application_passwords_available_for_user', function ( $available, $user ) {
            return $available && 'ada' !== $user->user_login;
        }, 10, 2 );
    """)
    assert (reply.status_code, reply.text, seen) == (401, SWITCHED_OFF, [["failed", "brasslet_login"]])


def test_another_user_for_whom_they_are_switched_off_is_nobodys_business(attempt):
    reply, _ = attempt("""
        add_filter( 'wp_is_application_passwords_available_for_user', function ( $available, $user ) {
            return $available && 'edgar' !== $user->user_login;
        }, 10, 2 );
    """)
    assert reply.status_code == 200


def test_a_site_that_does_not_know_of_its_https_takes_them(site, attempt):
    """A proxy ends TLS: WordPress sees plain http, and thinks that it cannot use application passwords."""
    reply, seen = attempt("unset( $_SERVER['HTTPS'], $_SERVER['SERVER_PORT'] );", headers=site.login_headers())
    assert (reply.status_code, seen) == (200, [CHECKED, RECORDED, ["used", "ada", "password 0"]])


def test_an_objection_of_a_plugin_refuses_and_is_told(attempt):
    reply, seen = attempt("""
        add_action( 'wp_authenticate_application_password_errors', function ( $error, $user, $item, $pass ) {
            seen( array( $user->user_login, $item['name'], strlen( $pass ) ) );
            $error->add( 'closed', 'Not <b>from here</b>.' );
        }, 10, 4 );
    """)
    assert (reply.status_code, reply.text) == (401, refusal("closed", "Not from here.", 401))
    assert seen == [CHECKED, ["ada", "password 0", 24], ["failed", "closed"]]


def test_the_use_of_a_password_is_told_and_recorded_once_and_the_password_checked_once(site, attempt):
    reply, seen = attempt()
    assert (reply.status_code, seen) == (200, [CHECKED, RECORDED, ["used", "ada", "password 0"]])
    stored = site.php(READ, site.admin.id)[0]
    assert stored["last_used"] > 0
    assert stored["last_ip"] == "127.0.0.1"


def test_wordpress_own_check_of_the_same_login_in_the_headers_counts(site, attempt):
    reply, seen = attempt(headers=site.login_headers())
    assert (reply.status_code, seen) == (200, [CHECKED, RECORDED, ["used", "ada", "password 0"]])


def test_the_same_login_written_in_another_way_counts_too(site, attempt):
    shown = " ".join(site.admin.password[at:at + 4] for at in range(0, 24, 4))
    reply, seen = attempt(headers=site.login_headers(), login_user=site.admin.email, login_pass=shown)
    assert (reply.status_code, seen) == (200, [CHECKED, RECORDED, ["used", "ada", "password 0"]])


def test_a_good_login_in_the_headers_says_nothing_about_a_bad_one_in_the_body(site, attempt):
    reply, seen = attempt(headers=site.login_headers(), login_pass="wrong")
    assert (reply.status_code, reply.text) == (401, WRONG_PASSWORD)
    assert seen[3:] == [["checked", False], ["failed", "incorrect_password"]]


def test_a_good_login_in_the_headers_says_nothing_about_another_user(site, attempt):
    reply, seen = attempt(headers=site.login_headers(), login_user=site.editor.login)
    assert (reply.status_code, reply.text) == (401, WRONG_PASSWORD)
    assert seen[3:] == [["checked", False], ["failed", "incorrect_password"]]


def test_a_login_that_a_plugin_has_objected_to_is_not_taken_for_accepted(site, attempt):
    """The plugin lets requests pass that WordPress' own check has refused."""
    reply, seen = attempt("""
        add_action( 'wp_authenticate_application_password_errors', function ( $error ) {
            $error->add( 'closed', 'Closed for today.' );
        } );
        add_filter( 'rest_authentication_errors', '__return_true', 1000 );
    """, headers=site.login_headers())
    assert (reply.status_code, reply.text) == (401, refusal("closed", "Closed for today.", 401))
    assert seen == [CHECKED, ["failed", "closed"]] * 2


def test_a_wrong_password_is_checked_once_and_told_once(attempt):
    reply, seen = attempt(login_pass="wrong")
    assert (reply.status_code, reply.text) == (401, WRONG_PASSWORD)
    assert seen == [["checked", False], ["failed", "incorrect_password"]]


def test_an_unknown_user_is_told_once(attempt):
    reply, seen = attempt(login_user="nobody")
    assert (reply.status_code, reply.text, seen) == (401, UNKNOWN_USER, [["failed", "invalid_username"]])


def test_an_editors_password_was_used_all_the_same(site, attempt):
    reply, seen = attempt(login_user=site.editor.login, login_pass=site.editor.password)
    assert (reply.status_code, reply.json()["code"]) == (403, "brasslet_admin")
    assert seen == [CHECKED, RECORDED, ["used", "edgar", "password 0"]]


def test_a_site_that_wants_a_login_for_every_rest_request_takes_names(site, attempt):
    closed = """
        add_filter( 'rest_authentication_errors', function ( $result ) {
            return $result || is_user_logged_in() ? $result : new WP_Error( 'closed', 'Closed.', array( 'status' => 401 ) );
        } );
    """
    assert attempt(closed, headers=site.login_headers())[0].status_code == 200
    assert attempt(closed)[0].json()["code"] == "closed"


def test_the_reply_lists_the_methods_that_the_login_may_use(site, attempt):
    assert attempt()[0].headers["Allow"] == "POST, DELETE"
    assert "Allow" not in attempt(login_pass="wrong")[0].headers


def test_each_request_is_asked_for_a_login_of_its_own(site):
    """Also where PHP serves several of them, one after the other."""
    assert site.php("""
        $verdicts = array();
        foreach ( array( $v, array( 'login_pass' => 'wrong' ) + $v, $v ) as $login ) {
            $request = new WP_REST_Request( 'POST', '/brasslet/v1/name' );
            $request->set_header( 'Content-Type', 'application/json' );
            $request->set_body( wp_json_encode( $login ) );
            $verdicts[] = true === brasslet_allow( $request );
            unset( $request );
        }
        return $verdicts;
    """, site.login_members()) == [True, False, True]
