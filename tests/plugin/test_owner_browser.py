"""The owner's page in a real browser: by the keyboard alone, for a screen reader, and on narrow screens."""

import pytest
from selenium.webdriver.common.by import By
from selenium.webdriver.common.keys import Keys
from selenium.webdriver.support.wait import WebDriverWait

from admin_pages import Admin
from broadcaster import listening
from conftest import PROJECT
from headless import SECONDS, browser, take_picture, widen
from names import ADDRESS, HOUSE, OTHER_ADDRESS, OTHER_PUBKEY, row
from owner_page import PATH
from payments import switch_on

PICTURES = PROJECT / "build" / "pictures"
LONG = "n" * 64

# What reaches beyond the right edge of the page, and is seen.
BEYOND = """
    return Array.from(document.querySelectorAll('#wpbody *')).filter(e => {
        const box = e.getBoundingClientRect();
        return box.width > 1 && box.height > 1 && box.right > innerWidth + 0.5;
    }).map(e => e.outerHTML.slice(0, 80)).concat(document.documentElement.scrollWidth > innerWidth ? ['the page'] : []);
"""


def wait(driver, condition):
    return WebDriverWait(driver, SECONDS).until(condition)


@pytest.fixture(scope="module")
def driver():
    with browser() as found:
        yield found


@pytest.fixture
def page(site, driver):
    site.set_record({"rows": [row("alice", house=HOUSE), row("bob", OTHER_PUBKEY, OTHER_ADDRESS), row(LONG)]})
    with listening():
        switch_on(site, key="a-key")
        widen(driver, 1280)
        # Cookies can be given to a browser that is on their host.
        driver.get(f"https://{site.address}/wp-json/brasslet/v1/status")
        for cookie in Admin(site, site.admin).http.cookies:
            driver.add_cookie({"name": cookie.name, "value": cookie.value, "path": cookie.path, "secure": True})
        driver.get(f"https://{site.address}{PATH}")
        yield driver
        driver.delete_all_cookies()


def press(driver, key):
    driver.switch_to.active_element.send_keys(key)


def tab_to(driver, name):
    """Presses Tab until what has this accessible name has the focus; returns the names on the way."""
    passed = []
    for _ in range(60):
        press(driver, Keys.TAB)
        passed.append(driver.switch_to.active_element.accessible_name)
        if passed[-1] == name:
            return passed
    raise AssertionError(passed)


@pytest.mark.parametrize("width", [1280, 1024, 783, 782, 400, 320])
def test_nothing_reaches_beyond_the_page(site, page, width):
    widen(page, width)
    if width <= 782:
        for button in page.find_elements(By.CSS_SELECTOR, ".brasslet-names .toggle-row"):
            button.click()
    assert page.execute_script(BEYOND) == []
    shown = [code.text for code in page.find_elements(By.CSS_SELECTOR, ".column-address code") if code.is_displayed()]
    assert [text.replace("\n", "") for text in shown] == [ADDRESS, OTHER_ADDRESS, ADDRESS]
    if width in (1280, 782, 400):
        take_picture(page, PICTURES / f"owner-page-{site.host}-{width}.png")


def test_everything_can_be_reached_by_the_keyboard_in_the_order_of_reading(site, page):
    page.find_element(By.NAME, "s").click()
    passed = tab_to(page, "Try the saved broadcaster")
    names = [f"{alias}@{site.host}" for alias in ("alice", "bob", LONG)]
    rows = [word for name in names for word in (f"Copy the address of {name}", f"Check {name}")]
    assert [name for name in passed if name in rows] == rows
    assert passed[-6:] == ["Wallets may hand payments over to this site", "Address of the broadcaster", "Key", "Forget the stored key",
                           "Save changes", "Try the saved broadcaster"]
    assert passed[0] == "Search names"


def test_the_address_is_copied_and_a_screen_reader_is_told(site, page):
    page.find_element(By.NAME, "s").click()
    tab_to(page, f"Copy the address of bob@{site.host}")
    press(page, Keys.SPACE)
    spoken = page.find_element(By.ID, "a11y-speak-polite")
    wait(page, lambda _: spoken.get_attribute("textContent").strip() == "The address was copied.")
    assert page.switch_to.active_element.text == "Copied"
    search = page.find_element(By.NAME, "s")
    search.send_keys(Keys.CONTROL, "v")
    assert search.get_attribute("value") == OTHER_ADDRESS


def test_without_scripts_no_button_promises_to_copy(site, page):
    page.execute_cdp_cmd("Emulation.setScriptExecutionDisabled", {"value": True})
    try:
        page.get(f"https://{site.address}{PATH}")
        assert not [button for button in page.find_elements(By.CLASS_NAME, "brasslet-copy") if button.is_displayed()]
        page.find_element(By.CSS_SELECTOR, "button[value=alice]").click()
        assert page.find_element(By.ID, "brasslet-checked").text.startswith(f"Wallets can pay alice@{site.host}.")
    finally:
        page.execute_cdp_cmd("Emulation.setScriptExecutionDisabled", {"value": False})


def test_a_check_is_pressed_by_the_keyboard_and_its_result_is_where_the_focus_is(site, page):
    site.set_record({"rows": [row("alice", house=HOUSE), row("bob", OTHER_PUBKEY, OTHER_ADDRESS)]})
    page.refresh()
    page.find_element(By.NAME, "s").click()
    tab_to(page, f"Check alice@{site.host}")
    press(page, Keys.ENTER)
    result = wait(page, lambda driver: driver.find_elements(By.ID, "brasslet-checked"))[0]
    assert result.get_attribute("role") == "status" and ADDRESS in result.text
    wait(page, lambda driver: driver.switch_to.active_element == result)
    top = page.execute_script("return arguments[0].getBoundingClientRect().top;", result)
    assert top >= page.find_element(By.ID, "wpadminbar").size["height"]
    for width in (1280, 400):
        widen(page, width)
        take_picture(page, PICTURES / f"owner-page-{site.host}-checked-{width}.png")


def test_each_field_has_a_name_and_the_keys_state_is_read_with_it(page):
    fields = {name: page.find_element(By.NAME, name) for name in ("s", "on", "broadcaster", "key", "forget")}
    assert {name: field.accessible_name for name, field in fields.items()} == {
        "s": "Search names:", "on": "Wallets may hand payments over to this site",
        "broadcaster": "Address of the broadcaster", "key": "Key",
        "forget": "Forget the stored key"}
    described = page.find_element(By.ID, fields["key"].get_attribute("aria-describedby"))
    assert described.text == "A key is stored, encrypted. Leave this empty to keep it."


def test_a_try_is_announced_above_the_title(site, page):
    page.find_element(By.CSS_SELECTOR, "button[value=try]").click()
    said = wait(page, lambda driver: driver.find_elements(By.ID, "setting-error-brasslet_said"))[0]
    assert "The broadcaster answers this site as ARC services do." in said.text
