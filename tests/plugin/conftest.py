"""Every test of a site runs against an old and a new WordPress, and finds it without a record."""

import contextlib
import os
from pathlib import Path

import pytest

from broadcaster import listening
from wordpress import WORLD_DIR, Site

PROJECT = Path(__file__).parents[2]

SITES = {"stable": "brasslet.test", "newer": "newer.brasslet.test"}
if os.environ.get("WORLD_WORDPRESS"):
    del SITES["newer"]


@pytest.fixture(scope="session")
def plugin_file():
    """The plugin as the build wrote it; $BRASSLET_PLUGIN names another one."""
    named = os.environ.get("BRASSLET_PLUGIN")
    if named:
        return Path(named)
    built = [PROJECT / "build" / preset / "generated" / "brasslet.php" for preset in ("host", "windows")]
    for path in built:
        if path.exists():
            return path
    pytest.fail("The plugin is not built: run cmake --preset host first.", pytrace=False)


@pytest.fixture(scope="session")
def sites(plugin_file):
    if not WORLD_DIR.exists():
        pytest.fail("Run these tests in the test world: tests/world/up --no-desktop -- ...", pytrace=False)
    opened = {name: Site(name, host, plugin_file) for name, host in SITES.items()}
    yield opened
    for site in opened.values():
        site.close()


@contextlib.contextmanager
def fresh(*found):
    """These sites without a record; in the end PHP has complained about nothing in the plugin."""
    for site in found:
        site.reset()
    log = WORLD_DIR / "logs" / "php.log"
    logged = log.stat().st_size
    yield
    for site in found:
        site.hook("")
    with log.open("rb") as complaints:
        complaints.seek(logged)
        assert b"brasslet.php" not in complaints.read()


@pytest.fixture(params=SITES)
def site(request, sites):
    with fresh(sites[request.param]):
        yield sites[request.param]


@pytest.fixture
def broadcaster():
    with listening() as found:
        yield found
