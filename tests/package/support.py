"""What the tests of the package share: the packages as tools/package.sh made them, and programs run under Wine."""

import os
import pathlib
import subprocess
import tempfile
import unittest
import zipfile

SOURCE, BUILD, MADE = (pathlib.Path(os.environ[name]) for name in ("SCRIV_SOURCE", "SCRIV_BUILD", "SCRIV_MADE"))
EMULATOR = os.environ["SCRIV_EMULATOR"].split(":")
VERSION = os.environ["SCRIV_VERSION"]
NAME = f"scrivctl3-{VERSION}-win64"
HERE = pathlib.Path(__file__).resolve().parent


def names_in(folder):
    return sorted(path.relative_to(folder).as_posix() for path in pathlib.Path(folder).rglob("*") if path.is_file())


class Unpacked(unittest.TestCase):
    """A fresh folder outside of the source tree, its name with a blank, with the package unpacked in it."""

    def setUp(self):
        scratch = tempfile.TemporaryDirectory(prefix="a host ")
        self.addCleanup(scratch.cleanup)
        self.folder = pathlib.Path(scratch.name)
        self.prefix = self.unpack(f"{NAME}.zip") / NAME

    def unpack(self, package):
        target = self.folder / pathlib.Path(package).stem
        with zipfile.ZipFile(MADE / package) as archive:
            archive.extractall(target)
        return target

    def run_tool(self, *command, **more):
        result = subprocess.run([str(word) for word in command], cwd=self.folder, stdin=subprocess.DEVNULL,
                                stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, check=False, **more)
        self.assertEqual(result.returncode, 0, result.stdout)
        return result.stdout

    def run_program(self, program, **variables):
        """Status and output of a Windows program."""
        # Not a pipe: what Wine leaves running holds its end open, and reading it would wait for that.
        with tempfile.TemporaryFile() as said:
            status = subprocess.run([*EMULATOR, str(program)], cwd=self.folder, timeout=60, check=False,
                                    stdin=subprocess.DEVNULL, stdout=said, stderr=subprocess.STDOUT,
                                    env={**os.environ, **variables}).returncode
            said.seek(0)
            return status, said.read().decode("utf-8", "replace").strip()

    def configure(self, source, *options, target="all"):
        """Configures and builds a project with the package as all that it knows of the control."""
        build = self.folder / "build"
        self.run_tool("cmake", "-G", "Ninja", "-S", source, "-B", build, "-DCMAKE_SYSTEM_NAME=Windows", *options)
        self.run_tool("cmake", "--build", build, "--target", target)
        return build
