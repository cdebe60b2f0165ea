"""A CMake project in a folder of its own finds the installed control, is built with it and runs."""

import os
import shutil
import unittest

from support import HERE, SOURCE, VERSION, Unpacked

SAID = (0, "3 lines, the last of 5 letters")
COMPILERS = [f"-DCMAKE_C_COMPILER={os.environ['SCRIV_CC']}", f"-DCMAKE_CXX_COMPILER={os.environ['SCRIV_CXX']}",
             "-DCMAKE_RC_COMPILER=x86_64-w64-mingw32-windres"]
ASK = """cmake_minimum_required(VERSION 3.21)
project(ask LANGUAGES {language})
find_package(scrivctl3 {wanted} CONFIG)
message(NOTICE "found: ${{scrivctl3_FOUND}} ${{scrivctl3_VERSION}} ${{scrivctl3_CONSIDERED_VERSIONS}}")
"""


class FindPackage(Unpacked):
    def ask(self, wanted, *options, language="NONE"):
        """What find_package says of a version, in a project without a compiler unless one is named."""
        (self.folder / "CMakeLists.txt").write_text(ASK.format(wanted=wanted, language=language))
        shutil.rmtree(self.folder / "ask", ignore_errors=True)
        output = self.run_tool("cmake", "-G", "Ninja", "-S", self.folder, "-B", self.folder / "ask",
                               f"-DCMAKE_PREFIX_PATH={self.prefix}", *options)
        return next(line for line in output.splitlines() if line.startswith("found: "))

    def test_hosts_in_c_and_in_cxx_are_built_and_run(self):
        build = self.configure(shutil.copytree(HERE / "consumer", self.folder / "source"), *COMPILERS,
                               f"-DCMAKE_PREFIX_PATH={self.prefix}")
        self.assertEqual(self.run_program(build / "host_c.exe"), SAID)
        self.assertEqual(self.run_program(build / "host_cxx.exe"), SAID)
        self.assertEqual(self.run_program(build / "owner.exe"), (0, "3 lines"))

    def test_the_smallest_host_of_the_package_is_built_where_it_lies(self):
        example = self.prefix / "share/doc/scrivctl3/examples/minimal"
        # By a toolchain file that looks into the compiler's own folders only, as in most cross-builds.
        build = self.configure(example, f"-DCMAKE_TOOLCHAIN_FILE={SOURCE}/cmake/mingw-w64.cmake",
                               f"-Dscrivctl3_DIR={self.prefix}/share/scrivctl3")
        self.assertTrue((build / "minimal.exe").is_file())
        self.assertEqual((build / "scrivctl3.dll").read_bytes(), (self.prefix / "bin/scrivctl3.dll").read_bytes())

    def test_the_version_decides(self):
        windows = "-DCMAKE_SYSTEM_NAME=Windows"
        self.assertIn(f"found: 1 {VERSION}", self.ask("3.0", windows))
        self.assertIn("found: 0", self.ask("2.9", windows))
        self.assertIn("found: 0", self.ask("4.0", windows))
        self.assertIn("found: 0", self.ask("3.999", windows))

    def test_other_systems_have_no_such_control(self):
        self.assertIn("found: 0", self.ask("3.0"))


if __name__ == "__main__":
    unittest.main()
