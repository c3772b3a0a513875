"""What a build was configured with."""
import pathlib
import re


def cached(build, name):
    """The value of a variable in the build's CMake cache."""
    cache = pathlib.Path(build, "CMakeCache.txt").read_text(encoding="utf-8")
    return re.search(rf"^{name}:\w+=(.*)$", cache, re.MULTILINE)[1]
