"""Install plugin, through the window: what the button says, and the zip that it leaves for WordPress' own upload page."""
import hashlib
import pathlib
import subprocess
import zipfile

import pytest

import desk
import site_world

HOST = "brasslet.test"
UPLOAD = "Brasslet.zip is selected in the folder that opened. Upload it, activate it, then press Install plugin again."
UPLOAD_OVER = (
    "Brasslet.zip is selected in the folder that opened. Upload it over the plugin already there. "
    "This one sends the login in the form."
)


def zip_file() -> pathlib.Path:
    return desk.data_directory() / "payname/brasslet.zip"


@pytest.fixture(autouse=True)
def no_explorer_stays_open():
    yield
    desk.drive("close-folder", "payname")
    desk.drive("close-folder", "Corvane")


@pytest.fixture
def bare_site(user):
    with site_world.without_plugin(HOST, desk.EXE):
        yield


def test_the_plugin_is_on_the_site(user):
    with desk.running_program():
        assert desk.press(desk.INSTALL) == "Plugin is on the site."
    assert not zip_file().exists()


def test_a_site_without_the_plugin_gets_the_zip(bare_site):
    with desk.running_program():
        assert desk.press(desk.INSTALL) == UPLOAD
        assert desk.asked_page() == f"https://{HOST}/wp-admin/plugin-install.php?tab=upload"
    with zipfile.ZipFile(zip_file()) as package:
        assert package.namelist() == ["brasslet/brasslet.php"]
        assert package.read("brasslet/brasslet.php") == site_world.plugin_in(desk.EXE)


def test_the_folder_of_the_zip_opens(bare_site):
    with desk.running_program():
        desk.press(desk.INSTALL)
        assert desk.wait_until(lambda: desk.explorers_in(r"\Corvane\payname"))


def test_explorer_is_started_when_the_shell_does_not_know_the_file(user):
    path = desk.data_directory() / "absent.zip"
    subprocess.run(["wine", desk.TOOLS / "show_in_explorer.exe", f"Z:{path}"], check=True, timeout=60)
    assert desk.wait_until(lambda: desk.explorers_in("/select,Z:" + str(path).replace("/", "\\")))


def test_an_older_plugin_is_to_be_uploaded_over(bare_site):
    site_world.activate_plugin_file(HOST, pathlib.Path(__file__).parent / "older_plugin.php")
    with desk.running_program():
        assert desk.press(desk.INSTALL) == UPLOAD_OVER
        assert desk.asked_page() == f"https://{HOST}/wp-admin/plugin-install.php?tab=upload"


@pytest.mark.parametrize("site", ["", "http://brasslet.test", "brasslet.test:8443"])
def test_without_a_site_there_is_nothing_to_ask(user, site):
    desk.put_settings(site, "owner", user)
    with desk.running_program():
        assert desk.press(desk.INSTALL) == "Add the site in settings."
    assert not zip_file().exists()


def test_a_site_that_is_down_gets_the_zip_all_the_same(user):
    desk.put_settings("dead.brasslet.test", "owner", user)
    with desk.running_program():
        assert desk.press(desk.INSTALL) == UPLOAD


def test_a_zip_that_cannot_be_written_is_said(bare_site):
    zip_file().mkdir(parents=True)
    with desk.running_program():
        assert desk.press(desk.INSTALL) == "Could not write the plugin."
    assert zip_file().is_dir()


def test_every_tool_reads_the_zip(bare_site):
    with desk.running_program():
        desk.press(desk.INSTALL)
    path, size = zip_file(), len(site_world.plugin_in(desk.EXE))
    assert path.stat().st_size == size + 140
    assert run("unzip", "-t", path).count("OK") == 1
    listed = run("zipinfo", "-v", path)
    for fact in ("brasslet/brasslet.php", "compression method:                             none (stored)",
                 f"uncompressed size:                              {size} bytes", "file last modified on (DOS date/time):          1980 000 0 00:00:00"):
        assert fact in listed, listed
    digest = hashlib.md5(site_world.plugin_in(desk.EXE)).hexdigest()
    php = f"""$zip = new ZipArchive(); var_dump($zip->open('{path}', ZipArchive::CHECKCONS)); echo $zip->numFiles,
        ' ', $zip->getNameIndex(0), ' ', md5($zip->getFromIndex(0));"""
    assert run("php", "-r", php) == f"bool(true)\n1 brasslet/brasslet.php {digest}"


def run(*words) -> str:
    return subprocess.run(list(map(str, words)), check=True, capture_output=True, text=True, timeout=60).stdout
