"""A compiler called with what pkg-config tells of the installed control."""

import os
import shlex
import unittest

from support import HERE, VERSION, Unpacked


class PkgConfig(Unpacked):
    def ask(self, *options):
        # Nothing of this machine's own packages, whose libraries are not for Windows.
        places = {"PKG_CONFIG_LIBDIR": "", "PKG_CONFIG_PATH": str(self.prefix / "lib/pkgconfig")}
        return shlex.split(self.run_tool(os.environ["SCRIV_PKGCONF"], *options, "scrivctl3", env={**os.environ, **places}))

    def test_a_host_is_built_and_runs(self):
        self.run_tool(os.environ["SCRIV_CC"], HERE / "consumer/host.c", "-o", "host.exe", *self.ask("--cflags", "--libs"))
        said = self.run_program(self.folder / "host.exe", WINEPATH=f"Z:{self.prefix}/bin".replace("/", "\\"))
        self.assertEqual(said, (0, "3 lines, the last of 5 letters"))

    def test_the_version_is_told(self):
        self.assertEqual(self.ask("--modversion"), [VERSION])


if __name__ == "__main__":
    unittest.main()
