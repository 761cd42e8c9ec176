#!/usr/bin/env python3
"""check_install.py BUILD SOURCE -- installs the build into a new prefix, moves that, and uses it from there: nothing is
missing, no file names the source folder, the programs run, and Prolog answers through the installed bridge."""
import os
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

EXPECTED = """
bin/brindle bin/brindle-batch share/brindle/bridge.pl share/brindle/examples/travel.trees
share/brindle/examples/travel.pl share/brindle/examples/README.md share/doc/brindle/README.md
share/man/man1/brindle.1 share/man/man1/brindle-batch.1 share/bash-completion/completions/brindle-batch
share/zsh/site-functions/_brindle-batch share/applications/io.brindle.Workbench.desktop
share/metainfo/io.brindle.Workbench.metainfo.xml share/mime/packages/io.brindle.Workbench.xml
share/icons/hicolor/scalable/apps/io.brindle.Workbench.svg share/icons/hicolor/48x48/apps/io.brindle.Workbench.png
""".split()


def run(command, **more):
    done = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True, check=False, **more)
    if done.returncode:
        sys.exit(f"{command} ended with {done.returncode}:\n{done.stdout}{done.stderr}")
    return done.stdout


def check_files(prefix, source):
    faults = [f"{name} was not installed" for name in EXPECTED if not (prefix / name).is_file()]
    for file in prefix.rglob("*"):
        if file.is_file() and str(source).encode() + b"/" in file.read_bytes():
            faults.append(f"{file.relative_to(prefix)} names {source}")
    return faults


def check_desktop_files(prefix):
    if shutil.which("desktop-file-validate"):
        run(["desktop-file-validate", str(prefix / "share/applications/io.brindle.Workbench.desktop")])
    if shutil.which("appstreamcli"):
        run(["appstreamcli", "validate", "--no-net", str(prefix / "share/metainfo/io.brindle.Workbench.metainfo.xml")])


def check_programs(prefix):
    environment = {"PATH": f"{prefix / 'bin'}:/usr/bin:/bin", "LC_ALL": "C.UTF-8", "HOME": "/nonexistent"}
    corpus = str(prefix / "share/brindle/examples/travel.trees")
    faults = []
    figures = run(["brindle-batch", "info", corpus], env=environment)
    if "trees\t167\n" not in figures:
        faults.append(f"brindle-batch info: {figures}")
    if not run(["brindle", "--version"], env=environment).startswith("brindle "):
        faults.append("brindle --version")
    if shutil.which("swipl"):
        command = ["brindle-batch", "filter", "--to", "3", "--roots", "--predicate", "reply", corpus]
        filtered = run(command, env=environment)
        if "(SBARQ|means_app(d1,d2)" not in filtered:
            faults.append(f"Prolog did not answer: {filtered[:300]}")
    else:
        print("swipl is not installed: filter was not tried")
    return faults


def main():
    build, source = sys.argv[1], Path(sys.argv[2]).resolve()
    with tempfile.TemporaryDirectory() as folder:
        first, prefix = Path(folder) / "first", Path(folder) / "moved here"
        run(["cmake", "--install", build, "--strip", "--prefix", str(first)], env={"PATH": os.environ["PATH"]})
        check_desktop_files(first)
        first.rename(prefix)
        faults = check_files(prefix, source) + check_programs(prefix)
    print("\n".join(faults))
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
