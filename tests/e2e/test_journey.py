"""The first-time user's whole road, and the one of a user whose site has an older plugin."""
import pathlib

import pytest

import desk
import journey
import site_world
from browser import browser


@pytest.fixture
def new_pc(tmp_path, zone):
    """A PC on which the program has never run, beside a wallet application; a site without the plugin."""
    site_world.set_zone(*zone)
    site_world.remove_plugin(journey.HOST)
    site_world.forget_names(journey.HOST)
    site_world.forget_payments(journey.HOST)
    site_world.forget_app_passwords(journey.HOST)
    desk.clear_data_directory()
    desk.forget_opened_pages()
    with journey.wallet_application_beside(tmp_path) as folder:
        yield folder
    site_world.activate_plugin(journey.HOST, desk.EXE)
    site_world.forget_payments(journey.HOST)


def test_a_first_time_user_comes_from_nothing_to_names_that_resolve_and_are_paid(new_pc):
    with browser() as page:
        road = journey.Journey(desk.PICTURES / "journey")
        journey.first_journey(road, page, new_pc)
        journey.journey_of_the_payers(road, page, new_pc)


def test_an_older_plugin_is_uploaded_over(new_pc):
    site_world.activate_plugin_file(journey.HOST, pathlib.Path(__file__).parent / "older_plugin.php")
    with browser() as page:
        road = journey.Journey(desk.PICTURES / "journey-over-an-older-plugin")
        journey.journey_over_an_older_plugin(road, page, new_pc)
