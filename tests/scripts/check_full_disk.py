#!/usr/bin/env python3
"""check_full_disk.py BRINDLE-BATCH -- a corpus that does not fit on its disk any more: the old file stands, the message
gives the reason, nothing is left behind. Skipped where no small file system can be mounted."""
import subprocess
import sys
import tempfile
from pathlib import Path

SKIPPED = 77
TREE = "( (S|s(d1,d2) (NP|thing NN/cats) (VP VBZ/sleep)) )\n"
SCRIPT = """
mount -t tmpfs -o size=64k none "$1" || exit 77
cd "$1" && cp ../few.trees kept.trees || exit 77
"$2" write --format atis -o kept.trees ../many.trees && echo "a full disk was not noticed"
cmp kept.trees ../few.trees || echo "the old file is gone"
[ "$(ls -A)" = kept.trees ] || { echo "left behind:"; ls -A; }
"$2" write --format dop -o kept.trees ../many.trees && echo "a full disk was not noticed by the DOP writer"
cmp kept.trees ../few.trees || echo "the old file is gone"
[ "$(ls -A)" = kept.trees ] || { echo "left behind:"; ls -A; }
"$2" write --format atis -o kept.trees ../few.trees || echo "a file that fits is not written"
"""


def main():
    batch = Path(sys.argv[1]).resolve()
    with tempfile.TemporaryDirectory() as name:
        folder = Path(name)
        (folder / "disk").mkdir()
        (folder / "few.trees").write_text(TREE)
        (folder / "many.trees").write_text(TREE * 5000)
        try:
            run = subprocess.run(["unshare", "--mount", "sh", "-c", SCRIPT, "sh", folder / "disk", batch],
                                 capture_output=True, text=True)
        except FileNotFoundError:
            return SKIPPED
    if run.returncode == SKIPPED or "unshare" in run.stderr:
        print("skipped: no file system can be mounted here:", run.stderr.strip())
        return SKIPPED
    messages = run.stderr.splitlines()
    faults = run.stdout.splitlines()
    if messages != ["brindle-batch: cannot write to kept.trees: No space left on device"] * 2:
        faults += ["the messages are:", *messages]
    print("\n".join(faults) or "the old file stands")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
