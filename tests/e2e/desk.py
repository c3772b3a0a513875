"""The user's PC in the test world: the shared data directory of one Windows user, a wallet as the wallet application
would have left it, the program in its window, and the stand-in for the wallet application."""
import contextlib
import json
import os
import pathlib
import re
import shutil
import subprocess
import threading
import time

ROOT = pathlib.Path(__file__).resolve().parents[2]
BUILD = pathlib.Path(os.environ.get("BRASSLET_WINDOWS_BUILD", ROOT / "build/windows"))
EXE = BUILD / "src/Brasslet.exe"
PICTURES = ROOT / "build/pictures"
TOOLS = BUILD / "tests/e2e/tools"
VAULTRY = BUILD / "tests/world/vaultry/vaultry_stand_in.exe"

# The phrase of a published test vector (BIP39), and what its wallet shows to the world.
PHRASE = "legal winner thank year wave sausage worth useful legal winner thank yellow"

CONTROLS = ("src/app/windows/controls.h", "src/settings/windows/settings_window_controls.h")


def ids(*names: str) -> list:
    """Of the controls with these names in the program's sources."""
    known = {}
    for header in CONTROLS:
        known |= dict(re.findall(r"(k\w+) = (\d+),", (ROOT / header).read_text(encoding="utf-8")))
    return [int(known[name]) for name in names]


NAME, PREVIEW, NOTE = ids("kNameField", "kNamePreview", "kKeptNames")
HOUSE_PAYMAIL, PAYMENT_ADDRESS = ids("kHousePaymail", "kPaymentAddress")
CONNECT, UNBIND, SETTINGS = ids("kConnectButton", "kUnbindButton", "kSettingsButton")
INSTALL, PUBLISH, REMOVE = ids("kInstallButton", "kPublishButton", "kRemoveButton")
STATUS, VERSION, CLOSE = ids("kStatusLine", "kVersionLabel", "kCloseButton")
SITE, USER, PASSWORD = ids("kSiteField", "kUserField", "kPasswordField")
CLOSE_SETTINGS, HINT, EYE = ids("kCloseSettingsButton", "kPasswordHint", "kShowPasswordButton")
SETTINGS_WINDOW = 2000  # of the driving tool, for the settings window itself


def data_directory() -> pathlib.Path:
    """%LOCALAPPDATA%\\Corvane of the world's Windows user, seen from outside of Wine."""
    users = pathlib.Path(os.environ["WINEPREFIX"]) / "drive_c/users"
    return users / os.environ["USER"] / "AppData/Local/Corvane"


def clear_data_directory() -> None:
    shutil.rmtree(data_directory(), ignore_errors=True)


def put_wallet(wallet_id: str = "1700000000000", phrase: str = PHRASE, **members) -> pathlib.Path:
    """Writes a wallet list with this one wallet, and its file. Returns the file's path."""
    folder = data_directory() / "wallets" / wallet_id
    folder.mkdir(parents=True, exist_ok=True)
    put_wallet_list(wallet_id)
    document = {"version": 2, "mnemonic": phrase, "backup": True, "recv": [0, 0, 0, 0, 0, 0], "show": 0,
                "contacts": [], **members}
    path = folder / "wallet.json"
    path.write_text(json.dumps(document, indent=2, sort_keys=True), encoding="utf-8")
    return path


def put_wallet_list(*wallet_ids: str) -> None:
    wallets = [{"id": wallet_id, "name": f"Wallet {number}"} for number, wallet_id in enumerate(wallet_ids, 1)]
    listed = {"active": wallet_ids[0], "wallets": wallets}
    (data_directory() / "wallets.json").write_text(json.dumps(listed, indent=2), encoding="utf-8")


def put_settings(site: str, user: str, password: str, name: str = "") -> None:
    """Leaves the settings file as the program itself writes it, the password protected for the Windows user."""
    subprocess.run(["wine", TOOLS / "write_settings.exe", site, user, name], input=password + "\n", text=True,
                   check=True, timeout=60)


def payname_rows() -> list:
    path = data_directory() / "payname/payname.json"
    return json.loads(path.read_text(encoding="utf-8"))["names"] if path.exists() else []


class Driver:
    """The process that works the windows; see tools/drive.cpp. Started by its first command, and again by the first
    after its end, which comes with that of its Wine."""

    def __init__(self):
        self._process = None

    def ask(self, words: tuple) -> tuple:
        """How the command ended, and what it found."""
        if self._process is None or self._process.poll() is not None:
            self._process = subprocess.Popen(["wine", TOOLS / "drive.exe"], stdin=subprocess.PIPE, stdout=subprocess.PIPE)
        timer = threading.Timer(180, self._process.kill)
        timer.start()
        try:
            self._process.stdin.write(b"".join(str(word).encode() + b"\0" for word in words) + b"\n")
            self._process.stdin.flush()
            state, _, size = self._process.stdout.readline().decode().partition(" ")
            assert state in ("done", "no"), f"drive {words}: {state or 'it has ended'}"
            return state, self._process.stdout.read(int(size)).decode("utf-8").rstrip("\r\n")
        finally:
            timer.cancel()


DRIVER = Driver()


def drive(*words: object, check: bool = True) -> str:
    """One command to the windows. Returns what it found."""
    state, found = DRIVER.ask(words)
    assert state == "done" or not check, f"drive {words}: not there, or not in time"
    return found


def is_true(*words: object) -> bool:
    return DRIVER.ask(words)[0] == "done"


def start_program(folder: pathlib.Path = EXE.parent) -> subprocess.Popen:
    return subprocess.Popen(["wine", folder / EXE.name], cwd=folder)


