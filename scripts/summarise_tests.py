#!/usr/bin/env python3
"""summarise_tests.py JUNIT LOG -- one line a group of tests, the output of each failed test, and ctest's own last
words."""
import sys
import xml.etree.ElementTree as ElementTree
from collections import defaultdict


def group_of(name):
    return name.split(".")[0].split("/")[-1] if "." in name else name


def main():
    junit, log = sys.argv[1:3]
    groups = defaultdict(lambda: [0, 0, 0.0])
    failed = []
    for case in ElementTree.parse(junit).getroot().iter("testcase"):
        group = groups[group_of(case.get("name"))]
        group[0] += 1
        group[2] += float(case.get("time") or 0)
        if case.get("status") == "fail":
            group[1] += 1
            failed.append(case)
    for name, (count, faults, seconds) in sorted(groups.items()):
        print(f"  {name:<40} {count:>4} tests {seconds:7.1f} s{f'  {faults} FAILED' if faults else ''}")
    for case in failed:
        print(f"\nFAILED: {case.get('name')}\n{(case.findtext('system-out') or '')[-4000:]}")
    lines = open(log, encoding="utf-8", errors="replace").read().splitlines()
    print()
    print("\n".join(line for line in lines if "tests passed" in line or line.startswith("Total Test time")))


if __name__ == "__main__":
    main()
