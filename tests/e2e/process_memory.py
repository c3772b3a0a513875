"""The whole memory of another process, read from outside: every page that it has written to and not given back. What it
has only read from program files cannot hold anything of its own."""
import pathlib
import re

CHUNK = 16 * 1024 * 1024

# Most of it is zero, which is shortened before the search: far longer than any run of zeros in what is searched for.
SHORT = 1024
LONG_EMPTINESS = re.compile(b"\0{%d,}" % SHORT)


def process_of(program: str) -> int:
    """The one Windows process that has the program's file mapped; who only reads the file may have it mapped too."""
    found = []
    for folder in pathlib.Path("/proc").glob("[0-9]*"):
        try:
            maps = (folder / "maps").read_text(errors="replace")
            if f"/{program}\n" in maps and "/ntdll.so\n" in maps:
                found.append(int(folder.name))
        except OSError:
            continue  # it has ended, or is the kernel's own
    assert len(found) == 1, f"{program} runs {len(found)} times"
    return found[0]


def _written_regions(process: int):
    """Address ranges that hold such pages, readable to the process itself or not."""
    region, kind = None, ""
    for line in pathlib.Path(f"/proc/{process}/smaps").read_text(errors="replace").splitlines():
        if header := re.match(r"([0-9a-f]+)-([0-9a-f]+) \S+ \S+ \S+ \S+\s*(.*)", line):
            region, kind = (int(header[1], 16), int(header[2], 16)), header[3]
        elif size := re.match(r"(Shared_Dirty|Private_Dirty|Anonymous|Swap): +([0-9]+) kB", line):
            if int(size[2]) > 0 and region is not None and not kind.startswith("[v"):
                yield region
                region = None


def find(process: int, forms: dict[str, list[bytes]]) -> set[str]:
    """The names of which any form stands in the process's memory."""
    overlap = max(len(form) for all_forms in forms.values() for form in all_forms) - 1
    found, searched = set(), 0
    with open(f"/proc/{process}/mem", "rb", buffering=0) as memory:
        for start, end in _written_regions(process):
            for address in range(start, end, CHUNK):
                try:
                    memory.seek(address)
                    data = memory.read(min(CHUNK + overlap, end - address))
                except OSError:
                    continue  # a device's memory
                searched += len(data)
                data = LONG_EMPTINESS.sub(bytes(SHORT), data)
                found.update(name for name, all_forms in forms.items()
                             if name not in found and any(form in data for form in all_forms))
    assert searched > 1024 * 1024, "the process's memory could not be read"
    return found
