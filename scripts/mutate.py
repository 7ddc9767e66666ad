#!/usr/bin/env python3
"""Measures how many changes of the plug-in the tests detect.

Changes one operator, constant or condition at a time (a mutant), builds, and runs the tests until one fails. A mutant
that does not compile, or that gives the same library byte for byte, does not count; the next one replaces it. The same
seed and the same sources give the same mutants.
"""
import argparse
import concurrent.futures
import dataclasses
import hashlib
import json
import os
import pathlib
import random
import re
import resource
import shutil
import subprocess
import sys
import threading

MUTATED_FOLDERS = ("core", "persist", "pages")
GOAL = 0.9
MEMORY_LIMIT = 4 << 30  # bytes; a mutant may allocate in an endless loop
TEST_TIMEOUT = 60  # seconds; ten times the slowest test
# The first repeats another test on a virtual screen. The second builds a separate program from the installed package.
LEFT_OUT = ("tst_mainwindow_xvfb", "package")

SWAPS = {
    "==": "!=", "!=": "==", "<": "<=", "<=": "<", ">": ">=", ">=": ">", "&&": "||", "||": "&&",
    "+": "-", "-": "+", "*": "/", "/": "*", "%": "*", "&": "|", "|": "&", "<<": ">>", ">>": "<<",
    "+=": "-=", "-=": "+=", "|=": "&=", "&=": "|=", "++": "--", "--": "++", "!": "", "true": "false", "false": "true",
}
# The formatter puts spaces around every binary operator, but not around template brackets and reference signs.
TOKEN = re.compile(
    r"""(?P<skipped>//[^\n]*|/\*.*?\*/|^[ ]*\#(?:[^\n\\]|\\.)*|"(?:\\.|[^"\\\n])*"|'(?:\\.|[^'\\\n])+')
      | (?P<condition>\b(?:if|while)\ \()
      | (?P<literal>\b(?:true|false)\b)
      | (?P<name>[A-Za-z_]\w*)
      | (?P<number>0x[0-9a-fA-F]+|\d+(?:\.\d+)?)
      | (?P<operator>(?<=\s)(?:[=!<>+\-|&]=|<<|>>|&&|\|\||[<>+\-*/%&|])(?=\s) | \+\+ | -- | !(?=[\w(]))""",
    re.VERBOSE | re.DOTALL | re.MULTILINE)


@dataclasses.dataclass(frozen=True)
class Mutant:
    file: str
    line: int
    column: int
    start: int  # offset of the replaced text in characters
    before: str
    after: str

    def __str__(self):
        return f"{self.file}:{self.line}:{self.column}: {self.before} -> {self.after or 'nothing'}"


def closing_parenthesis(text, opening):
    depth = 0
    for at in range(opening, len(text)):
        depth += {"(": 1, ")": -1}.get(text[at], 0)
        if depth == 0:
            return at
    return None


def next_number(text):
    if text.startswith("0x"):
        return hex(int(text, 16) + 1)
    return str(float(text) + 1) if "." in text else str(int(text) + 1)


def mutants_of(file, text):
    for token in TOKEN.finditer(text):
        start, before = token.start(), token.group()
        if token.lastgroup in ("skipped", "name"):
            continue
        if token.lastgroup == "condition":
            opening = token.end() - 1
            end = closing_parenthesis(text, opening)
            if end is None:
                continue
            start, before = opening, text[opening:end + 1]
            after = f"(!{before})"
        else:
            after = next_number(before) if token.lastgroup == "number" else SWAPS[before]
        line = text.count("\n", 0, start) + 1
        yield Mutant(file, line, start - text.rfind("\n", 0, start), start, before, after)


