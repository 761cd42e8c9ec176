#!/usr/bin/env python3
"""Proves from the includes that the folders form a DAG: a folder includes only itself and the folders below it; no core
folder and nothing of brindle-batch sees Qt or X; drawing/ sees Qt Core and Gui alone; X is seen by the screen map and
by the program's options alone. Exits with 1 and a line a fault."""
import re
import sys
from pathlib import Path

CORE = ["base", "model", "stats", "corpus", "edit", "propose", "prolog", "display"]
BELOW = {folder: CORE[:place] for place, folder in enumerate(CORE)} | {
    "drawing": CORE,
    "windows": [*CORE, "drawing"],
    "app": [*CORE, "drawing", "windows"],
}
INCLUDE = re.compile(r'^\s*#\s*include\s+["<]([^">]+)[">]', re.M)
QT = re.compile(r"^(Q[A-Z]|q[a-z]+\.h$)")
# Without its folder no header of another module is found there: the target links Qt Gui alone.
QT_BEYOND_GUI = re.compile(r"^Qt(?!Core|Gui)\w+(/|$)")
X = re.compile(r"^(X11|xcb)/")
SEES_X = re.compile(r"^app/(ui_map_x11|x_options)\.")


def fault(name, folder, header):
    """What is wrong with a file's include; "": nothing."""
    batch = name.startswith("app/batch/")
    first = header.split("/")[0]
    if first in BELOW and first not in {folder, *(CORE if batch else BELOW[folder])}:
        return "against the order of the folders"
    if (folder in CORE or batch) and (QT.match(header) or X.match(header)):
        return "no window system in the core"
    if folder == "drawing" and QT_BEYOND_GUI.match(header):
        return "drawing/ needs no windows"
    if X.match(header) and not SEES_X.match(name):
        return "Qt speaks with the server"
    return ""


def faults(root):
    for folder in BELOW:
        for path in sorted((root / folder).rglob("*.[ch]pp")):
            name = path.relative_to(root).as_posix()
            for header in INCLUDE.findall(path.read_text(encoding="utf-8")):
                if reason := fault(name, folder, header):
                    yield f"{name}: includes {header} ({reason})"


def main():
    root = Path(sys.argv[1] if len(sys.argv) > 1 else ".").resolve()
    if not (root / "model").is_dir():
        sys.exit(f"{root}: no model/ folder here")
    found = list(faults(root))
    for line in found:
        print(line)
    print(f"{len(found)} includes that should not be")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
