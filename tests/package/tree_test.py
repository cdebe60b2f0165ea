"""What is in the package, and that it names nothing of the machine that it was made on."""

import re
import struct
import unittest
import zlib

from support import BUILD, NAME, SOURCE, Unpacked, names_in

FIXED = [
    "README.md",
    "bin/scrivctl3.dll",
    "lib/libscrivctl3.dll.a",
    "lib/pkgconfig/scrivctl3.pc",
    "lib/scrivctl3.lib",
    "share/doc/scrivctl3/CHANGELOG.md",
    "share/doc/scrivctl3/NOTICES.txt",
    "share/doc/scrivctl3/examples/minimal/CMakeLists.txt",
    "share/doc/scrivctl3/examples/minimal/minimal.c",
    "share/doc/scrivctl3/packaging/README.md",
    "share/scrivctl3/scrivctl3-config-version.cmake",
    "share/scrivctl3/scrivctl3-config.cmake",
]
LINK = re.compile(r"\]\(([^)#]+)[^)]*\)")
CODE = re.compile(r"^```.*?^```$|^    .*?$|`[^`]*`", re.MULTILINE | re.DOTALL)
TEXT = {".md", ".txt", ".cmake", ".pc", ".h", ".hpp", ".c"}


class Tree(Unpacked):
    def test_it_has_these_files_and_no_others(self):
        documents = [f"share/doc/scrivctl3/{path.relative_to(SOURCE).as_posix()}"
                     for path in [*SOURCE.glob("README*.md"), *(SOURCE / "docs").rglob("*")] if path.is_file()]
        headers = [f"include/{name}" for name in names_in(SOURCE / "include")]
        self.assertIn("include/scrivctl3.h", headers)
        self.assertEqual(names_in(self.prefix), sorted(FIXED + headers + documents))

    def test_it_has_the_dll_that_was_built(self):
        self.assertEqual((self.prefix / "bin/scrivctl3.dll").read_bytes(), (BUILD / "bin/scrivctl3.dll").read_bytes())

    def test_links_between_its_documents_lead_somewhere(self):
        links = [(page, link) for page in self.prefix.rglob("*.md")
                 for link in LINK.findall(CODE.sub("", page.read_text("utf-8"))) if "://" not in link]
        self.assertTrue(links)
        self.assertEqual([(page.name, link) for page, link in links if not (page.parent / link).exists()], [])

    def test_its_readme_names_files_that_it_has(self):
        named = re.findall(r"`((?:bin|include|lib|share)/[^`*]*)`", (self.prefix / "README.md").read_text("utf-8"))
        self.assertIn("bin/scrivctl3.dll", named)
        self.assertEqual([name for name in named if not (self.prefix / name).exists()], [])

    def test_it_knows_nothing_of_where_it_was_made(self):
        texts = [path for path in self.prefix.rglob("*") if path.suffix in TEXT]
        for place in (str(SOURCE), str(BUILD), "/tmp/", "/home/", "/root/"):
            self.assertEqual([path.name for path in texts if place in path.read_text("utf-8")], [])


class Installed(Unpacked):
    def test_cmake_installs_the_same_and_the_debug_information(self):
        self.run_tool("cmake", "--install", BUILD, "--prefix", self.folder / "installed")
        packed = set(names_in(self.prefix)) - {"README.md"}  # at the top of the zip only
        self.assertEqual(set(names_in(self.folder / "installed")), packed | {"bin/scrivctl3.dll.debug"})


class DebugInformation(Unpacked):
    def test_it_is_a_package_of_its_own(self):
        self.assertEqual(names_in(self.unpack(f"{NAME}-debug.zip") / NAME), ["bin/scrivctl3.dll.debug"])

    def test_it_belongs_to_the_dll(self):
        debug = (self.unpack(f"{NAME}-debug.zip") / NAME / "bin/scrivctl3.dll.debug").read_bytes()
        dll = (self.prefix / "bin/scrivctl3.dll").read_bytes()
        name = b"scrivctl3.dll.debug\0"
        at = dll.index(name) + len(name)
        # The checksum by which a debugger knows that the file is the right one stands behind its name.
        self.assertEqual(struct.unpack_from("<I", dll, at)[0], zlib.crc32(debug))


if __name__ == "__main__":
    unittest.main()
