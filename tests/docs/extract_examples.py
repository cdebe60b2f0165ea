"""extract_examples.py PAGE FOLDER: writes the examples of a page as sources.

Into FOLDER: prelude.h and prelude.hpp (the first C and C++ block), examples.c (all other C blocks joined, with the
page's line numbers), NAME.c or .cpp for each block that is a program of its own and bad_handles.inc (a row
{"function", "answer"} for each function of the table). Each example has to stand alone: in examples.c no block can use a
name that another one defines.
"""
import re
import sys
from pathlib import Path

from page import Page, rows


def located(page, block):
    return f'#line {block.line} "{page.path.name}"\n{block.text}'


def defined(block):
    """The functions, types and constants that a C block defines for all to see."""
    functions = re.findall(r"^(?!typedef)\w[\w *]*?\b(\w+)\([^;{]*\)$", block.text, re.M)
    types = re.findall(r"^\} (\w+);", block.text, re.M)
    constants = re.findall(r"\w+", "".join(re.findall(r"^enum \{([^}]*)\}", block.text, re.M)))
    return {name for name in functions + types + constants if not name[0].isdigit()}


def joined(page, blocks):
    everything = set().union(*map(defined, blocks))
    parts = []
    for block in blocks:
        foreign = sorted(everything - defined(block))
        parts += [f"#define {name} {name}_is_not_defined_in_this_example\n" for name in foreign]
        parts += [located(page, block)]
        parts += [f"#undef {name}\n" for name in foreign]
    return "".join(parts)


def write(path, text):
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_text(text, encoding="utf-8")


def write_language(page, folder, language, header):
    """Writes prelude and programs. @return the blocks that are neither"""
    prelude, *blocks = [block for block in page.blocks if block.language == language]
    write(folder / header, located(page, prelude))
    for block in blocks:
        if block.program:
            write(folder / f"{block.program}.{language}", f'#include "{header}"\n' + located(page, block))
    return [block for block in blocks if not block.program]


def bad_handles(page):
    table = rows(page.section("The functions at a glance"))
    return "".join('{"%s", "%s"},\n' % (re.match(r"\[(\w+)\]", name)[1], answer) for name, _, answer in table)


def main(path, folder):
    page, folder = Page(path), Path(folder)
    examples = write_language(page, folder, "c", "prelude.h")
    write(folder / "examples.c", '#include "prelude.h"\n' + joined(page, examples))
    left = write_language(page, folder, "cpp", "prelude.hpp")
    write(folder / "bad_handles.inc", bad_handles(page))
    for block in left:
        print(f"{path}:{block.line}: a C++ example that is no program is compiled by nobody")
    return 1 if left else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
