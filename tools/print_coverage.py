#!/usr/bin/env python3
"""Prints the shares of lines and branches that gcovr has found covered, by folder, and the lines that are not.

print_coverage.py REPORT FOLDER...
REPORT is gcovr's own JSON; paths in it are relative to the working directory.
"""
import json
import sys


def share(name, covered, count):
    return f"{name} {100 * covered / count:5.1f} % ({covered} of {count})" if count else f"{name}: none"


def branches_of(lines):
    return [branch for line in lines for branch in line["branches"] if not branch["throw"]]


def covered(counted):
    return sum(one["count"] > 0 for one in counted)


def main(report, folders):
    with open(report, encoding="utf-8") as stream:
        files = json.load(stream)["files"]
    lines_of = {file["file"]: [line for line in file["lines"] if not line["gcovr/noncode"]] for file in files}
    for folder in folders:
        lines = [line for name in lines_of if name.startswith(folder + "/") for line in lines_of[name]]
        if not lines:
            sys.exit(f"print_coverage.py: nothing of {folder} was found in {report}")
        branches = branches_of(lines)
        print(f"{folder + '/':12}{share('lines', covered(lines), len(lines))}   "
              f"{share('branches', covered(branches), len(branches))}")
    for name, lines in sorted(lines_of.items()):
        with open(name, encoding="utf-8") as stream:
            source = stream.read().split("\n")
        for line in lines:
            if line["count"] == 0:
                number = line["line_number"]
                print(f"{name}:{number}: not run: {source[number - 1].strip()}")


if __name__ == "__main__":
    main(sys.argv[1], sys.argv[2:])
