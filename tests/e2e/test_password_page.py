"""The shorter road to an application password: the hint in the settings opens WordPress' own page for it."""
import pytest

import desk
import site_world
from browser import browser
from journey import fill

AUTHORIZE = "/wp-admin/authorize-application.php?app_name=Brasslet"


@pytest.mark.parametrize("host", ["brasslet.test", "newer.brasslet.test"])
def test_the_password_that_the_page_shows_publishes_a_name(user, host):
    site_world.forget_app_passwords(host)
    desk.put_settings(host, "owner", "")
    with browser() as page, desk.running_program():
        desk.click(desk.SETTINGS)
        desk.drive("wait-text", desk.CLOSE_SETTINGS, "Close")
        desk.click(desk.HINT)
        assert desk.asked_page() == f"https://{host}{AUTHORIZE}"
        page.log_in(f"https://{host}", "owner", "owner")
        password = page.approve_application(desk.asked_page())
        assert [len(group) for group in password.split(" ")] == [4] * 6
        fill(desk.PASSWORD, password)
        desk.click(desk.CLOSE_SETTINGS)
        assert desk.publish("alice") == f"Vaultry kept alice@{host}."
    names = site_world.run_php(host, """
        $user = get_user_by('login', 'owner');
        echo implode(',', array_column(WP_Application_Passwords::get_user_application_passwords($user->ID), 'name'));""")
    assert names == "Brasslet"


def test_without_a_site_nothing_opens(user):
    desk.put_settings("", "owner", "")
    with desk.running_program():
        desk.click(desk.SETTINGS)
        desk.drive("wait-text", desk.CLOSE_SETTINGS, "Close")
        desk.click(desk.HINT)
        desk.drive("wait-text", desk.STATUS, "Type the site first. It needs https.")
    assert desk.opened_pages() == []


def test_where_application_passwords_are_off_the_plugin_says_what_the_page_does_not(user):
    off = "add_filter( 'wp_is_application_passwords_available', '__return_false', 99 );"
    with site_world.troubled_by(off), browser() as page:
        page.log_in("https://brasslet.test", "owner", "owner")
        page.open(f"https://brasslet.test{AUTHORIZE}")
        assert page.shows("Application passwords are not available")
        page.open("https://brasslet.test/wp-admin/plugins.php")
        page.wait_for_text("Application passwords are switched off, and Brasslet needs one to publish.")
