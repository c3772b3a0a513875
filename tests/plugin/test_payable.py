"""What a paying wallet gets from /wp-json/brasslet/v1/address/NAME: with the script, if it asks as bsvalias has it."""

import hashlib

import pytest

from names import ADDRESS, NO_PAYMAIL, OTHER_ADDRESS, OTHER_SCRIPT, SCRIPT, record, row

PATH = "/wp-json/brasslet/v1/address/alice"
TIME = "2013-10-21T13:28:06.419Z"
ALPHABET = "123456789ABCDEFGHJKLMNPQRSTUVWXYZabcdefghijkmnopqrstuvwxyz"

ADDRESS_ALONE = f'{{"address":"{ADDRESS}"}}'
WITH_SCRIPT = f'{{"address":"{ADDRESS}","output":"{SCRIPT}"}}'


def ask(site, body):
    return site.request("POST", PATH, json=body)


def base58check(payload):
    data = payload + hashlib.sha256(hashlib.sha256(payload).digest()).digest()[:4]
    number, text = int.from_bytes(data, "big"), ""
    while number:
        number, digit = divmod(number, 58)
        text = ALPHABET[digit] + text
    return "1" * (len(data) - len(data.lstrip(b"\0"))) + text


def hashes():
    """Public key hashes of all kinds: with zeros in front, at the end, and nothing but zeros or ones."""
    yield from (b"\0" * 20, b"\xff" * 20, b"\0" * 19 + b"\1", b"\1" + b"\0" * 19)
    for number in range(300):
        digest = hashlib.sha256(str(number).encode()).digest()[:20]
        zeros = number % 8
        yield b"\0" * zeros + digest[zeros:]


def scripts(site, addresses):
    return site.php("return array_map( 'brasslet_script', $v );", addresses)


def test_a_wallet_that_asks_as_the_documents_have_it_gets_the_script_after_the_address(site):
    site.set_record({"rows": [row("alice"), row("bob", address=OTHER_ADDRESS)]})
    body = {"senderName": "Bob", "senderHandle": "bob@example.org", "dt": TIME, "amount": 550, "purpose": "tea",
            "signature": ""}
    reply = ask(site, body)
    assert (reply.status_code, reply.text) == (200, WITH_SCRIPT)
    other = site.request("POST", PATH.replace("alice", "bob"), json=body)
    assert other.json() == {"address": OTHER_ADDRESS, "output": OTHER_SCRIPT}


# Seconds, their fraction and the offset may be missing; the age does not matter.
TIMES = [
    TIME, "2026-01-02T03:04:05Z", "2026-01-02T03:04:05.123456789Z", "2026-01-02T03:04:05,5Z", "2026-01-02t03:04:05z",
    "2026-01-02T03:04:05+02:00", "2026-01-02T03:04:05-0330", "2026-01-02T03:04:05.5+23:59", "2026-01-02T03:04:05-00:00",
    "2026-01-02T03:04:05", "2026-01-02T03:04:05.123456", "2026-01-02T03:04Z", "2026-01-02T03:04",
    "2026-01-02T00:00:00Z",
    "2026-12-31T23:59:60Z", "2024-02-29T03:04:05Z", "0001-01-01T00:00:00Z", "9999-12-31T23:59:59Z",
    "1970-01-01T00:00:00Z",
]

OTHERS = [
    1785000000000, 20131021, 1.5, True, False, None, [], [TIME], {}, {"dt": TIME},
    "", "1785000000000", "0", "now", "Mon, 21 Oct 2013 13:28:06 GMT", "2013-10-21", "13:28:06", "2013-10-21T",
    "T13:28:06Z",
    "2013-10-21 13:28:06Z", "2013-10-21T13", "2013-10-21T13Z", "20131021T132806Z", "13-10-21T13:28:06Z",
    "+2013-10-21T13:28:06Z", "2013-1-21T13:28:06Z", "2013-10-2T13:28:06Z", "2013-10-21T3:28:06Z",
    "2013-00-21T13:28:06Z", "2013-13-21T13:28:06Z", "2013-10-00T13:28:06Z", "2013-10-32T13:28:06Z",
    "2013-02-29T13:28:06Z", "0000-10-21T13:28:06Z", "2013-10-21T24:00:00Z", "2013-10-21T13:60:06Z",
    "2013-10-21T13:28:61Z", "2013-10-21T13:28:06.Z", "2013-10-21T13:28.5Z", "2013-10-21T13:28:06+02",
    "2013-10-21T13:28:06+24:00", "2013-10-21T13:28:06+02:60", "2013-10-21T13:28:06ZZ", "2013-10-21T13:28:06 Z",
    "2013-10-21T13:28:06+", TIME + "\n", "\n" + TIME, TIME + " ", " " + TIME, "x" + TIME, TIME + TIME, TIME + "\0",
    "\u0662\u0660\u0661\u0663-10-21T13:28:06Z", "2013\u201110\u201121T13:28:06Z",
]

WITHOUT_TIME = [{}, {"amount": 1}, {"DT": TIME}, {"x": {"dt": TIME}}, [TIME], [{"dt": TIME}], TIME, 5]


