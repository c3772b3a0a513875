"""WordPress in a folder of its host: with the whole site there, and alone ("WordPress in its own directory")."""

import pytest

from conftest import fresh
from names import PUBKEY, SCRIPT, record
from site_health import shown
from test_clients import ask
from test_discovery import PATH, document, is_document
from test_health import LET_IT_THROUGH, NAMES_BAD, NAMES_GOOD, OTHER_STATUS, RIGHT_ANSWERS
from wordpress import Site

# The same WordPress as below.brasslet.test; the server hands the document at the root of this host to it.
HANDED = "handed.brasslet.test"


@pytest.fixture(scope="module")
def opened(plugin_file):
    found = {"below": Site("below", "below.brasslet.test/blog", plugin_file),
             "apart": Site("apart", "apart.brasslet.test", plugin_file)}
    yield found
    for site in found.values():
        site.close()


@pytest.fixture
def below(opened):
    """Site and WordPress in the folder /blog of a host whose root is the web server's own."""
    with fresh(opened["below"]):
        yield opened["below"]


@pytest.fixture
def apart(opened):
    """The site at the root of its host, WordPress' files in the folder /wp."""
    with fresh(opened["apart"]):
        yield opened["apart"]


@pytest.fixture(params=["below", "apart"])
def either(request, opened):
    with fresh(opened[request.param]):
        yield opened[request.param]


def health(site, **options):
    return shown(site.get("/health", headers=site.login_headers(), **options).json())


def test_names_are_published_looked_up_and_removed(either):
    published = either.publish(alias="alice").json()
    assert (published["paymail"], published["host"]) == (f"alice@{either.host}", either.host)
    status = either.get("/status").json()
    assert (status["host"], status["alias"], status["set"]) == (either.host, "alice", True)
    assert either.get("/id/alice").json()["pubkey"] == PUBKEY
    assert either.remove("alice").json()["aliases"] == []
    assert either.get("/id/alice").status_code == 404


def test_a_wordpress_in_its_own_directory_answers_the_document_at_the_root(apart):
    assert apart.php("return array( home_url(), site_url() );") == [
        f"https://{apart.host}", f"https://{apart.host}/wp"]
    assert apart.request("GET", PATH).text == document(f"https://{apart.host}")
    assert not is_document(apart.request("GET", "/wp" + PATH))


def test_wallets_find_the_names_of_a_wordpress_in_its_own_directory(apart):
    apart.set_record(record("alice"))
    found = ask("bsv_paymail", f"alice@{apart.host}")
    assert (found["pubkey"], found["output"]) == (PUBKEY, SCRIPT)
    assert health(apart) == ("good", NAMES_GOOD, RIGHT_ANSWERS % f"alice@{apart.host}")


def test_a_site_in_a_folder_has_no_say_about_the_root_of_its_host(below):
    for path in (PATH, below.path + PATH):
        reply = below.request("GET", path)
        assert (reply.status_code, is_document(reply)) == (404, False)


def test_a_site_in_a_folder_is_told_that_wallets_find_no_document(below):
    below.set_record(record("alice"))
    wanted = OTHER_STATUS.replace("%1$s", f"https://{below.host}{PATH}").replace("%2$d", "404") + " " + LET_IT_THROUGH
    assert health(below) == ("critical", NAMES_BAD, wanted)


def test_a_site_in_a_folder_answers_the_document_that_the_server_hands_to_it(below):
    assert below.request("GET", PATH, host=HANDED).text == document(f"https://{HANDED}/blog")


def test_wallets_find_the_names_of_a_site_in_a_folder_then(below):
    published = below.send("POST", below.name_members(), host=HANDED).json()
    assert published["paymail"] == f"alice@{HANDED}"
    found = ask("bsv_paymail", published["paymail"])
    assert (found["handle"], found["pubkey"], found["output"]) == (published["paymail"], PUBKEY, SCRIPT)
    assert health(below, host=HANDED) == ("good", NAMES_GOOD, RIGHT_ANSWERS % published["paymail"])


@pytest.fixture
def file_at_the_root(below):
    """The site's document, put by hand where the server looks for the files of its root."""
    file = below.content.parent / "web" / PATH[1:]
    file.parent.mkdir()
    file.write_text(document(f"https://{below.host}/blog"))
    yield
    file.unlink()
    file.parent.rmdir()


def test_wallets_find_the_names_of_a_site_in_a_folder_by_a_file_at_the_root_too(below, file_at_the_root):
    below.set_record(record("alice"))
    found = ask("bsv_paymail", f"alice@{below.host}")
    assert (found["handle"], found["pubkey"], found["output"]) == (f"alice@{below.host}", PUBKEY, SCRIPT)
    assert health(below) == ("good", NAMES_GOOD, RIGHT_ANSWERS % f"alice@{below.host}")
