"""The gate lets nothing through unseen: headers changed in each way that hurts a compiled host, and some that do not."""

import os
import pathlib
import shutil
import sys
import tempfile
import unittest

import gate
from describe import Header, describe

HEADER = pathlib.Path(os.environ["SCRIV_SOURCE"], "include/scrivctl3.h")
CLANG = os.environ["SCRIV_CLANG"]
# The small windows.h instead of the compiler's own takes a tenth of the time; the header as it is gives the same lines.
QUICK = [CLANG, "--target=x86_64-pc-windows-msvc", "-fno-integrated-as", f"-I{gate.STAND_IN}"]


class Gate(unittest.TestCase):
    def setUp(self):
        scratch = tempfile.TemporaryDirectory()
        self.addCleanup(scratch.cleanup)
        self.folder = pathlib.Path(scratch.name)
        for name in ("scrivctl3.abi", "releases.txt"):
            shutil.copy(gate.HERE / name, self.folder)
        self.text = HEADER.read_text(encoding="utf-8")
        major, minor, patch = gate.number(gate.golden(self.folder)[0])
        self.version, self.next_patch = f"{major}.{minor}.{patch}", f"{major}.{minor}.{patch + 1}"
        self.next_minor, self.next_major = f"{major}.{minor + 1}.0", f"{major + 1}.0.0"

    def changed(self, old, new):
        self.assertIn(old, self.text)
        header = self.folder / "scrivctl3.h"
        header.write_text(self.text.replace(old, new, 1), encoding="utf-8")
        return describe(Header(header, CLANG, gate.STAND_IN), QUICK)

    def faults(self, old, new):
        return gate.check(self.changed(old, new), self.version, self.folder)

    def test_the_header_as_it_is_passes(self):
        self.assertEqual(self.faults("", ""), [])

    def test_a_comment_is_no_promise(self):
        self.assertEqual(self.faults("/// Tests a handle.", "/// Tries a handle."), [])

    def test_fields_in_another_order_are_seen(self):
        faults = self.faults("    INT32 x;\n    INT32 y;", "    INT32 y;\n    INT32 x;")
        self.assertIn("- record edPoint.x: INT32, 4 bytes at 0", faults)

    def test_a_field_more_is_seen(self):
        self.assertIn("+ record edPoint: 12 bytes, aligned to 4", self.faults("    INT32 y;", "    INT32 y, z;"))

    def test_another_value_is_seen(self):
        self.assertIn("+ constant ED_MODE_READONLY = 4", self.faults("ED_MODE_READONLY = 3", "ED_MODE_READONLY = 4"))

    def test_another_signature_is_seen(self):
        faults = self.faults("edGetMode(HWND control, UINT32 code)", "edGetMode(HWND control, int code)")
        self.assertIn("+ function edGetMode: BOOL (HWND, int)", faults)

    def test_a_function_less_is_seen(self):
        self.assertIn("- function edPrintingOver: BOOL (HWND)",
                      self.faults("SCRIVCTL3_API BOOL edPrintingOver(HWND control);", ""))

    def test_packing_that_moves_fields_is_seen(self):
        self.assertTrue(any("record edSettingsBlock" in fault
                            for fault in self.faults("#pragma pack(push, 8)", "#pragma pack(push, 1)")))

    def test_a_new_macro_is_seen(self):
        self.assertIn("+ macro ED_MORE = 7", self.faults("#ifdef __cplusplus", "#define ED_MORE 7\n#ifdef __cplusplus"))

    def test_a_declaration_that_is_not_understood_ends_the_description(self):
        with self.assertRaisesRegex(SystemExit, "VarDecl edShared"):
            self.changed("// ---- Lifecycle", "extern int edShared;\n// ---- Lifecycle")

    def test_the_list_cannot_be_edited_without_a_release(self):
        path = self.folder / "scrivctl3.abi"
        path.write_text(path.read_text().replace("ED_MODE_READONLY = 3", "ED_MODE_READONLY = 4"))
        faults = self.faults("ED_MODE_READONLY = 3", "ED_MODE_READONLY = 4")
        self.assertEqual(faults, ["scrivctl3.abi is not what releases.txt has for its last version."])

    def accepted(self, lines, version):
        before = gate.golden(self.folder)
        refused = gate.accept(lines, version, self.folder)
        self.assertEqual(gate.golden(self.folder), before if refused else (version, lines))
        self.assertEqual(bool(gate.check(lines, version, self.folder)), bool(refused))
        return not refused

    def test_what_changes_needs_another_major_version(self):
        lines = self.changed("ED_MODE_READONLY = 3", "ED_MODE_READONLY = 4")
        for version in (self.version, self.next_patch, self.next_minor):
            self.assertFalse(self.accepted(lines, version), version)
        self.assertTrue(self.accepted(lines, self.next_major))

    def test_what_comes_on_top_needs_another_minor_version(self):
        lines = self.changed("ED_MODE_READONLY = 3", "ED_MODE_READONLY = 3,\n    ED_MODE_MORE = 4")
        for version in (self.version, self.next_patch):
            self.assertFalse(self.accepted(lines, version), version)
        self.assertTrue(self.accepted(lines, self.next_minor))

    def test_a_version_behind_the_last_release_is_refused(self):
        lines = gate.golden(self.folder)[1]
        self.assertEqual(gate.check(lines, "0.9.0", self.folder), ["releases.txt is ahead of version 0.9.0."])


if __name__ == "__main__":
    sys.exit(unittest.main())
