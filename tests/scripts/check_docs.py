#!/usr/bin/env python3
"""Holds the documentation against the project: every relative link and picture leads somewhere, no picture lies unused,
the guide names whatever can be pressed or chosen in the windows and whatever notices say, and the pages name every
environment variable and folder. Exits with 1 and a line a fault."""
import re
import sys
from pathlib import Path

TOP = Path(__file__).resolve().parents[2]
PAGES = [TOP / "README.md", TOP / "examples" / "README.md", *sorted((TOP / "docs").rglob("*.md"))]
LINK = re.compile(r"\[[^\]]*\]\(([^)\s]+)\)")
STRING = r'"((?:[^"\\]|\\.)*)"'
# What is pressed or chosen: items of windows, entries of menus, the lists of choices and tables.
ITEM = re.compile(r"(?:add_(?:button|check_box|choice|slider|field|file_field|action|command|size)|addAction|addMenu|NumberSlider"
                  r"|QPushButton|QCheckBox|CommandWindow|Requestor)\((?:owner, |\*\w+, |window_in_hand\(\), )?\s*" + STRING)
CHOICES = re.compile(r"\{(" + STRING + r"(?:,\s*" + STRING + r")+)\}")
PAIRS = re.compile(r"\{" + STRING + r", (?:Theme|\d)")
# The answers of notices.
# Where messages are made that a person may meet.
SPEAKERS = ["windows/*", "display/search", "display/search_command", "edit/label_rules", "edit/bracketing",
            "corpus/reader", "corpus/saving", "corpus/lattices", "prolog/expansion", "prolog/session", "prolog/session_io"]
UNTOLD = {"\\r [K", "the notices name these characters", "pipe called with no argument", "; is a directory",
          "A workbench for treebanks annotated with meaning."}
BUTTONS = re.compile(r"\{" + STRING + r",\s*[A-Z_a-z0-9]+\}")


def text_of(page):
    return page.read_text(encoding="utf-8")


def without_code(text):
    """Indented blocks and code in back-quotes hold no links."""
    lines = [line for line in text.splitlines() if not line.startswith("    ")]
    return re.sub(r"`[^`]*`", "", "\n".join(lines))


def anchors(page):
    """The places in a page that a link can name: headings, as GitHub names them, and anchors."""
    text = text_of(page)
    headings = re.findall(r"^#+ (.*)$", text, re.M)
    named = {re.sub(r"[^\w -]", "", heading.lower()).replace(" ", "-") for heading in headings}
    return named | set(re.findall(r'<a id="([^"]+)"', text))


def broken_links():
    for page in PAGES:
        for link in LINK.findall(without_code(text_of(page))):
            if re.match(r"[a-z]+:", link):
                continue
            name, _, anchor = link.partition("#")
            target = (page.parent / name).resolve() if name else page
            where = page.relative_to(TOP)
            if not target.exists():
                yield f"{where}: no {link}"
            elif anchor and anchor not in anchors(target):
                yield f"{where}: no place {anchor} in {target.relative_to(TOP)}"


def unused_pictures():
    shown = {(page.parent / link).resolve() for page in PAGES for link in LINK.findall(text_of(page))}
    for picture in sorted((TOP / "docs" / "pictures").iterdir()):
        if picture not in shown:
            yield f"{picture.relative_to(TOP)}: no page shows it"


def plain(label):
    """A label as a person reads it: without padding, and as the pages quote it."""
    return " ".join(label.replace("\\n", " ").split())


def labels():
    """Labels of the windows, and the buttons of notices, with the files they stand in."""
    for path in sorted((TOP / "windows").glob("*.cpp")):
        code = text_of(path)
        found = [label.split("%")[0] for label in ITEM.findall(code)] + PAIRS.findall(code)
        found += [label for choices, *_ in CHOICES.findall(code) for label in re.findall(STRING, choices)]
        for tables in re.findall(r"constexpr const char \*\w+\[\] = \{(.*?)\};", code, re.S):
            found += re.findall(STRING, tables)
        for spec in re.findall(r"buttons = \{(.*?)\}[,)]|ask_at\((.*?)\);", code, re.S):
            found += BUTTONS.findall("".join(spec))
        yield from ((path, re.sub("&(?=[A-Za-z])", "", label)) for label in found)


