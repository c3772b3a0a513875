"""What the program leaves on the user's PC is what docs/files.md tells, and nothing else."""
import re

import desk
import site_world

DOCUMENTED = re.findall(r"^## `(.+)`$", (desk.ROOT / "docs/files.md").read_text(encoding="utf-8"), re.M)
WALLET = "1700000000000"


def without_ids(path: str) -> str:
    """Ids are decimal milliseconds; a bind record is called after the program's folder."""
    path = re.sub(r"\d{13}", "ID", path)
    return re.sub(r"(?<=^binds/)\w+(?=\.json$)", "KEY", path)


def test_every_file_that_the_program_leaves_is_documented(user, tmp_path):
    with desk.wallet_application(tmp_path, "--connect", f"approve:{WALLET}"), desk.running_program():
        with site_world.without_plugin("brasslet.test", desk.EXE):
            desk.press(desk.INSTALL)
            desk.drive("close-folder", "payname")
        assert desk.publish("alice") == "Vaultry kept alice@brasslet.test."
        desk.drive("press", desk.UNBIND)
        assert desk.press(desk.CONNECT) == "Connected."
    left = {path.relative_to(desk.data_directory()).as_posix() for path in desk.data_directory().rglob("*") if path.is_file()}
    assert {without_ids(path) for path in left} - {without_ids(path) for path in DOCUMENTED} == set()
    assert {f"wallets/{WALLET}/wallet.json", "wallets.lock"} <= left
    assert {"payname/brasslet.zip", "payname/payname.json", "payname/ui.json"} <= left
    assert any(path.startswith("binds/") for path in left)
    assert any(path.endswith(".req.json") for path in left)
