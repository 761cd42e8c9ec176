#!/usr/bin/env python3
"""run_case.py BRINDLE_BATCH CASE -- runs one case and compares what it writes.

A case is a folder: `cmd`, a shell script that runs in an empty folder with the case's other files in it and
`brindle-batch` on the path; `expected`, all that it must write to standard output and standard error, with a last line
"[status N]" for its exit status. $SHARED names the folder of shared corpora; a case whose cmd mentions it is skipped
where that folder is absent. With UPDATE=1 in the environment `expected` is written instead."""
import difflib
import os
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path


def main():
    program, case = Path(sys.argv[1]).resolve(), Path(sys.argv[2]).resolve()
    shared = Path(__file__).resolve().parents[2].parent / "shared" / "corpora"
    command = (case / "cmd").read_text(encoding="utf-8")
    if "$SHARED" in command and not shared.is_dir():
        print("skipped: no shared corpora here")
        return 0
    environment = {"PATH": f"{program.parent}:{os.environ['PATH']}", "SHARED": str(shared), "LC_ALL": "C.UTF-8",
                   "HOME": "/nonexistent", "EXAMPLES": str(Path(__file__).resolve().parents[2] / "examples")}
    with tempfile.TemporaryDirectory() as folder:
        for file in case.iterdir():
            if file.name not in ("cmd", "expected"):
                shutil.copy(file, folder)
        run = subprocess.run(["sh", "-c", command], cwd=folder, env=environment, stdin=subprocess.DEVNULL,
                             stdout=subprocess.PIPE, stderr=subprocess.STDOUT, timeout=120, check=False)
    got = run.stdout.decode("utf-8", "backslashreplace") + f"[status {run.returncode}]\n"
    if os.environ.get("UPDATE"):
        (case / "expected").write_text(got, encoding="utf-8")
        return 0
    wanted = (case / "expected").read_text(encoding="utf-8")
    difference = list(difflib.unified_diff(wanted.splitlines(True), got.splitlines(True), "expected", "got"))
    sys.stdout.writelines(difference)
    return 1 if difference else 0


if __name__ == "__main__":
    sys.exit(main())
