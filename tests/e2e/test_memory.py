"""No copy of a wallet's secrets is left in the program's memory once it has let go of the wallet. What is searched is
the whole memory of the running process, from outside."""
import contextlib
import json
import os
import pathlib
import subprocess
import sys

import pytest

import desk
import process_memory
import site_world
import wallet_secrets

# An English test vector of BIP39: nobody's wallet is searched for.
ENTROPY = bytes.fromhex("9e885d952ad362caeb4efe34a8e91bd2")
PHRASE = "ozone drill grab fiber curtain grace pudding thank cruise elder eight picnic"
COUNTERS = {"recv": [0, 3, 0, 0, 0, 7], "show": 3}
SECRETS = wallet_secrets.forms_of_wallet(PHRASE, ENTROPY, shown=3, ordinal=7)

WALLET_ID = "1700000000000"
SINGLE_KEY = wallet_secrets.keys_on_the_way(PHRASE)["m/44'/236'/1'/0/0"][0]

# What the loaded wallet holds while it is connected. All that is derived on the way is gone as soon as it was used.
AT_REST = {name for name in SECRETS if name.startswith("the words")} | {"the private key m/44'/236'/1'/0/3"}

UNBOUND = "Unbound. Connect again to pick a wallet in Vaultry."
NOT_CONNECTED = "Connect a Vaultry wallet first."


@pytest.fixture(autouse=True)
def pc():
    desk.clear_data_directory()


def secrets_in_memory(secrets=None):
    return process_memory.find(process_memory.process_of(desk.EXE.name), SECRETS if secrets is None else secrets)


def press(control, sentence):
    desk.drive("press", control)
    desk.drive("wait-text", desk.STATUS, sentence)


def test_the_secrets_are_the_published_ones():
    # Vector 1 of BIP32, the private keys at m, m/0' and m/0'/1.
    master = wallet_secrets.master_of(bytes(range(16)))
    child = wallet_secrets.child_of(master, wallet_secrets.HARDENED)
    grandchild = wallet_secrets.child_of(child, 1)
    assert [key[0].hex() for key in (master, child, grandchild)] == [
        "e8f32e723decf4051aefac8e2c93c9c5b214313817cdb01a1494b917c8436b35",
        "edb2e14f9ee77d26dd93b4ecede8d16ed408ce149b6cd80b0715a2d911a0afea",
        "3c6cb8d0f6a264c91ea8b5030fadaa8e538b020f0a387421a12de9319dc93368",
    ]


def test_every_form_is_found_where_it_lies():
    forms = {str(number): [form] for number, form in enumerate(f for all_forms in SECRETS.values() for f in all_forms)}
    held = b"".join(form + b"\0" for all_forms in forms.values() for form in all_forms)
    holder = f"import sys\nheld = sys.stdin.buffer.read({len(held)})\nprint('held', flush=True)\nsys.stdin.buffer.read()"
    with subprocess.Popen([sys.executable, "-c", holder], stdin=subprocess.PIPE, stdout=subprocess.PIPE) as process:
        process.stdin.write(held)
        process.stdin.flush()
        assert process.stdout.readline() == b"held\n"
        assert process_memory.find(process.pid, forms) == set(forms)


def test_unbind_leaves_no_secret_in_memory():
    desk.put_wallet(WALLET_ID, PHRASE, **COUNTERS)
    with desk.running_program():
        assert secrets_in_memory() == AT_REST
        press(desk.UNBIND, UNBOUND)
        assert secrets_in_memory() == set()


def test_unbind_after_an_approved_connect_leaves_no_secret_in_memory(tmp_path):
    desk.put_wallet(WALLET_ID, PHRASE, paymail="ann", **COUNTERS)
    desk.put_wallet_list(WALLET_ID, "1700000000001")
    with desk.wallet_application(tmp_path, "--connect", f"approve:{WALLET_ID}"), desk.running_program():
        assert secrets_in_memory() == set()
        press(desk.CONNECT, "Connected.")
        assert secrets_in_memory() == AT_REST
        press(desk.UNBIND, UNBOUND)
        assert secrets_in_memory() == set()


