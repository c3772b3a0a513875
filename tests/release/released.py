"""What scripts/package has written, for the tests beside this file."""
import json
import re
import zipfile

from executable import ROOT

FOLDER = ROOT / "build/package"
BUILD = int(re.search(r"set\(BRASSLET_BUILD (\d+)\)", (ROOT / "cmake/build_values.cmake").read_text())[1])
VERSION = f"{BUILD // 1000}.{BUILD % 1000:03}"
NAME = f"Brasslet-{VERSION}-win64"
ZIP = FOLDER / f"{NAME}.zip"
MAP = ROOT / "build/windows/src/Brasslet.map"


def text(name):
    """A text file in the zip, its lines ended with a line feed."""
    with zipfile.ZipFile(ZIP) as archive:
        return archive.read(name).decode().replace("\r\n", "\n")


def bill():
    return json.loads((FOLDER / f"{NAME}.cdx.json").read_text(encoding="utf-8"))


def licence_names(component):
    """The SPDX names under which the bill says a component is."""
    (choice,) = component["licenses"]
    return (choice.get("expression") or choice["license"]["id"]).split(" AND ")


def linked_from(component):
    return [entry["value"] for entry in component["properties"]]
