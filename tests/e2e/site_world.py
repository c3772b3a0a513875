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


def activate_plugin(host: str, exe: pathlib.Path) -> None:
    path = pathlib.Path(os.environ["WORLD_DIR"]) / "brasslet.php"
    path.write_bytes(plugin_in(exe))
    subprocess.run([WORLD / "install_plugin", host, path], check=True, stdout=subprocess.DEVNULL, timeout=60)


def run_php(host: str, code: str) -> str:
    done = subprocess.run([WORLD / "wp", host, code], check=True, capture_output=True, text=True, timeout=60)
    return done.stdout


@contextlib.contextmanager
def own_address(url: str):
    """The WordPress of brasslet.test believes for a while that its own address is this one."""
    plugin = pathlib.Path(os.environ["WORLD_DIR"]) / "sites/stable/content/mu-plugins/own_address.php"
    plugin.parent.mkdir(exist_ok=True)
    plugin.write_text(f"<?php add_filter( 'option_home', function () {{ return '{url}'; }}, 99 );\n")
    try:
        yield
    finally:
        plugin.unlink()


def forget_names(host: str) -> None:
    run_php(host, "delete_option('brasslet_record');")


def app_password(host: str, user: str = "owner") -> str:
    done = subprocess.run([WORLD / "app_password", host, user], check=True, capture_output=True, text=True, timeout=60)
    return done.stdout.strip()


def get(url: str, **options) -> requests.Response:
    return requests.get(url, verify=os.environ["WORLD_CA"], timeout=30, **options)


def capabilities(host: str) -> dict:
    return get(f"https://{host}/.well-known/bsvalias").json()["capabilities"]


def set_zone(*lines: str) -> None:
    """Replaces the name server's records; see the zone file's first lines."""
    pathlib.Path(os.environ["WORLD_ZONE"]).write_text("".join(line + "\n" for line in lines), encoding="utf-8")
