"""check_examples.py INCLUDE CC PAGE...: the C examples of pages without a common prelude compile as they stand."""
import subprocess
import sys

from page import Page


def main(include, cc, *pages):
    faults = 0
    for page in map(Page, pages):
        blocks = [block for block in page.blocks if block.language == "c"]
        for block in blocks:
            command = [cc, "-std=c99", "-Wall", "-Wextra", "-Wpedantic", "-Werror", f"-I{include}", "-fsyntax-only",
                       "-x", "c", "-"]
            text = f'#line {block.line} "{page.path.name}"\n{block.text}'
            faults += subprocess.run(command, input=text, text=True, encoding="utf-8").returncode != 0
        print(f"{page.path.name}: {len(blocks)} examples")
        faults += not blocks
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
