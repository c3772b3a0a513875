"""The text of NOTICES.txt: whose works are inside the executable, and what their licences ask to be passed on."""

RULE = "=" * 78
HEAD = """Notices for Brasslet {version}

Brasslet.exe contains the works of others that are named here. The texts of
their licences follow, each once, under the name that is given with the work.
"""


def work(entry, prefix):
    component = entry.component
    licences = " AND ".join(licence.name for licence in component.licences)
    lines = [
        f"{component.name} {entry.version}".rstrip(),
        f"    {component.purpose}",
        f"    Home: {component.home}",
        f"    Debian source package: {entry.source}",
        f"    Licence: {licences}",
    ]
    lines += [f"    Built here with Debian's patches: {len(entry.patches)}"] if entry.patches else []
    lines += [f"    {component.remark}"] if component.remark else []
    lines += ["    " + line.strip() for line in component.holders(prefix).split("\n") if line.strip()]
    return "\n".join(lines) + "\n"


def notices(version, entries, prefix):
    parts = [HEAD.format(version=version)] + [work(entry, prefix) for entry in entries]
    for licence in dict.fromkeys(licence for entry in entries for licence in entry.component.licences):
        texts = "\n\n\n".join(read(prefix) for read in licence.texts)
        parts.append(f"{RULE}\n{licence.name}\n{RULE}\n\n{texts}\n")
    return "\n".join(parts)
