#!/usr/bin/python3
"""Lives through every mutant of the library, and tells which of them the tests don't notice.

All mutants are built in at once (mutate.py). Each test is run once to note which mutants it comes by; then each
mutant lives through the tests that do, the quick ones first, until one of them fails, crashes or doesn't end.
"""

import argparse
import concurrent.futures
import json
import os
import re
import resource
import shutil
import signal
import subprocess
import sys
import tempfile
import time
from collections import Counter
from pathlib import Path

import mutate

ROOT = Path(__file__).resolve().parents[2]
TREE = ROOT / "build/mutants/tree"
BUILD = ROOT / "build/mutants/build"
SHARED = str(BUILD / "tests")  # where a test of CTest's that is no program works; here each run has its own folder
NOT_RUN = "Exports|Install|DeviceBuild|Rooms|.*MillionSteps"  # look at files, not at what the library does; takes long
FLAGS = f"-O1 -w -Wno-narrowing -include {TREE}/tests/mutants/Mutant.h"
QUICK = [
    "kest_unit_tests",
    "kest_contract_tests_fakes",
    "kest_contract_tests_layers",
    "kest_alloc_tests",
    "kest_records_dump",
]
SLOW = "kest_(live|layer|tools)_tests"  # wait on the clock
SECONDS_MORE = 2  # of the processor, beyond thrice what the tests take
WAIT_MORE = 60  # seconds on the clock, beyond that


def sources(folders):
    """Result: the names of the folders' sources and headers but for the contracts, which are declarations."""
    listed = subprocess.check_output(["git", "ls-files", *folders], cwd=ROOT, text=True).split()
    return [name for name in listed if name.endswith((".h", ".cpp")) and "/contracts/" not in name]


def write_if_new(path, text):
    """What stays as it is isn't built again."""
    if not path.exists() or mutate.read(path) != text:
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(text.encode("latin-1"))


def write_tree(mutants):
    """A copy of the tree with all mutants in it, numbered from 1."""
    listed = subprocess.check_output(["git", "ls-files"], cwd=ROOT, text=True).split()
    numbered = {}
    for number, mutant in enumerate(mutants, 1):
        numbered.setdefault(mutant.file, []).append((number, mutant))
    for old in [path for path in TREE.rglob("*") if path.is_file()]:
        if str(old.relative_to(TREE)) not in listed:
            old.unlink()
    for name in listed:
        text = mutate.read(ROOT / name)
        if name in numbered:
            text = mutate.build_in(text, numbered[name])
        write_if_new(TREE / name, text)
        shutil.copymode(ROOT / name, TREE / name)


def build(with_slow):
    subprocess.check_call(
        ["cmake", "-S", TREE, "-B", BUILD, "-G", "Ninja", "-DCMAKE_BUILD_TYPE=None", f"-DCMAKE_CXX_FLAGS={FLAGS}"],
        stdout=subprocess.DEVNULL,
    )
    subprocess.check_call(["cmake", "--build", BUILD] + ([] if with_slow else ["--target", *QUICK]))


class Test:
    """One of CTest's tests. Those of a program of GoogleTest's can run together."""

    def __init__(self, told):
        self.name = told["name"]
        self.command = told["command"]
        filters = [part[15:] for part in self.command if part.startswith("--gtest_filter=")]
        self.filter = filters[0] if filters else None
        self.program = self.command[0] if filters else self.name
        self.seconds = 0.0
        self.reached = b""


def find_tests(with_slow):
    told = json.loads(subprocess.check_output(["ctest", "--show-only=json-v1"], cwd=BUILD))
    built = [test for test in told["tests"] if "command" in test]
    tests = [Test(test) for test in built if not re.match(NOT_RUN, test["name"])]
    return [test for test in tests if with_slow or not re.search(SLOW, test.program)]


def passes(command, seconds, **variables):
    """Result: whether a command ends well. A loop without end meets the processor's limit, a wait the clock's."""
    limit = int(3 * seconds + SECONDS_MORE)

    def set_limits():
        resource.setrlimit(resource.RLIMIT_CPU, (limit, limit))
        resource.setrlimit(resource.RLIMIT_AS, (4 << 30, 4 << 30))
        resource.setrlimit(resource.RLIMIT_CORE, (0, 0))

    with tempfile.TemporaryDirectory(prefix="kest_mutant_") as folder:
        process = subprocess.Popen(
            [folder if part == SHARED else part for part in command],
            cwd=folder,
            env={**os.environ, "TMPDIR": folder, **variables},
            start_new_session=True,
            preexec_fn=set_limits,
            stdin=subprocess.DEVNULL,
            stdout=subprocess.DEVNULL,
            stderr=subprocess.DEVNULL,
        )
        try:
            return process.wait(limit + WAIT_MORE) == 0
        except subprocess.TimeoutExpired:
            return False
        finally:
            try:
                os.killpg(process.pid, signal.SIGKILL)  # children too
            except ProcessLookupError:
                pass
            process.wait()


