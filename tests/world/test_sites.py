"""The sites of the world: what each of them is, and that their servers have the habits that they are there for."""

import json
import os

import pytest

from worlds import BUNDLE, WORLD, up

HOSTS = ["brasslet.test", "strip.brasslet.test", "redirect.brasslet.test", "newer.brasslet.test", "net.brasslet.test",
         "two.net.brasslet.test", "folders.brasslet.test", "apart.brasslet.test", "proxied.brasslet.test",
         "unaware.brasslet.test", "oneworker.brasslet.test", "xn--bcher-kva.example"]
IN_FOLDERS = ["folders.brasslet.test/second", "below.brasslet.test/blog", "handed.brasslet.test/blog"]

PROBE = """<?php
/* Plugin Name: Probe */
add_action('rest_api_init', fn() => register_rest_route('probe/v1', '/headers', [
    'permission_callback' => '__return_true',
    'callback' => fn() => array_values(array_intersect(array_keys($_SERVER), [
        'HTTP_AUTHORIZATION', 'PHP_AUTH_USER', 'HTTP_X_BRASSLET_AUTH', 'REDIRECT_HTTP_X_BRASSLET_AUTH'])),
]));
"""


@pytest.mark.parametrize("web", ["nginx", "apache"])
def test_every_site_answers_over_https_under_its_own_address(web):
    answers = up("".join(f"curl -sS --cacert $WORLD_CA https://{address}/wp-json/; echo\n"
                         for address in HOSTS + IN_FOLDERS), "--no-desktop", env={**os.environ, "WORLD_WEB": web}).split("\n")
    assert [json.loads(answer)["home"] for answer in answers] == [f"https://{address}" for address in HOSTS + IN_FOLDERS]


def test_the_commands_reach_every_site_under_its_own_address():
    homes = up("".join(f"{WORLD}/wp {address} 'echo home_url(), PHP_EOL;'\n" for address in HOSTS + IN_FOLDERS),
               "--no-desktop").split("\n")
    assert homes == [f"https://{address}" for address in HOSTS + IN_FOLDERS]


def test_every_wordpress_has_its_permalinks_in_the_database():
    # The structures of a network are those that WordPress gives its sites.
    dated = "/%year%/%monthnum%/%day%/%postname%/"
    wanted = {"brasslet.test": "/%postname%/", "newer.brasslet.test": "/%postname%/", "apart.brasslet.test": "/%postname%/",
              "below.brasslet.test/blog": "/%postname%/", "net.brasslet.test": dated, "two.net.brasslet.test": dated,
              "folders.brasslet.test": "/blog" + dated, "folders.brasslet.test/second": dated}
    assert up("".join(f"""{WORLD}/wp {address} 'echo $wpdb->get_var(
        "SELECT option_value FROM $wpdb->options WHERE option_name = \\"permalink_structure\\""), PHP_EOL;'\n"""
                      for address in wanted), "--no-desktop").split("\n") == list(wanted.values())


def test_a_network_has_two_sites_and_a_super_admin_and_the_other_sites_are_none():
    tell = """echo json_encode([is_multisite(), is_multisite() ? is_subdomain_install() : null, is_multisite()
        ? array_map(fn($site) => $site->domain . $site->path, get_sites()) : [], is_super_admin(1)]), PHP_EOL;"""
    told = up("".join(f"{WORLD}/wp {host} '{tell}'\n" for host in (
        "net.brasslet.test", "folders.brasslet.test", "below.brasslet.test/blog")), "--no-desktop").split("\n")
    assert [json.loads(line) for line in told] == [
        [True, True, ["net.brasslet.test/", "two.net.brasslet.test/"], True],
        [True, False, ["folders.brasslet.test/", "folders.brasslet.test/second/"], True],
        [False, None, [], True]]


