"""Who may publish and remove: the login in the JSON body."""

import subprocess

import pytest

from names import (NO_ADMINISTRATOR, NO_APPLICATION_PASSWORDS, NO_LOGIN, UNKNOWN_USER, WRONG_PASSWORD, record)


@pytest.fixture(params=["POST", "DELETE"])
def attempt(site, request):
    """Publishes or removes alice with the login members given; the record before has to survive every refusal."""
    site.set_record(record("alice"))

    def send(**members):
        before = site.stored()
        body = site.name_members(alias="alice", address="1cMh228HTCiwS8ZsaakH8A8wze1JR5ZsP")
        del body["login_user"], body["login_pass"]
        reply = site.send(request.param, {**body, **members})
        if reply.status_code != 200:
            assert site.stored() == before
        return reply

    return send


def assert_refused(reply, body, status=401):
    assert (reply.status_code, reply.text) == (status, body)


NOTHING = ["", None, 0, 5, True, [], ["ada"], {"a": "b"}]


def test_a_missing_user_or_password_is_asked_for(site, attempt):
    assert_refused(attempt(), NO_LOGIN)
    assert_refused(attempt(login_user=site.admin.login), NO_LOGIN)
    assert_refused(attempt(login_pass=site.admin.password), NO_LOGIN)


def test_a_user_or_password_that_is_no_text_is_asked_for(site, attempt):
    for nothing in NOTHING:
        assert_refused(attempt(login_user=nothing, login_pass=site.admin.password), NO_LOGIN)
        assert_refused(attempt(login_user=site.admin.login, login_pass=nothing), NO_LOGIN)
    assert_refused(attempt(login_user=" \t\n", login_pass=site.admin.password), NO_LOGIN)


@pytest.mark.parametrize("user", ["nobody", "nobody@people.test", "0", "<script>", "a' OR '1'='1", "x" * 100000])
def test_an_unknown_user_is_named_as_such(site, attempt, user):
    assert_refused(attempt(login_user=user, login_pass=site.admin.password), UNKNOWN_USER)


def test_the_username_is_trimmed(site, attempt):
    assert attempt(login_user=f"  {site.admin.login}\n", login_pass=site.admin.password).status_code == 200


def test_the_e_mail_address_does_as_a_username(site, attempt):
    assert attempt(login_user=site.admin.email, login_pass=site.admin.password).status_code == 200


def test_only_an_e_mail_address_is_looked_up_as_one(site, attempt):
    """An address that is none can only have come into the database past WordPress."""
    given, found = "edgar-home", site.editor
    change = "$wpdb->update( $wpdb->users, array( 'user_email' => $v[1] ), array( 'ID' => $v[0] ) );"
    site.php(change, [found.id, given])
    try:
        assert_refused(attempt(login_user=given, login_pass=found.password), UNKNOWN_USER)
    finally:
        site.php(change, [found.id, found.email])


def test_a_username_that_looks_like_another_users_e_mail_address_comes_first(site, attempt):
    assert_refused(attempt(login_user=site.disguised.login, login_pass=site.admin.password), WRONG_PASSWORD)
    assert_refused(attempt(login_user=site.disguised.login, login_pass=site.disguised.password), NO_ADMINISTRATOR, 403)


def test_the_password_works_as_wordpress_shows_it(site, attempt):
    shown = " ".join(site.admin.password[at:at + 4] for at in range(0, 24, 4))
    assert attempt(login_user=site.admin.login, login_pass=shown).status_code == 200
    assert attempt(login_user=site.admin.login, login_pass=f" {shown}\n").status_code == 200


def test_a_wrong_password_is_refused(site, attempt):
    password = site.admin.password
    wrong = [password[:-1], password + "x", password.swapcase(), "x", "0", "   ", "----", "\u00e4" * 24, "x" * 100000]
    for given in wrong:
        assert_refused(attempt(login_user=site.admin.login, login_pass=given), WRONG_PASSWORD)


def test_the_password_of_the_account_is_refused(site, attempt):
    assert_refused(attempt(login_user=site.admin.login, login_pass=site.admin.account_password), WRONG_PASSWORD)


def test_the_hash_itself_is_refused(site, attempt):
    stored = site.php("return WP_Application_Passwords::get_user_application_passwords( $v );", site.admin.id)
    given = stored[0]["password"]
    assert_refused(attempt(login_user=site.admin.login, login_pass=given), WRONG_PASSWORD)


def test_the_password_of_another_user_is_refused(site, attempt):
    assert_refused(attempt(login_user=site.admin.login, login_pass=site.editor.password), WRONG_PASSWORD)


def test_any_of_several_passwords_is_accepted(site, attempt):
    for password in (site.admin.password, site.admin.second_password):
        assert attempt(login_user=site.admin.login, login_pass=password).status_code == 200


def test_a_password_that_was_hashed_before_wordpress_6_8_is_accepted(site, attempt):
    """It was hashed like the password of an account, and an upgrade leaves it so."""
    site.php("""
        $all = get_user_meta( $v[0], '_application_passwords', true );
        $all[1]['password'] = wp_hash_password( $v[1] );
        update_user_meta( $v[0], '_application_passwords', $all );
    """, [site.admin.id, site.admin.second_password])
    assert attempt(login_user=site.admin.login, login_pass=site.admin.second_password).status_code == 200


def test_an_editor_is_no_administrator(site, attempt):
    assert_refused(attempt(login_user=site.editor.login, login_pass=site.editor.password), NO_ADMINISTRATOR, 403)


