"""check_links.py ROOT: every relative link of every page in the tree leads to a file, and to a heading of it."""
import os
import sys
from pathlib import Path
from urllib.parse import unquote

from page import Page


def pages_of(root):
    for folder, folders, files in os.walk(root):
        folders[:] = sorted(set(folders) - {"build", ".git"})
        yield from (Path(folder) / name for name in sorted(files) if name.endswith(".md"))


def faults(pages):
    for path, page in pages.items():
        for line, text, target, _ in page.links():
            if target.startswith(("http://", "https://", "mailto:")):
                continue
            name, _, anchor = unquote(target).partition("#")
            to = (path.parent / name).resolve() if name else path
            if not to.exists():
                yield f"{path}:{line}: [{text}] leads to no file: {target}"
            elif anchor and (to not in pages or anchor not in pages[to].anchors()):
                yield f"{path}:{line}: [{text}] leads to no heading: {target}"


def main(root):
    pages = {path.resolve(): Page(path.resolve()) for path in pages_of(root)}
    found = list(faults(pages))
    links = sum(len(list(page.links())) for page in pages.values())
    print("\n".join(found))
    print(f"{len(pages)} pages, {links} links, {len(found)} faults")
    return 1 if found or links < 100 else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
