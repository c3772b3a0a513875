"""The two libraries that are cross-built: as Debian patched them, hardened as the program is, and with no place of the
machine that built them inside."""
import pathlib
import re
import subprocess

import pytest
from executable import EXE, ROOT

PREFIX = ROOT / ".deps/windows"
LIBRARIES = {"libcrypto": PREFIX / "lib/libcrypto.a", "libcurl": PREFIX / "lib/libcurl.a"}


def objects_that_call(library, names):
    """How many of an archive's objects call one of the functions, a regular expression."""
    symbols = subprocess.run(["x86_64-w64-mingw32-nm", "-A", LIBRARIES[library]], capture_output=True, text=True,
                             check=True).stdout
    return len({match[1] for match in re.finditer(rf"^(\S+): +U ({names})$", symbols, re.MULTILINE)})


@pytest.mark.parametrize("library, fewest", [("libcrypto", 300), ("libcurl", 55)])
def test_its_stacks_are_protected(library, fewest):
    assert objects_that_call(library, "__stack_chk_fail") >= fewest


@pytest.mark.parametrize("library, fewest", [("libcrypto", 5), ("libcurl", 2)])
def test_it_calls_the_functions_that_know_the_room_there_is(library, fewest):
    assert objects_that_call(library, r"__[a-z]+_chk") >= fewest


@pytest.mark.parametrize("library", LIBRARIES)
def test_no_place_of_the_machine_that_built_it_is_in_it(library):
    data = LIBRARIES[library].read_bytes()
    places = ("/etc/ssl", "/etc/pki", "/usr/lib/ssl", "/usr/local/ssl", "/usr/share/ssl", "ca-certificates.crt",
              "ca-bundle.crt", str(ROOT), str(pathlib.Path.home()) + "/", "/.deps/")
    assert [place for place in places if place.encode() in data] == []


@pytest.mark.parametrize("library, package", [("libcrypto", "openssl"), ("libcurl", "curl")])
def test_what_it_was_made_from_is_a_debian_package_with_its_patches(library, package):
    made_from = dict(entry.split(" ") for entry in (PREFIX / "made-from").read_text().strip().split(", "))
    assert re.fullmatch(r"\d[\w.]*-\d+[\w.+~]*", made_from[package])
    upstream = made_from[package].rpartition("-")[0]
    assert upstream.encode() in LIBRARIES[library].read_bytes()
    assert (PREFIX / "share/patches" / package).read_text().split()


def test_the_program_has_the_libraries_checks_inside():
    assert b"buffer overflow detected" in EXE.read_bytes()
