#!/usr/bin/env python3
"""Proves from the includes that the folders form a DAG: a folder includes only itself and the folders below it, no
core folder sees a window, and FL/ headers are seen in toolkit/ alone. Exits with 1 and a line a fault."""
import re
import sys
from pathlib import Path

CORE = ["base", "model", "stats", "corpus", "edit", "propose", "prolog", "display"]
BELOW = {folder: CORE[:place] for place, folder in enumerate(CORE)} | {
    "toolkit": [],
    "gui": CORE + ["toolkit"],
    "commands": CORE + ["toolkit", "gui"],
    "app": CORE + ["toolkit", "gui", "commands"],
}
INCLUDE = re.compile(r'^\s*#\s*include\s+["<]([^">]+)[">]', re.M)
WINDOW_HEADERS = re.compile(r"^(FL|X11)/")


def faults(root):
    for folder, below in BELOW.items():
        for path in sorted((root / folder).rglob("*.[ch]pp")):
            batch = folder == "app" and "batch" in path.relative_to(root).parts
            allowed = {folder, *(CORE if batch else below)}
            for header in INCLUDE.findall(path.read_text(encoding="utf-8")):
                first = header.split("/")[0]
                where = f"{path.relative_to(root)}: includes {header}"
                if first in BELOW and first not in allowed:
                    yield where
                if WINDOW_HEADERS.match(header) and (folder in CORE or batch):
                    yield f"{where} (no window system in the core)"
                if header.startswith("FL/") and folder != "toolkit":
                    yield f"{where} (FLTK is toolkit/'s business)"


def main():
    root = Path(sys.argv[1] if len(sys.argv) > 1 else ".").resolve()
    if not (root / "model").is_dir():
        sys.exit(f"{root}: no model/ folder here")
    found = list(faults(root))
    for line in found:
        print(line)
    print(f"{len(found)} includes against the order of the folders")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
