"""The demonstration that scripts/demo runs inside the test world: the road of a first-time user, with a picture of every
step, and what any paying client then gets for the name."""
import os
import pathlib
import subprocess
import sys
import tempfile

import desk
import journey
import site_world
from browser import browser

HOST = journey.HOST
KEPT = f"Vaultry kept alice@{HOST}."
PICTURES = desk.ROOT / "build/demo"


def show(url: str) -> None:
    answer = subprocess.run(["curl", "--silent", "--show-error", "--fail", url], check=True, capture_output=True, text=True)
    print(f"$ curl {url}\n{answer.stdout}\n", flush=True)


def main() -> int:
    for old in PICTURES.glob("*.png"):
        old.unlink()
    told = []

    def tell(sentence):
        told.append(sentence)
        print(f"  {sentence}", flush=True)

    print(f"WordPress is up at https://{HOST}. Brasslet.exe says, step by step:", flush=True)
    with (
        tempfile.TemporaryDirectory(dir=os.environ["WORLD_DIR"]) as folder,
        journey.wallet_application_beside(pathlib.Path(folder)) as program,
        browser() as page,
    ):
        journey.first_journey(journey.Journey(PICTURES, tell), page, program)

    print(f"\n{told[-1]}\n", flush=True)
    if told[-1] != KEPT:
        return 1
    show(f"https://{HOST}/.well-known/bsvalias")
    for capability in ("pki", "paymentDestination"):
        show(site_world.capabilities(HOST)[capability].replace("{alias}", "alice"))
    print(f"The windows and pages as the user sees them: {PICTURES.relative_to(pathlib.Path.cwd())}/")
    return 0


if __name__ == "__main__":
    sys.exit(main())