def unnamed_labels():
    guide = plain(" ".join(text_of(page) for page in PAGES if "guide" in page.parts[-2:][0] or page.stem == "guide"))
    for path, label in labels():
        label = plain(label)
        if label not in ("", "#") and f'"{label}"' not in guide and f'"{label} ' not in guide:
            yield f"{path.relative_to(TOP)}: the guide does not name \"{label}\""


def messages(path):
    """The longest fixed piece of each message in a file that has at least two words."""
    code = re.sub(r"^\s*(//|#).*$", "", text_of(path), flags=re.M)
    if path.parent.name == "windows":  # not all that stands in windows: what notices and footers say
        code = "\n".join(re.findall(r"(?:\btell\w*|\bask\w*|set_footer)\(.*?;\n", code, re.S))
    for message in re.findall(STRING, re.sub(r'"\s*\n\s*"', "", code)):
        message = re.sub(r"\\x1b|\\033|\\[nt]", " ", message).replace('\\"', '"')
        pieces = re.split(r"%[-.\d]*\w|\{[^}]*\}|\n", message)
        longest = max((plain(piece).strip("'\":( ") for piece in pieces), key=len)
        if len(longest.split()) > 1:
            yield longest


def untold_messages():
    pages = plain(" ".join(text_of(page) for page in PAGES)).replace("*", "").replace("&#124;", "|")
    paths = sorted(path for speaker in SPEAKERS for path in TOP.glob(speaker + ".cpp"))
    if sum(1 for path in paths for _ in messages(path)) < 60:
        yield "The messages were not found: has the code been rearranged?"
    for path in paths:
        for message in messages(path):
            if message not in pages and message not in UNTOLD and " = " not in message:
                yield f"{path.relative_to(TOP)}: no page tells of \"{message}\""


def unnamed_things():
    pages = " ".join(text_of(page) for page in PAGES)
    code = " ".join(text_of(path) for folder in ("base", "prolog", "windows", "app") for path in (TOP / folder).glob("*.cpp"))
    for name in sorted(set(re.findall(r'"(BRINDLE_[A-Z_]+)"', code))):
        if f"`{name}`" not in pages and not name.startswith("BRINDLE_UI_SYNC"):
            yield f"no page names the variable {name}"
    mapped = text_of(TOP / "docs" / "map.md")
    for folder in sorted(path.parent.name for path in TOP.glob("*/*.cpp")):
        if f"`{folder}/`" not in mapped:
            yield f"docs/map.md does not name the folder {folder}/"


def unmapped_files():
    """The core's rows of docs/map.md against its folders: `folder/`, then names of files without their endings."""
    folder, named = "", {}
    for cells in re.findall(r"^\| (?:`(\w+)/`)? *\| (`.*?) \|", text_of(TOP / "docs" / "map.md"), re.M):
        folder = cells[0] or folder
        named.setdefault(folder, set()).update(name.split(".")[0] for name in re.findall(r"`([\w.]+)`", cells[1]))
    for folder in ("base", "model", "stats", "corpus", "edit", "propose", "prolog", "display", "drawing", "windows"):
        there = {path.stem for path in (TOP / folder).iterdir() if path.suffix in (".hpp", ".cpp", ".pl")}
        for name in sorted(named.get(folder, set()) - there):
            yield f"docs/map.md: {folder}/{name} is not there"
        for name in sorted(there - named.get(folder, set())):
            print(f"Note: docs/map.md does not name {folder}/{name} yet")  # a file may come before its description


def main():
    if len(list(labels())) < 80:
        sys.exit("The windows' labels were not found: has the code been rearranged?")
    faults = [*broken_links(), *unused_pictures(), *unnamed_labels(), *untold_messages(), *unnamed_things(), *unmapped_files()]
    for fault in faults:
        print(fault)
    print(f"{len(PAGES)} pages, {len(list(labels()))} labels, {len(faults)} faults")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
