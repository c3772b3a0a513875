"""The locks in docs/architecture.md are those in the sources, each by the variable, function or name that stands for it."""
import re

from rooms import ROOT, SRC, sources

# What makes a lock, with the name that stands for it.
LOCKS = (
    r"\bGuarded<\w+> (\w+);",
    r"\bstd::(?:\w+_)?mutex (\w+);",
    r"\bstd::(?:\w+_)?mutex& (\w+)\(\)",
    r"\bCreateMutex\w*\([^;]*?(\w+)\)\)",
    r"\bstd::optional<FileLock> (\w+);",
)
# A way to lock that no rule above would see.
OTHERS = r"\b(CRITICAL_SECTION|SRWLOCK|CreateSemaphore\w*|CreateEvent\w*|LockFile\w*|std::shared_lock|std::call_once)\b"
WRAPPERS = {"wallet_bridge/guarded.h", "platform/windows/file_lock.cpp"}  # what Guarded and FileLock are made of


def texts() -> dict:
    return {path.relative_to(SRC).as_posix(): path.read_text(encoding="utf-8") for path in sources()}


def test_the_documented_locks_are_the_locks_of_the_sources():
    page = (ROOT / "docs/architecture.md").read_text(encoding="utf-8")
    documented = re.findall(r"^\| `(\w+)` \| `([\w/.]+)` \|", page, re.M)
    found = [
        (name, path) for path, text in texts().items() if path not in WRAPPERS for lock in LOCKS for name in re.findall(lock, text)
    ]
    assert sorted(documented) == sorted(found)


def test_every_mutex_is_declared_in_a_way_that_is_found():
    wrong = []
    for path, text in texts().items():
        if path in WRAPPERS:
            continue
        mutexes = re.findall(r"(?<!<)\bstd::(?:\w+_)?mutex\b", text)
        known = [match for lock in LOCKS[1:3] for match in re.findall(lock, text)]
        if len(mutexes) > len(known) + len(re.findall(r"\bnew std::mutex\b", text)) or re.search(OTHERS, text):
            wrong.append(path)
    assert wrong == []