def open_program(folder: pathlib.Path) -> subprocess.Popen:
    """The program, its window there."""
    process = start_program(folder)
    if is_true("wait-window"):
        return process
    state = "runs" if process.poll() is None else f"ended with {process.poll()}"
    process.kill()
    process.wait()
    raise AssertionError(f"the program shows no window, and {state}")


def what_it_does(process: subprocess.Popen) -> str:
    """Of a program that should have ended: whether its window is there and answers, and where each thread waits."""
    window = "its window answers" if is_true("answers") else "no window of it answers"
    threads = []
    for task in sorted(pathlib.Path(f"/proc/{process.pid}/task").glob("*")):
        with contextlib.suppress(OSError):
            threads.append(" ".join((task / name).read_text().strip() for name in ("comm", "wchan", "syscall")))
    return f"{window}; threads: {'; '.join(threads)}"


def has_ended(process: subprocess.Popen, seconds: float) -> bool:
    with contextlib.suppress(subprocess.TimeoutExpired):
        process.wait(timeout=seconds)
    return process.poll() is not None


def close_program(process: subprocess.Popen) -> None:
    """As a user closes it, unless that has been done; then it must end."""
    is_true("close")
    assert has_ended(process, 30), f"the program has not ended: {what_it_does(process)}"


@contextlib.contextmanager
def running_program(folder: pathlib.Path = EXE.parent):
    """The program with its window open; closed at the end, as a user closes it."""
    process = open_program(folder)
    try:
        yield process
        close_program(process)
    finally:
        if process.poll() is None:
            process.kill()
            process.wait()
        drive("wait-gone", check=False)


def press(button: int, seconds: int = 90) -> str:
    """Presses a button that starts a flow and waits for the flow's end. Returns the sentence."""
    drive("press", button)
    drive("wait-idle", seconds)
    return drive("text", STATUS)


def publish(name: str) -> str:
    drive("type", NAME, name)
    return press(PUBLISH)


def remove(name: str) -> str:
    drive("type", NAME, name)
    return press(REMOVE)


def wait_until(condition, seconds: float = 30) -> bool:
    end = time.monotonic() + seconds
    while not condition():
        if time.monotonic() > end:
            return False
        time.sleep(0.02)
    return True


class WalletNotices:
    """How often the wallet application was told that a name was accepted."""

    def __init__(self, counter: pathlib.Path):
        self._counter = counter

    def count(self) -> int:
        return int(self._counter.read_text(encoding="utf-8"))

    def is_ready(self) -> bool:
        return wait_until(self._counter.exists)

    def wait_for(self, count: int) -> bool:
        return wait_until(lambda: self.count() >= count) and self.count() == count


@contextlib.contextmanager
def wallet_application(folder: pathlib.Path, *options: str):
    """The stand-in for the wallet application, with its window open; the options are told in its source."""
    counter = folder / "notices"
    process = subprocess.Popen(["wine", VAULTRY, f"Z:{counter}", *options])
    try:
        notices = WalletNotices(counter)
        assert notices.is_ready()
        yield notices
    finally:
        process.kill()
        process.wait()


def record_of_pages() -> pathlib.Path:
    return pathlib.Path(os.environ["WORLD_DIR"]) / "opened_pages"


def opened_pages() -> list:
    """The addresses of the pages that the program had the user's browser open."""
    record = record_of_pages()
    return record.read_text(encoding="utf-8").splitlines() if record.exists() else []


def forget_opened_pages() -> None:
    record_of_pages().unlink(missing_ok=True)


def asked_page() -> str:
    """The last of them; waits for the first."""
    assert wait_until(opened_pages)
    return opened_pages()[-1]


def explorers_in(end: str) -> list:
    """The processes of Windows' file manager whose command line ends so."""
    found = []
    for process in pathlib.Path("/proc").glob("[0-9]*"):
        with contextlib.suppress(OSError):  # it ended meanwhile
            words = (process / "cmdline").read_bytes().decode(errors="replace").rstrip("\0").split("\0")
            if words[0].endswith("explorer.exe") and " ".join(words).endswith(end):
                found.append(int(process.name))
    return found


def xdotool(*words: object) -> str:
    done = subprocess.run(["xdotool", *map(str, words)], check=True, capture_output=True, text=True, timeout=60)
    return done.stdout.strip()


def window_under_mouse() -> str:
    return xdotool("getwindowname", xdotool("getmouselocation", "--shell").split("WINDOW=")[1])


def mouse_to(control: int) -> None:
    """Waits until the control's window really lies there: it may not be on the screen yet, or under another one."""
    left, top, right, bottom = map(int, drive("rectangle", control).split())
    xdotool("mousemove", (left + right) // 2, (top + bottom) // 2)
    window = "Settings" if control > SETTINGS_WINDOW else "Brasslet"
    assert wait_until(lambda: window_under_mouse() == window), window_under_mouse()


def click(control: int) -> None:
    mouse_to(control)
    xdotool("click", 1)


def capture(path: pathlib.Path, rectangle: str) -> None:
    """This part of the screen ("left top right bottom"), once nothing moves in it any more."""
    left, top, right, bottom = map(int, rectangle.split())
    path.parent.mkdir(parents=True, exist_ok=True)
    seen = []

    def stands_still():
        subprocess.run(["import", "-window", "root", "-crop", f"{right - left}x{bottom - top}+{left}+{top}", "+repage",
                        "-define", "png:exclude-chunks=date,time", path], check=True, timeout=60)
        seen.append(path.read_bytes())
        return len(seen) > 1 and seen[-1] == seen[-2]

    wait_until(stands_still, seconds=5)


def screenshot(path: pathlib.Path, *window: int) -> None:
    """The main window, or another one, as the user sees it."""
    capture(path, drive("rectangle", *window))
