"""check_reference.py PAGE HEADER DEF: the page names all that the header declares, as it is, and nothing else.

Each function has a heading of its own with its declaration and an example, each record a heading and a row for each
field, each constant a row with its value; the table of the functions and the module definition file hold the same 35.
"""
import re
import sys
from pathlib import Path

from page import Page, rows


def same_spaces(text):
    return re.sub(r"\s+", " ", text).strip()


class Header:
    def __init__(self, path):
        text = re.sub(r"//.*", "", Path(path).read_text(encoding="utf-8"))
        self.functions = {m[2]: same_spaces(f"{m[1]} {m[2]}({m[3]});")
                          for m in re.finditer(r"SCRIVCTL3_API ([\w ]+?) (ed\w+)\(([^)]*)\);", text)}
        self.records = {m[2]: re.findall(r"([\w *]+?[ *])(\w+)(\[\d\])?;", m[1])
                        for m in re.finditer(r"typedef struct \w+ \{(.*?)\} (\w+);", text, re.S)}
        self.callbacks = dict((m[2], same_spaces(m[0])) for m in re.finditer(r"typedef (.*?)\(\*(\w+)\)[^;]*;", text))
        self.constants = {name: int(value, 0) for name, value in re.findall(r"(ED_\w+) = (\w+)", text)}

    def names(self):
        fields = {field for record in self.records.values() for _, field, _ in record}
        return {*self.functions, *self.records, *self.callbacks, *self.constants} | fields


def bare(cell):
    """A table's cell without its code marks."""
    return cell.strip("`")


def check_functions(page, header, definition):
    headings = [title for _, _, title in page.headings if re.fullmatch(r"ed\w+", title)]
    for name, declaration in header.functions.items():
        if headings.count(name) != 1:
            yield f"{name} has {headings.count(name)} headings"
            continue
        section = "\n".join(page.section(name))
        shown = re.findall(r"```h\n(.*?)```", section, re.S)
        if [same_spaces(text) for text in shown] != [declaration]:
            yield f"{name} is shown as {shown}, declared as {declaration}"
        example = "".join(re.findall(r"```c\n(.*?)```", section, re.S))
        if not re.search(rf"\b{name}\(", example):
            yield f"{name} is not called in an example of its own"
        for argument in re.findall(r"(\w+)(?=[,)])", declaration.split("(", 1)[1]):
            if argument not in {"control", "void"} and not re.search(rf"\b{argument}\b", section.replace(shown[0], "")):
                yield f"{name}: nothing is said about '{argument}'"
        if "edApplyTuningChanges" != name and "edCreateCtrl" != name and "ad handle" not in section:
            yield f"{name}: nothing is said about a bad handle"
    table = [re.match(r"\[(\w+)\]", row[0])[1] for row in rows(page.section("The functions at a glance"))]
    if table != list(header.functions):
        yield "the table of the functions is not in the header's order, or not complete"
    exported = re.findall(r"^\s+(ed\w+)", Path(definition).read_text(), re.M)
    if sorted(exported) != sorted(header.functions) or len(exported) != 35:
        yield f"the library exports {len(exported)} functions, the header declares {len(header.functions)}"


def check_answers(page, header):
    """What the table says of a bad handle goes with the type of the result, and with the function's own words."""
    for name, _, answer in rows(page.section("The functions at a glance")):
        name = re.match(r"\[(\w+)\]", name)[1]
        result = header.functions[name].split(name)[0].strip()
        words = re.search(r"\*\*Bad handle[^*]*\*\*[^.]*?(nothing|null|-1|0|1)\b"
                          r"|answer to a \*\*bad handle\*\* \((\d)\)", " ".join(page.section(name)))
        told = words and (words[1] or words[2])
        if (answer == "nothing") != (result == "void"):
            yield f"{name} gives {result}, and a bad handle answers '{answer}'"
        if answer != "no handle" and told != answer:
            yield f"{name}: its table row says '{answer}', its own words '{told}'"


def check_records(page, header):
    for record, fields in header.records.items():
        table = rows(page.section(record))
        told = [(bare(name), bare(kind)) for name, kind, _ in table]
        declared = [(name, same_spaces(kind).replace(" *", "*") + size) for kind, name, size in fields]
        if told != declared:
            yield f"{record}: the page has {told}, the header {declared}"
    for name, declaration in header.callbacks.items():
        if declaration not in same_spaces("\n".join(page.section(name))):
            yield f"{name} is not shown as it is declared"


def check_constants(page, header):
    told = {}
    for cells in rows(page.lines):
        if re.fullmatch(r"`ED_\w+`", cells[0]):
            if bare(cells[0]) in told and re.fullmatch(r"\w+", cells[1]):
                yield f"{cells[0]} is told twice"
            if re.fullmatch(r"\w+", cells[1]):
                told[bare(cells[0])] = int(cells[1], 0)
    for name in sorted(told.keys() | header.constants.keys()):
        if told.get(name) != header.constants.get(name):
            yield f"{name}: {told.get(name)} on the page, {header.constants.get(name)} in the header"


def check_names(page, header):
    """No name is misspelt: whatever looks like one of the control's is one."""
    known = header.names()
    prefixes = {name for name in re.findall(r"\b(ED_[A-Z]+_)(?!\w)", "\n".join(page.lines))}
    for prefix in prefixes:
        if not any(name.startswith(prefix) for name in known):
            yield f"no constant begins with {prefix}"
    for number, line in enumerate(page.lines, 1):
        for name in re.findall(r"\b(?:ed[A-Z]\w+|ED_\w*[A-Z0-9])\b", line):
            if name not in known:
                yield f"line {number}: the header knows no {name}"


def main(page, header, definition):
    page, header = Page(page), Header(header)
    found = [*check_functions(page, header, definition), *check_answers(page, header), *check_records(page, header),
             *check_constants(page, header), *check_names(page, header)]
    print("\n".join(found))
    print(f"{len(header.functions)} functions, {len(header.records)} records, {len(header.constants)} constants, "
          f"{len(found)} faults")
    complete = len(header.functions) == 35 and len(header.records) == 6 and len(header.callbacks) == 1
    return 0 if complete and not found else 1


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
