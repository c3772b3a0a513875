"""The road of a first-time user, from an empty PC to names that resolve: every step through the real windows, with the
mouse and the keyboard, and in a real browser. Each step leaves a picture."""
import contextlib
import os
import pathlib
import shutil
import sys

import desk
import site_world

sys.path.append(str(desk.ROOT / "tests/plugin"))

import broadcaster  # noqa: E402
import payments  # noqa: E402
import wallets  # noqa: E402

HOST = "brasslet.test"
SITE = f"https://{HOST}"
WALLET = "1700000000000"
OTHERS_ADDRESS = "1BoatSLRHtKNngkdXEeobR76b53LETtpyT"
PAYS_SOMEBODY_ELSE = f"alice@{HOST} pays somebody else. Look who changed it on the site, then publish it again."
ON_THE_SITE = "Plugin is on the site."
UPLOAD = "Brasslet.zip is selected in the folder that opened. Upload it, activate it, then press Install plugin again."
UPLOAD_OVER = (
    "Brasslet.zip is selected in the folder that opened. Upload it over the plugin already there. "
    "This one sends the login in the form."
)


def check(seen: object, expected: object) -> None:
    if seen != expected:
        raise AssertionError(f"{seen!r}\nshould be\n{expected!r}")


def resolves(alias: str) -> bool:
    return site_world.get(site_world.capabilities(HOST)["pki"].replace("{alias}", alias)).status_code == 200


def fill(field: int, text: str) -> None:
    """Clicks the field and types over what it holds."""
    desk.click(field)
    desk.drive("wait-focus", field)  # the browser had it a moment ago
    desk.xdotool("key", "ctrl+a", "type", "--delay", 20, text)
    desk.drive("wait-text", field, text)


@contextlib.contextmanager
def wallet_application_beside(folder: pathlib.Path):
    """A folder with the program and, beside it, the wallet application, which is not running; its user will approve."""
    shutil.copy(desk.EXE, folder)
    shutil.copy(desk.VAULTRY, folder / "Vaultry.exe")
    os.environ["VAULTRY_ORDERS"] = f'"Z:{folder}/notices" --show visible --connect approve:{WALLET}'
    try:
        yield folder
    finally:
        del os.environ["VAULTRY_ORDERS"]
        desk.drive("close-vaultry", check=False)


