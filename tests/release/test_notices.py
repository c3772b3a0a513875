"""NOTICES.txt passes on what the licences of everything that is linked in ask to be passed on."""
import re

import pytest
from released import bill, licence_names, text

RULE = "=" * 78

# A sentence that stands in the licence's own text and in no other's, and how the text ends; before it, how a part ends.
TEXTS = {
    "Apache-2.0": ("TERMS AND CONDITIONS FOR USE, REPRODUCTION, AND DISTRIBUTION", "END OF TERMS AND CONDITIONS"),
    "curl": ("Copyright (c) 1996 - 2023, Daniel Stenberg", "written authorization of the copyright holder."),
    "MIT": ("Permission is hereby granted, free of charge, to any person obtaining a copy", "SOFTWARE."),
    "GPL-2.0-or-later WITH GCC-exception-2.0": (
        "unlimited permission to link the", "executable.)", "Public License instead of this License."),
    "GPL-3.0-or-later WITH GCC-exception-3.1": (
        "Version 3.1, 31 March 2009", "requirements of the license of GCC.", "why-not-lgpl.html>."),
    "LicenseRef-SGI-STL": ("Silicon Graphics Computer Systems, Inc.", "express or implied warranty."),
    "ZPL-2.1": ("Servicemarks (sm) or", "POSSIBILITY OF SUCH DAMAGE."),
    "LicenseRef-Lucent": ("LUCENT DISCLAIMS ALL WARRANTIES", "THIS SOFTWARE."),
    "LicenseRef-David-Gay": ("THE AUTHOR DISCLAIMS ALL WARRANTIES", "OF THIS SOFTWARE."),
    "LicenseRef-Keith-Marshall": ("without restriction of copyright.", "use of this software."),
    "LicenseRef-public-domain": ("no copyright assigned and is placed in the Public", "Domain."),
    "BSD-3-Clause": ("Neither the name of Lockless Inc.", "POSSIBILITY OF SUCH DAMAGE."),
    "LGPL-2.1-or-later": ("Version 2.1, February 1999", "That's all there is to it!"),
    "LicenseRef-GPL-2.0-or-later-with-include-exception": ("if you include this header file", "Public License."),
}

COMPONENTS = bill()["components"]
NAMES = sorted({name for component in COMPONENTS for name in licence_names(component)})


def sections():
    """The licences' texts by their names."""
    parts = text("NOTICES.txt").split(f"{RULE}\n")
    return dict(zip((name.strip() for name in parts[1::2]), parts[2::2], strict=True))


def test_it_has_a_text_for_every_licence_and_for_no_other():
    assert sorted(sections()) == NAMES


@pytest.mark.parametrize("name", NAMES)
def test_the_text_is_the_licence_s_own(name):
    sentence, *ends = TEXTS[name]
    assert [other for other, body in sections().items() if sentence in body] == [name]
    assert [end for end in ends if not re.search(re.escape(end) + "$", sections()[name], re.MULTILINE)] == []
    assert sections()[name].rstrip().endswith(ends[-1])
    assert not re.search(r"^ (\.|\*)$", sections()[name], re.MULTILINE), "marks of the file that it was taken from"


@pytest.mark.parametrize("component", COMPONENTS, ids=lambda component: component["name"])
def test_every_work_is_named_with_its_holders_and_licences(component):
    headline = " ".join([component["name"], *([component["version"]] if "version" in component else [])])
    (entry,) = re.findall(
        rf"^{re.escape(headline)}\n(?:    .*\n)+", text("NOTICES.txt"), re.M)
    assert f"    Licence: {' AND '.join(licence_names(component))}\n" in entry
    lines = [line for line in component["copyright"].split("\n") if line]
    assert lines and "opyright" in lines[0]
    assert "".join(f"    {line}\n" for line in lines) in entry
