#!/usr/bin/env python3
"""Prints how many runs each fuzz target had: fuzz_runs.py JUNIT..., the reports that ctest --output-junit wrote."""

import re
import sys
import xml.etree.ElementTree

DONE = re.compile(r"Done (\d+) runs in (\d+) second")


def main(*reports):
    for report in reports:
        for test in xml.etree.ElementTree.parse(report).iter("testcase"):
            if done := DONE.search(test.findtext("system-out", "")):
                print(f"{test.get('name')}: {int(done[1]):,} runs in {done[2]} s")


if __name__ == "__main__":
    main(*sys.argv[1:])
