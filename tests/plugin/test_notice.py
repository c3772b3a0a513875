"""The notice on the plugins page: what keeps names from being published or paid as the site stands."""

import html
import json
import re
import subprocess

import pytest

from admin_pages import Admin, notices
from names import record

TITLE = "payment names cannot be published or paid as things stand."

PERMALINKS = ('Your permalinks do not lead to WordPress. Under Settings, Permalinks, choose a structure other than "Plain" '
              'and without "index.php", and save it.')
NO_HTTPS = 'The address of this site does not begin with "https://", and wallets use nothing else.'
IN_SETTINGS = 'Once it answers over https, let both addresses under Settings, General begin with "https://".'
IN_THE_FILE = 'Once it answers over https, let WP_HOME and WP_SITEURL in wp-config.php begin with "https://".'
SWITCHED_OFF = ("Application passwords are switched off, and Brasslet needs one to publish. "
                "Allow them in the plugin for security that forbids them, or ask your host.")
TOO_OLD = "This WordPress is too old for application passwords.", "Update it under Dashboard, Updates."

PLAIN = "add_filter( 'pre_option_permalink_structure', function () { return '%s'; } );"
WITHOUT_HTTPS = "add_filter( 'home_url', function ( $url ) { return set_url_scheme( $url, 'http' ); } );"
WITHOUT_PASSWORDS = "add_filter( 'wp_is_application_passwords_available', '__return_false' );"


@pytest.fixture
def admin(site):
    return Admin(site, site.admin)


def permalinks(site):
    return PERMALINKS, [(f"https://{site.host}/wp-admin/options-permalink.php", "Open the permalink settings")]


def no_https(site):
    """One of the sites has its address in wp-config.php, the other where WordPress' own page changes it."""
    if site.php("return defined( 'WP_HOME' );"):
        return f"{NO_HTTPS} {IN_THE_FILE}", []
    link = (f"https://{site.host}/wp-admin/options-general.php", "Open the general settings")
    return f"{NO_HTTPS} {IN_SETTINGS}", [link]


def test_a_site_that_is_ready_gets_no_notice(site, admin):
    page = admin.plugins()
    assert "brasslet/brasslet.php" in page and notices(page) == []
    site.set_record(record("alice"))
    assert notices(admin.plugins()) == []


@pytest.mark.parametrize("structure", ["", "/index.php/%postname%/", "index.php/archives/%post_id%"])
def test_permalinks_that_do_not_lead_to_wordpress_are_told_until_they_do(site, admin, structure):
    site.hook(PLAIN % structure)
    assert notices(admin.plugins()) == [[TITLE, permalinks(site)]]
    site.hook(PLAIN % "/%postname%/")
    assert notices(admin.plugins()) == []


def test_an_address_without_https_is_told_until_it_has_it(site, admin):
    site.hook(WITHOUT_HTTPS)
    assert notices(admin.plugins()) == [[TITLE, no_https(site)]]
    site.hook("")
    assert notices(admin.plugins()) == []


def test_application_passwords_that_are_switched_off_are_told_until_they_are_allowed(site, admin):
    site.hook(WITHOUT_PASSWORDS)
    assert notices(admin.plugins()) == [[TITLE, (SWITCHED_OFF, [])]]
    site.hook("")
    assert notices(admin.plugins()) == []


def test_several_obstacles_are_one_notice(site, admin):
    site.hook(PLAIN % "" + WITHOUT_HTTPS + WITHOUT_PASSWORDS)
    assert notices(admin.plugins()) == [[TITLE, no_https(site), permalinks(site), (SWITCHED_OFF, [])]]


def test_the_first_page_after_activation_has_the_notice(site, admin, plugin_file):
    site.hook(PLAIN % "")
    site.php("""
        require_once ABSPATH . 'wp-admin/includes/plugin.php';
        deactivate_plugins( 'brasslet/brasslet.php' );
    """)
    try:
        page = admin.plugins()
        assert notices(page) == []
        link = html.unescape(re.search(r'href="(plugins\.php\?action=activate&amp;plugin=brasslet[^"]*)"', page)[1])
        page = admin.open("/wp-admin/" + link)
    finally:
        site.install(plugin_file)
    assert "Plugin activated." in page
    assert notices(page) == [[TITLE, permalinks(site)]]


@pytest.mark.parametrize("page", ["index.php", "plugin-install.php", "options-permalink.php", "site-health.php", "edit.php"])
def test_no_other_page_has_it(site, admin, page):
    site.hook(PLAIN % "" + WITHOUT_HTTPS + WITHOUT_PASSWORDS)
    assert "Brasslet: payment" not in admin.open("/wp-admin/" + page)


def test_who_may_not_manage_the_site_s_options_is_not_told(site):
    site.hook(PLAIN % "" + """
        add_filter( 'user_has_cap', function ( $caps ) { return array( 'activate_plugins' => true ) + $caps; } );
    """)
    page = Admin(site, site.editor).plugins()
    assert "brasslet/brasslet.php" in page and notices(page) == []


def test_an_address_in_the_notice_is_no_markup(site, admin):
    site.hook(PLAIN % "" + """
        add_filter( 'admin_url', function ( $url, $path ) {
            return 'options-permalink.php' === $path ? $url . '?"><b>&' : $url;
        }, 10, 2 );
    """)
    page = admin.plugins()
    assert notices(page) == [[TITLE, (PERMALINKS, [
        (f"https://{site.host}/wp-admin/options-permalink.php?b&", "Open the permalink settings")])]]


def test_the_notice_asks_nobody_and_keeps_nothing(site, admin):
    site.hook(PLAIN % "")
    named = "SELECT option_name FROM $wpdb->options WHERE option_name LIKE '%brasslet%'"
    users = "SELECT meta_key FROM $wpdb->usermeta WHERE meta_value LIKE '%brasslet%' OR meta_key LIKE '%brasslet%'"
    kept = f'return array( $wpdb->get_col( "{named}" ), $wpdb->get_col( "{users}" ) );'
    before = site.php(kept)
    assert len(notices(admin.plugins())) == 1
    assert site.php(kept) == before
    assert site.php("""
        $asked = 0;
        $count = function () use ( &$asked ) { $asked++; return new WP_Error( 'none', 'none' ); };
        add_filter( 'pre_http_request', $count );
        brasslet_obstacles();
        remove_filter( 'pre_http_request', $count );
        return $asked;
    """) == 0


def test_a_wordpress_without_application_passwords_is_told_to_be_updated(site, plugin_file):
    """WordPress is started here as far as its basics; the class belongs to what it would load afterwards."""
    script = """
        define( 'SHORTINIT', true );
        $_SERVER += array( 'SERVER_NAME' => $argv[2], 'HTTPS' => 'on' );
        require $argv[1] . 'wp-load.php';
        foreach ( array( 'formatting', 'link-template', 'http', 'kses' ) as $part ) {
            require_once ABSPATH . WPINC . "/$part.php";
        }
        require $argv[3];
        echo wp_json_encode( brasslet_obstacles() );
    """
    root = site.php("return ABSPATH;")
    command = ["php", "-r", script, root, site.host, plugin_file]
    result = subprocess.run(command, stdout=subprocess.PIPE, text=True, check=True)
    link = f'<a href="https://{site.host}/wp-admin/update-core.php">Open the updates</a>'
    assert json.loads(result.stdout) == [[*TOO_OLD, link]]
