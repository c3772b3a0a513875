import pathlib

import pytest

import desk
import site_world


HOST = "brasslet.test"


@pytest.fixture(scope="session")
def plugin():
    """The plugin out of the executable, active in both WordPress."""
    for host in (HOST, "newer.brasslet.test"):
        site_world.activate_plugin(host, desk.EXE)


@pytest.fixture(scope="session")
def zone():
    """The records that every test starts with."""
    return pathlib.Path(site_world.WORLD / "zone").read_text(encoding="utf-8").splitlines()


@pytest.fixture
def user(plugin, zone):
    """A user who has it all: a fresh site without names, one wallet, the login in the settings."""
    for host in (HOST, "newer.brasslet.test"):
        site_world.forget_names(host)
    site_world.set_zone(*zone)
    desk.clear_data_directory()
    desk.forget_opened_pages()
    desk.put_wallet()
    password = site_world.app_password(HOST)
    desk.put_settings(f"https://{HOST}", "owner", password)
    return password
