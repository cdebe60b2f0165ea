#!/usr/bin/env python3
"""Compares counts of instructions with those of a golden file.

    compare_counts.py FOLDER GOLDEN [--renew]

FOLDER holds what bench/instructions.sh brought about: `cases`, a name a line, and callgrind's files `counts.N`, one for
each case, numbered from 1. GOLDEN has a line "COUNT NAME" for each case. Answers with status 1 when a case costs more
than a tenth above its line, or when the cases are not the same; --renew writes GOLDEN anew instead.
"""

import pathlib
import re
import sys

tolerance = 0.10
program = "count_engine"


def own_instructions(path):
    """The instructions of the program itself in one of callgrind's files: none of the shared libraries'."""
    names = {}
    inside = called = False
    total = 0
    for line in path.read_text().splitlines():
        if match := re.fullmatch(r"ob=\((\d+)\)(?: (.*))?", line):
            number, name = match.groups()
            if name is not None:
                names[number] = name
            inside = pathlib.Path(names[number]).name == program
        elif match := re.fullmatch(r"cob=\((\d+)\) (.*)", line):
            names[match[1]] = match[2]
        elif line.startswith("calls="):
            called = True  # the next line tells what the called function cost: it has lines of its own
        elif line[:1] in "+-*0123456789" and line:
            if inside and not called:
                total += int(line.split()[1])
            called = False
    return total


def read_golden(path):
    lines = path.read_text().splitlines() if path.exists() else []
    return {name: int(count) for count, name in (line.split(maxsplit=1) for line in lines)}


def differences(counts, golden):
    for name, count in counts.items():
        if name not in golden:
            yield f"{name}: not in the golden file"
        elif count > golden[name] * (1 + tolerance):
            yield f"{name}: {count} instructions, {count / golden[name] - 1:+.1%} against {golden[name]}"
    yield from (f"{name}: no longer a case" for name in golden if name not in counts)


def main(folder, golden_path, renew):
    names = (folder / "cases").read_text().splitlines()
    counts = {name: own_instructions(folder / f"counts.{i}") for i, name in enumerate(names, 1)}
    if not counts or not all(counts.values()):
        sys.exit("nothing was counted")
    if renew:
        golden_path.write_text("".join(f"{count} {name}\n" for name, count in counts.items()))
        return 0
    golden = read_golden(golden_path)
    for name, count in counts.items():
        change = f"{count / golden[name] - 1:+8.1%}" if name in golden else "     new"
        print(f"{count:12} {change}  {name}")
    found = list(differences(counts, golden))
    for line in found:
        print(line, file=sys.stderr)
    if found:
        print("when this is meant: bench/instructions.sh --renew", file=sys.stderr)
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main(pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2]), sys.argv[3:] == ["--renew"]))
