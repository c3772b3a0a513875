"""The demonstration that scripts/demo runs inside the test world: one name, typed and published in the real window."""
import pathlib
import subprocess
import sys

import desk
import site_world

HOST = "brasslet.test"
KEPT = f"Vaultry kept alice@{HOST}."
PICTURE = desk.ROOT / "build/demo/brasslet.png"


def show(url: str) -> None:
    answer = subprocess.run(["curl", "--silent", "--show-error", "--fail", url], check=True, capture_output=True, text=True)
    print(f"$ curl {url}\n{answer.stdout}\n", flush=True)


def main() -> int:
    print(f"WordPress is up at https://{HOST}. Activating the plugin that the executable carries.", flush=True)
    site_world.activate_plugin(HOST, desk.EXE)
    desk.clear_data_directory()
    desk.put_wallet(paymail="sofia")
    desk.put_settings(f"https://{HOST}", "owner", site_world.app_password(HOST))

    print("Starting Brasslet.exe, typing the name, pressing Publish.", flush=True)
    with desk.running_program():
        desk.click(desk.NAME)
        subprocess.run(["xdotool", "type", "--delay", "30", "alice"], check=True)
        desk.drive("wait-text", desk.NAME, "alice")
        desk.click(desk.PUBLISH)
        desk.drive("wait-text", desk.STATUS)
        desk.drive("wait-idle", 90)
        sentence = desk.drive("text", desk.STATUS)
        desk.screenshot(PICTURE)

    print(f"\n{sentence}\n", flush=True)
    if sentence != KEPT:
        return 1
    show(f"https://{HOST}/.well-known/bsvalias")
    for capability in ("pki", "paymentDestination"):
        show(site_world.capabilities(HOST)[capability].replace("{alias}", "alice"))
    print(f"The window as the user sees it: {PICTURE.relative_to(pathlib.Path.cwd())}")
    return 0


if __name__ == "__main__":
    sys.exit(main())