def note_reached(test, count):
    """Runs a test with no mutant alive."""
    with tempfile.NamedTemporaryFile() as file:
        file.truncate(count + 1)  # 0 is no mutant
        begun = time.monotonic()
        if not passes(test.command, 60, KEST_MUTANTS_REACHED=file.name):
            raise SystemExit(f"mutants: {test.name} fails with no mutant alive")
        test.seconds = time.monotonic() - begun
        test.reached = Path(file.name).read_bytes()


def groups_for(number, tests):
    """Result: commands, and the seconds they take, that run the tests which come by a mutant; quick ones first."""
    programs = {}
    for test in tests:
        if test.reached[number]:
            programs.setdefault(test.program, []).append(test)
    groups = []
    for reaching in programs.values():
        command = reaching[0].command
        if reaching[0].filter is not None:
            quick_first = sorted(reaching, key=lambda test: test.seconds)
            command = [command[0], "--gtest_fail_fast", "--gtest_filter=" + ":".join(t.filter for t in quick_first)]
        each = [test.seconds for test in reaching]
        start = min(each)  # of the program, once for all
        groups.append((sum(each) / len(each), sum(each) - start * (len(each) - 1), command))
    return [group[1:] for group in sorted(groups, key=lambda group: group[0])]


def is_killed(number, tests):
    """Result: whether a test notices the mutant. One that waits on a clock has to do so twice."""
    for seconds, command in groups_for(number, tests):
        times = 2 if re.search(SLOW, command[0]) else 1
        if not any(passes(command, seconds, KEST_MUTANT=str(number)) for _ in range(times)):
            return True
    return False


def show(mutant):
    changed = mutant.changed if mutant.changed is not None else "(left out)"
    return f"{mutant.file}:{mutant.line}:{mutant.column}: {' '.join(mutant.original.split())}  ->  {' '.join(changed.split())}"


def report(mutants, fates):
    """A line for each file, then the survivors."""
    counts = Counter((mutant.file, fate) for mutant, fate in zip(mutants, fates))
    print(f"{'file':46}{'mutants':>9}{'killed':>9}{'survived':>9}{'not run':>9}")
    for file in sorted({mutant.file for mutant in mutants}):
        row = [counts[file, fate] for fate in ("killed", "survived", "not run")]
        print(f"{file:46}{sum(row):9}" + "".join(f"{count:9}" for count in row))
    row = [fates.count(fate) for fate in ("killed", "survived", "not run")]
    print(f"{'all':46}{sum(row):9}" + "".join(f"{count:9}" for count in row) + "\n")
    for mutant, fate in zip(mutants, fates):
        if fate != "killed":
            print(f"{fate}: {show(mutant)}")


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("folders", nargs="*", default=["GpsLib"], help="folders or files to mutate (GpsLib)")
    parser.add_argument("--list", action="store_true", help="print the mutants and run nothing")
    parser.add_argument("--slow", action="store_true", help="with the tests that wait on the clock; for the layers")
    parser.add_argument("--killed", metavar="FILE", help="write the killed mutants into a file")
    parser.add_argument("-j", type=int, default=os.cpu_count(), help="how many live at once")
    options = parser.parse_args()
    mutants = mutate.find_mutants(ROOT, sources(options.folders))
    if options.list:
        print("\n".join(show(mutant) for mutant in mutants))
        return
    write_tree(mutants)
    build(options.slow)
    tests = find_tests(options.slow)
    with concurrent.futures.ThreadPoolExecutor(options.j) as pool:
        list(pool.map(lambda test: note_reached(test, len(mutants)), tests))
        print(f"{len(tests)} tests pass with no mutant alive", flush=True)

        def fate_of(number):
            if not any(test.reached[number] for test in tests):
                return "not run"
            return "killed" if is_killed(number, tests) else "survived"

        fates = []
        for fate in pool.map(fate_of, range(1, len(mutants) + 1)):
            fates.append(fate)
            if sys.stderr.isatty():
                print(f"\r{len(fates)} of {len(mutants)}", end="", file=sys.stderr, flush=True)
    report(mutants, fates)
    if options.killed:
        killed = [show(mutant) for mutant, fate in zip(mutants, fates) if fate == "killed"]
        Path(options.killed).write_text("\n".join(killed) + "\n")


if __name__ == "__main__":
    main()
