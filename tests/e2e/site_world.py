"""The user's WordPress in the test world, and what any paying client sees of it."""
import contextlib
import os
import pathlib
import subprocess

import pefile
import requests

WORLD = pathlib.Path(__file__).resolve().parents[1] / "world"
RT_RCDATA, PLUGIN_ID = 10, 2


def plugin_in(exe: pathlib.Path) -> bytes:
    """The plugin's text, out of the executable's own resource."""
    image = pefile.PE(exe)
    for kind in image.DIRECTORY_ENTRY_RESOURCE.entries:
        if kind.id == RT_RCDATA:
            for entry in kind.directory.entries:
                if entry.id == PLUGIN_ID:
                    data = entry.directory.entries[0].data.struct
                    return image.get_data(data.OffsetToData, data.Size)
    raise LookupError("the executable carries no plugin")


def activate_plugin_file(host: str, path: pathlib.Path) -> None:
    subprocess.run([WORLD / "install_plugin", host, path], check=True, stdout=subprocess.DEVNULL, timeout=60)


def activate_plugin(host: str, exe: pathlib.Path) -> None:
    path = pathlib.Path(os.environ["WORLD_DIR"]) / "brasslet.php"
    path.write_bytes(plugin_in(exe))
    activate_plugin_file(host, path)


def run_php(host: str, code: str) -> str:
    done = subprocess.run([WORLD / "wp", host, code], check=True, capture_output=True, text=True, timeout=60)
    return done.stdout


@contextlib.contextmanager
def troubled_by(code: str):
    """The WordPress of brasslet.test runs these lines of PHP for a while, before its plugins."""
    plugin = pathlib.Path(os.environ["WORLD_DIR"]) / "sites/stable/content/mu-plugins/trouble.php"
    plugin.parent.mkdir(exist_ok=True)
    plugin.write_text(f"<?php {code}\n")
    try:
        yield
    finally:
        plugin.unlink()


def own_address(url: str):
    """The WordPress of brasslet.test believes for a while that its own address is this one."""
    return troubled_by(f"add_filter( 'option_home', function () {{ return '{url}'; }}, 99 );")


def remove_plugin(host: str) -> None:
    """As its owner removes it in WordPress: deactivated, then deleted. What the plugin keeps stays."""
    run_php(host, """
        require_once ABSPATH . 'wp-admin/includes/plugin.php';
        require_once ABSPATH . 'wp-admin/includes/file.php';
        deactivate_plugins('brasslet/brasslet.php');
        delete_plugins(['brasslet/brasslet.php']);""")


@contextlib.contextmanager
def without_plugin(host: str, exe: pathlib.Path):
    remove_plugin(host)
    try:
        yield
    finally:
        activate_plugin(host, exe)


@contextlib.contextmanager
def makers_page(text: str):
    """The page that the program looks for a newer build on."""
    page = pathlib.Path(os.environ["WORLD_DIR"]) / "makers_page/brasslet"
    page.write_text(text, encoding="utf-8")
    try:
        yield
    finally:
        page.unlink()


def forget_names(host: str) -> None:
    run_php(host, "delete_option('brasslet_record');")


def forget_payments(host: str) -> None:
    """As if the owner of the site had never switched them on."""
    run_php(host, "delete_option('brasslet_payments'); delete_option('brasslet_broadcaster_key');")


def change_name(host: str, member: str, value: str) -> None:
    """Behind the program's back, in the first name's row."""
    run_php(host, f"""
        $record = get_option('brasslet_record');
        $record['rows'][0]['{member}'] = '{value}';
        update_option('brasslet_record', $record);""")


def app_password(host: str, user: str = "owner") -> str:
    done = subprocess.run([WORLD / "app_password", host, user], check=True, capture_output=True, text=True, timeout=60)
    return done.stdout.strip()


def forget_app_passwords(host: str, user: str = "owner") -> None:
    run_php(host, f"WP_Application_Passwords::delete_all_application_passwords(get_user_by('login', '{user}')->ID);")


def get(url: str, **options) -> requests.Response:
    return requests.get(url, verify=os.environ["WORLD_CA"], timeout=30, **options)


def capabilities(host: str) -> dict:
    return get(f"https://{host}/.well-known/bsvalias").json()["capabilities"]


def set_zone(*lines: str) -> None:
    """Replaces the name server's records; see the zone file's first lines."""
    pathlib.Path(os.environ["WORLD_ZONE"]).write_text("".join(line + "\n" for line in lines), encoding="utf-8")