def test_unbind_after_many_loads_leaves_no_secret_in_memory():
    desk.put_wallet(WALLET_ID, PHRASE, **COUNTERS)
    with desk.running_program():
        for _ in range(5):
            press(desk.PUBLISH, "Type the name. Letters, numbers, and . _ + -")
            desk.drive("wait-idle", 30)
            press(desk.CONNECT, "Already connected. Unbind to pick another wallet.")
        press(desk.UNBIND, UNBOUND)
        assert secrets_in_memory() == set()


def test_unbind_leaves_nothing_of_a_single_key_in_memory():
    path = desk.put_wallet(WALLET_ID)
    path.write_text(f'{{"priv": "{SINGLE_KEY.hex()}"}}', encoding="utf-8")
    secrets = {"the private key": wallet_secrets.forms_of_bytes(SINGLE_KEY)}
    with desk.running_program():
        assert secrets_in_memory(secrets) == set(secrets)
        press(desk.UNBIND, UNBOUND)
        assert secrets_in_memory(secrets) == set()


def lock_beside(path):
    path.with_name(path.name + ".seal").write_text("")


def lock_in_place(path):
    path.write_text('{"lock": "QX-LOCK1"}')


def change(path, old, new):
    text = path.read_text()
    assert old in text
    path.write_text(text.replace(old, new))


def swap_two_words(path):
    first, second, *others = PHRASE.split()
    change(path, PHRASE, " ".join([second, first, *others]))


def add_a_bracket(path):
    path.write_text(path.read_text() + "]")


def spoil_a_member(path):
    change(path, '"backup": true', '"backup": "yes"')


def delete(path):
    path.unlink()


@pytest.mark.parametrize("spoil", [lock_beside, lock_in_place, swap_two_words, add_a_bracket, spoil_a_member, delete])
def test_a_failed_load_leaves_no_secret_in_memory(spoil):
    path = desk.put_wallet(WALLET_ID, PHRASE, **COUNTERS)
    with desk.running_program():
        assert secrets_in_memory() == AT_REST
        spoil(path)
        press(desk.PUBLISH, NOT_CONNECTED)
        desk.drive("wait-idle", 30)
        assert secrets_in_memory() == set()


def test_an_approved_wallet_that_does_not_load_leaves_no_secret_in_memory(tmp_path):
    spoil_a_member(desk.put_wallet(WALLET_ID, PHRASE, **COUNTERS))
    desk.put_wallet_list(WALLET_ID, "1700000000001")
    with desk.wallet_application(tmp_path, "--connect", f"approve:{WALLET_ID}"), desk.running_program():
        press(desk.CONNECT, "error: approved, but the wallet would not load.")
        assert secrets_in_memory() == set()


def put_house_label(label):
    """The house labels gives the wallet's key a label that the wallet's own file does not hold yet."""
    key = wallet_secrets.public_key(wallet_secrets.keys_on_the_way(PHRASE)["m/44'/236'/100'/0/0"][0]).hex()
    labels = {"names": {label: {"pubkey": key}}}
    (desk.data_directory() / "corvane_paymail.json").write_text(json.dumps(labels), encoding="utf-8")


def test_unbind_after_the_wallet_was_saved_leaves_no_secret_in_memory():
    path = desk.put_wallet(WALLET_ID, PHRASE, **COUNTERS)
    put_house_label("sofia")
    with desk.running_program():
        assert json.loads(path.read_text(encoding="utf-8"))["paymail"] == "sofia"
        assert secrets_in_memory() == AT_REST
        press(desk.UNBIND, UNBOUND)
        assert secrets_in_memory() == set()


@contextlib.contextmanager
def site_that_waits(method, route):
    """WordPress holds the requests of this method whose route begins so, until they are let go."""
    world = pathlib.Path(os.environ["WORLD_DIR"])
    reached, let_go = world / "reached", world / "let_go"
    code = f"""add_filter( 'rest_pre_dispatch', function ( $passed, $server, $request ) {{
        if ( '{method}' === $request->get_method() && 0 === strpos( $request->get_route(), '/brasslet/v1/{route}' ) ) {{
            touch( '{reached}' );
            while ( ! file_exists( '{let_go}' ) ) {{ usleep( 10000 ); clearstatcache(); }}
        }}
        return $passed;
    }}, 1, 3 );"""
    try:
        with site_world.troubled_by(code):
            yield reached, let_go
    finally:
        for path in (reached, let_go):
            path.unlink(missing_ok=True)


