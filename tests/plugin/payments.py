"""Payments handed over to a test site: the switch, the questions, and transactions that pay."""

import struct

from broadcaster import HOST, URL, txid_of

# WordPress sends nothing to private addresses and, in this world, nothing to strangers: the owner of a site opens both
# by a filter and a constant of WordPress.
ALLOW = f"""
    add_filter( 'http_request_host_is_external', function ( $external, $host ) {{
        return $external || '{HOST}' === $host;
    }}, 10, 2 );
    define( 'WP_ACCESSIBLE_HOSTS', '{HOST}' );
"""


def switch_on(site, broadcaster=URL, key="", **members):
    """The switch as the page of the plugin stores it."""
    site.php("""
        update_option( 'brasslet_payments', $v[0], true );
        brasslet_store_broadcaster_key( $v[0]['broadcaster'], $v[1] );
    """, [{"on": True, "broadcaster": broadcaster, "secret": "", **members}, key])
    site.hook(ALLOW)


def ask(site, alias="alice", satoshis=1000, **options):
    return site.request("POST", f"{site.path}/wp-json/brasslet/v1/p2p-payment-destination/{alias}",
                        json={"satoshis": satoshis}, **options)


def reference_of(site, alias="alice", satoshis=1000):
    reply = ask(site, alias, satoshis)
    assert reply.status_code == 200, reply.text
    return reply.json()["reference"]


def made_reference(site, row, satoshis=1000, age=0):
    """A reference of that age."""
    return site.php("return brasslet_make_reference( $v[0], $v[1], time() - $v[2] );", [row, satoshis, age])


def deliver(site, hexadecimal, reference, alias="alice", **options):
    return site.request("POST", f"{site.path}/wp-json/brasslet/v1/receive-transaction/{alias}",
                        **({"json": {"hex": hexadecimal, "reference": reference}} | options))


def count(number):
    """A number as transactions count."""
    if number < 0xFD:
        return bytes([number])
    return struct.pack("<BH", 0xFD, number) if number <= 0xFFFF else struct.pack("<BI", 0xFE, number)


def transaction(*outputs, inputs=1, seed=0):
    """The hex of a transaction with these (script, satoshis); its inputs are made up. `seed` tells transactions apart."""
    parts = [struct.pack("<i", 1), count(inputs)]
    for number in range(inputs):
        parts += [struct.pack("<QQQQ", seed, 1, 2, number), struct.pack("<I", number), b"\x00", b"\xff\xff\xff\xff"]
    parts.append(count(len(outputs)))
    for script, satoshis in outputs:
        script = bytes.fromhex(script)
        parts += [struct.pack("<Q", satoshis), count(len(script)), script]
    return b"".join([*parts, bytes(4)]).hex()


def paid(hexadecimal):
    """The answer to a delivery that the broadcaster has taken."""
    return {"txid": txid_of(hexadecimal), "note": "The payment was handed to the network."}


def claims(site):
    """The rows that are kept about transactions, by the transaction's id: what stands behind their time."""
    rows = site.php("""
        $sql = "SELECT option_name, option_value, autoload FROM $wpdb->options WHERE option_name LIKE %s";
        return $wpdb->get_results( $wpdb->prepare( $sql, 'brasslet\\_tx\\_%' ), ARRAY_A );
    """)
    assert all(row["autoload"] in ("no", "off") for row in rows)
    return {row["option_name"].removeprefix("brasslet_tx_"): row["option_value"].split(" ", 1)[1] for row in rows}
