#!/usr/bin/env python3
"""Assembles a NuGet package without NuGet: make_nupkg.py NUPKG DATE NUSPEC TREE.

Each `src` of the .nuspec is looked for in TREE, the installed package, and then beside the .nuspec; a `src` that ends in
** stands for all files of a folder. A name that leads to nothing ends in an error.
"""

import pathlib
import sys
import xml.etree.ElementTree as ElementTree

from make_zip import files_below, write_zip

NAMESPACE = "{http://schemas.microsoft.com/packaging/2013/05/nuspec.xsd}"
# The two parts that make a zip a package in the sense of the Open Packaging Conventions.
RELATIONS = """<?xml version="1.0" encoding="utf-8"?>
<Relationships xmlns="http://schemas.openxmlformats.org/package/2006/relationships">
  <Relationship Id="R1" Type="http://schemas.microsoft.com/packaging/2010/07/manifest" Target="/{name}" />
</Relationships>
"""
TYPE = '  <Default Extension="{}" ContentType="{}" />\n'
TYPES = """<?xml version="1.0" encoding="utf-8"?>
<Types xmlns="http://schemas.openxmlformats.org/package/2006/content-types">
{}</Types>
"""


def content_types(names):
    kinds = {pathlib.PurePath(name).suffix[1:] for name in names} - {"rels"}
    rows = [TYPE.format("rels", "application/vnd.openxmlformats-package.relationships+xml")]
    return TYPES.format("".join(rows + [TYPE.format(kind, "application/octet") for kind in sorted(kinds)]))


def resolve(source, target, folders):
    """The files that one <file> of the .nuspec means, as pairs of a name in the package and a path."""
    for folder in folders:
        if source.endswith("/**") and (folder / source[:-3]).is_dir():
            return files_below(folder / source[:-3], target + "/")
        if (folder / source).is_file():
            return [(target, folder / source)]
    raise SystemExit(f"no such file for the package: {source}")


def main(package, date, nuspec, tree):
    nuspec = pathlib.Path(nuspec)
    folders = [pathlib.Path(tree), nuspec.parent]
    files = ElementTree.parse(nuspec).getroot().iter(NAMESPACE + "file")
    entries = [entry for file in files for entry in resolve(file.get("src"), file.get("target"), folders)]
    entries.append((nuspec.name, nuspec))
    entries.append(("[Content_Types].xml", content_types(name for name, _ in entries).encode()))
    entries.append(("_rels/.rels", RELATIONS.format(name=nuspec.name).encode()))
    write_zip(package, date, entries)


if __name__ == "__main__":
    main(*sys.argv[1:])
