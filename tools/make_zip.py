#!/usr/bin/env python3
"""Writes a zip that is the same whenever its content is: make_zip.py ZIP DATE FOLDER [PREFIX].

All files of FOLDER go in, under PREFIX, in the order of their names, all with the day DATE (YYYY-MM-DD) and with one
mode, whatever the disk says of them.
"""

import pathlib
import sys
import zipfile


def files_below(folder, prefix=""):
    """The files of a folder as pairs of a name in the zip and a path on the disk."""
    folder = pathlib.Path(folder)
    paths = (path for path in folder.rglob("*") if path.is_file())
    return [(prefix + path.relative_to(folder).as_posix(), path) for path in paths]


def write_zip(name, date, entries):
    """`entries` are pairs of a name in the zip and either bytes or a path."""
    with zipfile.ZipFile(name, "w") as archive:
        for entry, content in sorted(entries, key=lambda pair: pair[0]):
            info = zipfile.ZipInfo(entry, date_time=(*map(int, date.split("-")), 0, 0, 0))
            info.create_system, info.external_attr = 3, 0o100644 << 16
            data = content if isinstance(content, bytes) else pathlib.Path(content).read_bytes()
            archive.writestr(info, data, zipfile.ZIP_DEFLATED, 9)


if __name__ == "__main__":
    write_zip(sys.argv[1], sys.argv[2], files_below(sys.argv[3], sys.argv[4] if len(sys.argv) > 4 else ""))
