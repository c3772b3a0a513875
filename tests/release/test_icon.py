"""The icon in the executable: drawn in the tree, in every size that Windows asks for."""
import struct
import subprocess

import pytest
from executable import ROOT, RT_GROUP_ICON, RT_ICON, opened, resource

ICON = ROOT / "src/app/windows/brasslet.ico"
SIZES = [16, 20, 24, 32, 40, 48, 64, 256]


def pictures(icon):
    """The pictures in an icon file: size and bits a pixel as its directory tells, and their bytes."""
    (count,) = struct.unpack_from("<H", icon, 4)
    for at in range(6, 6 + 16 * count, 16):
        width, height, _, _, _, bits, length, offset = struct.unpack_from("<BBBBHHII", icon, at)
        yield (width or 256, height or 256, bits), icon[offset : offset + length]


def pixels(file, index):
    """One picture's pixels, as if painted on black: three colours and the opacity, 0 to 255, one after another."""
    raw = subprocess.run(
        ["convert", f"ico:{file}[{index}]", "-depth", "8", "RGBA:-"], check=True, capture_output=True).stdout
    for at in range(0, len(raw), 4):
        yield from (colour * raw[at + 3] // 255 for colour in raw[at : at + 3])
        yield raw[at + 3]


@pytest.fixture(scope="module")
def redrawn(tmp_path_factory):
    file = tmp_path_factory.mktemp("icon") / "redrawn.ico"
    subprocess.run([ROOT / "src/app/icon/make_icon", file], check=True)
    return file


def test_it_has_every_size_in_full_colour():
    assert [shape for shape, _ in pictures(ICON.read_bytes())] == [(size, size, 32) for size in SIZES]


def test_the_small_pictures_are_bitmaps_and_the_large_one_is_a_png():
    kinds = [data[:4] for _, data in pictures(ICON.read_bytes())]
    assert kinds == [struct.pack("<I", 40)] * (len(SIZES) - 1) + [b"\x89PNG"]


def test_the_executable_shows_exactly_these_pictures():
    exe = opened()
    group = resource(exe, RT_GROUP_ICON, 1)
    shown = []
    for at in range(6, len(group), 14):
        width, height, _, _, _, bits, _, name = struct.unpack_from("<BBBBHHIH", group, at)
        shown.append(((width or 256, height or 256, bits), resource(exe, RT_ICON, name)))
    assert shown == list(pictures(ICON.read_bytes()))


@pytest.mark.parametrize("index", range(len(SIZES)), ids=[f"{size}-pixels" for size in SIZES])
def test_it_is_what_its_drawings_give(redrawn, index):
    # Another version of the drawing program may round an edge otherwise, and no more.
    pairs = list(zip(pixels(ICON, index), pixels(redrawn, index), strict=True))
    assert len(pairs) == 4 * SIZES[index] ** 2
    assert max(abs(old - new) for old, new in pairs) <= 24


@pytest.mark.parametrize("index", range(len(SIZES)), ids=[f"{size}-pixels" for size in SIZES])
def test_what_is_beside_the_tag_is_see_through(index):
    opacity = list(pixels(ICON, index))[3::4]
    size = SIZES[index]
    assert [opacity[corner] for corner in (0, size - 1, size * (size - 1), size * size - 1)] == [0, 0, 0, 0]
    assert opacity[size * size // 2 + size // 2] == 255
