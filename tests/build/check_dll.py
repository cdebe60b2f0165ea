#!/usr/bin/env python3
"""Checks the DLL that users get: check_dll.py CHECK DLL [MORE].

    imports DLL          only libraries that every Windows has
    exports DLL ABI      exactly the functions that the list of promises has (tests/package/abi)
    hardening DLL        may be loaded anywhere, and no section is both writable and executable
    paths DLL WORD...    none of the words, which are folders of the building machine
    timeless DLL         no time of day, so that two builds can be the same
"""

import pathlib
import struct
import sys

SYSTEM_DLLS = {
    "advapi32.dll", "comctl32.dll", "comdlg32.dll", "gdi32.dll", "kernel32.dll", "msvcrt.dll", "ole32.dll",
    "oleaut32.dll", "shell32.dll", "user32.dll", "winspool.drv",
}
HIGH_ENTROPY, DYNAMIC_BASE, NX = 0x0020, 0x0040, 0x0100
EXECUTABLE, WRITABLE = 0x20000000, 0x80000000


class Image:
    """A 64-bit PE file, as far as these checks look."""

    def __init__(self, path):
        self.data = pathlib.Path(path).read_bytes()
        self.pe = pe = self.unpack("<I", 0x3C)[0]
        if self.data[pe:pe + 4] != b"PE\0\0":
            raise ValueError("no PE file")
        count, optional_size = self.unpack("<H", pe + 6)[0], self.unpack("<H", pe + 20)[0]
        optional = pe + 24
        if self.unpack("<H", optional)[0] != 0x20B:
            raise ValueError("not for 64 bits")
        self.characteristics = self.unpack("<H", optional + 70)[0]
        self.directories = [self.unpack("<II", optional + 112 + 8 * i) for i in range(16)]
        self.sections = [self.section(optional + optional_size + 40 * i) for i in range(count)]

    def unpack(self, form, offset):
        return struct.unpack_from(form, self.data, offset)

    def section(self, offset):
        name, size, address, raw_size, raw = self.unpack("<8sIIII", offset)
        return name.rstrip(b"\0").decode(), address, max(size, raw_size), raw, self.unpack("<I", offset + 36)[0]

    def offset(self, address):
        for _, start, size, raw, _ in self.sections:
            if start <= address < start + size:
                return address - start + raw
        raise ValueError(f"address {address:#x} lies in no section")

    def text(self, address):
        start = self.offset(address)
        return self.data[start:self.data.index(b"\0", start)].decode("ascii")

    def imports(self):
        at = self.offset(self.directories[1][0])
        while name := self.unpack("<I", at + 12)[0]:
            yield self.text(name).lower()
            at += 20

    def exports(self):
        at = self.offset(self.directories[0][0])
        functions, names = self.unpack("<II", at + 20)
        table = self.offset(self.unpack("<I", at + 32)[0])
        if functions != names:
            yield f"({functions - names} without a name)"
        yield from (self.text(self.unpack("<I", table + 4 * i)[0]) for i in range(names))


def imports(dll):
    strange = sorted(set(Image(dll).imports()) - SYSTEM_DLLS)
    return [f"imports {name}" for name in strange]


def promised(listed):
    """The names behind the word function in the list of what compiled hosts are promised."""
    lines = pathlib.Path(listed).read_text(encoding="utf-8").splitlines()
    return {line.split()[1].rstrip(":") for line in lines if line.startswith("function ")}


def exports(dll, listed):
    wanted, found = promised(listed), set(Image(dll).exports())
    return [f"does not export {name}" for name in sorted(wanted - found)] + \
           [f"exports {name}" for name in sorted(found - wanted)]


def hardening(dll):
    image = Image(dll)
    wanted = {"HIGH_ENTROPY_VA": HIGH_ENTROPY, "DYNAMIC_BASE": DYNAMIC_BASE, "NX_COMPAT": NX}
    faults = [f"lacks {name}" for name, bit in wanted.items() if not image.characteristics & bit]
    if not image.directories[5][1]:
        faults.append("has no relocations, so it cannot be moved")
    return faults + [f"section {name} is writable and executable" for name, _, _, _, flags in image.sections
                     if flags & EXECUTABLE and flags & WRITABLE]


def paths(dll, *words):
    data = pathlib.Path(dll).read_bytes().lower()
    forms = ((word, text) for word in words for text in (word, word.replace("/", "\\")))
    return [f"contains {word}" for word, text in forms
            if text.lower().encode() in data or text.lower().encode("utf-16-le") in data]


def timeless(dll):
    image = Image(dll)
    export_table = image.offset(image.directories[0][0])
    stamps = {"the header": image.unpack("<I", image.pe + 8)[0], "the exports": image.unpack("<I", export_table + 4)[0]}
    return [f"has the time {stamp} in {place}" for place, stamp in stamps.items() if stamp]


def main(check, dll, *more):
    checks = {"imports": imports, "exports": exports, "hardening": hardening, "paths": paths, "timeless": timeless}
    faults = checks[check](dll, *more)
    print("\n".join(f"{dll} {fault}" for fault in faults) or f"{dll}: {check} as it should be")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
