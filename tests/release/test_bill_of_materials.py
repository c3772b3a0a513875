"""The bill of materials names everything that is inside the executable, as the linker's map and the compiler's record
of headers tell, and what Debian says of it."""
import fnmatch
import hashlib
import os
import pathlib
import re
import subprocess
import sys
import urllib.parse

import pytest
from executable import EXE, ROOT
from released import MAP, VERSION, bill, licence_names, linked_from, text

sys.path.insert(0, str(ROOT / "release"))
import inventory  # noqa: E402
import linked  # noqa: E402
from texts import paragraphs  # noqa: E402

COMPONENTS = {component["name"]: component for component in bill()["components"]}
MINGW_COPYRIGHT = paragraphs(pathlib.Path("/usr/share/doc/mingw-w64-x86-64-dev/copyright").read_text(encoding="utf-8"))
# What Debian calls a licence, where its name is not SPDX's and not the one here.
DEBIAN_NAMES = {
    "public-domain": "LicenseRef-public-domain",
    "Lucent": "LicenseRef-Lucent",
    "David-Gay": "LicenseRef-David-Gay",
    "Keith-Marshall": "LicenseRef-Keith-Marshall",
    "expat": "MIT",
    "BSD-3-clause-Lockless": "BSD-3-Clause",
    "LGPL-2.1+": "LGPL-2.1-or-later",
    "GPL-2+": "LicenseRef-GPL-2.0-or-later-with-include-exception",
}


def archives_in_the_map():
    """By the map's own list of what was taken from archives, and its list of objects that were loaded: their paths."""
    members, _, rest = MAP.read_text().partition("\nDiscarded input sections\n")
    archives = re.findall(r"^(/.*\.a)\(", members, re.MULTILINE) + re.findall(r"^LOAD (/.*\.o)$", rest, re.MULTILINE)
    not_empty = set(re.findall(r" 0x0*[1-9a-f][0-9a-f]* (/.*\.[ao])(?:\(|$)", rest, re.MULTILINE))
    own = str(ROOT / "build/windows/delay_imports") + "/"  # made by the build itself
    return sorted(os.path.normpath(path) for path in not_empty.intersection(archives) if not path.startswith(own))


ARCHIVES = archives_in_the_map()
HEADERS = linked.headers_read(ROOT / "build/windows")


def licence_of(source):
    """What Debian's copyright file says of a file of mingw-w64's sources: the last paragraph that matches counts."""
    found = None
    for fields in MINGW_COPYRIGHT:
        if any(fnmatch.fnmatchcase(source, pattern) for pattern in fields.get("Files", "").split()):
            found = fields["License"].partition("\n")[0]
    return found


def owner(file):
    return next(component.name for component in inventory.COMPONENTS if component.gave(file))


def test_it_describes_this_very_executable():
    document = bill()
    program = document["metadata"]["component"]
    assert (program["name"], program["version"]) == ("Brasslet", VERSION)
    assert program["hashes"] == [{"alg": "SHA-256", "content": hashlib.sha256(EXE.read_bytes()).hexdigest()}]


def test_every_archive_in_the_link_map_has_its_entry():
    listed = [name for component in COMPONENTS.values() for name in linked_from(component)]
    assert {os.path.basename(path) for path in ARCHIVES} == set(listed)


@pytest.mark.parametrize("path", ARCHIVES, ids=os.path.basename)
def test_an_archive_s_origin_is_the_package_that_it_came_with(path):
    origins = [c["purl"] for c in COMPONENTS.values() if os.path.basename(path) in linked_from(c)]
    if path.startswith(str(ROOT)):
        package = os.path.basename(path).removeprefix("lib").removesuffix(".a").replace("crypto", "openssl")
        made_from = (ROOT / ".deps/windows/made-from").read_text()
        version = re.search(rf"{package} ([^,]+)", made_from)[1]
    else:
        owner = subprocess.run(["dpkg", "-S", path], capture_output=True, text=True, check=True).stdout
        package = owner.partition(":")[0]
        version = subprocess.run(
            ["dpkg-query", "-W", "-f", "${Version}", package], capture_output=True, text=True, check=True).stdout
    assert origins
    for origin in origins:
        assert urllib.parse.unquote(origin.partition("?")[0]) == f"pkg:deb/debian/{package}@{version}"


