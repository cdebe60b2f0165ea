"""The declarations of each language, read from its source into one form.

A parameter or result is "pointer", "u32", "i32" or "void", by what it takes in a call; a record is a list of (name in
lower case, size, alignment).
"""

import ctypes
import importlib.util
import re
import sys
from typing import NamedTuple


class Declarations(NamedTuple):
    constants: dict  # name: number
    functions: dict  # name: (result, [parameter])
    records: dict    # name: [(field, size, alignment)]


KINDS = {"pointer": (8, 8), "u32": (4, 4), "i32": (4, 4), "rect": (16, 4), "pair": (8, 4)}


def layout(fields):
    """The offset of each field, and the size of the record."""
    offsets, end, widest = [], 0, 1
    for _, size, alignment in fields:
        end = (end + alignment - 1) // alignment * alignment
        offsets.append(end)
        end += size
        widest = max(widest, alignment)
    return offsets, (end + widest - 1) // widest * widest


def number(text):
    return int(text.replace("$", "0x"), 0)


def one_line(text):
    return " ".join(text.split())


def field(name, kind):
    return (name.lower(), *KINDS[kind])


def split(text, separator=","):
    return [part.strip() for part in one_line(text).split(separator) if part.strip()]


# ---- C

C_TYPES = {"HWND": "pointer", "HDC": "pointer", "edHighlightFn": "pointer", "UINT32": "u32", "INT32": "i32", "int": "i32",
           "BOOL": "i32", "RECT": "rect", "void": "void"}


def c_kind(text):
    return "pointer" if "*" in text else C_TYPES[text.strip()]


def read_c(path):
    code = re.sub(r"//[^\n]*|/\*.*?\*/", "", path.read_text(encoding="utf-8"), flags=re.S)
    constants = {name: number(value) for body in re.findall(r"\benum\s*{(.*?)}", code, re.S)
                 for name, value in re.findall(r"(\w+)\s*=\s*(\w+)", body)}
    functions = {name: (c_kind(result), [c_kind(re.sub(r"\w+$", "", one)) for one in split(arguments)])
                 for result, name, arguments in re.findall(r"SCRIVCTL3_API\s+(\w+)\s+(\w+)\((.*?)\);", code, re.S)}
    records = {}
    for name, body in re.findall(r"typedef struct (\w+)\s*{(.*?)}", code, re.S):
        records[name] = [field(one, "pair" if array else c_kind(kind))
                         for kind, one, array in re.findall(r"([\w *]+?)\s*(\w+)(\[2\])?;", body)]
    return Declarations(constants, functions, records)


# ---- Rust

def rust_kind(text):
    return {"HWND": "pointer", "HDC": "pointer", "BOOL": "i32", "i32": "i32", "u32": "u32", "RECT": "rect",
            "[u32; 2]": "pair", "": "void"}.get(text) or ("pointer" if re.match(r"\*|Option<edHighlightFn>", text) else text)


def read_rust(path):
    code = re.sub(r"//[^\n]*", "", path.read_text(encoding="utf-8"))
    constants = {name: number(value) for name, value in re.findall(r"pub const (\w+): \w+ = (\w+);", code)}
    functions = {name: (rust_kind(result), [rust_kind(one.split(": ", 1)[1]) for one in split(arguments)])
                 for name, arguments, result in re.findall(r"pub fn (\w+)\((.*?)\)(?: -> (\w+))?;", code, re.S)}
    records = {name: [field(one, rust_kind(kind)) for one, kind in re.findall(r"pub (?:r#)?(\w+): (.+),", body)]
               for name, body in re.findall(r"#\[repr\(C\)\](?:\s*#\[.*?\])?\s*pub struct (ed\w+) {(.*?)\n}", code, re.S)}
    return Declarations(constants, functions, records)


# ---- Go

def go_kind(text):
    return {"HWND": "pointer", "HDC": "pointer", "uintptr": "pointer", "unsafe.Pointer": "pointer", "bool": "i32",
            "int32": "i32", "uint32": "u32", "RECT": "rect", "[2]uint32": "pair", "": "void"}.get(text) or (
                "pointer" if text.startswith("*") else text)


def go_function(name, arguments, result, body):
    """A wrapper has to hand its parameters, in their order, to the function of its name."""
    names = [one.split()[0] for one in split(arguments)]
    call = re.search(r"proc(\w+)\.Call\((.*)\)\s", one_line(body) + " ")
    handed = re.findall(r"uintptr\((?:unsafe\.Pointer\()?(\w+)\)", call[2])
    if call[1] != name[2:] or handed != names:
        return None
    return go_kind(result), [go_kind(one.split()[1]) for one in split(arguments)]


