"""The version stands in CMakeLists.txt; every other place that shows it agrees."""

import json
import re
import unittest
import xml.etree.ElementTree as ElementTree

from support import MADE, SOURCE, VERSION, Unpacked

NUSPEC = "{http://schemas.microsoft.com/packaging/2013/05/nuspec.xsd}"
RELEASE = re.compile(r"^## \[(\d+\.\d+\.\d+)\] - (\d{4}-\d{2}-\d{2})$", re.MULTILINE)
HEADING = re.compile(r"^### (.*)$", re.MULTILINE)
KINDS = {"Added", "Changed", "Deprecated", "Removed", "Fixed", "Security"}


def text(path):
    return path.read_text(encoding="utf-8")


class Versions(Unpacked):
    def test_the_project_is_where_it_comes_from(self):
        self.assertEqual(re.search(r"project\(scrivctl3 VERSION (\S+)", text(SOURCE / "CMakeLists.txt"))[1], VERSION)
        self.assertRegex(VERSION, r"^\d+\.\d+\.\d+$")

    def test_the_changelog_ends_its_newest_part_with_it(self):
        releases = RELEASE.findall(text(SOURCE / "CHANGELOG.md"))
        self.assertEqual(releases[0][0], VERSION)
        numbers = [tuple(map(int, version.split("."))) for version, _ in releases]
        self.assertEqual(numbers, sorted(set(numbers), reverse=True))
        self.assertEqual([day for _, day in releases], sorted((day for _, day in releases), reverse=True))

    def test_the_changelog_knows_the_six_kinds_of_change_only(self):
        self.assertLessEqual(set(HEADING.findall(text(SOURCE / "CHANGELOG.md"))), KINDS)

    def test_the_resource_of_the_dll_has_it(self):
        dll = (self.prefix / "bin/scrivctl3.dll").read_bytes()
        for key in ("FileVersion", "ProductVersion"):
            block = (key + "\0").encode("utf-16-le")
            at = dll.index(block) + len(block)
            self.assertIn((VERSION + ".0\0").encode("utf-16-le"), dll[at:at + 40])

    def test_pkg_config_has_it(self):
        self.assertIn(f"\nVersion: {VERSION}\n", text(self.prefix / "lib/pkgconfig/scrivctl3.pc"))

    def test_find_package_has_it(self):
        self.assertIn(f'set(PACKAGE_VERSION "{VERSION}")',
                      text(self.prefix / "share/scrivctl3/scrivctl3-config-version.cmake"))

    def test_the_port_for_vcpkg_has_it(self):
        self.assertEqual(json.loads(text(SOURCE / "packaging/vcpkg/vcpkg.json"))["version-semver"], VERSION)

    def test_the_package_for_nuget_has_it(self):
        root = ElementTree.parse(SOURCE / "packaging/nuget/scrivctl3.nuspec").getroot()
        self.assertEqual(root.find(f"{NUSPEC}metadata/{NUSPEC}version").text, VERSION)

    def test_the_names_of_the_packages_have_it(self):
        made = {path.name for path in MADE.iterdir() if path.is_file()}
        self.assertEqual(made, {f"scrivctl3-{VERSION}-win64.zip", f"scrivctl3-{VERSION}-win64-debug.zip",
                                f"scrivctl3-{VERSION}-vcpkg.zip", f"scrivctl3.{VERSION}.nupkg"})

    def test_what_is_documented_asks_for_a_version_that_is_found(self):
        major_and_minor = ".".join(VERSION.split(".")[:2])
        for path in ("packaging/README.md", "examples/minimal/CMakeLists.txt"):
            for wanted in re.findall(r"find_package\(scrivctl3 (\S+)", text(SOURCE / path)):
                self.assertEqual(wanted.split(".")[0], VERSION.split(".")[0])
                self.assertLessEqual(float(wanted), float(major_and_minor))


if __name__ == "__main__":
    unittest.main()
