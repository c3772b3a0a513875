"""The built executable and what can be read off it, for the tests beside this file."""
import functools
import pathlib

import pefile

ROOT = pathlib.Path(__file__).resolve().parents[2]
EXE = ROOT / "build/windows/src/Brasslet.exe"
TWIN_ROOT = ROOT / "build/a twin folder with another name"
TWIN = TWIN_ROOT / "build/windows/src/Brasslet.exe"

RT_ICON, RT_RCDATA, RT_GROUP_ICON, RT_MANIFEST = 3, 10, 14, 24


def resource(exe, kind, name):
    """The bytes of one resource of the opened executable, None when there is none."""
    for by_type in exe.DIRECTORY_ENTRY_RESOURCE.entries:
        if by_type.id != kind:
            continue
        for by_name in by_type.directory.entries:
            if by_name.id == name:
                data = by_name.directory.entries[0].data.struct
                return exe.get_data(data.OffsetToData, data.Size)
    return None


@functools.cache
def opened():
    return pefile.PE(EXE)
