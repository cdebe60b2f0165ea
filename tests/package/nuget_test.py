"""The package for NuGet, as far as it can be tried without NuGet and MSBuild: well formed, and every path leads to a file."""

import re
import unittest
import xml.etree.ElementTree as ElementTree

from support import VERSION, Unpacked, names_in

NUSPEC = "{http://schemas.microsoft.com/packaging/2013/05/nuspec.xsd}"
MSBUILD = "{http://schemas.microsoft.com/developer/msbuild/2003}"
OPC = "{http://schemas.openxmlformats.org/package/2006/"
BESIDE = re.compile(r"\$\(MSBuildThisFileDirectory\)([^;<\"]+)")


class Package(Unpacked):
    def setUp(self):
        super().setUp()
        self.package = self.unpack(f"scrivctl3.{VERSION}.nupkg")

    def xml(self, name):
        return ElementTree.parse(self.package / name).getroot()

    def test_its_manifest_tells_what_nuget_requires(self):
        metadata = self.xml("scrivctl3.nuspec").find(f"{NUSPEC}metadata")
        told = {child.tag.removeprefix(NUSPEC): child.text for child in metadata}
        self.assertEqual((told["id"], told["version"]), ("scrivctl3", VERSION))
        self.assertTrue(told["authors"] and told["description"])
        self.assertTrue((self.package / told["readme"]).is_file())

    def test_it_has_the_files_of_the_manifest(self):
        files = [file.get("target") for file in self.xml("scrivctl3.nuspec").iter(f"{NUSPEC}file")]
        self.assertTrue(files)
        self.assertEqual([name for name in files if not (self.package / name).exists()], [])
        self.assertEqual(names_in(self.package / "build/native/include"), names_in(self.prefix / "include"))

    def test_its_targets_are_named_after_it_and_name_files_that_it_has(self):
        self.assertEqual(self.xml("build/native/scrivctl3.targets").tag, f"{MSBUILD}Project")
        targets = self.package / "build/native/scrivctl3.targets"
        named = [name.replace("\\", "/") for name in BESIDE.findall(targets.read_text(encoding="utf-8"))]
        self.assertEqual(len(named), 3)  # the include folder, the library, the DLL
        self.assertEqual([name for name in named if not (targets.parent / name).exists()], [])

    def test_it_is_a_package_by_the_open_packaging_conventions(self):
        relation = self.xml("_rels/.rels").find(f"{OPC}relationships}}Relationship")
        self.assertTrue((self.package / relation.get("Target").lstrip("/")).is_file())
        known = {row.get("Extension") for row in self.xml("[Content_Types].xml")}
        kinds = {name.rpartition(".")[2] for name in names_in(self.package) if name != "[Content_Types].xml"}
        self.assertEqual(kinds - known, set())


if __name__ == "__main__":
    unittest.main()
