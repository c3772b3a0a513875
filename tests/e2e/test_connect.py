"""Connecting to a wallet and letting go of it, in the real window, with the wallet application's stand-in."""
import contextlib
import json
import shutil

import pytest

import desk

SAVINGS, SHOP = "1700000000001", "1700000000002"
SAVINGS_PHRASE = "letter advice cage absurd amount doctor acoustic avoid letter advice cage above"
NOT_LOADED = "error: approved, but the wallet would not load."
DENIED = "error: connect denied in Vaultry."


@pytest.fixture(autouse=True)
def two_wallets():
    """A PC with two wallets, so that the start binds none. Returns the file of the second."""
    desk.clear_data_directory()
    desk.put_wallet(SAVINGS, SAVINGS_PHRASE)
    path = desk.put_wallet(SHOP, paymail="shop")
    desk.put_wallet_list(SAVINGS, SHOP)
    return path


def connect(sentence):
    desk.drive("press", desk.CONNECT)
    desk.drive("wait-text", desk.STATUS, sentence)
    assert desk.drive("text", desk.CONNECT) == "Connect"


def card():
    return desk.drive("text", desk.HOUSE_PAYMAIL), desk.drive("text", desk.PAYMENT_ADDRESS)


@contextlib.contextmanager
def user_who_answers(folder, answer):
    with desk.wallet_application(folder, "--connect", answer), desk.running_program():
        assert card() == ("Connect Vaultry", "Connect Vaultry")
        yield


def requests():
    return [json.loads(path.read_text()) for path in sorted(desk.data_directory().glob("connect/*.req.json"))]


def bound_wallets():
    return [json.loads(path.read_text())["wallet_id"] for path in desk.data_directory().glob("binds/*.json")]


def windows_path(path):
    return "Z:" + str(path).replace("/", "\\")


def test_an_approved_wallet_is_connected_and_stays_so_after_a_new_start(tmp_path):
    with user_who_answers(tmp_path, f"approve:{SHOP}"):
        connect("Connected.")
        connected = card()
        assert connected[0] == "shop@corvane.example"
        assert connected[1].startswith("1")
        desk.screenshot(desk.PICTURES / "connected.png")
    assert bound_wallets() == [SHOP]
    with desk.running_program():
        assert card() == connected


def test_the_request_is_what_both_programs_have_agreed(tmp_path):
    with user_who_answers(tmp_path, "deny"):
        connect(DENIED)
    [path] = desk.data_directory().glob("connect/*.req.json")
    request = json.loads(path.read_text())
    assert list(request) == ["app", "id", "instance", "ts"]
    assert path.name == request["id"] + ".req.json"
    assert request["app"] == "Brasslet"
    assert request["instance"].lower() == windows_path(desk.EXE.parent.resolve()).lower()
    assert request["ts"] == int(request["id"]) // 1000
    assert path.read_text() == json.dumps(request, indent=2)


@pytest.mark.parametrize(("answer", "sentence"), [
    ("deny", DENIED),
    ("raw:yes, of course", DENIED),
    ("raw:", DENIED),
    ('raw:{"ok": "true", "wallet_id": "1700000000002"}', DENIED),
    ("approve", NOT_LOADED),
])
def test_an_answer_that_is_no_approval_of_a_wallet_connects_none(tmp_path, answer, sentence):
    with user_who_answers(tmp_path, answer):
        connect(sentence)
        assert card() == ("Connect Vaultry", "Connect Vaultry")
    assert bound_wallets() == []


def test_an_approved_wallet_that_is_locked_is_told(tmp_path, two_wallets):
    two_wallets.with_name("wallet.json.seal").write_text("")
    with user_who_answers(tmp_path, f"approve:{SHOP}"):
        connect("error: This wallet is locked. Open it in Vaultry.")
    assert bound_wallets() == [SHOP]


def test_an_approved_wallet_that_is_missing_is_told(tmp_path, two_wallets):
    two_wallets.unlink()
    with user_who_answers(tmp_path, f"approve:{SHOP}"):
        connect(NOT_LOADED)


def test_while_connected_the_wallet_application_is_not_asked(tmp_path):
    with user_who_answers(tmp_path, f"approve:{SHOP}"):
        connect("Connected.")
        connect("Already connected. Unbind to pick another wallet.")
    assert len(requests()) == 1


def test_the_answer_may_come_late(tmp_path):
    with desk.running_program():
        desk.drive("press", desk.CONNECT)
        desk.drive("wait-text", desk.STATUS, "Waiting for Vaultry to approve.")
        desk.screenshot(desk.PICTURES / "connecting.png")
        with desk.wallet_application(tmp_path, "--connect", f"approve:{SAVINGS}"):
            desk.drive("wait-text", desk.STATUS, "Connected.")
    assert bound_wallets() == [SAVINGS]


def test_another_wallet_is_picked_after_unbind(tmp_path):
    with user_who_answers(tmp_path, f"approve:{SHOP}"):
        connect("Connected.")
        shop = card()
        desk.drive("press", desk.UNBIND)
        assert desk.drive("text", desk.STATUS) == "Unbound. Connect again to pick a wallet in Vaultry."
        assert card() == ("Connect Vaultry", "Connect Vaultry")
        assert bound_wallets() == []
        desk.screenshot(desk.PICTURES / "unbound.png")
    other = tmp_path / "later"
    other.mkdir()
    with user_who_answers(other, f"approve:{SAVINGS}"):
        connect("Connected.")
        assert card()[0] == "No house paymail yet"
        assert card()[1] != shop[1]


def test_vaultry_beside_the_program_is_started(tmp_path, monkeypatch):
    folder = tmp_path / "Brasslet"
    folder.mkdir()
    shutil.copy(desk.EXE, folder)
    shutil.copy(desk.VAULTRY, tmp_path / "Vaultry.exe")
    monkeypatch.setenv("VAULTRY_ORDERS", f"notices --connect approve:{SHOP}")
    with desk.running_program(folder):
        connect("Connected.")
        assert (tmp_path / "notices").exists()
        desk.drive("close-vaultry")
    assert bound_wallets() == [SHOP]
