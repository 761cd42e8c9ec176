#!/usr/bin/env python3
"""check_dop.py BRINDLE-BATCH -- SWI-Prolog reads the trees of examples/ in the DOP format; they are the corpus' trees, and
their codes name the tags that the file ".encoding" lists for them. Skipped where there is no swipl."""
import re
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

from check_examples import EXAMPLES, HERE, SKIPPED

NODE = re.compile(r"\s*(\()?([^\s()|/]+)")
ATOM = re.compile(r"[A-Za-z][A-Za-z0-9_]*$")
LEAST = 100  # of the 167 trees, those whose labels are all atoms


class Native:
    """A tree of the saved layout: [category, tag or None, word or None, daughters]."""

    def __init__(self, text):
        self.text, self.at = text, text.index("(") + 1
        self.root = self.node()

    def label(self, mark, stop):
        if self.text[self.at] != mark:
            return None
        start, depth, self.at = self.at + 1, 0, self.at + 1
        while self.text[self.at] not in stop and (depth or self.text[self.at] != ")"):
            depth += {"(": 1, ")": -1}.get(self.text[self.at], 0) if mark == "|" else 0
            self.at += 1
        return self.text[start : self.at]

    def node(self):
        match = NODE.match(self.text, self.at)
        self.at = match.end()
        node = [match[2], self.label("|", " \n/"), self.label("/", " \n|("), []]
        if match[1]:
            while NODE.match(self.text, self.at):
                node[3].append(self.node())
            self.at = self.text.index(")", self.at) + 1
        return node


def shown(daughters):
    """The daughters as the format has them: all up to the first punctuation behind the first one."""
    end = next((i for i, d in enumerate(daughters) if i and d[0] in ".!?"), len(daughters))
    return daughters[:end]


def is_legal(node):
    return bool(ATOM.match(node[0]) and (not node[2] or ATOM.match(node[2]) or node[2][0].isdigit())
                and all(map(is_legal, shown(node[3]))))


def expected(node, depth):
    """The lines "depth category", each with the tag that its code must name (None: no code)."""
    yield depth, node[0], node[1], node[2]
    if node[2]:
        number = node[2][0].isdigit() or node[2][-1].isdigit()
        yield depth + 1, ("number" if number else node[2]) + "_", None, None
    for daughter in shown(node[3]):
        yield from expected(daughter, depth + 1)


def fault_in(printed, tree, tags):
    lines = list(expected(tree, 0))
    if len(lines) != len(printed):
        return f"{len(printed)} nodes instead of {len(lines)}"
    for line, (depth, label, tag, word) in zip(printed, lines):
        got_depth, got = line.split(" ", 1)
        code = got[len(label):]
        key = f"{label}_{word}_{code[1:]}" if word else code[1:]
        if int(got_depth) != depth or not got.startswith(label):
            return f"{line!r} where {label!r} stands at depth {depth}"
        if code != "" if tag is None else code[:1] != ("x" if word else "z") or tags.get(key) != tag:
            return f"{line!r}: its code does not name the tag {tag}"
    return None


def main():
    if not shutil.which("swipl"):
        print("skipped: no swipl here")
        return SKIPPED
    with tempfile.TemporaryDirectory() as folder:
        subprocess.run([sys.argv[1], "write", "--format", "dop", "-o", "trees.pl", EXAMPLES / "travel.trees"], cwd=folder,
                       check=True)
        run = subprocess.run(["swipl", "-q", "-g", "run", "-t", "halt", HERE / "read_dop.pl", "--", "trees.pl"], cwd=folder,
                             capture_output=True, text=True, check=True)
        tags = dict(line.split("\t") for line in (Path(folder) / ".encoding").read_text().splitlines())
    printed = re.findall(r"error\n|(?:\d.*\n)+\.\n", run.stdout)
    texts = (EXAMPLES / "travel.trees").read_text().split("\ntree #")[1:]
    trees = [Native(text).root for text in texts]
    faults = [] if len(printed) == len(trees) else [f"{len(printed)} terms for {len(trees)} trees"]
    read = 0
    for number, (lines, tree) in enumerate(zip(printed, trees), 1):
        if not is_legal(tree):
            continue
        read += 1
        fault = fault_in(lines.splitlines()[:-1], tree, tags)
        if fault:
            faults.append(f"tree {number}: {fault}")
    if read < LEAST:
        faults.append(f"only {read} trees have labels that Prolog can read")
    print("\n".join(faults) or f"{read} trees are read back as they are")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
