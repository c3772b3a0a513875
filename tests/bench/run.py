"""Measures Brasslet in the test world and prints a table: every figure against its own floor, measured in turn with it.
$BENCH_PAIRS sets how many pairs (at least 20); the site's replies, which spread more, get five times as many."""
import os
import pathlib
import subprocess
import sys
from typing import NamedTuple

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "e2e"))

import desk
import process_memory
import site_world
from figures import figures_of, pairs_by_name
from lookups import HOST, pairs_of_lookups

TOOLS = desk.BUILD / "tests/bench"
BARE_WINDOW = TOOLS / "bench_bare_window.exe"
PLAIN_WINDOW = TOOLS / "bench_plain_window.exe"
PAIRS = max(20, int(os.environ.get("BENCH_PAIRS", "40")))
KEPT_ROWS = 10_000
MIB = 1024 * 1024


class Memory(NamedTuple):
    """Of a running process, Wine's own libraries included; MiB."""
    peak: float  # the most that was resident so far
    share: float  # resident now, what other processes use too divided among them


def windows_path(path: pathlib.Path) -> str:
    return "Z:" + str(path).replace("/", "\\")


def run(tool: str, *words: object, given: str = "") -> dict:
    done = subprocess.run(["wine", TOOLS / f"bench_{tool}.exe", *map(str, words)], input=given, stdout=subprocess.PIPE,
                          text=True, check=True, timeout=900)
    return pairs_by_name(done.stdout)


def a_user_who_has_it_all() -> str:
    site_world.activate_plugin(HOST, desk.EXE)
    site_world.forget_names(HOST)
    desk.clear_data_directory()
    desk.put_wallet(paymail="sofia")
    password = site_world.app_password(HOST)
    desk.put_settings(f"https://{HOST}", "owner", password, "alice")
    return password


def kilobytes(process: int, file: str, label: str) -> int:
    lines = pathlib.Path(f"/proc/{process}/{file}").read_text(encoding="utf-8").splitlines()
    return next(int(line.split()[1]) for line in lines if line.startswith(label + ":"))


def memory_of(program: pathlib.Path) -> Memory:
    process = process_memory.process_of(program.name)
    return Memory(kilobytes(process, "status", "VmHWM") / 1024, kilobytes(process, "smaps_rollup", "Pss") / 1024)


def starts(floor: pathlib.Path, window_class: str) -> list:
    return run("starts", PAIRS, windows_path(floor), window_class, windows_path(desk.EXE),
               "CorvaneBrassletShell")["start"]


def publishes(password: str) -> tuple:
    """The pairs, and the program's memory after its first publish."""
    with desk.running_program():
        assert desk.publish("alice") == f"Vaultry kept alice@{HOST}."
        memory = memory_of(desk.EXE)
        row = desk.payname_rows()[0]
        pairs = run("publishes", PAIRS, f"https://{HOST}", "owner", "alice", row["pubkey"], row["address"],
                    given=password.replace(" ", "") + "\n")["publish"]
    return pairs, memory


def memory_of_window(program: pathlib.Path, title: str, *words: str) -> Memory:
    with subprocess.Popen(["wine", program, *words]) as process:
        desk.xdotool("search", "--sync", "--onlyvisible", "--name", f"^{title}$")
        memory = memory_of(program)
        process.kill()
    return memory


def print_memory(what: str, memory: Memory) -> None:
    print(f"Memory of {what}: {memory.peak:.1f} MiB at its peak; {memory.share:.1f} MiB with what is shared divided.")


def print_row(what: str, floor: str, pairs: list, target: str) -> None:
    f = figures_of(pairs)
    print(f"| {what} | {floor} | {f.floor / 1000:.2f} ms | {f.own / 1000:.2f} ms | **{f.ratio:.2f}** | "
          f"{f.low:.2f} to {f.high:.2f} | {target} | {f.pairs} |", flush=True)


def main() -> None:
    password = a_user_who_has_it_all()
    print("| what | floor | floor takes | Brasslet takes | ratio | middle half of the ratios | to reach | pairs |")
    print("|---|---|---|---|---|---|---|---|")
    print_row("start to painted window", "a bare window", starts(BARE_WINDOW, "BenchBareWindow"), "1.7")
    print_row("start to painted window", "the same controls, libcurl and derivation, plainly",
              starts(PLAIN_WINDOW, "BenchPlainWindow"), "0.90")
    pairs, memory = publishes(password)
    print_row("Publish, press to sentence", "its requests by bare libcurl calls", pairs, "1.05")
    queries = run("queries", PAIRS, KEPT_ROWS)
    derivation = "PBKDF2 and fifteen derivation steps"
    print_row("identity query, the first", derivation, queries["identity-first"], "")
    print_row("identity query, the first", "PBKDF2, eleven derivation steps, three public keys and addresses",
              queries["identity-keys"], "1.15")
    print_row("identity query on an unchanged wallet", derivation, queries["identity-again"], "1.3")
    print_row("wallet card refresh, the first", "the first identity query", queries["card-first"], "")
    print_row("wallet card refresh", "an identity query", queries["card-again"], "2")
    print_row("wallet card refresh", "its looks at the disk", queries["card-files"], "1.1")
    print_row(f"names of this wallet, {KEPT_ROWS} kept", "reading and parsing the file",
              queries["kept_names"], "1.5")
    for names, target in ((1, "1.05"), (1000, "1.3")):
        for route, found in pairs_of_lookups(names, PAIRS * 5).items():
            title = f"plugin lookup `/{route}/`, {names} name{'s' if names > 1 else ''}"
            print_row(title, "an empty REST route", found, target)
    print()
    print(f"Executable: {desk.EXE.stat().st_size} bytes ({desk.EXE.stat().st_size / MIB:.2f} MiB; under 3.1).")
    opened, asked = queries["card-looks"][0]
    print(f"A refresh of the wallet card opens {opened:.0f} files and asks about {asked:.0f} by their names.")
    print_memory("Brasslet after a publish", memory)
    print_memory("a bare window", memory_of_window(BARE_WINDOW, "Bare"))
    plain = memory_of_window(PLAIN_WINDOW, "Plain")
    asked = memory_of_window(PLAIN_WINDOW, "Asked", f"https://{HOST}/wp-json/")
    print_memory("the plain window with libcurl set up", plain)
    print_memory("the plain window after one request", asked)
    print(f"Brasslet's peak is {memory.peak / plain.peak:.2f} of the plain window's (wanted 1.08), "
          f"and {memory.peak / asked.peak:.2f} of that after one request.")


if __name__ == "__main__":
    main()
