#!/usr/bin/env python3
"""Holds the names that a DLL exports against a list: check_exports.py OBJDUMP DLL LIST.

The names are read by the tool of the compiler, so this stands apart from the module definition file that the DLL is
made with, and from check_dll.py. The list has one name a line; it changes only together with the promise to hosts.
"""

import pathlib
import re
import subprocess
import sys

NAME = re.compile(r"^\s*\[\s*\d+\]\s+(?:\+base\[\s*\d+\]\s+[0-9a-f]+\s+)?(\w+)$", re.MULTILINE)


def main(objdump, dll, listed):
    text = subprocess.run([objdump, "-p", dll], check=True, capture_output=True, text=True).stdout
    found = NAME.findall(text[text.index("[Ordinal/Name Pointer] Table"):])
    wanted = pathlib.Path(listed).read_text(encoding="ascii").split()
    faults = [f"lacks {name}" for name in wanted if name not in found]
    faults += [f"has {name}, which no list knows" for name in found if name not in wanted]
    print("\n".join(faults) or f"{dll}: exactly the {len(found)} names")
    return 1 if faults or len(found) != len(wanted) else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