class Worker:
    """A copy of the sources with a separate build."""

    def __init__(self, root, folder, files):
        self.source = folder / "source"
        self.build = folder / "build"
        self.files = files
        for stale in set(self.present()) - set(files):
            (self.source / stale).unlink()
        for file in files:
            self.restore(root, file)

    def present(self):
        return [str(path.relative_to(self.source)) for path in self.source.rglob("*") if path.is_file()]

    def restore(self, root, file):
        """Does not write an unchanged file, so the build does not compile it again."""
        target = self.source / file
        content = (root / file).read_bytes()
        if not target.exists() or target.read_bytes() != content:
            target.parent.mkdir(parents=True, exist_ok=True)
            target.write_bytes(content)

    def run(self, *command):
        def limit():
            resource.setrlimit(resource.RLIMIT_AS, (MEMORY_LIMIT, MEMORY_LIMIT))
            resource.setrlimit(resource.RLIMIT_CORE, (0, 0))

        # The copies share the objects that are equal.
        environment = dict(os.environ, CCACHE_BASEDIR=str(self.source.parent), CCACHE_NOHASHDIR="1")
        return subprocess.run(command, cwd=self.source.parent, env=environment, preexec_fn=limit,
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, errors="replace")

    def prepare(self):
        launcher = "ccache" if shutil.which("ccache") else ""
        # With -O1 a mutant without an effect gives the same library. Benchmarks are left out: they detect nothing.
        for command in (["cmake", "-S", self.source, "-B", self.build, "-G", "Ninja", "-DCMAKE_BUILD_TYPE=None",
                         "-DCMAKE_CXX_FLAGS=-O1 -w", "-DCMAKE_DISABLE_FIND_PACKAGE_benchmark=ON",
                         f"-DCMAKE_CXX_COMPILER_LAUNCHER={launcher}"],
                        ["ninja", "-C", self.build]):
            done = self.run(*command)
            if done.returncode != 0:
                sys.exit(done.stdout + "\nmutate: the unchanged sources do not build")
        self.library = self.library_hash()

    def library_hash(self):
        return hashlib.sha256((self.build / "lib" / "libsimpleextend.so").read_bytes()).digest()

    def tests(self):
        listing = json.loads(self.run("ctest", "--test-dir", self.build, "--show-only=json-v1").stdout)
        return [test["name"] for test in listing["tests"] if test["name"] not in LEFT_OUT]

    def builds(self, target):
        return self.run("ninja", "-C", self.build, "-j1", target).returncode == 0

    def passes(self, test):
        return self.run("ctest", "--test-dir", self.build, "-R", f"^{test}$", "--timeout",
                        str(TEST_TIMEOUT)).returncode == 0

    def outcome(self, mutant, tests):
        """Returns the name of the test that detects the mutant, "" for none, or None if the mutant does not count."""
        path = self.source / mutant.file
        original = path.read_bytes()
        text = original.decode()
        path.write_text(text[:mutant.start] + mutant.after + text[mutant.start + len(mutant.before):], "utf-8")
        try:
            if not self.builds("simpleextend") or self.library_hash() == self.library:
                return None
            for test in tests:
                has_program = test.startswith(("tst_", "replay_"))
                if has_program and not self.builds(test):
                    return None
                if not self.passes(test):
                    return test
            return ""
        finally:
            path.write_bytes(original)


class Campaign:
    """Yields the mutants in order until enough of them count."""

    def __init__(self, mutants, wanted, tests):
        self.waiting = iter(mutants)
        self.wanted = wanted
        self.tests = tests
        self.open = 0
        self.outcomes = {}
        self.detected_by = {}  # (folder, test): number of mutants
        self.lock = threading.Lock()

    def take(self):
        with self.lock:
            if len(self.outcomes) + self.open >= self.wanted:
                return None
            mutant = next(self.waiting, None)
            self.open += mutant is not None
            return mutant

    def tests_for(self, mutant):
        folder = pathlib.Path(mutant.file).parts[0]
        return sorted(self.tests, key=lambda test: -self.detected_by.get((folder, test), 0))

    def record(self, mutant, outcome):
        with self.lock:
            self.open -= 1
            if outcome is None:
                return
            self.outcomes[mutant] = outcome
            key = (pathlib.Path(mutant.file).parts[0], outcome)
            self.detected_by[key] = self.detected_by.get(key, 0) + 1
            print(f"[{len(self.outcomes)}/{self.wanted}] {mutant}: {outcome or 'SURVIVES'}", file=sys.stderr,
                  flush=True)

    def run(self, worker):
        # An idle worker polls as long as the mutant of another worker may turn out not to count.
        while True:
            mutant = self.take()
            if mutant is not None:
                outcome = None
                try:
                    outcome = worker.outcome(mutant, self.tests_for(mutant))
                finally:  # without the result of a worker that fails, the others would wait for it
                    self.record(mutant, outcome)
            elif self.open == 0:
                return
            else:
                threading.Event().wait(0.5)


