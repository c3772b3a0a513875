"""The kit as its tester has it: unpacked into a folder of its own, whose name holds blanks and letters outside ASCII, and
run under Wine in the test world."""
import dataclasses
import json
import os
import pathlib
import re
import shutil
import subprocess
import zipfile

ROOT = pathlib.Path(__file__).resolve().parents[2]
ZIP = ROOT / "build/kit/Brasslet-windows-kit.zip"
CHECK = re.compile(r"^TEST(?:_F)?\(\s*(\w+),\s*(\w+)\)", re.M)

# Of the test programs, which the windows layer of scripts/test runs whole: enough to show that the kit runs them, and one
# that is left out.
SOME_TESTS = "--programs=Json.*:PostedText.*:OpenPage.*:MainWindow.*"


def names_of_checks() -> list:
    sources = sorted(ROOT.glob("tests/windows_kit/*_checks.cpp"))
    return [".".join(found) for source in sources for found in CHECK.findall(source.read_text(encoding="utf-8"))]


def not_shown_under_wine() -> set:
    lines = pathlib.Path(__file__).with_name("not_shown_under_wine.txt").read_text(encoding="utf-8").splitlines()
    return {line for line in lines if line and not line.startswith("#")}


def unpack(folder: pathlib.Path) -> pathlib.Path:
    """The folder of the kit's copy below `folder`."""
    kit = folder / "Zoë 用户's kit"
    shutil.rmtree(kit, ignore_errors=True)
    with zipfile.ZipFile(ZIP) as archive:
        archive.extractall(kit)
    return kit


@dataclasses.dataclass
class Outcome:
    status: int
    lines: list
    report: dict
    page: str

    def result(self, check: str) -> dict:
        (found,) = [entry for entry in self.report["checks"] if entry["check"] == check]
        return found


def start(kit: pathlib.Path, *words: str) -> subprocess.Popen:
    return subprocess.Popen(["wine", kit / "check.exe", *words], stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                            stderr=subprocess.DEVNULL, cwd=kit)


def run(kit: pathlib.Path, *words: str, limit: float = 900) -> Outcome:
    """check.exe to its end."""
    for name in ("report.html", "report.json"):
        (kit / name).unlink(missing_ok=True)
    process = start(kit, *words)
    output = process.communicate(timeout=limit)[0].decode(errors="replace")
    page, report = kit / "report.html", kit / "report.json"
    return Outcome(process.returncode, output.replace("\r", "").splitlines(),
                   json.loads(report.read_text(encoding="utf-8")) if report.exists() else {},
                   page.read_text(encoding="utf-8") if page.exists() else "")


def clean(kit: pathlib.Path) -> int:
    """How many of the kit's authorities the Windows user trusted; now none."""
    site = kit / "files/tests/site/kit_site.exe"
    done = subprocess.run(["wine", site, "--clean"], stdin=subprocess.DEVNULL, capture_output=True, check=True, timeout=60)
    return int(done.stdout)


def user_profile() -> pathlib.Path:
    """Of the world's Windows user, whom the checks must not touch. The folder for temporary files is in it."""
    return pathlib.Path(os.environ["WINEPREFIX"]) / "drive_c/users" / os.environ["USER"]
