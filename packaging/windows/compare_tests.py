#!/usr/bin/env python3
"""Compares the tests that ran under Wine with those of Linux: compare_tests.py FOLDER REASONS.

FOLDER holds NAME.linux.json (a list of GoogleTest) and NAME.wine.json (its report). REASONS names the tests that are not there
under Wine, one a line with its reason behind a blank, and those that only Windows has, behind a "+". Fails where a test failed, did
not run, is missing without a reason, or where a reason is given for nothing.
"""
import json
import pathlib
import sys


def names(report, folder, only=lambda test: True):
    return {f"{folder}.{suite['name']}.{test['name']}" for suite in report["testsuites"] for test in suite["testsuite"] if only(test)}


def main(folder, reasons):
    there, ran, failed = set(), set(), set()
    for listed in sorted(pathlib.Path(folder).glob("*.linux.json")):
        name = listed.name.split(".")[0]
        there |= names(json.loads(listed.read_text()), name)
        report = json.loads((listed.parent / f"{name}.wine.json").read_text())
        ran |= names(report, name, lambda test: test["status"] == "RUN" and test["result"] == "COMPLETED")
        failed |= names(report, name, lambda test: "failures" in test)
    lines = [line.split(None, 1) for line in pathlib.Path(reasons).read_text().splitlines() if line and line[0] != "#"]
    wordless = [line[0] for line in lines if len(line) < 2]
    missing = {line[0] for line in lines if line[0][0] != "+"}
    added = {line[0][1:] for line in lines if line[0][0] == "+"}
    wanted = (there - missing) | added
    faults = [("failed", failed), ("did not run", wanted - ran), ("ran without being listed", ran - wanted),
              ("has a reason but is no test", missing - there), ("has no reason", set(wordless))]
    print(f"{len(there)} tests on Linux, {len(missing)} not under Wine for a reason, {len(added)} for Windows alone: "
          f"{len(wanted)} wanted, {len(ran)} ran, {len(failed)} failed")
    for what, tests in faults:
        for test in sorted(tests):
            print(f"  {test} {what}")
    return 1 if not there or any(tests for _, tests in faults) else 0


sys.exit(main(*sys.argv[1:]))
