"""Passages of the files in which others say what they hold the rights in and what they allow. Each function gives a
reader; a reader takes the folder of the cross-built libraries, to which a path that is not absolute belongs."""
import pathlib


def paragraphs(text):
    """The paragraphs of a Debian copyright file, each a dictionary of its fields."""
    found = []
    for block in text.split("\n\n"):
        fields, name = {}, None
        for line in block.strip("\n").split("\n"):
            if line[:1] in (" ", "\t"):
                fields[name] += "\n" + ("" if line.strip() == "." else line.strip("\t")[1:])
            elif line:
                name, _, value = line.partition(":")
                fields[name] = value.strip()
        if fields:
            found.append(fields)
    return found


def whole(path):
    """All of the file."""
    return lambda prefix: pathlib.Path(prefix, path).read_text(encoding="utf-8").strip("\n")


def passage(path, first, last):
    """From the text `first` to the next `last`, both included, without the marks of a comment."""

    def read(prefix):
        text = pathlib.Path(prefix, path).read_text(encoding="utf-8")
        start = text.index(first)
        end = text.index(last, start) + len(last)
        lines = text[start:end].removesuffix("*/").rstrip().split("\n")
        if any(line.startswith(" *") for line in lines):
            lines = [line.removeprefix(" *").removeprefix(" ") for line in lines]
        return "\n".join(line.rstrip() for line in lines)

    return read


def licence_paragraph(path, short_name):
    """The text that a Debian copyright file gives for the licence of that short name."""

    def read(prefix):
        for fields in paragraphs(pathlib.Path(prefix, path).read_text(encoding="utf-8")):
            name, _, text = fields.get("License", "").partition("\n")
            if name == short_name and text:
                return text
        raise LookupError(f"{path} has no text of {short_name}")

    return read


def holders(path, *files):
    """Who holds the rights in the files of which an entry in a Debian copyright file begins so, a line each."""

    def read(prefix):
        lines = []
        for fields in paragraphs(pathlib.Path(prefix, path).read_text(encoding="utf-8")):
            if any(name.startswith(files) for name in fields.get("Files", "").split()):
                lines += [line.strip() for line in fields["Copyright"].split("\n")]
        return "\n".join(dict.fromkeys("Copyright " + line for line in lines if line != "public-domain"))

    return read
