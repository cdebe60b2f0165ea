"""What a header promises to compiled hosts, as lines of text that two versions of it can be compared by.

The names come from clang's own tree of the header, so nothing can be forgotten: a declaration of a kind that is not known
here is an error. The numbers come from the compiler that hosts are built with, which also has the real windows.h.
"""

import functools
import json
import pathlib
import re
import subprocess
import tempfile

SILENT = {"FullComment"}  # parts of a declaration that promise nothing
SAID = re.compile(r"^@@(\d+) (-?\d+)$", re.MULTILINE)


@functools.cache
def read(command, included):
    """What clang says of a translation unit that includes one file and nothing else."""
    source = f'#include "{included}"\n'
    return subprocess.run([*command, "-"], input=source, check=True, stdout=subprocess.PIPE, text=True).stdout


class Header:
    """A header, read with a stand-in for windows.h that declares no more than it needs."""

    def __init__(self, path, clang, stand_in):
        self.path = pathlib.Path(path).resolve()
        self.command = (clang, "--target=x86_64-pc-windows-msvc", "-std=c11", f"-I{stand_in}", "-x", "c")

    def declarations(self):
        system = {(item["kind"], item.get("name")) for item in self.tree("windows.h")}
        own = self.tree(self.path)
        return [item for item in own if "name" not in item or (item["kind"], item["name"]) not in system]

    def macros(self):
        listing = (*self.command, "-E", "-dM")
        lines = set(read(listing, self.path).splitlines()) - set(read(listing, "windows.h").splitlines())
        return [line.removeprefix("#define ").partition(" ")[::2] for line in lines]

    def tree(self, included):
        return json.loads(read((*self.command, "-fsyntax-only", "-Xclang", "-ast-dump=json"), included))["inner"]


def parts(item):
    return [part for part in item.get("inner", []) if part["kind"] not in SILENT and not part["kind"].endswith("Attr")]


def record_rows(item):
    """Rows of a record: the whole, then each field. `{}` stands for the numbers that the expressions behind give."""
    name = item["name"]
    yield f"record {name}: {{}} bytes, aligned to {{}}", [f"sizeof({name})", f"_Alignof({name})"]
    for field in parts(item):
        if field["kind"] != "FieldDecl" or field.get("isBitfield"):
            raise SystemExit(f"{name}: do not know what {field['kind']} {field.get('name')} promises")
        member = field["name"]
        yield (f"record {name}.{member}: {field['type']['qualType']}, {{}} bytes at {{}}",
               [f"sizeof((({name}*)0)->{member})", f"offsetof({name}, {member})"])


def rows(header):
    """Pairs of a line with gaps and the expressions whose values fill them."""
    for item in header.declarations():
        kind = item["kind"]
        if kind == "EnumDecl":
            yield from ((f"constant {part['name']} = {{}}", [part["name"]]) for part in parts(item))
        elif kind == "RecordDecl":
            yield from record_rows(item)
        elif kind == "TypedefDecl":
            yield f"type {item['name']} = {item['type']['qualType']}", []
        elif kind == "FunctionDecl":
            imported = any(part["kind"] == "DLLImportAttr" for part in item["inner"])
            yield f"function {item['name']}: {item['type']['qualType']}{'' if imported else ', not imported'}", []
        else:
            raise SystemExit(f"{header.path}: do not know what {kind} {item.get('name')} promises")
    for name, body in header.macros():
        yield f"macro {name} = {body}".rstrip(), []


def evaluate(header, compiler, expressions):
    """The values of constant expressions, read out of the compiler's assembly: no program has to run.

    `compiler` is a command, as a list of words.
    """
    with tempfile.TemporaryDirectory() as folder:
        source, out = pathlib.Path(folder, "say.c"), pathlib.Path(folder, "say.s")
        says = "".join(f'    SAY({i}, {text});\n' for i, text in enumerate(expressions))
        source.write_text(f'#include "{header.path}"\n#include <stddef.h>\n'
                          '#define SAY(key, value) __asm__("\\n@@" #key " %c0" : : "i"((long long)(value)))\n'
                          f"void say(void);\nvoid say(void)\n{{\n{says}}}\n", encoding="utf-8")
        subprocess.run([*compiler, "-std=gnu11", "-DWIN32_LEAN_AND_MEAN", "-S", "-o", out, source], check=True)
        values = {int(key): value for key, value in SAID.findall(out.read_text())}
    return [values[i] for i in range(len(expressions))]


def describe(header, compiler):
    """The sorted lines of a header; fields stand in the order of their record."""
    listed = list(rows(header))
    values = iter(evaluate(header, compiler, [text for _, texts in listed for text in texts]))
    lines = [line.replace("{}", "%s") % tuple(next(values) for _ in texts) if texts else line
             for line, texts in listed]
    # A stable sort by what is declared leaves the fields of a record as they stand.
    return sorted(lines, key=lambda line: re.split(r"[.:=]", line)[0].rstrip())
