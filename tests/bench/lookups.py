"""The plugin's public lookups against a route of the same WordPress that does nothing, over one kept connection."""
import http.client
import os
import ssl
import time

import site_world

HOST = "brasslet.test"
KEY = "02" + "ab" * 32
ADDRESS = "1BoatSLRHtKNngkdXEeobR76b53LETtpyT"

EMPTY_ROUTE = """
    add_action( 'rest_api_init', function () {
        register_rest_route( 'bench/v1', '/empty', array(
            'methods'             => 'GET',
            'permission_callback' => '__return_true',
            'callback'            => '__return_empty_array',
        ) );
    } );
"""

PUT_NAMES = """
    $rows = array();
    for ( $i = 0; $i < %d; $i++ ) {
        $rows[] = array( 'alias' => 'name' . $i, 'pubkey' => '%s', 'address' => '%s', 'house' => '' );
    }
    update_option( 'brasslet_record', array( 'rows' => $rows ), false );
"""


class Client:
    def __init__(self):
        self._connection = http.client.HTTPSConnection(
            HOST, context=ssl.create_default_context(cafile=os.environ["WORLD_CA"]), timeout=30)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self._connection.close()

    def microseconds(self, path: str, answer: bytes) -> float:
        """Of one GET of what stands below the REST root; the reply has to hold `answer`."""
        start = time.perf_counter()
        self._connection.request("GET", "/wp-json/" + path)
        response = self._connection.getresponse()
        body = response.read()
        taken = time.perf_counter() - start
        assert response.status == 200 and answer in body, (path, response.status, body)
        return taken * 1e6


def pairs_of_lookups(names: int, count: int) -> dict:
    """(empty route, lookup) pairs of both lookups, with so many names published."""
    site_world.run_php(HOST, PUT_NAMES % (names, KEY, ADDRESS))
    alias = f"name{names // 2}"
    found: dict = {"id": [], "address": []}
    with site_world.troubled_by(EMPTY_ROUTE), Client() as client:
        for run in range(-3, count):
            for route, answer in (("id", KEY), ("address", ADDRESS)):
                pair = (client.microseconds("bench/v1/empty", b"[]"),
                        client.microseconds(f"brasslet/v1/{route}/{alias}", answer.encode()))
                if run >= 0:
                    found[route].append(pair)
    return found
