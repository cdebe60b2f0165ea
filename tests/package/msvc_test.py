"""A project for Microsoft's linker finds the installed control, is linked with its .lib and runs."""

import os
import shutil
import unittest

from support import HERE, Unpacked

OPTIONS = [
    f"-DCMAKE_C_COMPILER={os.environ['SCRIV_CLANG']}", "-DCMAKE_C_COMPILER_TARGET=x86_64-pc-windows-msvc",
    # There is no runtime library of Microsoft's here: the program is linked with the control and nothing else.
    "-DCMAKE_RC_COMPILER=x86_64-w64-mingw32-windres",  # asked for, not used
    "-DCMAKE_TRY_COMPILE_TARGET_TYPE=STATIC_LIBRARY", "-DCMAKE_MSVC_RUNTIME_LIBRARY=", "-DCMAKE_C_STANDARD_LIBRARIES=",
    "-DCMAKE_EXE_LINKER_FLAGS=-Wl,/entry:start,/nodefaultlib",
]


class Msvc(Unpacked):
    def test_a_host_is_linked_and_runs(self):
        build = self.configure(shutil.copytree(HERE / "msvc", self.folder / "source"), *OPTIONS,
                               f"-DCMAKE_PREFIX_PATH={self.prefix}")
        self.assertIn("lib/scrivctl3.lib", (build / "build.ninja").read_text())
        shutil.copy(self.prefix / "bin/scrivctl3.dll", build)
        self.assertEqual(self.run_program(build / "msvc_host.exe")[0], 23)


if __name__ == "__main__":
    unittest.main()
