#!/usr/bin/env python3
"""summarise_tests.py JUNIT LOG -- the groups of tests in two columns, what was skipped, the output of each failed test,
and ctest's own last words."""
import sys
import xml.etree.ElementTree as ElementTree
from collections import defaultdict
from itertools import zip_longest


def group_of(name):
    return name.split(".")[0].split("/")[-1] if "." in name else name


def entry(name, count, faults, seconds):
    mark = f"{faults} FAILED" if faults else f"{seconds:.0f} s" if seconds >= 1 else ""
    return f"  {name[:22]:<22} {count:>4} {mark:<10}"


def main():
    junit, log = sys.argv[1:3]
    groups = defaultdict(lambda: [0, 0, 0.0])
    failed, skipped = [], []
    for case in ElementTree.parse(junit).getroot().iter("testcase"):
        group = groups[group_of(case.get("name"))]
        group[0] += 1
        group[2] += float(case.get("time") or 0)
        if case.get("status") == "fail":
            group[1] += 1
            failed.append(case)
        elif case.get("status") != "run":
            skipped.append(case.get("name"))
    entries = [entry(name, *group) for name, group in sorted(groups.items(), key=lambda item: item[0].lower())]
    half = (len(entries) + 1) // 2
    for left, right in zip_longest(entries[:half], entries[half:], fillvalue=""):
        print((left + right).rstrip())
    if skipped:
        print(f"\nSkipped: {', '.join(skipped)}")
    for case in failed:
        print(f"\nFAILED: {case.get('name')}\n{(case.findtext('system-out') or '')[-4000:]}")
    lines = open(log, encoding="utf-8", errors="replace").read().splitlines()
    print()
    print("\n".join(line for line in lines if "tests passed" in line or line.startswith("Total Test time")))


if __name__ == "__main__":
    main()