def test_a_time_in_any_usual_spelling_asks_for_the_script(site):
    site.set_record(record("alice"))
    for time in TIMES:
        assert ask(site, {"dt": time}).text == WITH_SCRIPT, time


def test_whatever_is_no_time_in_text_gets_the_address_alone(site):
    site.set_record(record("alice"))
    for time in OTHERS:
        reply = ask(site, {"dt": time})
        assert (reply.status_code, reply.text) == (200, ADDRESS_ALONE), time


def test_a_body_without_a_time_gets_the_address_alone(site):
    site.set_record(record("alice"))
    for body in WITHOUT_TIME:
        assert ask(site, body).text == ADDRESS_ALONE, body


@pytest.mark.parametrize("options", [
    {"params": {"dt": TIME}}, {"params": {"dt": TIME}, "json": {"amount": 1}},
    {"params": {"dt": TIME}, "json": {"dt": 5}},
    {"data": {"dt": TIME}}, {"files": {"dt": (None, TIME)}},
    {"data": f'{{"dt":"{TIME}"}}'}, {"data": f'{{"dt":"{TIME}"}}', "headers": {"Content-Type": "text/plain"}},
])
def test_a_time_that_is_not_in_the_json_body_gets_the_address_alone(site, options):
    site.set_record(record("alice"))
    reply = site.request("POST", PATH, **options)
    assert (reply.status_code, reply.text) == (200, ADDRESS_ALONE)


@pytest.mark.parametrize("options", [{}, {"json": {"dt": TIME}}, {"params": {"dt": TIME}}])
def test_get_gets_the_address_alone(site, options):
    site.set_record(record("alice"))
    assert site.request("GET", PATH, **options).text == ADDRESS_ALONE


@pytest.mark.parametrize("kind", ["application/json", "application/json; charset=utf-8", "Application/JSON"])
def test_every_way_to_announce_json_will_do(site, kind):
    site.set_record(record("alice"))
    reply = site.request("POST", PATH, data=f'{{"dt":"{TIME}"}}', headers={"Content-Type": kind})
    assert reply.text == WITH_SCRIPT


def test_what_the_program_itself_sends_gets_the_address_alone(site):
    site.set_record(record("alice"))
    body = {"senderName": "payname", "senderHandle": "payname", "dt": 1785000000000, "amount": 1, "purpose": "payment"}
    assert ask(site, body).text == ADDRESS_ALONE


def test_an_unknown_name_has_no_script(site):
    reply = ask(site, {"dt": TIME})
    assert (reply.status_code, reply.text) == (404, NO_PAYMAIL)


def test_every_address_has_the_script_of_its_public_key_hash(site):
    wanted = {base58check(b"\0" + digest): f"76a914{digest.hex()}88ac" for digest in hashes()}
    assert scripts(site, list(wanted)) == list(wanted.values())


# The address of the first block's reward, and one that nobody has the key of.
@pytest.mark.parametrize("address,digest", [
    ("1A1zP1eP5QGefi2DMPTfTL5SLmv7DivfNa", "62e907b15cbf27d5425399ebf6f0fb50ebb88f18"),
    ("1111111111111111111114oLvT2", "0" * 40),
])
def test_well_known_addresses_have_their_scripts(site, address, digest):
    site.set_record({"rows": [row("alice", address=address)]})
    assert ask(site, {"dt": TIME}).json() == {"address": address, "output": f"76a914{digest}88ac"}


NO_ADDRESSES = [
    "", "1", "1" * 26, "1" * 34, "1" + "z" * 33, "1" + ADDRESS, ADDRESS[:-1], ADDRESS + "1", ADDRESS[1:],
    ADDRESS + "\n", " " + ADDRESS, ADDRESS.replace("g", "0"), ADDRESS.lower(), "1" + "\u00fc" * 20, "x" * 70000,
    base58check(b"\x05" + b"\7" * 20), base58check(b"\x6f" + b"\7" * 20), base58check(b"\x80" + b"\7" * 20),
    base58check(b"\0" + b"\7" * 19), base58check(b"\0\0" + b"\7" * 20), base58check(b"\0"), base58check(b""),
]


def test_what_is_no_address_stands_without_a_script(site):
    site.set_record({"rows": [row(str(at), address=address) for at, address in enumerate(NO_ADDRESSES)]})
    for at, address in enumerate(NO_ADDRESSES):
        reply = site.request("POST", f"/wp-json/brasslet/v1/address/{at}", json={"dt": TIME})
        assert reply.json() == {"address": address}, address


def test_no_single_wrong_character_gets_past_the_checksum(site):
    wrong = [ADDRESS[:at] + other + ADDRESS[at + 1:]
             for at in range(len(ADDRESS)) for other in ALPHABET if other != ADDRESS[at]]
    assert set(scripts(site, wrong)) == {""}


def test_no_extension_for_large_numbers_is_needed(plugin_file):
    for function in ("gmp_", "bcadd", "bcmul", "bcdiv", "bcmod"):
        assert function not in plugin_file.read_text()