def read_go(path):
    code = re.sub(r"//[^\n]*", "", path.read_text(encoding="utf-8"))
    constants = {name: number(value) for name, value in re.findall(r"^\t(ED_\w+)\s*= (\w+)$", code, re.M)}
    found = dict(re.findall(r'proc(\w+)\s*= scrivctl3\.NewProc\("ed(\w+)"\)', code))
    functions = {name: go_function(name, arguments, result, body) if found.get(name[2:]) == name[2:] else None
                 for name, arguments, result, body
                 in re.findall(r"^func (ed\w+)\((.*?)\) ?(\w*) {\n(.*?)^}", code, re.M | re.S)}
    records = {}
    for name, body in re.findall(r"^type (ed\w+) struct {(.*?)^}", code, re.M | re.S):
        records[name] = [field(one, go_kind(kind)) for names, kind in re.findall(r"^\t([\w, ]+?) +(\S+)$", body, re.M)
                         for one in names.split(", ")]
    return Declarations(constants, functions, records)


# ---- C#

def csharp_kind(text):
    return {"IntPtr": "pointer", "string": "pointer", "[Out] char[]": "pointer", "bool": "i32", "int": "i32",
            "uint": "u32", "RECT": "rect", "uint[]": "pair", "void": "void"}.get(text) or (
                "pointer" if re.match("ref |out ", text) else text)


def read_csharp(path):
    code = re.sub(r"//[^\n]*", "", path.read_text(encoding="utf-8"))
    constants = {name: number(value) for name, value in re.findall(r"public const \w+ (\w+) = (\w+);", code)}
    functions = {name: (csharp_kind(result), [csharp_kind(one.rsplit(" ", 1)[0]) for one in split(arguments)])
                 for result, name, arguments in re.findall(
                     r"\[DllImport\(Library, CharSet = CharSet.Unicode, ExactSpelling = true\)\]\s*"
                     r"public static extern (\w+) (\w+)\((.*?)\);", code, re.S)}
    records = {name: [field(one, csharp_kind(kind)) for kind, one in re.findall(r"public (\S+) (\w+);", body)]
               for name, body in re.findall(r"public struct (ed\w+)\s*{(.*?)\n    }", code, re.S)}
    return Declarations(constants, functions, records)


# ---- Python: not read but loaded, so it is the records' own word

def python_kind(kind):
    if kind is None:
        return "void"
    return {ctypes.c_int: "i32", ctypes.c_uint32: "u32"}.get(kind) or (
        "pointer" if ctypes.sizeof(kind) == 8 else str(kind))


def read_python(path):
    sys.dont_write_bytecode = True
    found = importlib.util.spec_from_file_location("scrivctl3", path)
    module = importlib.util.module_from_spec(found)
    found.loader.exec_module(module)
    constants = {name: value for name, value in vars(module).items() if name.startswith("ED_")}
    functions = {name: (python_kind(result), [python_kind(one) for one in arguments])
                 for name, (result, arguments) in module.FUNCTIONS.items()}
    records = {}
    for name, record in vars(module).items():
        if name.startswith("ed") and issubclass(record, ctypes.Structure):
            records[name] = [(one.lower(), ctypes.sizeof(kind), ctypes.alignment(kind)) for one, kind in record._fields_]
            assert layout(records[name])[1] == ctypes.sizeof(record), name
    return Declarations(constants, functions, records)


# ---- Delphi

def delphi_kind(text):
    return {"HWND": "pointer", "HDC": "pointer", "Pointer": "pointer", "PWideChar": "pointer", "PCardinal": "pointer",
            "PRect": "pointer", "TEdHighlightFn": "pointer", "BOOL": "i32", "Integer": "i32", "Cardinal": "u32",
            "TRect": "rect", "array[0..1] of Cardinal": "pair", "": "void"}.get(text) or (
                "pointer" if text.startswith("PEd") else text)


def read_delphi(path):
    code = re.sub(r"//[^\n]*|{[^$].*?}", "", path.read_text(encoding="utf-8"), flags=re.S)
    constants = {name: number(value) for name, value in re.findall(r"(ED_\w+) = (\$?\w+);", code)}
    functions = {name: (delphi_kind(result), [delphi_kind(one.split(": ")[1]) for one in split(arguments, ";")])
                 for name, arguments, result in re.findall(
                     r"(?:function|procedure) (\w+)\(([^)]*)\)(?:: (\w+))?;\s*stdcall;\s*external ScrivLibrary;", code)}
    records = {"e" + name[1:]: [field(one, delphi_kind(kind)) for one, kind in re.findall(r"(\w+): (.+?);", body)]
               for name, body in re.findall(r"T(Ed\w+) = record(.*?)end;", code, re.S)}
    return Declarations(constants, functions, records)


READERS = {"rust": read_rust, "go": read_go, "csharp": read_csharp, "python": read_python, "delphi": read_delphi}
