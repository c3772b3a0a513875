"""The demonstration that scripts/demo runs inside the test world: the road of a first-time user, with a picture of every
step, what any paying client then gets for the name, two payments, and a name that is changed behind the program's back."""
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
        road = journey.Journey(PICTURES, tell)
        journey.first_journey(road, page, program)
        kept = told[-1]
        print(f"\n{kept}\n", flush=True)
        if kept != KEPT:
            return 1
        show(f"https://{HOST}/.well-known/bsvalias")
        for capability in ("pki", "paymentDestination"):
            show(site_world.capabilities(HOST)[capability].replace("{alias}", "alice"))
        print("A wallet pays it, in the oldest way and by handing the payment over. Then its row in the site's database is\n"
              "changed, and Brasslet.exe is started again:", flush=True)
        journey.journey_of_the_payers(road, page, program)
    print(f"The windows and pages as the user sees them: {PICTURES.relative_to(pathlib.Path.cwd())}/")
    return 0


if __name__ == "__main__":
    sys.exit(main())
