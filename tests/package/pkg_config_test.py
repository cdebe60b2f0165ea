"""A compiler called with what pkg-config tells of the installed control."""

import os
import re
import shlex
import unittest

from support import HERE, VERSION, Unpacked

PROGRAM = re.compile(r"^<!-- program: (\w+) -->\n```(c|cpp)\n(.*?)^```$", re.MULTILINE | re.DOTALL)


class PkgConfig(Unpacked):
    def ask(self, *options):
        # Nothing of this machine's own packages, whose libraries are not for Windows.
        places = {"PKG_CONFIG_LIBDIR": "", "PKG_CONFIG_PATH": str(self.prefix / "lib/pkgconfig")}
        return shlex.split(self.run_tool(os.environ["SCRIV_PKGCONF"], *options, "scrivctl3", env={**os.environ, **places}))

    def test_a_host_is_built_and_runs(self):
        self.run_tool(os.environ["SCRIV_CC"], HERE / "consumer/host.c", "-o", "host.exe", *self.ask("--cflags", "--libs"))
        said = self.run_program(self.folder / "host.exe", WINEPATH=f"Z:{self.prefix}/bin".replace("/", "\\"))
        self.assertEqual(said, (0, "3 lines, the last of 5 letters"))

    def test_the_programs_of_the_documents_are_built_alone(self):
        page = (self.prefix / "share/doc/scrivctl3/docs/api.md").read_text(encoding="utf-8")
        programs = PROGRAM.findall(page)
        self.assertEqual({language for _, language, _ in programs}, {"c", "cpp"})
        options = {"c": [os.environ["SCRIV_CC"], "-std=c99"], "cpp": [os.environ["SCRIV_CXX"], "-std=c++17", "-static"]}
        for name, language, text in programs:
            (self.folder / f"{name}.{language}").write_text(text, encoding="utf-8")
            self.run_tool(*options[language], "-municode", "-mwindows", f"{name}.{language}", "-o", f"{name}.exe",
                          *self.ask("--cflags", "--libs"))

    def test_the_version_is_told(self):
        self.assertEqual(self.ask("--modversion"), [VERSION])


if __name__ == "__main__":
    unittest.main()
