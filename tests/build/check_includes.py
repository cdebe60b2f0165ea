#!/usr/bin/env python3
"""Checks who includes whom: check_includes.py ROOT.

A folder may include itself and what stands below it, and no header comes back to itself.
"""

import pathlib
import re
import sys

# A folder with the folders that it may include besides itself. What is not listed here is not checked.
BELOW = {
    "include": set(),
    "framework/base": set(),
    "zsl": {"framework/base"},
    "diagnostics": {"framework/base", "zsl"},
    "framework/win": {"framework/base", "diagnostics"},
    "store": {"framework/base", "zsl", "diagnostics"},
    "editing": {"include", "framework/base", "framework/win", "zsl", "diagnostics", "store"},
    "appearance": {"include", "framework/base", "framework/win", "zsl", "diagnostics", "store"},
    "api": {"include", "framework/base", "framework/win", "zsl", "diagnostics", "store", "editing", "appearance"},
    "examples": {"include"},
}
INCLUDE = re.compile(r'^\s*#\s*include\s*"([^"]+)"', re.MULTILINE)


def folder_of(path):
    return next((name for name in BELOW if path.startswith(name + "/")), None)


def resolve(root, source, named):
    """The included file as a path from the root; None for one that is not ours."""
    for candidate in (source.parent / named, root / named, root / "include" / named):
        if candidate.is_file():
            return candidate.resolve().relative_to(root).as_posix()
    return None


def read_tree(root):
    """Each source file of ours with the files of ours that it includes."""
    files = (file for name in BELOW for file in (root / name).rglob("*") if file.suffix in (".h", ".c", ".cpp"))
    tree = {}
    for file in files:
        named = INCLUDE.findall(file.read_text(encoding="utf-8"))
        tree[file.relative_to(root).as_posix()] = [path for path in (resolve(root, file, n) for n in named) if path]
    return tree


def upward(tree):
    for path, included in tree.items():
        folder = folder_of(path)
        for target in included:
            above = folder_of(target)
            if above and above != folder and above not in BELOW[folder]:
                yield f"{path} includes {target}: {above} does not stand below {folder}"


def circles(tree):
    """Depth first; a file met again while it is still open closes a circle."""
    done = set()

    def visit(path, open_files):
        if path in open_files:
            yield "a circle: " + " > ".join(open_files[open_files.index(path):] + [path])
        elif path not in done:
            for target in tree.get(path, ()):
                yield from visit(target, open_files + [path])
            done.add(path)

    for path in tree:
        yield from visit(path, [])


def main(root):
    tree = read_tree(pathlib.Path(root).resolve())
    faults = list(upward(tree)) + list(circles(tree))
    print("\n".join(faults) or f"{len(tree)} files, every include points downwards")
    return 1 if faults or not tree else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))