@pytest.mark.parametrize("web", ["nginx", "apache"])
def test_a_wordpress_lies_below_the_root_of_its_host_in_two_ways(web):
    pages = ["below.brasslet.test/blog/wp-login.php", "apart.brasslet.test/wp/wp-login.php",
             "folders.brasslet.test/second/wp-login.php", "below.brasslet.test/wp-admin/install.php",
             "apart.brasslet.test/wp-admin/install.php", "below.brasslet.test/no-page"]
    seen = up("".join(f"curl -sS -o /dev/null -w '%{{http_code}} ' https://{page}\n" for page in pages), "--no-desktop",
              env={**os.environ, "WORLD_WEB": web})
    assert seen.split() == ["200", "200", "200", "404", "404", "404"]


@pytest.mark.parametrize("web", ["nginx", "apache"])
def test_only_one_host_hands_the_document_at_its_root_to_the_wordpress_in_its_folder(web, tmp_path):
    (tmp_path / "probe.php").write_text(
        "<?php\n/* Plugin Name: Probe */\nif (!defined('ABSPATH')) exit;\nheader('X-Probe: ' . $_SERVER['REQUEST_URI']);\n")
    asked = up(f"""{WORLD}/install_plugin handed.brasslet.test/blog {tmp_path}/probe.php
        for host in handed below; do
            curl -sSI https://$host.brasslet.test/.well-known/bsvalias | tr -d '\\r' | grep '^X-Probe' || echo none
        done""", "--no-desktop", env={**os.environ, "WORLD_WEB": web})
    assert asked.split("\n") == ["X-Probe: /.well-known/bsvalias", "none"]


def test_the_two_wordpress_stand_on_both_sides_of_the_change_of_password_hashes():
    versions = up(f"for host in brasslet.test newer.brasslet.test; do {WORLD}/wp $host 'echo $wp_version, PHP_EOL;'; "
                  "done", "--no-desktop").split()
    old, new = ([int(part) for part in version.split(".")[:2]] for version in versions)
    assert old < [6, 8] <= new


@pytest.mark.parametrize("host", ["brasslet.test", "newer.brasslet.test", "two.net.brasslet.test",
                                  "folders.brasslet.test/second", "below.brasslet.test/blog", "apart.brasslet.test"])
def test_an_application_password_logs_the_owner_in_and_the_editor_is_no_administrator(host):
    roles = up(f"""for user in owner editor; do
        curl -sSg -u $user:$({WORLD}/app_password {host} $user) \\
            'https://{host}/wp-json/wp/v2/users/me?context=edit&_fields=roles'; echo
        done""", "--no-desktop").split("\n")
    assert roles == ['{"roles":["administrator"]}', '{"roles":["editor"]}']


@pytest.mark.parametrize("web, host, seen", [
    (web, host, seen) for web in ("nginx", "apache") for host, seen in (
        ("brasslet.test", {"HTTP_AUTHORIZATION", "PHP_AUTH_USER", "HTTP_X_BRASSLET_AUTH"}),
        ("strip.brasslet.test", {"HTTP_X_BRASSLET_AUTH"}),
        ("redirect.brasslet.test", {"REDIRECT_HTTP_X_BRASSLET_AUTH"}),
        ("newer.brasslet.test", {"HTTP_AUTHORIZATION", "PHP_AUTH_USER", "HTTP_X_BRASSLET_AUTH"}),
    )])
def test_php_sees_the_credentials_that_the_host_lets_through(web, host, seen, tmp_path):
    (tmp_path / "probe.php").write_text(PROBE)
    answer = up(f"""{WORLD}/install_plugin {host} {tmp_path}/probe.php
        secret=$({WORLD}/app_password {host} owner)
        curl -sS -u owner:$secret -H "X-Brasslet-Auth: Basic $(echo -n owner:$secret | base64 -w0)" \\
            https://{host}/wp-json/probe/v1/headers""", "--no-desktop", env={**os.environ, "WORLD_WEB": web})
    assert set(json.loads(answer)) == seen


