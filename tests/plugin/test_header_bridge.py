"""The login in the header X-Brasslet-Auth, for hosts that lose the Authorization header."""

import base64
import json

import pytest

# Shows what WordPress will find, right after the bridge.
SHOW = """
    add_action( 'plugins_loaded', function () {
        $names = array( 'PHP_AUTH_USER', 'PHP_AUTH_PW', 'HTTP_AUTHORIZATION' );
        echo json_encode( array_map( function ( $name ) { return $_SERVER[ $name ] ?? null; }, $names ) );
        exit;
    }, 1 );
"""

NOTHING = [None, None, None]
ME = "/wp-json/wp/v2/users/me"


def encoded(text):
    return base64.b64encode(text if isinstance(text, bytes) else text.encode()).decode()


def bridged(site, *headers, prepare=""):
    """What the bridge makes of X-Brasslet-Auth, once in the usual and once in the redirected variable."""
    site.hook(prepare + SHOW)
    user, password, header = json.loads(site.request("GET", "/", headers=dict(headers)).text)
    # The rules that WordPress writes for Apache set an empty header where there is none.
    return [user, password, header or None]


def custom(value):
    return ("X-Brasslet-Auth", value)


def redirected(value):
    return f"$_SERVER['REDIRECT_HTTP_X_BRASSLET_AUTH'] = {value};"


def test_a_login_is_bridged(site):
    header = "Basic " + encoded("ada:pass word")
    assert bridged(site, custom(header)) == ["ada", "pass word", header]


@pytest.mark.parametrize("scheme", ["BASIC", "basic", "bAsIc"])
def test_the_scheme_is_taken_in_any_case(site, scheme):
    header = f"{scheme} {encoded('user:pass')}"
    assert bridged(site, custom(header)) == ["user", "pass", header]


@pytest.mark.parametrize("login,user,password", [
    ("ada:a:b::c:", "ada", "a:b::c:"), ("ada:", "ada", ""), ("0:0", "0", "0"), ("a b: c ", "a b", " c "),
    ("zo\u00eb:gr\u00fc\u00df", "zo\u00eb", "gr\u00fc\u00df"),
    ("o'neil\\:'\"\\", "o'neil\\", "'\"\\"), ("a::", "a", ":"),
])
def test_the_first_colon_parts_user_and_password(site, login, user, password):
    assert bridged(site, custom("Basic " + encoded(login)))[:2] == [user, password]


def test_blanks_around_the_base64_do_not_matter(site):
    assert bridged(site, custom(f"Basic    {encoded('user:pass')}"))[:2] == ["user", "pass"]


@pytest.mark.parametrize("blank", [r"\t", r"\x0B", r"\0", r" \r\n"])
def test_whatever_php_trims_may_stand_around_the_base64(site, blank):
    prepare = redirected(f'"Basic {blank}{encoded("user:pass")}{blank}"')
    assert bridged(site, prepare=prepare)[:2] == ["user", "pass"]


@pytest.mark.parametrize("header", [
    "Bearer " + encoded("user:pass"), "Digest " + encoded("user:pass"), encoded("user:pass"),
    "Basic" + encoded("user:pass"), "Basic\t" + encoded("user:pass"), "Basics" + encoded("user:pass"),
    "Basic", "Basic ", "Basic  ", "", "Basi " + encoded("user:pass"), "XBasic " + encoded("user:pass"),
])
def test_another_scheme_is_not_bridged(site, header):
    assert bridged(site, custom(header)) == NOTHING


@pytest.mark.parametrize("rest", ["user:pass", "!!!!", encoded("user:pass") + "*", "dXNlcjpwYXNz=x", "dXNlcjpw#XNz"])
def test_what_is_no_base64_is_not_bridged(site, rest):
    assert bridged(site, custom("Basic " + rest)) == NOTHING


@pytest.mark.parametrize("login", ["nocolon", ":pass", ":", "::", "0"])
def test_without_a_colon_or_a_user_nothing_is_bridged(site, login):
    assert bridged(site, custom("Basic " + encoded(login))) == NOTHING


