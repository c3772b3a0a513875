"""The program started on a monitor of another resolution."""
import contextlib
import subprocess

import pytest

import desk


@contextlib.contextmanager
def monitor_of(dpi):
    def set_dpi(value):
        subprocess.run(["wine", "reg", "add", r"HKCU\Control Panel\Desktop", "/v", "LogPixels", "/t", "REG_DWORD",
                        "/d", str(value), "/f"], check=True, stdout=subprocess.DEVNULL, timeout=60)

    set_dpi(dpi)
    try:
        yield
    finally:
        set_dpi(96)


@pytest.mark.parametrize(("dpi", "size"), [(96, "760 600"), (144, "1140 900"), (192, "1520 1200")])
def test_the_window_opens_in_the_size_of_its_monitor(user, dpi, size):
    with monitor_of(dpi), desk.running_program():
        assert desk.drive("client-size") == size
        desk.screenshot(desk.PICTURES / f"window-{dpi}.png")
