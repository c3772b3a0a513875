"""Writes what a release consists of: the zip for the user, its SHA-256, and the software bill of materials. The same
executable gives the same bytes, wherever and whenever this runs; but for the signature, when it is to be signed."""
import hashlib
import os
import pathlib
import sys
import zipfile

import pefile

from bill_of_materials import bill_of_materials
from build_cache import cached
from inventory import inventory, prefix_of
from notices import notices
from signing import NotSigned, signed

READ_ME = pathlib.Path(__file__).with_name("read_me.txt")
SIGNED = """The program is signed: right-click Brasslet.exe, press "Properties", and read
under "Digital Signatures" by whom. Windows may still say "Windows protected
your PC" when you first start it. When the signature is the maker's, press
"More info" and then "Run anyway".
"""
NOT_SIGNED = """The program is not signed. Windows may therefore say "Windows protected your
PC" when you first start it. When the SHA-256 was right, press "More info" and
then "Run anyway".
"""
EARLIEST = (1980, 1, 1, 0, 0, 0)  # that a zip can say


def properties_of(executable):
    """The texts of the executable's version information, by their names."""
    image = pefile.PE(executable, fast_load=True)
    image.parse_data_directories([pefile.DIRECTORY_ENTRY["IMAGE_DIRECTORY_ENTRY_RESOURCE"]])
    tables = [table for info in image.FileInfo[0] if info.Key == b"StringFileInfo" for table in info.StringTable]
    return {name.decode(): value.decode() for table in tables for name, value in table.entries.items()}


def for_windows(text):
    return text.replace("\n", "\r\n").encode()


def read_me(**values):
    return READ_ME.read_text(encoding="utf-8").format(**values)


def write_zip(path, files):
    with zipfile.ZipFile(path, "w") as archive:
        for name, data in files.items():
            entry = zipfile.ZipInfo(name, EARLIEST)
            entry.compress_type = zipfile.ZIP_DEFLATED
            entry.create_system = 3  # Unix, whose file modes stand in the next line
            entry.external_attr = 0o100644 << 16
            archive.writestr(entry, data, compresslevel=9)


def package(build, target):
    executable, target = pathlib.Path(build, "src/Brasslet.exe"), pathlib.Path(target)
    properties, unsigned = properties_of(executable), executable.read_bytes()
    program = signed(unsigned, properties["ProductName"], os.environ)
    version, entries, prefix = properties["ProductVersion"], inventory(build), prefix_of(build)
    name = f"{properties['ProductName']}-{version}-win64"
    target.mkdir(parents=True, exist_ok=True)

    archive = target / f"{name}.zip"
    write_zip(archive, {
        properties["OriginalFilename"]: program,
        "READ ME.txt": for_windows(read_me(version=version, name=name, page=cached(build, "BRASSLET_MAKERS_PAGE"),
                                           signature=NOT_SIGNED if program == unsigned else SIGNED)),
        "NOTICES.txt": for_windows(notices(version, entries, prefix)),
    })
    digest = hashlib.sha256(archive.read_bytes()).hexdigest()
    (target / f"{name}.zip.sha256").write_text(f"{digest}  {archive.name}\n", encoding="utf-8")
    (target / f"{name}.cdx.json").write_text(
        bill_of_materials(version, properties["CompanyName"], program, unsigned, entries, prefix), encoding="utf-8")


if __name__ == "__main__":
    try:
        package(*sys.argv[1:])
    except NotSigned as reason:
        sys.exit(f"Nothing was packaged. {reason}")
