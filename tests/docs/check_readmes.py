"""check_readmes.py ROOT: README.md and README.ru.md show the same pictures and name the same commands of the tree."""
import re
import sys
from pathlib import Path

from page import Page

# A command is a script of the tree with its options; what stands behind a blank and a # is a remark.
COMMAND = re.compile(r"(?:\./|(?<![\w/.])(?=\w))((?:[\w-]+/)*[\w-]+\.sh)\b((?: (?:--?[\w-]+))*)")


def pictures(page):
    return {target for _, _, target, picture in page.links() if picture}


def commands(page, root):
    found = set()
    for line in page.lines:
        for script, options in COMMAND.findall(line.split(" #")[0]):
            if (root / script).is_file():
                found.add((script + options).strip())
    return found


def main(root):
    root = Path(root)
    english, russian = Page(root / "README.md"), Page(root / "README.ru.md")
    faults = []
    for what, first, second in (("picture", pictures(english), pictures(russian)),
                                ("command", commands(english, root), commands(russian, root))):
        faults += [f"README.ru.md lacks the {what} {name}" for name in sorted(first - second)]
        faults += [f"README.md lacks the {what} {name}" for name in sorted(second - first)]
        faults += [] if len(first) > 3 else [f"only {len(first)} of kind {what} were found"]
    print("\n".join(faults))
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
