#!/usr/bin/env python3
"""Sees by Wine's own trace that a control opens no file but those that its host named, their temporary neighbours and the
log: check_files.py WINE TRACE_HOST. What the system opens for itself, in its own folders, does not count."""

import os
import pathlib
import re
import subprocess
import sys
import tempfile

BEGIN, END = "the control's life begins", "the control's life ends"
SYSTEM = re.compile(r"c:\\windows(\\|$)|z:\\usr\\(lib|share)\\|c:\\$|nul$|pipe\\|mountpointmanager", re.I)
OPENED = re.compile(r'^\w+:\w+:trace:file:Nt(?:Create|Open)File .*?name=L"\\\\\?\?\\\\(.*?)"')


def windows_path(path):
    return "Z:" + str(path).replace("/", "\\")


def traced(wine, host, *files):
    """The trace of the host's process between the two marks."""
    environment = os.environ | {"WINEDEBUG": "-all,+pid,+file"}
    done = subprocess.run([wine, host, *map(windows_path, files)], env=environment, stdin=subprocess.DEVNULL, check=False,
                          capture_output=True, timeout=100)
    lines = done.stderr.decode("utf-8", "replace").splitlines()
    marks = [number for number, line in enumerate(lines) if BEGIN in line or END in line]
    if done.returncode != 0 or len(marks) < 2:
        sys.exit(f"{host} ended with {done.returncode}, {len(marks)} marks in its trace")
    process = lines[marks[0]].split(":")[0]
    return [line for line in lines[marks[0]:marks[-1]] if line.startswith(process + ":")]


def opened(lines):
    found = (OPENED.match(line) for line in lines)
    return [match[1].replace("\\\\", "\\") for match in found if match]


def main(wine, host):
    with tempfile.TemporaryDirectory() as folder:
        folder = pathlib.Path(folder)
        source, copy = folder / "source.txt", folder / "copy.txt"
        log = pathlib.Path(host).with_name("scrivctl.log")
        source.write_bytes(b"first\r\nsecond")
        paths = opened(traced(wine, host, source, copy))
        # The second form is that of the system itself, while it replaces a file.
        temporary = re.compile(re.escape(windows_path(folder)) + r"\\(~ed[0-9a-f]{8}|rf[0-9a-f]+)\.tmp$", re.I)
        named = {windows_path(path).lower() for path in (source, copy, log, folder, str(folder) + "/")}
        strange = sorted({path for path in paths if path.lower() not in named and not temporary.match(path)
                          and not SYSTEM.match(path)})
        unseen = [path for path in (source, copy, log) if windows_path(path).lower() not in map(str.lower, paths)]
        left = sorted(path.name for path in folder.iterdir() if path not in (source, copy))
    print(f"{len(paths)} files opened, {sum(1 for path in paths if not SYSTEM.match(path))} of them not the system's own")
    faults = [f"opens {path}" for path in strange] + [f"{path} is not seen to be opened" for path in unseen] + \
             [f"leaves {name}" for name in left]
    print("\n".join(faults) or "no file that the host has not named")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