class Journey:
    """`told` is called with a line for every step; the pictures go to the folder `pictures`."""

    def __init__(self, pictures: pathlib.Path, told=lambda line: None):
        self._pictures = pictures
        self._told = told
        self._count = 0

    def picture(self, name: str, take, *what) -> None:
        self._count += 1
        take(self._pictures / f"{self._count:02}-{name}.png", *what)

    def press(self, button: int, name: str, sentence: str) -> None:
        """One press, and the sentence that it ends in, which is not the one that stood there before."""
        desk.click(button)
        desk.drive("wait-text", desk.STATUS, sentence, check=False)
        desk.drive("wait-idle", 90)
        seen = desk.drive("text", desk.STATUS)
        check(seen, sentence)
        self._told(seen)
        self.picture(name, desk.screenshot)

    def settings(self, page) -> None:
        """The hint below the password opens the page that shows one."""
        desk.click(desk.SETTINGS)
        desk.drive("wait-text", desk.CLOSE_SETTINGS, "Close")
        fill(desk.SITE, HOST)
        fill(desk.USER, "owner")
        desk.click(desk.HINT)
        page.log_in(SITE, "owner", "owner")
        password = page.approve_application(desk.asked_page())
        self.picture("application-password", page.picture)
        fill(desk.PASSWORD, password)
        self.picture("settings", desk.screenshot, desk.SETTINGS_WINDOW)
        desk.click(desk.CLOSE_SETTINGS)
        desk.drive("wait-text", desk.PREVIEW, "name@your-site")

    def connect(self) -> None:
        """The wallet application is started; its user, who has made a wallet there, approves."""
        desk.put_wallet(WALLET, paymail="sofia")
        self.press(desk.CONNECT, "connected", "Connected.")
        check(desk.drive("text", desk.HOUSE_PAYMAIL), "sofia@corvane.example")

    def _choose_zip(self, page) -> None:
        """On the upload page that the program asked for; the folder that it opened is closed again."""
        page.upload_plugin(desk.asked_page(), desk.data_directory() / "payname/brasslet.zip")
        desk.drive("close-folder", "payname")

    def upload(self, page) -> None:
        self._choose_zip(page)
        page.activate_uploaded_plugin()
        self.picture("activated", page.picture)

    def replace(self, page) -> None:
        self._choose_zip(page)
        page.wait_for_text("This plugin is already installed.")
        self.picture("replacing", page.picture)
        page.replace_plugin_with_uploaded()

    def publish(self, name: str, more: str = "") -> None:
        fill(desk.NAME, name)
        self.press(desk.PUBLISH, f"published-{name}", f"Vaultry kept {name}@{HOST}.{more}")
        check(resolves(name), True)

    def pay(self, client: str, *more: str) -> dict:
        """A wallet with this client pays the published name. Returns what it has to tell."""
        found = wallets.ask(client, f"alice@{HOST}", *more)
        check(found.get("error"), None)
        return found

    def pay_the_address(self) -> None:
        """In the oldest way: the wallet asks for the address, and broadcasts what pays it itself."""
        kept = desk.payname_rows()[0]
        found = self.pay("bsv_paymail")
        check((found["pubkey"], found["address"]), (kept["pubkey"], kept["address"]))
        self._told(f"@bsv/paymail: alice@{HOST} is paid at {found['address']} by the script {found['output']}")

    def pay_by_handing_over(self, page) -> None:
        """The owner of the site names a broadcaster; then the wallet asks for outputs, and delivers its transaction."""
        with broadcaster.listening() as arc, site_world.troubled_by(payments.ALLOW):
            page.have_payments_handed_over(SITE, broadcaster.URL)
            self.picture("payments-switched-on", page.picture_of_page)
            found = self.pay("bsv_paymail_p2p", "1000", desk.payname_rows()[0]["pubkey"])
            check(arc.transactions, [found["hex"]])
        check({answer["txid"] for answer in found["answers"]}, {found["txid"]})
        self._told(f"@bsv/paymail: 1000 satoshis handed over, transaction {found['txid']}: {found['answers'][0]['note']}")

    def see_that_it_pays_somebody_else(self) -> None:
        desk.drive("wait-text", desk.STATUS, PAYS_SOMEBODY_ELSE)
        check(desk.drive("text", desk.NOTE), f"Vaultry kept alice@{HOST} (pays somebody else)")
        self._told(PAYS_SOMEBODY_ELSE)
        self.picture("pays-somebody-else", desk.screenshot)

    def remove(self, name: str) -> None:
        fill(desk.NAME, name)
        self.press(desk.REMOVE, f"removed-{name}", f"Removed {name}@{HOST}.")
        check(resolves(name), False)

    def newer_build(self) -> None:
        desk.drive("wait-question")
        check(desk.drive("question").splitlines()[0], "Version 0.002 is on the shelf.")
        self.picture("newer-build", desk.capture, desk.drive("question-rectangle"))
        desk.drive("answer", 7)
        check(desk.drive("text", desk.VERSION), "Update available, https://corvane.example/brasslet")
        self.picture("newer-build-label", desk.screenshot)


def first_journey(journey: Journey, page, folder: pathlib.Path) -> None:
    """From nothing at all to two names, one of them removed again, and a new start."""
    with desk.running_program(folder):
        journey.picture("first-start", desk.screenshot)
        journey.settings(page)
        journey.connect()
        journey.press(desk.INSTALL, "install", UPLOAD)
        journey.upload(page)
        journey.press(desk.INSTALL, "installed", ON_THE_SITE)
        journey.publish("alice")
        journey.publish("shop", f" Still on the site: alice@{HOST}.")
        journey.remove("shop")
        check(resolves("alice"), True)
    with site_world.makers_page("<p>Current build: 0.002</p>"), desk.running_program(folder):
        journey.newer_build()
        check(desk.drive("text", desk.NOTE), f"Vaultry kept alice@{HOST}")
        check(desk.drive("text", desk.NAME), "alice")
        check(desk.drive("text", desk.HOUSE_PAYMAIL), "sofia@corvane.example")
    with desk.running_program(folder):
        journey.press(desk.PUBLISH, "published-again", f"Vaultry kept alice@{HOST}.")


def journey_over_an_older_plugin(journey: Journey, page, folder: pathlib.Path) -> None:
    with desk.running_program(folder):
        journey.settings(page)
        journey.connect()
        fill(desk.NAME, "alice")
        journey.press(desk.PUBLISH, "older-plugin", "Press Install plugin and upload the zip over the one on the site.")
        journey.press(desk.INSTALL, "install-over", UPLOAD_OVER)
        journey.replace(page)
        journey.press(desk.INSTALL, "installed", ON_THE_SITE)
        journey.publish("alice")


def journey_of_the_payers(journey: Journey, page, folder: pathlib.Path) -> None:
    """The name is paid in both ways. Then somebody changes its row in the database, and the next start tells."""
    journey.pay_the_address()
    journey.pay_by_handing_over(page)
    site_world.change_name(HOST, "address", OTHERS_ADDRESS)
    with desk.running_program(folder):
        journey.see_that_it_pays_somebody_else()
        journey.publish("alice")
        check(desk.drive("text", desk.NOTE), f"Vaultry kept alice@{HOST}")
