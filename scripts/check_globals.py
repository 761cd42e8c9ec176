#!/usr/bin/env python3
"""check_globals.py [ROOT] -- proves that no header of the core declares a mutable variable: one that is extern,
static, inline or thread_local, and not constant. Those that there still are stand in ROOT/scripts/globals.allowed, a
name a line, and that list can only shrink: a name that is gone is a fault, too. Exits with 1 and a line a fault."""
import re
import sys
from pathlib import Path

HERE = Path(__file__).resolve().parent
sys.path.insert(0, str(HERE.parent / "tests"))
from check_levels import CORE  # noqa: E402

# Comments, texts, characters (but no digits' separators), lines of the preprocessor.
NO_CODE = re.compile(
    r'//[^\n]*|/\*.*?\*/|R"(\w*)\(.*?\)\1"|"(?:\\.|[^"\\\n])*"|(?<!\d)\'(?:\\.|[^\'\\\n])+\'|^[ \t]*#(?:\\\n|[^\n])*',
    re.S | re.M,
)
INNER = re.compile(r"<[^<>;{}]*>|\[[^][;{}]*\]|\balignas\s*\([^()]*\)|\b(public|protected|private)\s*:")
STATEMENT = re.compile(r"[^;{}]+(?=[;{])")  # or its beginning, up to a body or an initialiser
STORAGE = re.compile(r"\b(extern|static|inline|thread_local)\b")
NO_VARIABLE = re.compile(r"\b(constexpr|operator|namespace|friend|using|extern\s+template)\b")
POINTER_TO_FUNCTION = re.compile(r"\(\s*[*&]([^()]*)\).*", re.S)
NAME = re.compile(r"\w+(?=\W*$)")


def blank(match):
    return re.sub(r"[^\n]", " ", match.group(0))  # so that what follows keeps its line


def without(pattern, text):
    """The text with blanks where the pattern is, innermost first."""
    found = 1
    while found:
        text, found = pattern.subn(blank, text)
    return text


def mutable_variables(header):
    """The line and the name of each mutable variable that a header's text declares."""
    code = without(INNER, NO_CODE.sub(blank, header))
    for statement in STATEMENT.finditer(code):
        declaration = POINTER_TO_FUNCTION.sub(r" * \1", statement.group(0).split("=")[0])
        if not STORAGE.search(declaration) or NO_VARIABLE.search(declaration) or "(" in declaration:
            continue
        type_is_const = re.search(r"\bconst\b", declaration.split(",")[0])
        for declarator in declaration.split(","):
            before, star, behind = declarator.rpartition("*")
            if not (re.search(r"\bconst\b", behind) if star else type_is_const):
                yield code.count("\n", 0, statement.end()) + 1, NAME.search(declarator).group(0)


def main():
    root = Path(sys.argv[1] if len(sys.argv) > 1 else HERE.parent).resolve()
    allowed = set((root / "scripts/globals.allowed").read_text(encoding="utf-8").split())
    seen, faults = set(), []
    for folder in CORE:
        for path in sorted((root / folder).rglob("*.hpp")):
            for line, name in mutable_variables(path.read_text(encoding="utf-8")):
                seen.add(name)
                if name not in allowed:
                    faults.append(f"{path.relative_to(root)}:{line}: {name} is a mutable global")
    faults += [f"scripts/globals.allowed: {name} is gone: take it off the list" for name in sorted(allowed - seen)]
    for fault in faults:
        print(fault)
    print(f"{len(seen)} mutable globals in headers of the core, {len(allowed)} of them allowed")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
