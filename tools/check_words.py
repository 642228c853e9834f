#!/usr/bin/env python3
"""The tree speaks of itself alone: a text may not send its reader to papers or places that are not in it, nor
a document to a file that is not there.

Prints each line that does and ends with 1 where there is one.
"""
import re
import shutil
import subprocess
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
WORDS = [
    (re.compile(r"\bspec\.md\b|\b[Tt]he spec\b|[Ss]pecification"),
     "papers outside the tree; say the reason instead"),
    (re.compile(r"\b[Pp]arts? [0-9]+\.[0-9]"), "papers outside the tree; say the reason instead"),
    (re.compile(r"\b[Ii]ssues? #?[0-9]"), "a ticket; say the reason instead"),
    (re.compile(r"(?<![\w.])/(?:work|farm|tmp/vg|home/\w+)/"), "a path of one machine"),
    (re.compile(r"\b(?:TO[D]O|FIX[M]E|XX[X])\b"), "unfinished work; finish it or write down the limit"),
]
LINK = re.compile(r"\]\((?!\w+:|#)([^)#\s]+)")
SKIPPED = {"LICENSE"}
BINARY = {".png", ".ico", ".wav", ".ttf", ".gz"}


def listed_files():
    """What is under version control; without git everything but the builds."""
    if (ROOT / ".git").exists() and shutil.which("git"):
        git = subprocess.run(["git", "-C", str(ROOT), "ls-files", "-z", "-co", "--exclude-standard"],
                             capture_output=True, check=False)
        if git.returncode == 0:
            return [ROOT / name for name in git.stdout.decode().split("\0") if name]
    return [p for p in ROOT.rglob("*")
            if p.is_file() and p.relative_to(ROOT).parts[0] not in ("build", ".git")]


def faults(path):
    try:
        text = path.read_text("utf-8")
    except UnicodeDecodeError:
        return
    for number, line in enumerate(text.splitlines(), 1):
        for pattern, reason in WORDS:
            found = pattern.search(line)
            if found:
                yield f"{path.relative_to(ROOT)}:{number}: '{found.group()}' names {reason}"
        if path.suffix == ".md":
            for target in LINK.findall(line):
                if not (path.parent / target).exists():
                    yield f"{path.relative_to(ROOT)}:{number}: there is no {target}"


def main():
    files = [p for p in sorted(listed_files())
             if p.is_file() and p.suffix not in BINARY and p.name not in SKIPPED
             and "corpus" not in p.parts and "corpora" not in p.parts]
    found = [fault for path in files for fault in faults(path)]
    print("\n".join(found) or f"words: {len(files)} files, no fault")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
