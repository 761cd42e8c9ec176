#!/usr/bin/env python3
"""check_completion.py BRINDLE_BATCH SOURCE -- completes in a real bash, and in zsh where it is installed: exactly the
actions, options and choices that the program's help names, and files."""
import re
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

from program_help import actions_of
from typing_shell import TypingShell

# What is typed before a TAB, and the words that are then on the line.
TYPED = [
    ("brindle-batch uncheck --trees unch", ["brindle-batch", "uncheck", "--trees", "unchecked"]),
    ("brindle-batch val", ["brindle-batch", "validate"]),
    ("brindle-batch write --form", ["brindle-batch", "write", "--format"]),
    ("brindle-batch write --format at", ["brindle-batch", "write", "--format", "atis"]),
    ("brindle-batch info --q", ["brindle-batch", "info", "--quiet"]),
    ("brindle-batch info two", ["brindle-batch", "info", "two words.trees"]),
    ("brindle-batch edit --script op", ["brindle-batch", "edit", "--script", "operations"]),
    ("brindle-batch search --syn op", ["brindle-batch", "search", "--syn", "op"]),
]


def completions_in_bash(script, lines):
    """What bash's completion function offers for each line of words."""
    program = [f". '{script}'"]
    for words in lines:
        quoted = " ".join(f"'{word}'" for word in words)
        program.append(f"COMP_WORDS=({quoted}) COMP_CWORD={len(words) - 1}; _brindle_batch; echo \"${{COMPREPLY[*]}}\"")
    run = subprocess.run(["bash", "-c", "\n".join(program)], stdout=subprocess.PIPE, text=True, check=True)
    return [set(line.split()) for line in run.stdout.splitlines()]


def check_bash_lists(script, actions):
    lines, wanted = [["brindle-batch", ""]], [set(actions)]
    for action, options in actions.items():
        lines.append(["brindle-batch", action, "-"])
        wanted.append(set(options))
        for option, takes in options.items():
            if "|" in takes:
                lines += [["brindle-batch", action, option, ""], ["brindle-batch", action, option, "=", ""]]
                wanted += [set(takes.split("|"))] * 2
    got = completions_in_bash(script, lines)
    return [f"bash: {' '.join(line)}: {sorted(g)}, not {sorted(w)}"
            for line, g, w in zip(lines, got, wanted, strict=True) if g != w]


def check_zsh_lists(shell, actions):
    faults = []
    for action, options in actions.items():
        listed = set(re.findall(r"(?<![\w-])--?[a-z]+\b", shell.offered(f"brindle-batch {action} -")))
        if listed != set(options):
            faults.append(f"zsh: {action}: {sorted(listed)}, not {sorted(options)}")
    shown = shell.offered("brindle-batch ")
    return faults + [f"zsh: no action {action}" for action in actions if not re.search(rf"\b{action} +--", shown)]


def check_typed(shell, name):
    faults = []
    for line, wanted in TYPED:
        got = shell.completed(line)
        if got != wanted:
            faults.append(f"{name}: {line}: {got}, not {wanted}")
    return faults


def main():
    actions, folder = actions_of(sys.argv[1]), Path(sys.argv[2]).resolve() / "packaging" / "completion"
    script = folder / "brindle-batch.bash"
    faults = check_bash_lists(script, actions)
    with tempfile.TemporaryDirectory() as work:
        for name in ("two words.trees", "operations"):
            (Path(work) / name).touch()
        shell = TypingShell(["bash", "--norc", "--noprofile", "-i"], work, f". '{script}'")
        faults += check_typed(shell, "bash")
        shell.close()
        if shutil.which("zsh"):
            shell = TypingShell(["zsh", "-f", "-i"], work,
                                f"fpath=('{folder}' $fpath); autoload -U compinit; compinit -u -D; bindkey -e; LISTMAX=999")
            faults += check_typed(shell, "zsh") + check_zsh_lists(shell, actions)
            shell.close()
        else:
            print("zsh is not installed: its completion was not tried")
    print("\n".join(faults))
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
