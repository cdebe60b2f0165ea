#!/usr/bin/env python3
"""Says whether a test would be run in a way that it cannot fail: check_tests.py BUILD EMULATOR...

CMake puts the emulator in front of a test whose command is a target, an imported one as well, and Wine starts a program
of the host (an interpreter, a shell) without waiting for it: such a test passes whatever it finds.
"""

import pathlib
import re
import sys

TEST = re.compile(r'^add_test\((\S+) (.*)\)$', re.MULTILINE)
WORD = re.compile(r'"((?:[^"\\]|\\.)*)"')


def main(build, *emulator):
    tests = [(name, WORD.findall(words)) for path in sorted(pathlib.Path(build).rglob("CTestTestfile.cmake"))
             for name, words in TEST.findall(path.read_text(encoding="utf-8"))]
    emulated = [(name, words[len(emulator)]) for name, words in tests if words[:len(emulator)] == list(emulator)]
    faults = [f"{name} runs {program} under the emulator" for name, program in emulated if not program.endswith(".exe")]
    print("\n".join(faults) or f"{len(tests)} tests, {len(emulated)} of them under the emulator")
    return 1 if faults or not emulated else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
