#!/usr/bin/env python3
"""Holds the declarations of a language against the header: check_declarations.py LANGUAGE HEADER FILE [COMPILER].

Every constant, every function with its parameters and every record with its fields, sizes and places has to be there,
and nothing else. LANGUAGE "c" asks the C compiler whether the header was read right; "cpp" asks that each function is
called.
"""

import pathlib
import re
import subprocess
import sys

from declarations import READERS, layout, read_c


def differences(what, wanted, found):
    for name in sorted(wanted.keys() | found.keys()):
        if wanted.get(name) != found.get(name):
            yield f"{what} {name}: {found.get(name, 'absent')}, in the header {wanted.get(name, 'absent')}"


def check_language(language, header, path, _):
    found = READERS[language](path)
    faults = []
    for what, one, other in zip(("constant", "function", "record"), header, found):
        faults += differences(what, one, other)
    return faults


def check_calls(_, header, path, __):
    code = re.sub(r"//[^\n]*", "", path.read_text(encoding="utf-8"))
    return [f"{name} is never called" for name in header.functions if not re.search(rf"\b{name}\b", code)]


def check_reading(_, header, path, compiler):
    lines = [f'#include "{path}"']
    for name, value in header.constants.items():
        lines.append(f"_Static_assert({name} == {value}, \"{name}\");")
    for name, fields in header.records.items():
        lines.append(f"_Static_assert(sizeof({name}) == {layout(fields)[1]}, \"{name}\");")
    run = subprocess.run([compiler, "-std=c11", "-fsyntax-only", "-xc", "-"], input="\n".join(lines), text=True,
                         capture_output=True)
    return run.stderr.splitlines() if run.returncode else []


CHECKS = {"c": check_reading, "cpp": check_calls}


def main(language, header_path, path, compiler=None):
    header = read_c(pathlib.Path(header_path))
    assert len(header.functions) == 35 and len(header.records) == 6 and len(header.constants) > 50
    faults = CHECKS.get(language, check_language)(language, header, pathlib.Path(path), compiler)
    print("\n".join(faults) or f"{language}: {len(header.functions)} functions, {len(header.constants)} constants, "
                               f"{len(header.records)} records")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
