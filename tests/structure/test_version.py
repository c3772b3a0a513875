"""The version stands in cmake/build_values.cmake alone: all that tells it is made from there."""
import re

from rooms import ROOT

SOURCE = ROOT / "cmake/build_values.cmake"
FILES = [
    *(path for folder in ("src", "cmake", "release", "scripts") for path in (ROOT / folder).rglob("*") if path.is_file()),
    ROOT / "CMakeLists.txt",
    ROOT / "README.md",
]


def files_with(pattern: bytes) -> list:
    return [path.relative_to(ROOT).as_posix() for path in FILES if re.search(pattern, path.read_bytes())]


def test_the_build_number_is_set_in_one_place():
    assert files_with(rb"BRASSLET_BUILD\s+\d") == ["cmake/build_values.cmake"]
    assert files_with(rb"BRASSLET_VERSION['\",]*\s+['\"]?\d|project\([^)]*VERSION") == []


def test_no_file_holds_a_copy_of_the_version():
    build = int(re.search(r"set\(BRASSLET_BUILD (\d+)\)", SOURCE.read_text(encoding="utf-8"))[1])
    version = f"{build // 1000}.{build % 1000:03}"
    assert files_with(rf"(?<![\d.]){re.escape(version)}(?![\d.])".encode()) == []
