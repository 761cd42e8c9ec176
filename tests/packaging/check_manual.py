#!/usr/bin/env python3
"""check_manual.py BRINDLE_BATCH BRINDLE SOURCE -- holds the manual pages to the programs' own help: every action with
exactly its options and choices, every environment variable that the code reads; and formats them without a warning,
where a formatter is installed."""
import re
import shutil
import subprocess
import sys
from pathlib import Path

from program_help import actions_of, help_of, options_in

COMMON = {"-h", "--help", "-w", "--wordgraphs", "-o", "--output", "--quiet"}
SELECTION = {"--trees", "--from", "--to", "--random", "--seed"}


def plain(page):
    """The page as text: macros and fonts taken away, the arguments of a macro of alternating fonts joined."""
    lines = []
    for line in page.read_text(encoding="utf-8").splitlines():
        line = re.sub(r"\\f(?:.)", "", line).replace(r"\-", "-").replace(r"\&", "").replace(r"\~", " ")
        macro = re.match(r"\.(BI|BR|IB|IR|RB|RI) (.*)", line)
        if macro:
            line = re.sub(r"(?<! ) (?! )", "", macro[2].replace("  ", "\0")).replace("\0", " ")
        lines.append(line)
    return "\n".join(lines)


def sections(text):
    """{heading: text} of the .SS sections."""
    parts = re.split(r"^\.S[SH] (.*)$", text, flags=re.M)
    return dict(zip(parts[1::2], parts[2::2]))


def named(text):
    return set(re.findall(r"(?<![\w-])--?[a-z][\w-]*", text))


def check_actions(program, page):
    faults = []
    parts = sections(plain(page))
    for action, options in actions_of(program).items():
        if action not in parts:
            faults.append(f"{page.name}: no section on {action}")
            continue
        special = set(options) - COMMON - SELECTION
        for option in special:
            takes = options[option]
            if option not in named(parts[action]):
                faults.append(f"{page.name}: {action} lacks {option}")
            elif "|" in takes and takes not in parts[action]:
                faults.append(f"{page.name}: {action} {option} takes {takes}")
        headings = named("\n".join(re.findall(r"(?<=\.TP\n).*", parts[action])))
        faults += [f"{page.name}: {action} has no {option}" for option in headings - special]
        listed = re.search(rf"^(?:\.B )?{action},?$|^{action} ?,?$", parts["Selection options"], re.M)
        if (SELECTION <= set(options)) != bool(listed):
            faults.append(f"{page.name}: selection options and {action}")
    rest = parts["Common options"] + parts["Selection options"]
    faults += [f"{page.name}: {option} is missing" for option in COMMON | SELECTION if option not in named(rest)]
    return faults


def check_options(program, page):
    """Each option of the workbench's help is in its page."""
    text = plain(page)
    asked = set(re.findall(r"(?<=[ ,])--?[a-z]+\b", help_of(program)))
    assert len(asked) > 8, asked
    return [f"{page.name}: {option} is missing" for option in sorted(asked - named(text))]


def check_environment(source, pages):
    """Every variable of ours that the code reads has its paragraph."""
    read = set()
    for folder in ("app", "base", "prolog", "drawing", "windows"):
        for file in (source / folder).rglob("*.cpp"):
            read |= set(re.findall(r'(?:getenv|variable)\("(BRINDLE_[A-Z_]+)"', file.read_text(encoding="utf-8")))
    assert "BRINDLE_PROLOG" in read
    text = "\n".join(page.read_text(encoding="utf-8") for page in pages)
    return [f"no page tells what {name} does" for name in sorted(read) if f".B {name}\n" not in text]


def check_format(page):
    commands = (["mandoc", "-T", "lint", "-W", "warning"], ["groff", "-ww", "-man", "-Tascii", "-z"])
    faults = []
    for command in commands:
        if shutil.which(command[0]):
            run = subprocess.run([*command, str(page)], stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                                 check=False)
            faults += run.stdout.splitlines()
    return faults


def main():
    batch, workbench, source = sys.argv[1], sys.argv[2], Path(sys.argv[3])
    pages = [source / "packaging" / "man" / name for name in ("brindle-batch.1", "brindle.1")]
    faults = check_actions(batch, pages[0]) + check_options(workbench, pages[1]) + check_environment(source, pages)
    faults += [fault for page in pages for fault in check_format(page)]
    assert {"--help", "--version"} <= set(options_in(help_of(batch)))
    print("\n".join(faults))
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
