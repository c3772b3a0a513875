"""The sites run on the WordPress, the PHP and the web server that the world was asked for."""

import json
import os
import subprocess

from wordpress import WORLD

# What every request tells while this is in place.
TELL = """
    add_action( 'init', function () {
        echo json_encode( array( $GLOBALS['wp_version'], PHP_VERSION, PHP_SAPI ) );
        exit;
    }, -1 );
"""

ASKED = {name: os.environ.get(f"WORLD_{name}") for name in ("WORDPRESS", "PHP", "WEB")}
OTHERS = ["net.brasslet.test", "two.net.brasslet.test", "folders.brasslet.test/second", "below.brasslet.test/blog",
          "apart.brasslet.test"]


def numbers(version):
    return [int(part) for part in version.split("-")[0].split(".")[:2]]


def is_asked_for(version, asked, newest):
    """Whether this is the version; the newest is at least the one that was there when this was written."""
    return numbers(version) >= newest if asked == "newest" else numbers(version) == numbers(asked)


def test_a_site_runs_on_the_wordpress_and_the_php_that_were_asked_for(site):
    site.hook(TELL)
    wordpress, php, interface = site.request("GET", "/").json()
    usual = "6.8" if site.host == "newer.brasslet.test" else "6.1"
    assert is_asked_for(wordpress, ASKED["WORDPRESS"] or usual, [7, 1]), wordpress
    assert is_asked_for(php, ASKED["PHP"] or "8.2", [8, 4]), php
    assert interface == "fpm-fcgi"


def test_the_commands_run_on_the_php_of_the_site(site):
    site.hook(TELL)
    assert site.php("return PHP_VERSION;") == site.request("GET", "/").json()[1]


def test_the_web_server_is_the_one_that_was_asked_for(site):
    assert site.request("GET", "/").headers["Server"].lower().startswith(ASKED["WEB"] or "nginx")


def test_all_kinds_of_sites_run_on_the_same_wordpress(sites):
    wanted = sites["stable"].php("return $GLOBALS['wp_version'];")
    tell = "echo json_encode( $wp_version );"
    assert {json.loads(subprocess.check_output([WORLD / "wp", address, tell])) for address in OTHERS} == {wanted}
