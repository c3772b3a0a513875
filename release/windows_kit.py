"""Writes the zip of the Windows kit: the release's executable, the test programs, check.exe and what it needs. The same
build gives the same bytes, wherever and whenever this runs."""
import hashlib
import pathlib
import sys

from build_cache import cached
from inventory import inventory, prefix_of
from notices import RULE, notices
from package import for_windows, properties_of, write_zip

READ_ME = pathlib.Path(__file__).with_name("windows_kit_read_me.txt")
NOTICES = """{program}
{rule}
In the kit besides
{rule}

files/tests/site/kit_site.exe contains OpenSSL's libssl and libcrypto
({openssl}), under the Apache License 2.0 above.
The test programs and check.exe contain what Brasslet.exe contains, and
GoogleTest:

{googletest}
"""
NAME = "Brasslet-windows-kit.zip"

# Beside check.exe in the build, and below files/tests in the zip.
BESIDE = (
    "unit_tests.exe", "windows_tests.exe", "second_process.exe", "unruly_tests.exe", "contrast.exe", "decoy.dll",
    "excluded.txt", "own_process.txt", "site/kit_site.exe", "world/vaultry/vaultry_stand_in.exe",
)


def kit_notices(build, properties):
    openssl = pathlib.Path(cached(build, "BRASSLET_KIT_DEPS"), "made-from").read_text(encoding="utf-8").strip()
    return NOTICES.format(rule=RULE, openssl=openssl,
                          program=notices(properties["ProductVersion"], inventory(build), prefix_of(build)),
                          googletest=pathlib.Path("/usr/share/doc/googletest/copyright").read_text(encoding="utf-8"))


def kit_files(build):
    """The files of the zip by their names in it."""
    tests, executable = pathlib.Path(build, "tests"), pathlib.Path(build, "src/Brasslet.exe")
    program = executable.read_bytes()
    recordings = sorted(path.relative_to(tests).as_posix() for path in tests.glob("site/recordings/*/*.http"))
    text = READ_ME.read_text(encoding="utf-8").format(digest=hashlib.sha256(program).hexdigest())
    return {
        "READ ME.txt": for_windows(text),
        "check.exe": (tests / "check.exe").read_bytes(),
        "files/NOTICES.txt": for_windows(kit_notices(build, properties_of(executable))),
        "files/src/Brasslet.exe": program,
        **{f"files/tests/{name}": (tests / name).read_bytes() for name in (*BESIDE, *recordings)},
    }


if __name__ == "__main__":
    target = pathlib.Path(sys.argv[2])
    target.mkdir(parents=True, exist_ok=True)
    write_zip(target / NAME, kit_files(sys.argv[1]))
