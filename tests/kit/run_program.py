"""Runs the tests of a GoogleTest program, all in one process, and writes their results as JUnit XML:

    run_program.py [--name REGEX] [--part 1/2] [--jobs N] [--limit SECONDS] [--seed N] RESULT.xml COMMAND...

COMMAND starts the program, from a folder of which RESULT.xml and its neighbours are named relatively. A test that crashes
or takes longer than the limit has failed, and a new process goes on with those after it. The tests that own_process.txt
names get a process each. Exit status 0 only when every test passed.
"""
import argparse
import concurrent.futures
import dataclasses
import fnmatch
import pathlib
import queue
import re
import subprocess
import sys
import threading
import time
import xml.etree.ElementTree as ElementTree

BEGIN = re.compile(r"^\[ RUN      \] (\S+)")
END = re.compile(r"\[(       OK |  FAILED  |  SKIPPED )\] (\S+?),? ")
UNPRINTABLE = re.compile(r"[^\t\n\x20-\ud7ff\ue000-\ufffd\U00010000-\U0010ffff]")


@dataclasses.dataclass
class Result:
    name: str
    seconds: float
    failure: str  # what the test printed; empty when it passed
    what: str = "failure"


def patterns_of_own_process() -> list:
    lines = pathlib.Path(__file__).with_name("own_process.txt").read_text(encoding="utf-8").splitlines()
    return [line.split("#")[0].strip() for line in lines if line.split("#")[0].strip()]


def listed(command: list) -> list:
    """The names of the program's tests, in its order."""
    text = subprocess.run([*command, "--gtest_list_tests"], stdout=subprocess.PIPE, check=True).stdout.decode()
    suite, names = "", []
    for line in text.splitlines():
        word = line.split("#")[0].strip()
        if line.startswith("  "):
            names.append(suite + word)
        elif re.fullmatch(r"[\w/]+\.", word):
            suite = word
    return names


def lines_of(process: subprocess.Popen, limit: float):
    """What the process prints, line by line; None when a line has not come for that long."""
    lines = queue.Queue()

    def read():
        for line in process.stdout:
            lines.put(line.decode(errors="replace").rstrip("\r\n"))
        lines.put("")
        lines.put(StopIteration)

    threading.Thread(target=read, daemon=True).start()
    while True:
        try:
            line = lines.get(timeout=limit)
        except queue.Empty:
            yield None
            return
        if line is StopIteration:
            return
        yield line


class Runner:
    def __init__(self, arguments: argparse.Namespace):
        self.command, self.limit, self.result = arguments.command, arguments.limit, arguments.result
        self.more = [] if arguments.seed is None else ["--gtest_shuffle", f"--gtest_random_seed={arguments.seed}"]
        self.results = []

    def run(self, names: list, number: int):
        """All of them, in as many processes as it takes."""
        left = names
        while left:
            done = self.run_process(left, number)
            left = [name for name in left if name not in done]

    def run_process(self, names: list, number: int) -> set:
        """The names of the tests that it has dealt with: at least one."""
        flags = self.result.with_suffix(f".{number}.flags")
        flags.write_text("--gtest_filter=" + ":".join(names) + "\n", encoding="utf-8")
        process = subprocess.Popen([*self.command, f"--gtest_flagfile={flags}", "--gtest_color=no", *self.more],
                                   stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
        done, current, printed, since, why = set(), None, [], time.monotonic(), ""
        for line in lines_of(process, self.limit):
            if line is None or current and time.monotonic() - since > self.limit:
                why = f"took longer than {self.limit:g} seconds"
                break
            begin, end = BEGIN.match(line), END.search(line)
            if begin:
                current, printed, since = begin[1], [], time.monotonic()
                continue
            printed.append(line)
            if end and current == end[2]:
                passed = end[1].strip() == "OK"
                self.note(current, since, "" if passed else "\n".join(printed))
                done.add(current)
                current, printed = None, []
        if why:
            process.kill()
        status = process.wait()
        flags.unlink(missing_ok=True)
        if current:
            self.note(current, since, "\n".join([*printed, why or f"The process ended with status {status}."]), "error")
            done.add(current)
        elif why or not done or status not in (0, 1):
            # Not in a test: before the first, after the last, or at the end, where leaks are found.
            self.note(f"{self.result.stem}: the process itself", since, "\n".join([*printed, why, f"Status {status}."]), "error")
            done = done if done and not why else set(names)
        return done

    def note(self, name: str, since: float, failure: str, what: str = "failure"):
        self.results.append(Result(name, time.monotonic() - since, failure, what))
        if failure:
            print(f"[{what}] {name}\n{failure}", flush=True)

    def write(self):
        suite = ElementTree.Element("testsuite", name=self.result.stem)
        for result in self.results:
            case = ElementTree.SubElement(suite, "testcase", name=result.name, time=f"{result.seconds:.3f}")
            if result.failure:
                ElementTree.SubElement(case, result.what).text = UNPRINTABLE.sub("?", result.failure)
        ElementTree.ElementTree(suite).write(self.result, encoding="utf-8", xml_declaration=True)


def main() -> int:
    parser = argparse.ArgumentParser()
    parser.add_argument("--name", action="append", default=[])
    parser.add_argument("--part", default="1/1")
    parser.add_argument("--jobs", type=int, default=1)
    parser.add_argument("--limit", type=float, default=300)
    parser.add_argument("--seed", type=int)
    parser.add_argument("result", type=pathlib.Path)
    parser.add_argument("command", nargs=argparse.REMAINDER)
    arguments = parser.parse_args()
    started = time.monotonic()
    part, parts = (int(number) for number in arguments.part.split("/"))
    names = [name for name in listed(arguments.command)
             if not arguments.name or any(re.search(pattern, name) for pattern in arguments.name)][part - 1::parts]
    patterns = patterns_of_own_process()
    alone = [name for name in names if any(fnmatch.fnmatchcase(name, pattern) for pattern in patterns)]
    together = [name for name in names if name not in set(alone)]
    runner = Runner(arguments)
    groups = [together[start::arguments.jobs] for start in range(arguments.jobs)] + [[name] for name in alone]
    with concurrent.futures.ThreadPoolExecutor(arguments.jobs) as pool:
        for future in [pool.submit(runner.run, group, number) for number, group in enumerate(groups)]:
            future.result()
    runner.write()
    failed = sum(bool(result.failure) for result in runner.results)
    print(f"{arguments.result.stem}: {len(runner.results) - failed} passed, {failed} failed, "
          f"{time.monotonic() - started:.1f} s", flush=True)
    return 0 if runner.results and not failed else 1


if __name__ == "__main__":
    sys.exit(main())
