"""What Debian says about its packages: which version is installed, and from which sources it was built."""
import pathlib
import subprocess
import urllib.parse


def release():
    """The code name of the Debian release, such as "bookworm"."""
    lines = pathlib.Path("/etc/os-release").read_text(encoding="utf-8").splitlines()
    return next(line.split("=")[1] for line in lines if line.startswith("VERSION_CODENAME="))


def installed(package):
    """Version, architecture and source of an installed package."""
    asked = "${Version}\n${Architecture}\n${source:Package} ${source:Version}\n${Built-Using}"
    answer = subprocess.run(["dpkg-query", "-W", "-f", asked, package], check=True, capture_output=True, text=True)
    version, architecture, source, built_using = answer.stdout.split("\n")
    return version, architecture, source + (f", built using {built_using}" if built_using else "")


def cross_built(prefix):
    """The versions of the source packages that the cross-built libraries were made from, by the packages' names."""
    made_from = pathlib.Path(prefix, "made-from").read_text(encoding="utf-8").strip()
    versions = dict(entry.split(" ") for entry in made_from.split(", "))
    versions["nlohmann-json3"] = versions.pop("json")
    return versions


def patches_of(package, prefix):
    """The names of Debian's patches that a cross-built library was built with, in their order."""
    path = pathlib.Path(prefix, "share/patches", package)
    return tuple(path.read_text(encoding="utf-8").split()) if path.exists() else ()


def package_url(package, version, architecture):
    name, version = urllib.parse.quote(package, safe=""), urllib.parse.quote(version, safe="")
    return f"pkg:deb/debian/{name}@{version}?arch={architecture}&distro={release()}"


def source_page(package):
    return f"https://packages.debian.org/source/{release()}/{package}"
