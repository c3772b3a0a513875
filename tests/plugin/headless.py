"""Chromium without a window, which trusts the authority of the test world."""

import contextlib
import os
import subprocess
import tempfile
from pathlib import Path

from selenium import webdriver
from selenium.webdriver.chrome.service import Service

from wordpress import WORLD_DIR

SECONDS = 60
FLAGS = ("--headless=new", "--no-first-run", "--disable-background-networking", "--disable-component-update", "--disable-sync",
         "--disable-quic", "--disable-gpu", "--no-sandbox", "--hide-scrollbars")


@contextlib.contextmanager
def browser():
    with tempfile.TemporaryDirectory(dir=WORLD_DIR) as folder:
        store = Path(folder) / ".pki/nssdb"
        store.mkdir(parents=True)
        # Chromium trusts what the certificate store in its user's home trusts.
        for words in (["-N", "--empty-password"], ["-A", "-n", "test authority", "-t", "C,,", "-i", os.environ["WORLD_CA"]]):
            subprocess.run(["certutil", "-d", f"sql:{store}", *words], check=True, timeout=SECONDS)
        options = webdriver.ChromeOptions()
        options.binary_location = "/usr/bin/chromium"
        for flag in (*FLAGS, f"--user-data-dir={folder}/profile"):
            options.add_argument(flag)
        service = Service("/usr/bin/chromedriver", env={**os.environ, "HOME": folder, "XDG_CONFIG_HOME": folder})
        driver = webdriver.Chrome(service=service, options=options)
        try:
            yield driver
        finally:
            driver.quit()


def widen(driver, width, height=900):
    """Gives the page this many pixels, also fewer than a window may have."""
    driver.execute_cdp_cmd("Emulation.setDeviceMetricsOverride", {
        "width": width, "height": height, "deviceScaleFactor": 1, "mobile": False})


def take_picture(driver, path):
    """The whole page, below the edge of the window too."""
    width, height = driver.execute_script("return [innerWidth, document.documentElement.scrollHeight];")
    widen(driver, width, height)
    path.parent.mkdir(parents=True, exist_ok=True)
    assert driver.save_screenshot(str(path))
    widen(driver, width)
