"""A wallet that is a page in a real browser, of another origin than the site, finds the key of a name."""

import json

import pytest
from selenium.webdriver.support.wait import WebDriverWait

from headless import SECONDS, browser
from names import ADDRESS, PUBKEY, record
from wordpress import WORLD_DIR

# Asks as a paying wallet does: first for the document, then where that says. The last address sends nothing that a page
# of another origin may read.
WALLET = """<!doctype html><meta charset="utf-8"><script>
const [host, alias] = location.hash.slice(1).split('/');
const read = async (url, options) => (await fetch(url, options)).json();
const wallet = async () => {
    const {capabilities} = await read(`https://${host}/.well-known/bsvalias`);
    const key = await read(capabilities.pki.replace('{alias}', alias));
    const pay = await read(capabilities.paymentDestination.replace('{alias}', alias), {
        method: 'POST', headers: {'Content-Type': 'application/json'}, body: JSON.stringify({senderHandle: 'bob@example.org'}),
    });
    const closed = await read(`https://${host}/`).catch(error => error.name);
    return [capabilities, key, pay, closed];
};
wallet().catch(error => String(error)).then(found => { window.found = JSON.stringify(found); });
</script>"""


@pytest.fixture(scope="module")
def wallet():
    page = WORLD_DIR / "makers_page" / "wallet.html"
    page.write_text(WALLET)
    with browser() as driver:
        def ask(host, alias):
            driver.get("about:blank")
            driver.get(f"https://corvane.example/wallet.html#{host}/{alias}")
            return json.loads(WebDriverWait(driver, SECONDS).until(lambda shown: shown.execute_script("return window.found;")))
        yield ask
    page.unlink()


def test_a_page_of_another_origin_reads_the_document_the_key_and_the_address(site, wallet):
    site.set_record(record("alice"))
    capabilities, key, pay, closed = wallet(site.host, "alice")
    assert capabilities == site.request("GET", "/.well-known/bsvalias").json()["capabilities"]
    assert key == {"bsvalias": "1.0", "handle": f"alice@{site.host}", "pubkey": PUBKEY}
    assert pay == {"address": ADDRESS}
    assert closed == "TypeError"
