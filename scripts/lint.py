"""Checks the C++ sources with clang-tidy: lint.py RESULT.xml [NAME...] checks those whose paths one of these regular
expressions matches, or all, and writes the results as JUnit XML. Exit status 0 only when nothing was found.

Both builds are configured before, and are left as they are: each source is checked as its build compiles it. The native
build has the portable sources, the other one those that need Windows and those with parts for either.

A source that passed is not checked again as long as it is compiled in the same way, from files with the same bytes, by
the same clang-tidy with the same .clang-tidy (build/lint keeps what that was). One that failed is.
"""
import concurrent.futures
import functools
import hashlib
import json
import os
import pathlib
import re
import shlex
import subprocess
import sys
import xml.etree.ElementTree as ElementTree

ROOT = pathlib.Path(__file__).resolve().parents[1]
PASSED = ROOT / "build/lint"
LEFT_OUT = {
    ROOT / "tests/e2e/planted/planted.cpp",  # decoys of libraries, whose functions have others' names
    ROOT / "tests/fuzz/libfuzzer_main.cpp",  # of a build that only scripts/fuzz makes
}
TIDY = ["clang-tidy", "--quiet", "--extra-arg=-fsized-deallocation"]


def commands(preset: str) -> dict:
    """How the build compiles each source of the project; of several commands for one source the last."""
    entries = json.loads((ROOT / f"build/{preset}/compile_commands.json").read_text(encoding="utf-8"))
    found = {pathlib.Path(entry["file"]): entry for entry in entries if entry["file"].endswith(".cpp")}
    return {path: entry for path, entry in found.items()
            if path.is_relative_to(ROOT / "src") or path.is_relative_to(ROOT / "tests")}


def has_parts_for_windows(path: pathlib.Path) -> bool:
    return "_WIN32" in path.read_text(encoding="utf-8")



def checks() -> list:
    """(source, preset, command) of all that there is to check."""
    native, windows = commands("host"), commands("windows")
    return sorted(
        [(path, "host", entry["command"]) for path, entry in native.items()]
        + [(path, "windows", entry["command"]) for path, entry in windows.items()
           if path not in LEFT_OUT and (path not in native or has_parts_for_windows(path))])


def forgotten(checked: set) -> list:
    """The sources that neither build compiles, so that nobody checks them."""
    listed = subprocess.run(["git", "-C", ROOT, "ls-files", "-z", "--cached", "--others", "--exclude-standard", "*.cpp"],
                            capture_output=True, check=True).stdout.decode().split("\0")
    sources = {ROOT / name for name in listed if name and (ROOT / name).exists()}
    return sorted(sources - checked - LEFT_OUT)


@functools.cache
def folders_of_libstdcxx(compiler: str) -> list:
    """Where the cross compiler has the headers of the C++ library, which clang does not find by itself."""
    said = subprocess.run([compiler, "-E", "-x", "c++", "-v", os.devnull], capture_output=True, text=True, check=True).stderr
    listed = said.split("search starts here:")[-1].split("End of search list")[0].split()
    return [os.path.normpath(folder) for folder in listed if "c++" in folder]


def tidy_command(path: pathlib.Path, preset: str, command: str) -> list:
    more = []
    if preset == "windows":
        folders = folders_of_libstdcxx(shlex.split(command)[0])
        more = ["--extra-arg=--target=x86_64-w64-windows-gnu", *(f"--extra-arg=-isystem{folder}" for folder in folders)]
    return [*TIDY, *more, "-p", str(ROOT / "build" / preset), str(path)]


@functools.cache
def digest_of(path: str) -> str:
    try:
        return hashlib.sha256(pathlib.Path(path).read_bytes()).hexdigest()
    except OSError:
        return "none"


def rules(path: pathlib.Path) -> list:
    """Every .clang-tidy that may hold for the source, there or not."""
    return [str(folder / ".clang-tidy") for folder in [path.parent, *path.parent.parents] if folder.is_relative_to(ROOT)]


def files_read(path: pathlib.Path, preset: str, command: str) -> list:
    """The source, all that it includes, and the rules for it."""
    words = shlex.split(command)
    del words[words.index("-o"):words.index("-o") + 2]
    words.remove("-c")
    rule = subprocess.run([*words, "-M"], cwd=ROOT / "build" / preset, capture_output=True, text=True, check=True).stdout
    included = shlex.split(rule.replace("\\\n", " "))[1:]
    return sorted({os.path.normpath(ROOT / "build" / preset / name) for name in included}) + rules(path)


@functools.cache
def version() -> str:
    return subprocess.run(["clang-tidy", "--version"], capture_output=True, text=True, check=True).stdout


def state_of(files: list, how: list) -> str:
    text = json.dumps([version(), how, [[name, digest_of(name)] for name in files]])
    return hashlib.sha256(text.encode()).hexdigest()


def check(path: pathlib.Path, preset: str, command: str) -> tuple:
    """(name, what was found; empty when nothing was)"""
    name = f"{path.relative_to(ROOT).as_posix()} ({preset})"
    tidy = tidy_command(path, preset, command)
    how = [*tidy, command]
    kept = PASSED / f"{hashlib.sha256(name.encode()).hexdigest()[:32]}.json"
    if kept.exists():
        passed = json.loads(kept.read_text(encoding="utf-8"))
        if passed["state"] == state_of(passed["files"], how):
            return name, ""
        kept.unlink()
    files = files_read(path, preset, command)
    state = state_of(files, how)  # of before, whatever is edited meanwhile
    done = subprocess.run(tidy, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, check=False)
    if done.returncode != 0:
        print(f"{name}\n{done.stdout}", flush=True)
        return name, done.stdout or f"clang-tidy ended with status {done.returncode}"
    kept.write_text(json.dumps({"name": name, "files": files, "state": state}), encoding="utf-8")
    return name, ""


def main(result: pathlib.Path, names: list) -> int:
    PASSED.mkdir(parents=True, exist_ok=True)
    everything = checks()
    wanted = [one for one in everything
              if not names or any(re.search(name, one[0].relative_to(ROOT).as_posix()) for name in names)]
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        results = list(pool.map(lambda one: check(*one), wanted))
    results += [(str(path), "no build compiles it") for path in forgotten({path for path, *_ in everything})]
    suite = ElementTree.Element("testsuite", name="lint")
    for name, found in results:
        case = ElementTree.SubElement(suite, "testcase", name=name)
        if found:
            ElementTree.SubElement(case, "failure").text = re.sub(r"[^\n\x20-\x7e]", "?", found)
    ElementTree.ElementTree(suite).write(result, encoding="utf-8", xml_declaration=True)
    failed = sum(bool(found) for _, found in results)
    print(f"lint: {len(results) - failed} passed, {failed} failed")
    return 0 if results and not failed else 1


if __name__ == "__main__":
    sys.exit(main(pathlib.Path(sys.argv[1]), sys.argv[2:]))
