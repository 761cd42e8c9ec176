#!/usr/bin/env python3
"""check_latex.py BRINDLE-BATCH -- exported trees go through a real LaTeX to a page that shows every word, category and
caption. Skipped where latex, dvips, ps2pdf, pdftotext or the ecltree package is missing."""
import os
import re
import shutil
import subprocess
import sys
import tempfile
import unicodedata
from pathlib import Path

EXAMPLES = Path(__file__).resolve().parent.parent.parent / "examples"
SKIPPED = 77
# Characters that LaTeX would take for its own. (An escaped "^" or "~" is an accent on what follows, an escaped
# backslash the end of a line: such labels are left to the hand that edits the file.)
HARD = """*
(
 (S|s(d1,50%_{x}) (NP_SBJ|a&b NN|#1$x/caf\u00e9 NN/100%) (VP VBZ/walks))
)
"""


def missing():
    for program in ("latex", "dvips", "ps2pdf", "pdftotext", "kpsewhich"):
        if not shutil.which(program):
            return program
    styles = ["ecltree.sty", "epic.sty", "eepic.sty"]
    found = subprocess.run(["kpsewhich", *styles], capture_output=True, text=True).stdout.split()
    return None if len(found) == len(styles) else "one of " + ", ".join(styles)


def page(batch, corpus, tree, folder):
    """The words on the page that LaTeX makes of the tree."""
    document = subprocess.run([batch, "latex", "--punctuation", "--tree", str(tree), corpus], capture_output=True, check=True).stdout
    (folder / "tree.tex").write_bytes(document)
    for command in (["latex", "-interaction=nonstopmode", "-halt-on-error", "tree.tex"],
                    ["dvips", "-q", "tree.dvi", "-o", "tree.ps"], ["ps2pdf", "tree.ps", "tree.pdf"]):
        run = subprocess.run(command, cwd=folder, capture_output=True, text=True, errors="replace")
        if run.returncode:
            sys.exit(f"tree {tree} of {corpus}: {command[0]} fails:\n{run.stdout[-3000:]}{run.stderr[-1000:]}")
    text = subprocess.run(["pdftotext", "-layout", "tree.pdf", "-"], cwd=folder, capture_output=True, text=True,
                          check=True).stdout
    return pieces(unicodedata.normalize("NFKC", text))  # ligatures are one character there


def pieces(text):
    """The runs of letters and digits. What LaTeX draws as a rule or puts together (_, accents) is no letter there."""
    return set(re.findall(r"[A-Za-z0-9]+", text))


def labels(tree_text):
    """Words and categories of a tree in the saved layout."""
    words = re.findall(r"/([^\s()|]+)", tree_text)
    categories = re.findall(r"(?<=\s)\(?([^\s()|/]+)", tree_text)
    return pieces(" ".join(words + categories))


def main():
    if what := missing():
        print(f"skipped: {what} is not installed")
        return SKIPPED
    batch, faults = sys.argv[1], []
    os.environ["LC_ALL"] = "C.UTF-8"
    with tempfile.TemporaryDirectory() as name:
        folder = Path(name)
        (folder / "hard.trees").write_text(HARD, encoding="utf-8")
        shutil.copy(EXAMPLES / "travel.trees", folder)
        trees = (folder / "travel.trees").read_text().split("\ntree #")[1:]
        cases = [("hard.trees", 1, HARD)] + [("travel.trees", n, trees[n - 1]) for n in (1, 60, 167)]
        for corpus, number, text in cases:
            seen = page(batch, str(folder / corpus), number, folder)
            lost = labels(text) - seen
            if lost or "corpus" not in seen:
                faults.append(f"tree {number} of {corpus}: not on the page: {sorted(lost) or 'the caption'}")
    print("\n".join(faults) or f"{len(cases)} trees on their pages")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