def test_an_editor_with_a_wrong_password_learns_only_that(site, attempt):
    assert_refused(attempt(login_user=site.editor.login, login_pass="wrong"), WRONG_PASSWORD)


def test_a_user_without_application_passwords_is_refused(site, attempt):
    assert_refused(attempt(login_user=site.bare.login, login_pass="anything"), WRONG_PASSWORD)


def test_damaged_password_records_are_passed_over(site, attempt):
    site.php("""
        $good = get_user_meta( $v, '_application_passwords', true );
        $damaged = array( array() );
        foreach ( array( null, '', array() ) as $hash ) {
            $damaged[] = array( 'password' => $hash );
        }
        update_user_meta( $v, '_application_passwords', array_merge( $damaged, $good ) );
    """, site.admin.id)
    site.hook("""
        add_filter( 'check_password', function ( $matches, $pass, $hash ) {
            return $matches || '' === $hash;
        }, 10, 3 );
    """)
    try:
        assert attempt(login_user=site.admin.login, login_pass=site.admin.password).status_code == 200
        assert_refused(attempt(login_user=site.admin.login, login_pass="wrong"), WRONG_PASSWORD)
    finally:
        site.php("""
            $all = get_user_meta( $v, '_application_passwords', true );
            update_user_meta( $v, '_application_passwords', array_slice( $all, 4 ) );
        """, site.admin.id)


def test_the_login_is_checked_before_the_name(site):
    assert_refused(site.publish(alias="no good", login_pass="wrong"), WRONG_PASSWORD)
    assert_refused(site.publish(alias="no good", login_pass=""), NO_LOGIN)


@pytest.mark.parametrize("method", ["POST", "DELETE"])
@pytest.mark.parametrize("body", ["[]", "{}", "5", '"text"', "null", "true", '[["login_user"]]'])
def test_a_body_without_members_has_no_login(site, method, body):
    reply = site.request(method, "/wp-json/brasslet/v1/name", data=body, headers={"Content-Type": "application/json"})
    assert_refused(reply, NO_LOGIN)


@pytest.mark.parametrize("method", ["POST", "DELETE"])
def test_only_a_json_body_is_read_for_the_login(site, method):
    members = {**site.login_members(), "alias": "alice"}
    path = "/wp-json/brasslet/v1/name"
    assert_refused(site.request(method, path), NO_LOGIN)
    assert_refused(site.request(method, path, data=members), NO_LOGIN)
    assert_refused(site.request(method, path, params=members), NO_LOGIN)


@pytest.mark.parametrize("method", ["POST", "DELETE"])
def test_a_login_in_the_headers_alone_is_not_enough(site, method):
    reply = site.request(method, "/wp-json/brasslet/v1/name", json={"alias": "alice"}, headers=site.login_headers())
    assert_refused(reply, NO_LOGIN)


@pytest.mark.parametrize("method", ["GET", "PUT", "PATCH"])
def test_other_methods_are_no_route(site, method):
    assert site.send(method, site.name_members()).json()["code"] == "rest_no_route"


def test_the_administrator_becomes_the_current_user(site):
    assert site.php("""
        wp_set_current_user( 0 );
        $request = new WP_REST_Request( 'POST', '/brasslet/v1/name' );
        $request->set_header( 'Content-Type', 'application/json' );
        $request->set_body( wp_json_encode( $v ) );
        $allowed = brasslet_allow( $request );
        $user = get_current_user_id();
        wp_set_current_user( 0 );
        return array( $allowed, $user );
    """, site.login_members()) == [True, site.admin.id]


def test_a_refused_user_does_not_become_the_current_user(site):
    assert site.php("""
        wp_set_current_user( 0 );
        $request = new WP_REST_Request( 'POST', '/brasslet/v1/name' );
        $request->set_header( 'Content-Type', 'application/json' );
        $request->set_body( wp_json_encode( $v ) );
        $refused = brasslet_allow( $request );
        return array( $refused->get_error_code(), get_current_user_id() );
    """, {"login_user": site.editor.login, "login_pass": site.editor.password}) == ["brasslet_admin", 0]


def test_a_wordpress_without_application_passwords_says_so(site, plugin_file):
    """WordPress is started here as far as its basics; the class belongs to what it would load afterwards."""
    script = """
        define( 'SHORTINIT', true );
        $_SERVER['SERVER_NAME'] = $argv[2];
        require $argv[1] . 'wp-load.php';
        require_once ABSPATH . WPINC . '/rest-api/class-wp-rest-request.php';
        require $argv[3];
        foreach ( array( '{}', '{"login_user":"a"}', '{"login_user":"a","login_pass":"b"}' ) as $body ) {
            $request = new WP_REST_Request( 'POST', '/brasslet/v1/name' );
            $request->set_header( 'Content-Type', 'application/json' );
            $request->set_body( $body );
            $error = brasslet_allow( $request );
            $status = $error->get_error_data()['status'];
            echo $error->get_error_code(), '|', $error->get_error_message(), '|', $status, "\\n";
        }
    """
    root = site.php("return ABSPATH;")
    command = ["php", "-r", script, root, site.host, plugin_file]
    result = subprocess.run(command, stdout=subprocess.PIPE, text=True, check=True)
    asked = "brasslet_login|Add the WordPress user and application password.|401"
    assert result.stdout.splitlines() == [asked, asked, f"brasslet_login|{NO_APPLICATION_PASSWORDS}|401"]
