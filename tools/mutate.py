#!/usr/bin/env python3
"""Sees whether the tests would notice a fault: changes one token at a time in a copy of the engine and runs them.

    tools/mutate.py [--count N] [--seed S] [--at FILE:LINE:COLUMN] [FOLDER...]

The copy is built natively, without sanitizers. A change that does not compile, or that gives the same object code, is
no fault and another one is drawn. A change is caught when engine_tests or those against the model fail, crash or do not
end. Those that survive are listed at the end; the exit status is 1 when fewer than nine in ten are caught. --at tries
just the changes of one token.
"""

import argparse
import hashlib
import os
import pathlib
import random
import re
import shutil
import subprocess
import sys
import tempfile
import time

ROOT = pathlib.Path(__file__).resolve().parent.parent
FOLDERS = ["store", "editing", "appearance"]
TESTS = [["tests/engine/engine_tests"], ["tests/model/model_tests"], ["tests/model/short_history_tests"]]
SECONDS = 120  # the tests take a twentieth of it: what takes this long hangs

# What a token may become. Operators count where blanks stand around them: templates and references have none.
OPERATORS = {
    "<": ["<=", ">"], "<=": ["<"], ">": [">=", "<"], ">=": [">"], "==": ["!="], "!=": ["=="],
    "&&": ["||"], "||": ["&&"], "+": ["-"], "-": ["+"], "*": ["+"], "/": ["*"], "%": ["+"],
    "&": ["|"], "|": ["&"], "<<": [">>"], ">>": ["<<"],
    "+=": ["-="], "-=": ["+="], "|=": ["&="], "&=": ["|="],
}
WORDS = {"true": ["false"], "false": ["true"], "break": ["continue"], "continue": ["break"], "min": ["max"],
         "max": ["min"], "first": ["last"], "last": ["first"], "line": ["col"], "col": ["line"]}
TOKEN = re.compile(r"""(?P<skip>//.*|/\*.*?\*/|u?8?L?"(?:\\.|[^"\\])*"|'(?:\\.|[^'\\])*')
    |(?P<number>(?<![\w.])(?:0x[0-9A-Fa-f]+|\d+)(?![\w.']))|(?P<word>[A-Za-z_]\w*)|(?P<step>\+\+|--)|(?P<not>!(?=[\w(]))
    |(?<=\s)(?P<operator><<|>>|&&|\|\||[<>=!+\-|&*/%]=|[<>+\-|&*/%])(?=\s)""", re.X)
PASSED_OVER = re.compile(r"\s*(#|static_assert|template|using|//)|.*\boperator\b")


def changes_of(token):
    text = token.group()
    if token.lastgroup == "number":
        value = int(text, 0)
        return [str(value + 1), str(value - 1)] if value else ["1"]
    if token.lastgroup == "word":
        return WORDS.get(text, [])
    if token.lastgroup == "step":
        return ["--" if text == "++" else "++"]
    if token.lastgroup == "not":
        return [""]
    return OPERATORS.get(text, []) if token.lastgroup == "operator" else []


def candidates(path):
    """All changes of a file as (path, line, column, old, new), lines and columns from 1."""
    for number, line in enumerate((ROOT / path).read_text(encoding="utf-8").splitlines(), 1):
        if PASSED_OVER.match(line):
            continue
        for token in TOKEN.finditer(line):
            for new in changes_of(token):
                yield path, number, token.start() + 1, token.group(), new


