#!/usr/bin/env python3
"""Checks what the DLL can call: check_calls.py CHECK DLL MORE.

    calls DLL LIST            only functions of the list, so nothing of the network, the registry or other processes
    protector DLL DEBUG NM OBJDUMP
                              functions with arrays on the stack look whether these were overrun
"""

import pathlib
import re
import subprocess
import sys

from check_dll import Image

FEWEST_PROTECTED = 100  # of some 3,000 functions; without the option at compiling there are none
# What no line of the list may permit, whoever asks for it.
NEVER = re.compile(r"^(Reg(Set|Create|Delete|Save|Restore|Load|Replace)|CreateProcess|ShellExecute|WinExec|_?w?system$|_?w?exec|"
                   r"_?w?spawn|CreateRemoteThread|WriteProcessMemory|SetWindowsHookEx|connect$|WSA|Internet|WinHttp|URLDownload)")


def called(dll):
    """(library, function) for all that the image imports by name; by number for what has none."""
    image = Image(dll)
    at = image.offset(image.directories[1][0])
    while name := image.unpack("<I", at + 12)[0]:
        library = image.text(name).lower()
        thunk = image.offset(image.unpack("<I", at)[0])
        while value := image.unpack("<Q", thunk)[0]:
            yield library, f"#{value & 0xFFFF}" if value >> 63 else image.text(value + 2)
            thunk += 8
        at += 20


def listed(path):
    """The lines of the list: a library, then the functions that it is asked for; # begins a comment."""
    found, library = set(), None
    for line in pathlib.Path(path).read_text(encoding="utf-8").splitlines():
        words = line.split("#")[0].split()
        if words and words[0].endswith(":"):
            library = words.pop(0)[:-1]
        found.update((library, word) for word in words)
    return found


def calls(dll, path):
    permitted = listed(path)
    return [f"calls {name} of {library}" for library, name in sorted(set(called(dll)) - permitted)] + \
           [f"is permitted {name}" for _, name in sorted(permitted) if NEVER.match(name)]


def protector(dll, debug, nm, objdump):
    symbols = subprocess.run([nm, debug], check=True, capture_output=True, text=True).stdout
    place = re.search(r"^0*([0-9a-f]+) T __stack_chk_fail$", symbols, re.M)
    if not place:
        return ["has no stack protector"]
    code = subprocess.run([objdump, "-d", "--no-show-raw-insn", dll], check=True, capture_output=True, text=True).stdout
    count = len(re.findall(rf"\bcall\s+0x{place[1]}\b", code))
    print(f"{count} places where a function finds its stack overrun")
    return [] if count >= FEWEST_PROTECTED else [f"has only {count} protected functions"]


def main(check, dll, *more):
    faults = {"calls": calls, "protector": protector}[check](dll, *more)
    print("\n".join(f"{dll} {fault}" for fault in faults) or f"{dll}: {check} as it should be")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
