"""extract_examples.py PAGE FOLDER: writes the examples of a page as sources.

Into FOLDER: prelude.h and prelude.hpp (the first C and C++ block), examples.c and .cpp (all others joined, with the
page's line numbers), NAME.c or .cpp for each block that is a program of its own, alone/N.c and .cpp (each block on its
own) and bad_handles.inc (a row {"function", "answer"} for each function of the table).
"""
import re
import sys
from pathlib import Path

from page import Page, rows


def located(page, block):
    return f'#line {block.line} "{page.path.name}"\n{block.text}'


def write(path, text):
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_text(text, encoding="utf-8")


def write_language(page, folder, language, suffix, header):
    prelude, *blocks = [block for block in page.blocks if block.language == language]
    write(folder / header, located(page, prelude))
    include = f'#include "{header}"\n'
    common = [block for block in blocks if not block.program]
    write(folder / f"examples{suffix}", include + "".join(located(page, block) for block in common))
    for block in blocks:
        write(folder / "alone" / f"{block.line}{suffix}", include + located(page, block))
        if block.program:
            write(folder / f"{block.program}{suffix}", include + located(page, block))


def bad_handles(page):
    table = rows(page.section("The functions at a glance"))
    return "".join('{"%s", "%s"},\n' % (re.match(r"\[(\w+)\]", name)[1], answer) for name, _, answer in table)


def main(path, folder):
    page, folder = Page(path), Path(folder)
    for old in (folder / "alone").glob("*"):
        old.unlink()
    write_language(page, folder, "c", ".c", "prelude.h")
    write_language(page, folder, "cpp", ".cpp", "prelude.hpp")
    write(folder / "bad_handles.inc", bad_handles(page))


if __name__ == "__main__":
    main(*sys.argv[1:])
