"""Every C++ file stands as .clang-format says; every text file ends in one line feed and has no trailing blanks.
The corpora of the fuzz targets are bytes, also where they look like text."""
import pathlib
import subprocess

ROOT = pathlib.Path(__file__).resolve().parents[2]
CORPORA = ROOT / "tests" / "fuzz" / "corpus"


def tracked(*patterns):
    listed = subprocess.run(
        ["git", "-C", ROOT, "ls-files", "-z", "--cached", "--others", "--exclude-standard", *patterns],
        check=True, capture_output=True,
    ).stdout.decode()
    return [ROOT / name for name in listed.split("\0") if name and (ROOT / name).is_file()]


def test_cpp_files_are_formatted():
    result = subprocess.run(
        ["clang-format", "--dry-run", "-Werror", *tracked("*.cpp", "*.h")], capture_output=True, text=True, check=False
    )
    assert result.returncode == 0, result.stderr


def test_text_files_are_tidy():
    wrong = []
    for path in tracked():
        if path.is_relative_to(CORPORA):
            continue
        data = path.read_bytes()
        if b"\0" in data or path.suffix in (".ico", ".png"):
            continue
        if data and not data.endswith(b"\n") or data.endswith(b"\n\n"):
            wrong.append(f"{path.relative_to(ROOT)}: end of file")
        if any(line.endswith((b" ", b"\t", b"\r")) for line in data.split(b"\n")):
            wrong.append(f"{path.relative_to(ROOT)}: trailing blanks")
    assert wrong == []
