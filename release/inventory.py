"""The bill of what is inside one built executable: each work of others with its version and the files that it gave."""
import dataclasses
import hashlib
import pathlib
import re

import debian
from build_cache import cached
from components import COMPONENTS, Component
from linked import headers_read, linked_in


class Unknown(Exception):
    """Something is linked in of which the table of components knows nothing."""


@dataclasses.dataclass(frozen=True)
class Entry:
    component: Component
    version: str  # Debian's; empty for data
    origin: str  # package URL; empty for data
    source: str  # the source package and its version
    source_page: str
    archives: tuple[str, ...]  # names of the archives and objects that gave something, in their order
    patches: tuple[str, ...] = ()  # names of Debian's patches, where they were applied here
    digest: str = ""  # of data: SHA-256, hexadecimal


def prefix_of(build):
    """The folder of the cross-built libraries that a build took."""
    return cached(build, "BRASSLET_DEPS")


def data_entry(component, path):
    """Of a list of words in C++'s form; its digest is that of the words, each with a line feed."""
    words = re.findall(r'"([^"]*)"', pathlib.Path(path).read_text(encoding="utf-8"))
    return Entry(
        component=component,
        version="",
        origin="",
        source=component.package,
        source_page=debian.source_page(component.package),
        archives=(),
        digest=hashlib.sha256("".join(f"{word}\n" for word in words).encode()).hexdigest(),
    )


def entry_of(component, files, prefix):
    if component.is_data:
        return data_entry(component, *files)
    if component.cross_built:
        version, architecture = debian.cross_built(prefix)[component.package], "source"
        source = f"{component.package} {version}"
    else:
        version, architecture, source = debian.installed(component.package)
    paths = {pathlib.Path(name.partition("(")[0]) for name in files}
    return Entry(
        component=component,
        version=version,
        origin=debian.package_url(component.package, version, architecture),
        source=source,
        source_page=debian.source_page(source.split(" ")[0]),
        archives=tuple(sorted(path.name for path in paths if path.suffix in (".a", ".o"))),
        patches=debian.patches_of(component.package, prefix) if component.cross_built else (),
    )


def inventory(build):
    """The entries in the order of the table, without those of which nothing is inside."""
    files = {component: [] for component in COMPONENTS}
    for name in linked_in(pathlib.Path(build, "src/Brasslet.map")) | headers_read(build):
        owner = next((component for component in COMPONENTS if component.gave(name)), None)
        if owner is None:
            raise Unknown(f"{name} is linked in, but release/components.py does not know whose it is")
        files[owner].append(name)
    prefix = prefix_of(build)
    return [entry_of(component, names, prefix) for component, names in files.items() if names]
