"""What is inside the executable, as the linker and the compiler tell: what gave it code or data, by the link map, and
the headers that were read for it, by the build's own record."""
import os
import pathlib
import re
import subprocess

# A section of an input file in the map: where, how long, out of which file. What the build made itself has a path that
# is relative; everything else is a work of others.
CONTRIBUTION = re.compile(r"^ \S* +0x[0-9a-f]+ +0x([0-9a-f]+) (/.*?)(\([^()]*\))?$")


def linked_in(link_map):
    """Everything from outside that gave the executable at least a byte: "archive(member)", or an object. The import
    libraries that the build makes of its own lists are not from outside."""
    found, own = set(), os.path.dirname(os.path.dirname(os.path.abspath(link_map))) + "/delay_imports/"
    _, _, memory_map = pathlib.Path(link_map).read_text(encoding="utf-8").partition("\nLinker script and memory map\n")
    for line in memory_map.splitlines():
        part = CONTRIBUTION.match(line)
        if part and int(part[1], 16) > 0:
            found.add(os.path.normpath(part[2]) + (part[3] or ""))
    return {name for name in found if not name.startswith(own)}


def headers_read(build):
    """The headers from outside, absolute paths, that the compiler read for the program's own sources; and the lists in
    the tree (.inc) that it read, which are others' works as well."""
    record = subprocess.run(["ninja", "-C", build, "-t", "deps"], check=True, capture_output=True, text=True).stdout
    source = os.path.dirname(os.path.dirname(os.path.abspath(build)))
    found = set()
    for block in record.split("\n\n"):
        target, *files = block.strip("\n").split("\n")
        if target.startswith("src/") and target.endswith("(VALID)"):
            found.update(os.path.abspath(os.path.join(build, name.strip())) for name in files)
    own = (f"{source}/src/", f"{source}/build/")
    return {name for name in found if name.endswith(".inc") or not name.startswith(own)}
