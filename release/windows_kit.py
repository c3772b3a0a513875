"""Writes the zip of the Windows kit: the release's executable, the test programs, check.exe and what it needs. The same
build gives the same bytes, wherever and whenever this runs."""
import hashlib
import pathlib
import sys

from package import for_windows, write_zip

READ_ME = pathlib.Path(__file__).with_name("windows_kit_read_me.txt")
NAME = "Brasslet-windows-kit.zip"

# Beside check.exe in the build, and below files/tests in the zip.
BESIDE = (
    "unit_tests.exe", "windows_tests.exe", "second_process.exe", "unruly_tests.exe", "contrast.exe", "decoy.dll",
    "excluded.txt", "own_process.txt", "site/kit_site.exe", "world/vaultry/vaultry_stand_in.exe",
)


def kit_files(build):
    """The files of the zip by their names in it."""
    tests, program = pathlib.Path(build, "tests"), pathlib.Path(build, "src/Brasslet.exe").read_bytes()
    recordings = sorted(path.relative_to(tests).as_posix() for path in tests.glob("site/recordings/*/*.http"))
    text = READ_ME.read_text(encoding="utf-8").format(digest=hashlib.sha256(program).hexdigest())
    return {
        "READ ME.txt": for_windows(text),
        "check.exe": (tests / "check.exe").read_bytes(),
        "files/src/Brasslet.exe": program,
        **{f"files/tests/{name}": (tests / name).read_bytes() for name in (*BESIDE, *recordings)},
    }


if __name__ == "__main__":
    target = pathlib.Path(sys.argv[2])
    target.mkdir(parents=True, exist_ok=True)
    write_zip(target / NAME, kit_files(sys.argv[1]))