def test_the_import_libraries_that_the_build_makes_are_in_the_map_and_nobody_elses():
    own = re.findall(r"^(/.*/delay_imports/lib\w+\.a)\(", MAP.read_text(), re.MULTILINE)
    assert {os.path.basename(path) for path in own} >= {"libbcrypt.a", "libcrypt32.a", "libdwmapi.a"}
    assert not {os.path.basename(path) for path in own} & {os.path.basename(path) for path in ARCHIVES}


@pytest.mark.parametrize("name, package, fewest", [("OpenSSL libcrypto", "openssl", 5), ("libcurl", "curl", 20)])
def test_a_cross_built_library_is_named_with_debian_s_patches(name, package, fewest):
    applied = (ROOT / ".deps/windows/share/patches" / package).read_text(encoding="utf-8").split()
    assert len(applied) >= fewest
    patches = COMPONENTS[name]["pedigree"]["patches"]
    assert [patch["diff"]["url"].partition("#debian/patches/")[2] for patch in patches] == applied
    assert "-" in COMPONENTS[name]["version"]  # with Debian's own revision
    notice = text("NOTICES.txt")
    assert f"{name} {COMPONENTS[name]['version']}\n" in notice
    assert f"    Built here with Debian's patches: {len(applied)}\n" in notice


def test_the_words_of_recovery_phrases_are_the_published_list():
    words = COMPONENTS["BIP39 English word list"]
    # Of bips/bip-0039/english.txt, which python-mnemonic has as well.
    published = "2f5eed53a4727b4bf8880d8f3f199efc90e58503646d9ff8eff3a2ed3b24dbda"
    assert (words["type"], words["hashes"]) == ("data", [{"alg": "SHA-256", "content": published}])
    assert licence_names(words) == ["MIT"]


def test_every_header_that_was_read_belongs_to_an_entry():
    owners = {owner(header) for header in HEADERS}
    assert {"JSON for Modern C++", "libstdc++", "mingw-w64 headers"} <= owners <= set(COMPONENTS)


def test_something_unknown_that_is_linked_in_stops_the_packaging(monkeypatch):
    monkeypatch.setattr(inventory, "linked_in", lambda _: {"/opt/lib/libsurprise.a(surprise.o)"})
    with pytest.raises(inventory.Unknown, match="libsurprise"):
        inventory.inventory(ROOT / "build/windows")


def test_a_work_of_which_nothing_is_inside_has_no_entry(monkeypatch):
    monkeypatch.setattr(inventory, "linked_in", lambda _: {"/tree/.deps/windows/lib/libcurl.a(easy.c.obj)"})
    monkeypatch.setattr(inventory, "headers_read", lambda _: set())
    assert [entry.component.name for entry in inventory.inventory(ROOT / "build/windows")] == ["libcurl"]


@pytest.mark.parametrize("name, folder, member", [
    ("mingw-w64 runtime", "mingw-w64-crt/", r"\(lib64_lib\w+?_a-(\w+)\.o\)"),
    ("winpthreads", "mingw-w64-libraries/winpthreads/", r"\(libwinpthread_la-(\w+)\.o\)"),
])
def test_its_licences_cover_every_member_taken_from_mingw_w64(name, folder, member):
    members = set(re.findall(r"^/.*\.a" + member, MAP.read_text(), re.MULTILINE))
    assert len(members) > 5
    licences = licence_names(COMPONENTS[name])
    uncovered = set()
    for fields in MINGW_COPYRIGHT:
        licence = fields.get("License", "").partition("\n")[0]
        for pattern in fields.get("Files", "").split():
            source = os.path.basename(pattern)
            if pattern.startswith(folder) and source != "*" and DEBIAN_NAMES.get(licence, licence) not in licences:
                uncovered |= {(file, licence) for file in members if fnmatch.fnmatchcase(f"{file}.c", source)}
    assert uncovered == set()


def test_its_licences_cover_every_header_of_mingw_w64():
    names = set()
    for header in HEADERS:
        if owner(header) != "mingw-w64 headers":
            continue
        stem = header.removeprefix("/usr/share/mingw-w64/include/").removesuffix(".h")
        sources = [f"mingw-w64-headers/{folder}/{stem}{end}" for folder in ("include", "crt") for end in (".h", ".idl")]
        names |= {licence_of(source) for source in sources if licence_of(source) != "ZPL-2.1"}
    assert {DEBIAN_NAMES[name] for name in names} == set(licence_names(COMPONENTS["mingw-w64 headers"]))
