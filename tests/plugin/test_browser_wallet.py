"""A wallet that is a page in a real browser, of another origin than the site, finds the key of a name."""

import json

import pytest
from selenium.webdriver.support.wait import WebDriverWait

from broadcaster import listening
from headless import SECONDS, browser
from names import ADDRESS, PUBKEY, SCRIPT, record
from payments import paid, switch_on, transaction
from wordpress import WORLD_DIR

# Asks as a paying wallet does: first for the document, then where that says. The last address sends nothing that a page
# of another origin may read.
WALLET = """<!doctype html><meta charset="utf-8"><script>
const [host, alias, hex] = location.hash.slice(1).split('/');
const read = async (url, options) => (await fetch(url, options)).json();
const wallet = async () => {
    const {capabilities} = await read(`https://${host}/.well-known/bsvalias`);
    const key = await read(capabilities.pki.replace('{alias}', alias));
    const pay = await read(capabilities.paymentDestination.replace('{alias}', alias), {
        method: 'POST', headers: {'Content-Type': 'application/json'}, body: JSON.stringify({senderHandle: 'bob@example.org'}),
    });
    if (hex) {
        const send = body => ({method: 'POST', headers: {'Content-Type': 'application/json'}, body: JSON.stringify(body)});
        const {outputs, reference} = await read(capabilities['2a40af698840'].replace('{alias}', alias), send({satoshis: 1000}));
        const paid = await read(capabilities['5f1323cddf31'].replace('{alias}', alias), send({hex, reference}));
        const url = capabilities.a9f510c16bde.replace('{alias}', alias).replace('{pubkey}', key.pubkey);
        return [outputs, paid, (await read(url)).match];
    }
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
        def ask(*words):
            driver.get("about:blank")
            driver.get("https://corvane.example/wallet.html#" + "/".join(words))
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


def test_a_page_of_another_origin_hands_a_payment_over(site, wallet):
    site.set_record(record("alice"))
    pays = transaction((SCRIPT, 1000))
    with listening() as broadcaster:
        switch_on(site)
        assert wallet(site.host, "alice", pays) == [[{"script": SCRIPT, "satoshis": 1000}], paid(pays), True]
        assert broadcaster.transactions == [pays]
