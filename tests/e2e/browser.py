"""The owner of the site in a real browser: logs in to WordPress, makes an application password, uploads a plugin."""
import base64
import contextlib
import os
import pathlib
import subprocess
import tempfile

from selenium import webdriver
from selenium.common.exceptions import StaleElementReferenceException
from selenium.webdriver.chrome.service import Service
from selenium.webdriver.common.by import By
from selenium.webdriver.support import expected_conditions as until
from selenium.webdriver.support.wait import WebDriverWait

SECONDS = 60
FLAGS = (
    "--no-first-run",
    "--disable-background-networking",
    "--disable-component-update",
    "--disable-sync",
    "--disable-quic",
    "--disable-gpu",
    "--no-sandbox",  # the world is one already
    "--window-position=900,40",
    "--window-size=1280,900",
)


def trust_the_authority(home: pathlib.Path) -> None:
    """Chromium trusts what the certificate store in its user's home trusts."""
    store = home / ".pki/nssdb"
    store.mkdir(parents=True)
    for words in (["-N", "--empty-password"], ["-A", "-n", "test authority", "-t", "C,,", "-i", os.environ["WORLD_CA"]]):
        subprocess.run(["certutil", "-d", f"sql:{store}", *words], check=True, timeout=60)


@contextlib.contextmanager
def browser():
    """A browser window on the world's desktop, with a profile of its own."""
    with tempfile.TemporaryDirectory(dir=os.environ["WORLD_DIR"]) as folder:
        home = pathlib.Path(folder)
        trust_the_authority(home)
        options = webdriver.ChromeOptions()
        options.binary_location = "/usr/bin/chromium"
        for flag in FLAGS + (f"--user-data-dir={home}/profile",):
            options.add_argument(flag)
        service = Service("/usr/bin/chromedriver", env={**os.environ, "HOME": str(home), "XDG_CONFIG_HOME": str(home)})
        driver = webdriver.Chrome(service=service, options=options)
        try:
            yield Browser(driver)
        finally:
            driver.quit()


class Browser:
    def __init__(self, driver):
        self._driver = driver

    def _click(self, selector: str) -> None:
        WebDriverWait(self._driver, SECONDS).until(until.element_to_be_clickable((By.CSS_SELECTOR, selector))).click()

    def _type(self, selector: str, text: str) -> None:
        field = WebDriverWait(self._driver, SECONDS).until(until.visibility_of_element_located((By.CSS_SELECTOR, selector)))
        field.clear()
        field.send_keys(text)

    def wait_for_text(self, text: str) -> None:
        # While a page gives way to the next one, what was found in it is gone.
        gone = [StaleElementReferenceException]
        WebDriverWait(self._driver, SECONDS, ignored_exceptions=gone).until(lambda _: self.shows(text))

    def open(self, url: str) -> None:
        self._driver.get(url)

    def log_in(self, site: str, user: str, password: str) -> None:
        self.open(f"{site}/wp-login.php")
        self._type("#user_login", user)
        self._type("#user_pass", password)
        self._click("#wp-submit")
        WebDriverWait(self._driver, SECONDS).until(until.url_contains("/wp-admin/"))

    def approve_application(self, authorize_page: str) -> str:
        """On WordPress' page for this; returns the password as it is shown: groups of four with blanks between them."""
        self.open(authorize_page)
        self.wait_for_text("An application would like to connect to your account.")
        self._click("#approve")
        shown = WebDriverWait(self._driver, SECONDS).until(
            until.visibility_of_element_located((By.CSS_SELECTOR, "#new-application-password-value"))
        )
        return shown.get_attribute("value")

    def upload_plugin(self, upload_page: str, zip_file: pathlib.Path) -> None:
        self.open(upload_page)
        self._driver.find_element(By.CSS_SELECTOR, "#pluginzip").send_keys(str(zip_file))
        self._click("#install-plugin-submit")
        WebDriverWait(self._driver, SECONDS).until(until.url_contains("action=upload-plugin"))

    def activate_uploaded_plugin(self) -> None:
        self.wait_for_text("Plugin installed successfully.")
        self._click("a.button-primary[href*='action=activate']")
        self.wait_for_text("Plugin activated.")

    def replace_plugin_with_uploaded(self) -> None:
        self.wait_for_text("This plugin is already installed.")
        self._click("a.update-from-upload-overwrite")
        self.wait_for_text("Plugin updated successfully.")

    def activate_plugin_again(self, site: str, plugin: str) -> None:
        self.open(f"{site}/wp-admin/plugins.php")
        self._click(f"#deactivate-{plugin}")
        self.wait_for_text("Plugin deactivated.")
        self._click(f"#activate-{plugin}")
        self.wait_for_text("Plugin activated.")

    def follow_link(self, text: str) -> None:
        # WordPress moves its notices while a page loads.
        WebDriverWait(self._driver, SECONDS).until(
            lambda driver: driver.execute_script("return document.readyState") == "complete")
        WebDriverWait(self._driver, SECONDS).until(until.element_to_be_clickable((By.LINK_TEXT, text))).click()

    def choose_pretty_permalinks(self) -> None:
        self._click("input[name='selection'][value='/%postname%/']")
        self._click("#submit")
        self.wait_for_text("Permalink structure updated.")

    def have_payments_handed_over(self, site: str, broadcaster: str) -> None:
        """On the plugin's own page."""
        self.open(f"{site}/wp-admin/options-general.php?page=brasslet")
        self._type("#brasslet-broadcaster", broadcaster)
        self._click("input[name='on']")
        self._click("button[name='brasslet_payments'][value='save']")
        self.wait_for_text("Saved.")

    def shows(self, text: str) -> bool:
        return text in self._driver.find_element(By.TAG_NAME, "body").text

    def open_site_health(self, site: str, *tests: str) -> None:
        """Tools, Site Health, once these tests have results, with what they say unfolded."""
        self.open(f"{site}/wp-admin/site-health.php")
        results = [f"[aria-controls='health-check-accordion-block-{test}']" for test in tests]
        for result in results:
            WebDriverWait(self._driver, SECONDS).until(until.presence_of_element_located((By.CSS_SELECTOR, result)))
        self._click(".site-health-view-passed")
        for result in results:
            self._click(result)

    def picture_of_page(self, path: pathlib.Path) -> None:
        """Also of what lies outside of the window."""
        self._driver.execute_script("scrollTo(0, 0)")
        picture = self._driver.execute_cdp_cmd("Page.captureScreenshot", {"captureBeyondViewport": True})
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(base64.b64decode(picture["data"]))

    def picture(self, path: pathlib.Path) -> None:
        path.parent.mkdir(parents=True, exist_ok=True)
        self._driver.save_screenshot(str(path))
