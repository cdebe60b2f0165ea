#!/usr/bin/env python3
"""The gate that the promise to compiled hosts passes only on purpose.

    gate.py check  VERSION HEADER COMPILER CLANG   the header is what scrivctl3.abi says, and that is what was released
    gate.py accept VERSION HEADER COMPILER CLANG   writes scrivctl3.abi anew, for a version that was raised enough
    gate.py layout                                 prints C that a compiler takes only if it agrees with scrivctl3.abi

scrivctl3.abi has the version that it was made for and then one line for each promise; releases.txt keeps the digest of
these lines for each version that changed them. What was there and is no longer so needs another major version, what only
comes on top another minor one.
"""

import hashlib
import pathlib
import re
import sys

from describe import Header, describe

HERE = pathlib.Path(__file__).resolve().parent
STAND_IN = HERE.parent / "msvc"  # the folder of a small windows.h


def number(version):
    return tuple(map(int, version.split(".")))


def digest(lines):
    return hashlib.sha256("\n".join(lines).encode()).hexdigest()


def golden(folder):
    """The version and the lines of scrivctl3.abi."""
    first, *lines = (folder / "scrivctl3.abi").read_text(encoding="utf-8").splitlines()
    return first.removeprefix("version "), lines


def releases(folder):
    """Pairs of a version and the digest of its promise, the oldest first."""
    return [tuple(line.split()) for line in (folder / "releases.txt").read_text(encoding="utf-8").splitlines()]


def differences(old, new):
    gone, come = [line for line in old if line not in new], [line for line in new if line not in old]
    return [f"- {line}" for line in gone], [f"+ {line}" for line in come]


def check(lines, version, folder):
    """What is wrong, as a list that is empty when nothing is."""
    made_for, written = golden(folder)
    history = releases(folder)
    gone, come = differences(written, lines)
    faults = [*gone, *come]
    if faults:
        faults.append("The header no longer says what scrivctl3.abi does. If that is meant: raise the version in "
                      "CMakeLists.txt and build the target accept_abi.")
    if history[-1] != (made_for, digest(written)):
        faults.append("scrivctl3.abi is not what releases.txt has for its last version.")
    numbers = [number(released) for released, _ in history]
    if numbers != sorted(set(numbers)):
        faults.append("releases.txt does not rise from line to line.")
    if numbers[-1] > number(version):
        faults.append(f"releases.txt is ahead of version {version}.")
    return faults


def accept(lines, version, folder):
    """Writes a changed promise down; answers with what speaks against it."""
    made_for, written = golden(folder)
    gone, come = differences(written, lines)
    if not gone and not come:
        return []
    old, new = number(made_for), number(version)
    if gone and new[0] <= old[0]:
        return [*gone, f"What version {made_for} promised changes: that needs version {old[0] + 1}.0.0, not {version}."]
    if new[:2] <= old[:2]:
        return [*come, f"More is promised than in {made_for}: that needs version {old[0]}.{old[1] + 1}.0, not {version}."]
    (folder / "scrivctl3.abi").write_text("\n".join([f"version {version}", *lines]) + "\n", encoding="utf-8")
    with open(folder / "releases.txt", "a", encoding="utf-8") as file:
        file.write(f"{version} {digest(lines)}\n")
    return []


# What each kind of line means to a compiler. A line that fits none of them is a mistake in this table.
SAME = "typedef char {}[({}) ? 1 : -1];"
LAYOUT = [
    (r"constant (\w+) = (-?\d+)", SAME.format(r"same\g<1>", r"\g<1> == \g<2>")),
    (r"record (\w+): (\d+) bytes, .+", SAME.format(r"same\g<1>", r"sizeof(\g<1>) == \g<2>")),
    (r"record (\w+)\.(\w+): .+, (\d+) bytes at (\d+)",
     SAME.format(r"same\g<1>\g<2>",
                 r"sizeof(((\g<1>*)0)->\g<2>) == \g<3> && offsetof(\g<1>, \g<2>) == \g<4>")),
    (r"function (\w+): ([^(]+?) ?(\(.*\))", r"void call\g<1>(\g<2> (**same)\g<3>);"
     r" void call\g<1>(\g<2> (**same)\g<3>) { *same = \g<1>; }"),
    (r"(type|macro) .*", None),
]


def layout(lines):
    for line in lines:
        form, text = next((form, text) for form, text in LAYOUT if re.fullmatch(form, line))
        if text:
            yield re.sub(f"^{form}$", text, line)


def main(command, version=None, header=None, compiler=None, clang=None):
    if command == "layout":
        print("\n".join(layout(golden(HERE)[1])))
        return 0
    lines = describe(Header(header, clang, STAND_IN), [compiler])
    faults = {"check": check, "accept": accept}[command](lines, version, HERE)
    print("\n".join(faults) or f"{len(lines)} promises, version {golden(HERE)[0]}")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