class Copy:
    """The sources at another place, with a build of their own."""

    def __init__(self, folder):
        self.root = pathlib.Path(folder)
        names = subprocess.run(["git", "ls-files", "-z", "--cached", "--others", "--exclude-standard"], cwd=ROOT,
                               check=True, capture_output=True).stdout.decode().split("\0")
        for name in filter(None, names):
            (self.root / name).parent.mkdir(parents=True, exist_ok=True)
            shutil.copy2(ROOT / name, self.root / name)
        self.build = self.root / "build/native"
        self.must("cmake", "--preset", "native", "-DCMAKE_CXX_FLAGS_RELWITHDEBINFO=-O1", "-DSCRIV_BENCH=OFF")

    def must(self, *command):
        done = self.run(command)
        if done != 0:
            sys.exit(f"failed with status {done}: {' '.join(command)}\n{(self.root / 'log').read_text()[-4000:]}")

    def run(self, command, seconds=None, cwd=None):
        """The status of a command; None when it had to be ended."""
        with open(self.root / "log", "wb") as log:
            try:
                return subprocess.run(command, cwd=cwd or self.root, stdin=subprocess.DEVNULL, stdout=log,
                                      stderr=subprocess.STDOUT, timeout=seconds, check=False).returncode
            except subprocess.TimeoutExpired:
                return None

    def sources(self, folders):
        """The files of these folders that the engine is made of, as the build has them."""
        rules = (self.build / "build.ninja").read_text(encoding="utf-8")
        found = re.findall(r"^build CMakeFiles/scriv_engine\.dir/(\S+)\.o:", rules, re.M)
        return sorted(path for path in found if path.split("/")[0] in folders)

    def compiled(self):
        return self.run(["cmake", "--build", "--preset", "native", "--target", "scriv_engine"]) == 0

    def code(self, path):
        """What the compiler made of a source file."""
        return hashlib.sha256((self.build / "CMakeFiles/scriv_engine.dir" / (path + ".o")).read_bytes()).digest()

    def link(self):
        self.must("cmake", "--build", "--preset", "native", "--target", *(pathlib.Path(test[0]).name for test in TESTS))

    def who_notices(self):
        """The test program that does, and how; None when none does."""
        for test in TESTS:
            program = self.build / test[0]
            status = self.run([program, "--gtest_brief=1", "--gtest_fail_fast", *test[1:]], SECONDS, self.build)
            if status != 0:
                failed = re.findall(r"\[  FAILED  \] ([\w/.]+)", (self.root / "log").read_text(errors="replace"))
                how = "does not end" if status is None else failed[0] if failed else f"status {status}"
                return f"{program.name}: {how}"
        return None


def try_change(copy, change, code):
    """(True when it is a fault at all, who noticed it). `code` is what the file gives without the change."""
    path, number, column, old, new = change
    place = copy.root / path
    before = place.read_text(encoding="utf-8")
    lines = before.splitlines(keepends=True)
    line = lines[number - 1]
    lines[number - 1] = line[:column - 1] + new + line[column - 1 + len(old):]
    place.write_text("".join(lines), encoding="utf-8")
    try:
        if not copy.compiled() or copy.code(path) == code:
            return False, None
        copy.link()
        return True, copy.who_notices()
    finally:
        place.write_text(before, encoding="utf-8")


def show(change, result, seconds):
    path, number, column, old, new = change
    print(f"{path}:{number}:{column}: {old} -> {new or '(nothing)'}: {result} ({seconds:.0f} s)", flush=True)


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--count", type=int, default=40)
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--at")
    parser.add_argument("folders", nargs="*", default=FOLDERS)
    wanted = parser.parse_args()
    os.nice(10)  # it takes long, and nobody waits for it
    with tempfile.TemporaryDirectory() as folder:
        copy = Copy(folder)
        copy.link()
        if noticed := copy.who_notices():
            sys.exit(f"the tests fail without any change: {noticed}")
        codes = {path: copy.code(path) for path in copy.sources(wanted.folders)}
        changes = [change for path in codes for change in candidates(path)]
        random.Random(wanted.seed).shuffle(changes)
        if wanted.at:
            changes = [change for change in changes if f"{change[0]}:{change[1]}:{change[2]}" == wanted.at]
        print(f"{len(changes)} changes possible, seed {wanted.seed}", flush=True)
        survivors, tried = [], 0
        while changes and tried < wanted.count:
            change, begun = changes.pop(), time.monotonic()
            counts, noticed = try_change(copy, change, codes[change[0]])
            tried += counts
            if counts and not noticed:
                survivors.append(change)
            show(change, (noticed or "SURVIVES") if counts else "no fault", time.monotonic() - begun)
    caught = tried - len(survivors)
    print(f"{caught} of {tried} caught")
    return 0 if tried and 10 * caught >= 9 * tried else 1


if __name__ == "__main__":
    sys.exit(main())
