"""The routes below /wp-json/brasslet/v1, as WordPress lists them, and the rules for what comes in through them."""

import pytest

from names import ADDRESS, PUBKEY, record


def test_wordpress_lists_exactly_these_routes(site):
    listed = site.get("").json()["routes"]
    del listed["/brasslet/v1"]
    assert {route: [endpoint["methods"] for endpoint in about["endpoints"]] for route, about in listed.items()} == {
        "/brasslet/v1/status": [["GET"]],
        "/brasslet/v1/name": [["POST"], ["DELETE"]],
        r"/brasslet/v1/id/(?P<alias>[A-Za-z0-9._+\-%]+)": [["GET"]],
        r"/brasslet/v1/address/(?P<alias>[A-Za-z0-9._+\-%]+)": [["GET", "POST"]],
        "/brasslet/v1/health": [["GET"]],
    }


def test_the_hooks_have_the_priorities_that_they_need(site):
    assert site.php("""
        return array(
            has_action( 'plugins_loaded', 'brasslet_bridge_login' ),
            has_action( 'init', 'brasslet_discovery' ),
            has_filter( 'rest_post_dispatch', 'brasslet_forbid_caching' ),
        );
    """) == [0, 0, 10]


@pytest.mark.parametrize("rule,value", [
    ("ALIAS", "alice"), ("PUBKEY", PUBKEY), ("ADDRESS", ADDRESS), ("HOUSE", "ada@corvane.example"),
])
def test_no_rule_lets_a_line_break_slip_in_at_the_end(site, rule, value):
    code = f"return preg_match( BRASSLET_{rule}_RULE, $v );"
    assert [site.php(code, value), site.php(code, value + "\n"), site.php(code, "\n" + value)] == [1, 0, 0]
