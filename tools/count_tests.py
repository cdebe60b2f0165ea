#!/usr/bin/env python3
"""Counts the tests of one CTest run.

    count_tests.py NAME JUNIT FOLDER

NAME is printed in front, JUNIT is CTest's own report, FOLDER holds the reports that the GoogleTest programs wrote.
A program with a report counts with each of its tests; one without a report (a script, a fuzz target, or a program that
died) counts as one test, with CTest's word on it. Prints "NAME: N passed, N failed, N skipped" and answers with
status 1 when a test failed or none ran.
"""

import collections
import pathlib
import sys
import xml.etree.ElementTree as ElementTree


def googletest_outcome(case):
    if case.get("status") == "notrun":
        return None  # disabled or filtered out
    if case.find("failure") is not None:
        return "failed"
    return "skipped" if case.find("skipped") is not None else "passed"


def count_program(reports):
    counts = collections.Counter()
    for report in reports:
        outcomes = map(googletest_outcome, ElementTree.parse(report).iter("testcase"))
        counts.update(outcome for outcome in outcomes if outcome)
    return counts


def ctest_outcome(case):
    return {"run": "passed", "notrun": "skipped", "disabled": "skipped"}.get(case.get("status"), "failed")


def count_run(junit, folder):
    counts = collections.Counter()
    for case in ElementTree.parse(junit).iter("testcase"):
        outcome = ctest_outcome(case)
        # CTest gives a test that could not be started the status of one that was skipped.
        if outcome == "skipped" and case.find("skipped") is not None:
            message = case.find("skipped").get("message", "")
            outcome = "skipped" if "SKIP" in message.upper() else "failed"
        program = count_program(folder.glob(case.get("name") + ".xml"))
        if outcome == "failed" and not program["failed"]:
            program["failed"] += 1  # it died behind its last report, or left none
        counts.update(program or {outcome: 1})
    if not counts["passed"] + counts["failed"]:
        counts["failed"] = 1  # a run without a test is no success
    return counts


def main(name, junit, folder):
    counts = count_run(pathlib.Path(junit), pathlib.Path(folder))
    line = f"{counts['passed']} passed, {counts['failed']} failed"
    print(f"{name}: {line}, {counts['skipped']} skipped" if counts["skipped"] else f"{name}: {line}")
    return 1 if counts["failed"] else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
