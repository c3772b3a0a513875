"""WordPress never offers a stranger's plugin of the same name as an update of this one."""

import json
import re

import pytest

OWN, OTHER = "brasslet/brasslet.php", "other/other.php"

# What WordPress' directory says of both: there is something newer.
OFFERS = """
    $offers = array();
    foreach ( array( 'brasslet/brasslet.php', 'other/other.php' ) as $file ) {
        $offers[ $file ] = array(
            'id'          => 'w.org/plugins/' . dirname( $file ),
            'slug'        => dirname( $file ),
            'plugin'      => $file,
            'new_version' => '9.9',
            'url'         => 'https://directory.example/plugins/' . dirname( $file ) . '/',
            'package'     => 'https://directory.example/' . dirname( $file ) . '.9.9.zip',
            'tested'      => '99.0',
        );
    }
"""

PLANT = OFFERS + """
    set_site_transient( 'update_plugins', (object) array(
        'last_checked' => time() + 1000,
        'checked'      => array( 'brasslet/brasslet.php' => '0.001', 'other/other.php' => '1.0' ),
        'response'     => $v ? array_map( function ( $offer ) { return (object) $offer; }, $offers ) : array(),
        'no_update'    => $v ? array() : array_map( function ( $offer ) { return (object) $offer; }, $offers ),
        'translations' => array(),
    ) );
"""

# WordPress asks its directory again; the answer comes from here.
DIRECTORY = """
    add_filter( 'pre_http_request', function ( $answer, $options, $url ) {
        if ( false === strpos( $url, '//api.wordpress.org/plugins/update-check/' ) ) {
            return $answer;
        }
        """ + OFFERS + """
        file_put_contents( getenv( 'WORLD_DIR' ) . '/asked', $options['body']['plugins'] );
        return array(
            'headers'  => array(),
            'body'     => json_encode( array( 'plugins' => $offers, 'translations' => array(), 'no_update' => array() ) ),
            'response' => array( 'code' => 200, 'message' => 'OK' ),
            'cookies'  => array(),
            'filename' => null,
        );
    }, 10, 3 );
"""


@pytest.fixture
def neighbour(site):
    """Another plugin, for which updates are offered as well."""
    folder = site.content / "plugins" / "other"
    folder.mkdir()
    (folder / "other.php").write_text("<?php\n/**\n * Plugin Name: Other\n * Version: 1.0\n */\n")
    site.php("wp_cache_delete( 'plugins', 'plugins' ); delete_site_transient( 'update_plugins' );")
    yield site
    (folder / "other.php").unlink()
    folder.rmdir()
    site.php("delete_site_transient( 'update_plugins' );")


def knows_update_uri(site):
    return site.php("return version_compare( $GLOBALS['wp_version'], '5.8', '>=' );")


def plugins_page(site):
    """The page Plugins, as the administrator sees it."""
    login = {"log": site.admin.login, "pwd": site.admin.account_password, "testcookie": "1"}
    site.http.cookies.clear()
    try:
        reply = site.request("POST", "/wp-login.php", data=login, headers={"Cookie": "wordpress_test_cookie=WP+Cookie+check"})
        assert reply.status_code == 302
        page = site.request("GET", "/wp-admin/plugins.php")
    finally:
        site.http.cookies.clear()
    assert page.status_code == 200
    return page.text


def offered(page):
    return re.findall(r"There is a new version of (\w+) available", page)


def test_an_update_of_this_file_is_not_shown_and_that_of_another_plugin_is(neighbour):
    neighbour.php(PLANT, True)
    page = plugins_page(neighbour)
    assert offered(page) == ["Other"]
    assert 'data-plugin="brasslet/brasslet.php"' in page
    assert "directory.example/plugins/brasslet" not in page


def test_a_strangers_details_are_not_shown_as_those_of_this_plugin(neighbour):
    neighbour.php(PLANT, False)
    page = plugins_page(neighbour)
    assert offered(page) == []
    assert "plugin=other" in page
    assert "plugin=brasslet&" not in page and "directory.example/plugins/brasslet" not in page


def test_what_the_directory_answers_is_not_shown_either(neighbour):
    neighbour.hook(DIRECTORY)
    assert offered(plugins_page(neighbour)) == ["Other"]
    asked = neighbour.php("return file_get_contents( getenv( 'WORLD_DIR' ) . '/asked' );")
    assert OWN in json.loads(asked)["plugins"]
    assert ('"UpdateURI":"false"' in asked) == knows_update_uri(neighbour)


def test_nothing_is_installed_over_this_file_on_its_own(neighbour):
    """Automatic updates, and "update all", take what this transient lists."""
    neighbour.php(PLANT, True)
    listed = neighbour.php("return array_keys( get_site_transient( 'update_plugins' )->response );")
    assert listed == [OTHER]


def test_the_file_says_where_its_updates_are_not(site):
    found = site.php("""
        require_once ABSPATH . 'wp-admin/includes/plugin.php';
        return get_plugin_data( WP_PLUGIN_DIR . '/brasslet/brasslet.php', false, false );
    """)
    assert (found["Name"], found["Version"]) == ("Brasslet", "0.001")
    assert found.get("UpdateURI") == ("false" if knows_update_uri(site) else None)


@pytest.mark.parametrize("offers", ["false", "null", "new stdClass()", "(object) array( 'response' => null )", "array( 5 )"])
def test_what_is_no_list_of_offers_is_left_as_it_is(site, offers):
    assert site.php(f"$offers = {offers}; return brasslet_refuse_updates( $offers ) == $offers;") is True