def test_a_login_that_is_there_already_is_left_alone(site):
    own = "Basic " + encoded("own:login")
    seen = bridged(site, ("Authorization", own), custom("Basic " + encoded("other:login")))
    assert seen == ["own", "login", own]


def test_empty_texts_count_as_a_login_that_is_there(site):
    prepare = "$_SERVER['PHP_AUTH_USER'] = ''; $_SERVER['PHP_AUTH_PW'] = '';"
    assert bridged(site, custom("Basic " + encoded("user:pass")), prepare=prepare)[:2] == ["", ""]


@pytest.mark.parametrize("half", ["PHP_AUTH_USER", "PHP_AUTH_PW"])
def test_half_a_login_is_replaced(site, half):
    seen = bridged(site, custom("Basic " + encoded("user:pass")), prepare=f"$_SERVER['{half}'] = 'half';")
    assert seen[:2] == ["user", "pass"]


def test_an_authorization_of_another_scheme_is_replaced(site):
    header = "Basic " + encoded("user:pass")
    assert bridged(site, ("Authorization", "Bearer token"), custom(header)) == ["user", "pass", header]


def test_the_redirected_form_is_read_when_the_usual_one_is_missing(site):
    header = "Basic " + encoded("user:pass")
    assert bridged(site, prepare=redirected(f"'{header}'")) == ["user", "pass", header]


def test_the_redirected_form_is_read_when_the_usual_one_is_empty(site):
    prepare = "$_SERVER['HTTP_X_BRASSLET_AUTH'] = '';" + redirected(f"'Basic {encoded('user:pass')}'")
    assert bridged(site, prepare=prepare)[:2] == ["user", "pass"]


def test_the_redirected_form_is_read_when_the_usual_one_is_no_text(site):
    prepare = "$_SERVER['HTTP_X_BRASSLET_AUTH'] = array( 'x' );" + redirected(f"'Basic {encoded('user:pass')}'")
    assert bridged(site, prepare=prepare)[:2] == ["user", "pass"]


def test_the_usual_form_comes_first(site):
    prepare = redirected(f"'Basic {encoded('other:login')}'")
    assert bridged(site, custom("Basic " + encoded("user:pass")), prepare=prepare)[:2] == ["user", "pass"]


def test_a_usual_form_that_is_no_login_does_not_fall_to_the_redirected_one(site):
    prepare = redirected(f"'Basic {encoded('other:login')}'")
    assert bridged(site, custom("Bearer token"), prepare=prepare) == NOTHING


@pytest.mark.parametrize("value", ["array( 'Basic x' )", "5", "null", "true"])
def test_a_redirected_form_that_is_no_text_is_not_bridged(site, value):
    assert bridged(site, prepare=redirected(value)) == NOTHING


def test_without_any_header_nothing_is_set(site):
    assert bridged(site) == NOTHING


def test_wordpress_takes_the_bridged_login(site):
    header = site.login_headers()["X-Brasslet-Auth"]
    reply = site.request("GET", ME, headers={"X-Brasslet-Auth": header})
    assert (reply.status_code, reply.json().get("id")) == (200, site.admin.id)


def test_wordpress_refuses_a_bridged_login_with_a_wrong_password(site):
    header = "Basic " + encoded(f"{site.admin.login}:wrong")
    assert site.request("GET", ME, headers={"X-Brasslet-Auth": header}).status_code == 401


@pytest.mark.parametrize("host", ["strip.brasslet.test", "redirect.brasslet.test"])
def test_a_host_that_loses_the_authorization_header_lets_the_login_through(sites, host):
    site = sites["stable"]
    site.reset()
    headers = site.login_headers()
    lost = site.request("GET", ME, host=host, headers={"Authorization": headers["Authorization"]})
    assert lost.status_code == 401
    reply = site.request("GET", ME, host=host, headers=headers)
    assert (reply.status_code, reply.json().get("id")) == (200, site.admin.id)
    assert site.send("POST", site.name_members(), host=host, headers=headers).status_code == 200
