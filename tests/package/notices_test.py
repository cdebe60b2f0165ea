"""The notices name every library that has code in the DLL, as the linker's own map tells, and no other."""

import re
import unittest

from support import BUILD, SOURCE, Unpacked

# The map lists a member of a library as FOLDER/LIBRARY(MEMBER). What leads to a DLL of the system is a stub of no code.
MEMBER = re.compile(r"^\S*?([^/\s]+\.a)\(([^)]+)\)", re.MULTILINE)
LOADED = re.compile(r"^LOAD \S*?/lib/\S*?([^/\s]+\.o)$", re.MULTILINE)
STUB = re.compile(r"(lib\w+|_defs)[sht]\d*\.o$")
OWN = {"libscriv_control.a", "libscriv_engine.a"}
NAMED = re.compile(r"^    (\S+)\s+(\d(?:, \d)*)$", re.MULTILINE)


class Notices(Unpacked):
    def linked(self):
        text = (BUILD / "scrivctl3.map").read_text(encoding="utf-8", errors="replace")
        members = {library for library, member in MEMBER.findall(text) if not STUB.search(member)}
        return (members - OWN) | set(LOADED.findall(text))

    def notices(self):
        return (SOURCE / "packaging/NOTICES.txt").read_text(encoding="utf-8")

    def test_they_name_what_is_linked(self):
        self.assertEqual({name for name, _ in NAMED.findall(self.notices())}, self.linked())

    def test_each_name_has_its_terms(self):
        headings = set(re.findall(r"^(\d)\. ", self.notices(), re.MULTILINE))
        used = {number for _, numbers in NAMED.findall(self.notices()) for number in numbers.split(", ")}
        self.assertLessEqual(used, headings)
        for words in ("GCC RUNTIME LIBRARY EXCEPTION", "Permission is hereby granted, free of charge", "Lockless Inc.",
                      "LUCENT DISCLAIMS ALL WARRANTIES", "Keith Marshall", "Servicemarks"):
            self.assertIn(words, self.notices())

    def test_they_are_in_every_package_that_has_the_dll(self):
        for package in (f"{self.prefix.name}.zip", f"scrivctl3.{self.prefix.name.split('-')[1]}.nupkg"):
            found = list(self.unpack(package).rglob("NOTICES.txt"))
            self.assertEqual([path.read_text(encoding="utf-8") for path in found], [self.notices()])


if __name__ == "__main__":
    unittest.main()