@pytest.mark.parametrize("host, seen", [
    ("brasslet.test", "yes https"), ("proxied.brasslet.test", "yes http"), ("unaware.brasslet.test", "no http"),
])
def test_wordpress_knows_of_the_tls_that_a_proxy_ended_only_where_the_proxy_says_so(host, seen, tmp_path):
    (tmp_path / "probe.php").write_text("""<?php
        /* Plugin Name: Probe */
        header('X-Probe: ' . (is_ssl() ? 'yes' : 'no') . ' ' . $_SERVER['REQUEST_SCHEME']);""")
    assert up(f"""{WORLD}/install_plugin {host} {tmp_path}/probe.php
        curl -sSI https://{host}/wp-json/ | tr -d '\r' | sed -n 's/^X-Probe: //p'""", "--no-desktop") == seen


@pytest.mark.parametrize("web", ["nginx", "apache"])
def test_two_hosts_send_every_request_on(web):
    ask = "curl -sS -o /dev/null -w '%{http_code} %{redirect_url}\\n' "
    seen = up(f"{ask} https://www.newer.brasslet.test/a/b?c=d\n{ask} -d x=y https://moved.brasslet.test/", "--no-desktop",
              env={**os.environ, "WORLD_WEB": web})
    assert seen.split("\n") == ["301 https://newer.brasslet.test/a/b?c=d", "301 https://brasslet.test/"]


def test_a_site_with_one_process_cannot_ask_itself(tmp_path):
    (tmp_path / "probe.php").write_text("""<?php
        /* Plugin Name: Probe */
        if ($_SERVER['REQUEST_URI'] === '/probe') {
            $reply = wp_remote_get(home_url('/wp-json/'), ['timeout' => 2]);
            exit(is_wp_error($reply) ? substr($reply->get_error_message(), 0, 13) : 'answered');
        }""")
    assert up(f"""{WORLD}/install_plugin brasslet.test {tmp_path}/probe.php
        for host in brasslet.test oneworker.brasslet.test; do curl -sS https://$host/probe; echo; done""",
              "--no-desktop") == "answered\ncURL error 28"


def test_a_plugin_that_is_installed_again_counts_at_once(tmp_path):
    for name in ("first", "second"):
        text = f"<?php\n/* Plugin Name: Probe */\nif (!defined('ABSPATH')) exit;\nheader('X-Probe: {name}');\n"
        (tmp_path / f"{name}.php").write_text(text)
    # PHP caches no file that is only just written.
    answer = up(f"""for name in first second; do
        {WORLD}/install_plugin brasslet.test {tmp_path}/$name.php
        [ $name = second ] || touch -d '1 minute ago' $WORLD_DIR/sites/stable/content/plugins/brasslet/brasslet.php
        curl -sSI https://brasslet.test/wp-json/ | tr -d '\\r' | grep '^X-Probe'
        done""", "--no-desktop")
    assert answer.split("\n") == ["X-Probe: first", "X-Probe: second"]


def test_no_certificate_of_the_world_is_trusted_without_its_authority():
    assert up(f"curl -sS -o /dev/null --cacert {BUNDLE} https://brasslet.test/wp-json/ && echo trusted; "
              "head -c -$(stat -c %s $WORLD_CA) /etc/ssl/certs/ca-certificates.crt >$WORLD_DIR/without.crt; "
              "curl -s --cacert $WORLD_DIR/without.crt https://brasslet.test/wp-json/ || echo refused $?",
              "--no-desktop") == "trusted\nrefused 60"


def test_a_site_can_have_a_name_that_leads_its_own_server_elsewhere():
    assert up("""for host in inward silent; do
            curl -s --max-time 2 https://$host.brasslet.test/ || echo none $?
            curl -sSH "Host: $host.brasslet.test" https://brasslet.test/wp-json/?_fields=home | cut -d, -f1
        done""", "--no-desktop").split("\n") == [
        "none 7", '{"home":"https:\\/\\/inward.brasslet.test"', "none 28", '{"home":"https:\\/\\/silent.brasslet.test"']
