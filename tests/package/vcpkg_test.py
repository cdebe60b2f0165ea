"""The port for vcpkg, as far as it can be tried without vcpkg: its own steps run, with stand-ins for vcpkg's functions."""

import json
import os
import unittest

from find_package_test import COMPILERS, SAID
from support import HERE, VERSION, Unpacked, names_in

KEYS = {"name", "version-semver", "description", "license", "supports"}


class Port(Unpacked):
    def setUp(self):
        super().setUp()
        self.port = self.unpack(f"scrivctl3-{VERSION}-vcpkg.zip") / "scrivctl3"

    def install(self, *options):
        self.packages = self.folder / "packages"
        self.run_tool("cmake", f"-DCURRENT_PACKAGES_DIR={self.packages}", f"-DVERSION={VERSION}", *options,
                      f"-DPORT={self.port}", "-P", HERE / "vcpkg_stand_in.cmake")

    def test_its_description_is_well_formed(self):
        port = json.loads((self.port / "vcpkg.json").read_text(encoding="utf-8"))
        self.assertEqual((port["name"], port["version-semver"]), ("scrivctl3", VERSION))
        self.assertEqual(set(port), KEYS)

    def test_it_installs_release_and_debug(self):
        self.install()
        libraries = ["bin/scrivctl3.dll", "lib/libscrivctl3.dll.a", "lib/pkgconfig/scrivctl3.pc", "lib/scrivctl3.lib"]
        shared = [f"share/scrivctl3/{name}" for name in
                  ("copyright", "scrivctl3-config-version.cmake", "scrivctl3-config.cmake", "usage")]
        headers = [f"include/{name}" for name in names_in(self.prefix / "include")]
        self.assertEqual(names_in(self.packages),
                         sorted(libraries + [f"debug/{name}" for name in libraries] + shared + headers))

    def test_a_triplet_of_releases_gets_no_debug_folder(self):
        self.install("-DVCPKG_BUILD_TYPE=release")
        self.assertFalse((self.packages / "debug").exists())

    def test_a_project_finds_what_it_installed(self):
        self.install()
        build = self.configure(HERE / "consumer", *COMPILERS, f"-Dscrivctl3_DIR={self.packages}/share/scrivctl3",
                               target="host_c")
        self.assertEqual(self.run_program(build / "host_c.exe"), SAID)

    def test_it_says_what_is_missing(self):
        os.remove(self.port / f"scrivctl3-{VERSION}-win64.zip")
        with self.assertRaisesRegex(AssertionError, f"Put scrivctl3-{VERSION}-win64.zip"):
            self.install()


if __name__ == "__main__":
    unittest.main()