def letters(forms, name):
    return {form for form in forms if form.startswith(name)}


def seen_while_the_site_holds(method, route, secrets):
    """What is found in the middle of publishing."""
    with site_that_waits(method, route) as (reached, let_go):
        desk.drive("type", desk.NAME, "alice")
        desk.drive("press", desk.PUBLISH)
        assert desk.wait_until(reached.exists)
        seen = secrets_in_memory(secrets)
        let_go.touch()
        desk.drive("wait-idle", 90)
    assert desk.drive("text", desk.STATUS) == "Vaultry kept alice@brasslet.test."
    return seen


def test_the_password_is_in_memory_for_the_one_request_alone(user):
    login = wallet_secrets.forms_of_login("owner", user.replace(" ", ""))
    with desk.running_program():
        assert secrets_in_memory(login) == set()
        assert seen_while_the_site_holds("GET", "status", login) == set()
        assert seen_while_the_site_holds("POST", "name", login) == set(login)
        assert seen_while_the_site_holds("GET", "id/", login) == set()
        assert secrets_in_memory(login) == set()
        assert desk.remove("alice") == "Removed alice@brasslet.test."
        assert secrets_in_memory(login) == set()


def test_a_refused_password_is_gone_from_memory_too(user):
    desk.put_settings("https://brasslet.test", "owner", "qjzkwxvpbyfgmucdlsrhtnoi")
    login = wallet_secrets.forms_of_login("owner", "qjzkwxvpbyfgmucdlsrhtnoi")
    with desk.running_program():
        assert desk.publish("alice") == "WordPress refused that application password."
        assert secrets_in_memory(login) == set()


def test_the_password_is_gone_from_memory_when_the_settings_window_closes(user):
    password = user.replace(" ", "")
    login = wallet_secrets.forms_of_login("owner", password)
    with desk.running_program():
        desk.drive("press", desk.SETTINGS)
        assert secrets_in_memory(login) == set()
        desk.drive("press", desk.EYE)
        assert desk.drive("text", desk.PASSWORD) == password
        assert secrets_in_memory(login) == letters(login, "the password")
        desk.drive("press", desk.CLOSE_SETTINGS)
        assert secrets_in_memory(login) == set()


def test_a_password_typed_by_hand_is_gone_from_memory_when_the_settings_window_closes(user):
    password = "qjzkwxvpbyfgmucdlsrhtnoi"
    login = wallet_secrets.forms_of_login("owner", password)
    with desk.running_program():
        desk.drive("press", desk.SETTINGS)
        desk.click(desk.PASSWORD)
        desk.xdotool("type", password)
        assert desk.wait_until(lambda: desk.drive("text", desk.PASSWORD) == password)
        desk.drive("press", desk.CLOSE_SETTINGS)
        assert secrets_in_memory(login) == set()
        assert desk.publish("alice") == "WordPress refused that application password."
        assert secrets_in_memory(login) == set()


def test_the_phrase_stands_in_no_file_but_the_wallets_own(tmp_path):
    own = desk.put_wallet(WALLET_ID, PHRASE, paymail="ann", **COUNTERS)
    desk.put_wallet_list(WALLET_ID, "1700000000001")
    with desk.wallet_application(tmp_path, "--connect", f"approve:{WALLET_ID}"), desk.running_program():
        press(desk.CONNECT, "Connected.")
        press(desk.UNBIND, UNBOUND)
    forms = [form for all_forms in SECRETS.values() for form in all_forms]
    files = [path for path in desk.data_directory().rglob("*") if path.is_file()]
    assert own in files and len(files) >= 5
    assert [path for path in files if any(form in path.read_bytes() for form in forms)] == [own]
