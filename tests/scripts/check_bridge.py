#!/usr/bin/env python3
"""Talks to prolog/bridge.pl as the workbench does: a line, then the answer up to the prompt, and so on."""
import os
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

BRIDGE = Path(__file__).resolve().parent.parent.parent / "prolog" / "bridge.pl"
SKIPPED = 77
PROMPT = b"\n?- "

# What is written, and the answer without the empty line and the prompt behind it.
SESSION = [
    ("interactive(no),system(my_checker).", "true.\n"),
    ("X = f(Y,'A b',\"s\",[Y|_T])", "X = f(Y, 'A b', \"s\", [Y|_1])\ntrue.\n"),
    ("member(X,[a,b]), _Hidden = 1.", "X = a\ntrue.\n"),
    ("fail.", "false.\n"),
    ("", ""),
    ("write(hello), X = 'a.'.", "hello\nX = 'a.'\ntrue.\n"),
    ("X = 1. Y = 2 % two queries", "X = 1\ntrue.\nY = 2\ntrue.\n"),
    ("message('two words'), write(x), message(f(X,X^g(X,'B'))).",
     "begin messagetwo wordsend messagexbegin messagef(X,X^g(X,'B'))end message\ntrue.\n"),
    ("atom_length(X,_).", "ERROR: atom_length/2: Arguments are not sufficiently instantiated\n"),
    ("no_such(1).", "ERROR: Unknown procedure: no_such/1\n"),
    ("X = .", "ERROR: query:1:4: Syntax error: Unbalanced operator\n"),
    ("write(half), throw(mine).", "half\nERROR: Unknown message: mine\n"),
    ("assertz(p(1)), assertz(p(2)).", "true.\n"),
    ("forall(p(X), (write(X), nl)).", "1\n2\ntrue.\n"),
    ("read(X).\nfoo(bar).", "X = foo(bar)\ntrue.\n"),
    ("dif(X, a).", "dif(X, a)\ntrue.\n"),
    ("greeting(X).", "X = hello\ntrue.\n"),
    ("X = [X].", None),
    ("length(L, 1000000), atomic_list_concat(L, x, _).", None),
    ("forall(between(1, 300000, _), write(abcdefghij)).", "abcdefghij" * 300000 + "\ntrue.\n"),
    ("atom_length('%s', N)." % ("y" * 100000), "N = 100000\ntrue.\n"),
]


def read_to_prompt(child):
    text = b""
    while not text.endswith(PROMPT) and text != PROMPT[1:]:
        piece = os.read(child.stdout.fileno(), 65536)
        if not piece:
            raise EOFError(text)
        text += piece
    return text[: -len(PROMPT)].decode()


def start(folder, *arguments):
    return subprocess.Popen(["swipl", "-q", BRIDGE, *arguments], cwd=folder, stdin=subprocess.PIPE,
                            stdout=subprocess.PIPE, stderr=subprocess.PIPE)


def talk(child):
    for number, (line, expected) in enumerate(SESSION):
        child.stdin.write(line.encode() + b"\n")
        child.stdin.flush()
        answer = read_to_prompt(child)
        if number == 0:
            expected = "% towns.pl loaded\n" + expected
        if expected is not None and answer != expected:
            yield f"{line[:80]}: {answer[:300]!r} instead of {expected[:300]!r}"


def main():
    if not shutil.which("swipl"):
        print("no swipl here")
        return SKIPPED
    with tempfile.TemporaryDirectory() as folder:
        Path(folder, "towns.pl").write_text("greeting(hello).\n")
        child = start(folder, "--", "towns.trees")
        faults = list(talk(child))
        out, errors = child.communicate(b"halt(3).\n", timeout=30)
        if (child.returncode, out, errors) != (3, b"", b""):
            faults.append(f"halt(3): {child.returncode} {out} {errors}")
        child = start(folder, "--", "villages.trees")
        out, errors = child.communicate(b"X = 1.\n", timeout=30)
        if (child.returncode, out, errors) != (0, b"X = 1\ntrue.\n\n?- ", b""):
            faults.append(f"end of input: {child.returncode} {out} {errors}")
    print("\n".join(faults + [f"{len(SESSION)} lines, {len(faults)} faults"]))
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
