#!/usr/bin/env python3
"""Checks examples/ with an own reading of the saved layout: the root of every checked tree, expanded whole, has an answer
in travel.pl, which is the one in travel.answers; its normal form can be a tag and has the same answer; every tree has a
lattice with a path that is its sentence. `--write` makes travel.answers anew."""
import re
import shutil
import subprocess
import sys
from pathlib import Path

HERE = Path(__file__).resolve().parent
EXAMPLES = HERE.parent.parent / "examples"
SKIPPED = 77
TOKEN = re.compile(r"\s*(?:(\()|(\))|[^\s()|/]+(\|)?)")
WORD = re.compile(r"/([^\s()|]+)")


class Tree:
    """root: (tag or None, word or None, daughters)."""

    def __init__(self, text):
        self.text, self.at = text, 0
        self.token()
        self.root = self.node(self.token())

    def token(self):
        match = TOKEN.match(self.text, self.at)
        self.at = match.end()
        return match

    def node(self, match):
        if not match[1]:
            tag = self.tag() if match[3] else None
            word = WORD.match(self.text, self.at)
            self.at = word.end()
            return tag, word[1], []
        tag, daughters = self.tag() if self.token()[3] else None, []
        while not (match := self.token())[2]:
            daughters.append(self.node(match))
        return tag, None, daughters

    def tag(self):
        start, depth = self.at, 0
        while self.text[self.at] not in " \n/" and (depth or self.text[self.at] != ")"):
            depth += {"(": 1, ")": -1}.get(self.text[self.at], 0)
            self.at += 1
        return self.text[start : self.at]


def expand(node):
    return re.sub(r"d(\d+)", lambda ref: expand(node[2][int(ref[1]) - 1]), node[0])


def words(node):
    return [node[1]] if node[1] else [word for daughter in node[2] for word in words(daughter)]


def answers(formulas):
    """For each formula: its answer, its normal form, and whether that one has the same answer and normal form."""
    run = subprocess.run(["swipl", "-q", "-g", "run", "-t", "halt", HERE / "answers.pl", EXAMPLES / "travel.pl"],
                         input="".join(formula + "\n" for formula in formulas), capture_output=True, text=True)
    if run.stderr:
        sys.exit(run.stderr)
    return [block.rsplit("#", 2) for block in run.stdout.split("##\n")[:-1]]


def lattice_faults(number, sentence, lattice):
    steps = {}
    for line in re.findall(r"(?m)^(\d+) (\d+) (\S+) [\d.]+$", lattice):
        steps.setdefault((int(line[0]), line[2]), set()).add(int(line[1]))
    points = {0}
    for word in sentence:
        points = set().union(*(steps.get((point, word), set()) for point in points))
    if int(re.search(r"end (\d+)", lattice)[1]) not in points:
        yield f"lattice {number}: no path for {' '.join(sentence)}"


def main():
    if not shutil.which("swipl"):
        print("no swipl here")
        return SKIPPED
    blocks = re.split(r"\n\ntree #\d+\n", (EXAMPLES / "travel.trees").read_text())[1:]
    trees = [(block.startswith("*\n"), Tree(block.lstrip("*")).root) for block in blocks]
    lattices = re.findall(r"(?s)BEGIN_LATTICE.*?\nEND_LATTICE\n", (EXAMPLES / "travel.lattices").read_text())
    faults = [] if len(lattices) == len(trees) else [f"{len(trees)} trees, {len(lattices)} lattices"]
    for number, ((_, root), lattice) in enumerate(zip(trees, lattices), 1):
        faults += lattice_faults(number, words(root)[:-1], lattice)
    checked = [root for is_checked, root in trees if is_checked]
    found = answers([expand(root) for root in checked])
    told = ""
    for root, (answer, normal, same) in zip(checked, found, strict=True):
        sentence = " ".join(words(root))
        told += f"{sentence}\n{answer}\n"
        if answer.startswith("means") or not answer or same != "same" or re.search(r"[\s/]", normal):
            faults.append(f"{sentence}: {answer} {normal} {same}")
    expected = HERE / "travel.answers"
    if "--write" in sys.argv:
        expected.write_text(told)
    if told != expected.read_text():
        faults.append(f"other answers than in {expected.name}")
    print("\n".join(faults + [f"{len(trees)} trees, {len(checked)} answers, {len(faults)} faults"]))
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
