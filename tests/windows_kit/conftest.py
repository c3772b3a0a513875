"""An unpacked kit for the tests beside this file."""
import pytest

import unpacked


@pytest.fixture(scope="session")
def kit(tmp_path_factory):
    return unpacked.unpack(tmp_path_factory.mktemp("kit"))