def report(outcomes, path):
    rows = [dict(dataclasses.asdict(mutant), detected_by=outcome) for mutant, outcome in sorted(
        outcomes.items(), key=lambda item: dataclasses.astuple(item[0]))]
    path.write_text(json.dumps(rows, indent=1) + "\n")
    for row in rows:
        if not row["detected_by"]:
            print("survives:", Mutant(**{key: row[key] for key in row if key != "detected_by"}))
    print(f"{'folder':10}{'mutants':>9}{'detected':>9}{'share':>8}")
    for folder in MUTATED_FOLDERS + ("",):
        chosen = [row for row in rows if row["file"].startswith(folder)]
        detected = sum(bool(row["detected_by"]) for row in chosen)
        if chosen:
            print(f"{folder or 'all':10}{len(chosen):9}{detected:9}{detected / len(chosen):8.1%}")
    return sum(bool(row["detected_by"]) for row in rows) >= GOAL * len(rows)


def survivors_of(path, mutants):
    rows = json.loads(path.read_text())
    again = {(row["file"], row["start"], row["after"]) for row in rows if not row["detected_by"]}
    return [mutant for mutant in mutants if (mutant.file, mutant.start, mutant.after) in again]


def main():
    options = argparse.ArgumentParser(prog="./dev mutate", description=__doc__,
                                      formatter_class=argparse.RawDescriptionHelpFormatter)
    options.add_argument("count", nargs="?", type=int, default=200, help="number of mutants (200)")
    options.add_argument("--seed", type=int, default=1, help="seed for selecting the mutants (1)")
    options.add_argument("--again", action="store_true", help="try only the survivors of the previous run")
    options.add_argument("--jobs", type=int, default=os.cpu_count(), help="number of mutants at a time")
    chosen = options.parse_args()

    root = pathlib.Path(__file__).resolve().parents[1]
    folder = root / "build" / "mutate"
    files = subprocess.run(["git", "ls-files", "-z"], cwd=root, check=True, stdout=subprocess.PIPE,
                           text=True).stdout.split("\0")[:-1]
    files = [file for file in files if (root / file).is_file()]
    mutants = [mutant for file in files if file.startswith(tuple(f"{name}/" for name in MUTATED_FOLDERS))
               and file.endswith((".cpp", ".h")) for mutant in mutants_of(file, (root / file).read_text("utf-8"))]
    random.Random(chosen.seed).shuffle(mutants)
    report_path = folder / "report.json"
    if chosen.again:
        mutants = survivors_of(report_path, mutants)
        chosen.count = len(mutants)
        report_path = folder / "again.json"

    workers = [Worker(root, folder / f"copy{number}", files) for number in range(max(1, chosen.jobs))]
    for worker in workers:
        print(f"mutate: building {worker.build.relative_to(root)}", file=sys.stderr)
        worker.prepare()
    tests = workers[0].tests()
    failing = [test for test in tests if not workers[0].passes(test)]
    if failing:
        sys.exit(f"mutate: these tests fail without any change: {', '.join(failing)}")

    campaign = Campaign(mutants, chosen.count, tests)
    with concurrent.futures.ThreadPoolExecutor(len(workers)) as pool:
        list(pool.map(campaign.run, workers))  # raises the exception of a worker
    return 0 if report(campaign.outcomes, report_path) else 1


if __name__ == "__main__":
    sys.exit(main())
