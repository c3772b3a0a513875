"""What anybody can read off the release executable: hardening, what it needs, what it tells, and that it is the same
wherever it is built."""
import pathlib
import xml.etree.ElementTree as ElementTree

import pefile
import pytest
from executable import EXE, ROOT, RT_MANIFEST, RT_RCDATA, TWIN, opened, resource

@pytest.fixture(scope="module")
def exe():
    return opened()


def test_it_is_a_64_bit_window_program(exe):
    assert exe.FILE_HEADER.Machine == pefile.MACHINE_TYPE["IMAGE_FILE_MACHINE_AMD64"]
    assert exe.OPTIONAL_HEADER.Subsystem == pefile.SUBSYSTEM_TYPE["IMAGE_SUBSYSTEM_WINDOWS_GUI"]


@pytest.mark.parametrize("flag", ["NX_COMPAT", "DYNAMIC_BASE", "HIGH_ENTROPY_VA"])
def test_it_asks_for_memory_protection(exe, flag):
    assert exe.OPTIONAL_HEADER.DllCharacteristics & pefile.DLL_CHARACTERISTICS["IMAGE_DLLCHARACTERISTICS_" + flag]


def test_it_can_be_relocated(exe):
    assert not exe.FILE_HEADER.Characteristics & pefile.IMAGE_CHARACTERISTICS["IMAGE_FILE_RELOCS_STRIPPED"]
    assert sum(len(block.entries) for block in exe.DIRECTORY_ENTRY_BASERELOC) > 100


def test_its_stacks_are_protected():
    assert b"stack smashing detected" in EXE.read_bytes()


def test_it_is_stripped(exe):
    assert exe.FILE_HEADER.NumberOfSymbols == 0
    assert not [s.Name for s in exe.sections if s.Name.startswith(b"/") or s.Name.startswith(b".debug")]


def test_it_names_no_path_of_the_machine_that_built_it():
    data = EXE.read_bytes()
    for path in (str(ROOT), str(pathlib.Path.home()) + "/", "/tmp/", "/usr/lib/gcc"):
        assert path.encode() not in data
        assert path.encode("utf-16-le") not in data


def test_it_is_one_file_under_three_and_a_quarter_mebibytes():
    assert EXE.stat().st_size < 3.25 * 1024 * 1024


def test_it_carries_no_streams_and_no_locales():
    # Half a megabyte that one stream anywhere brings in; the names of their types tell.
    data = EXE.read_bytes()
    assert [name for name in (b"money_put", b"time_get", b"basic_filebuf") if name in data] == []


def test_its_manifest_says_what_it_needs(exe):
    manifest = ElementTree.fromstring(resource(exe, RT_MANIFEST, 1))
    text = " ".join(element.text or "" for element in manifest.iter())
    attributes = [value for element in manifest.iter() for value in element.attrib.values()]
    assert "PerMonitorV2" in text
    assert "UTF-8" in text
    assert "true" in [e.text for e in manifest.iter() if e.tag.endswith("longPathAware")]
    assert "Microsoft.Windows.Common-Controls" in attributes
    assert "asInvoker" in attributes
    assert "{8e0f7a12-bfb3-4fe8-b9a5-48fd50a15a9a}" in attributes  # Windows 10 and later


def test_its_version_information_is_filled_in(exe):
    fixed = exe.VS_FIXEDFILEINFO[0]
    assert (fixed.FileVersionMS, fixed.FileVersionLS) == (0, 1)
    texts = {
        key.decode(): value.decode()
        for info in exe.FileInfo[0]
        if info.Key == b"StringFileInfo"
        for table in info.StringTable
        for key, value in table.entries.items()
    }
    assert texts["ProductName"] == "Brasslet"
    assert texts["ProductVersion"] == "0.001"
    assert texts["FileVersion"] == "0.001"
    assert texts["FileDescription"] == "Brasslet, payment names on your own site"
    assert texts["CompanyName"] == "Corvane"
    assert texts["OriginalFilename"] == "Brasslet.exe"


def test_it_carries_the_plugin(exe):
    assert resource(exe, RT_RCDATA, 2) == (ROOT / "build/windows/generated/brasslet.php").read_bytes()


def test_it_is_the_same_from_every_folder():
    assert EXE.read_bytes() == TWIN.read_bytes()
