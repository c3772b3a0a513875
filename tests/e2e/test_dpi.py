"""The program started on a monitor of another resolution."""
import contextlib
import subprocess

import pytest

import desk


def reg(*words):
    return subprocess.run(["wine", "reg", *words], check=True, stdout=subprocess.PIPE, timeout=60).stdout.decode("utf-8", "replace")


def displays():
    """Where Wine 10 keeps the DPI of a display, from the beginning of the session on. Wine 8 goes by the user's alone."""
    key = ""
    for line in reg("query", r"HKCC\System\CurrentControlSet\Control\Video", "/s").splitlines():
        if line.startswith("HKEY"):
            key = line.strip()
        if line.split()[:1] == ["Dpi"]:
            yield key


@contextlib.contextmanager
def monitor_of(dpi):
    def set_dpi(value):
        reg("add", r"HKCU\Control Panel\Desktop", "/v", "LogPixels", "/t", "REG_DWORD", "/d", str(value), "/f")
        for display in displays():
            reg("add", display, "/v", "Dpi", "/t", "REG_DWORD", "/d", str(value), "/f")

    set_dpi(dpi)
    try:
        yield
    finally:
        set_dpi(96)


@pytest.mark.parametrize(
    ("dpi", "size", "settings_size"),
    [
        (96, "760 600", "500 360"),
        (120, "950 750", "625 450"),
        (144, "1140 900", "750 540"),
        (192, "1520 1200", "1000 720"),
        (288, "2280 1800", "1500 1080"),
    ],
)
def test_the_windows_open_in_the_size_of_their_monitor(user, dpi, size, settings_size):
    with monitor_of(dpi), desk.running_program():
        assert desk.drive("client-size") == size
        desk.screenshot(desk.PICTURES / f"window-{dpi}.png")
        desk.drive("press", desk.SETTINGS)
        assert desk.drive("client-size", desk.SETTINGS_WINDOW) == settings_size
        desk.screenshot(desk.PICTURES / f"settings-{dpi}.png", desk.SETTINGS_WINDOW)
        desk.drive("press", desk.EYE)
        desk.screenshot(desk.PICTURES / f"settings-shown-{dpi}.png", desk.SETTINGS_WINDOW)
