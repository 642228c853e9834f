"""Reads names of sources; writes each with a digest of all that a static check's finding depends on.

usage: lintstates.py COMPILE_COMMANDS RULE_FILE... <NAMES

That is the source's own text, the own headers that it includes, be it through others, how it is compiled,
and the rules. A header that was changed has those sources read again that see it, and no others.
"""
import hashlib
import json
import re
import sys
from functools import lru_cache
from pathlib import Path

INCLUDE = re.compile(r'^\s*#\s*include\s*"([^"]+)"', re.MULTILINE)
ROOTS = [Path(name) for name in ("src", "tests", "tools", "benchmarks")]


@lru_cache(maxsize=None)
def included(path):
    """The own files that `path` includes by itself. A form that becomes a header stands for that."""
    found = set()
    for name in INCLUDE.findall(path.read_text("utf-8")):
        form = Path(name).with_suffix(".ui").name.removeprefix("ui_")
        places = [folder / name for folder in [path.parent, *ROOTS]] + [path.parent / form]
        found.update(place for place in places if place.is_file())
    return found


def seen_by(source):
    seen, new = set(), {source}
    while new:
        seen |= new
        new = {path for file in new if file.suffix != ".ui" for path in included(file)} - seen
    return sorted(seen)


def main():
    commands = {entry["file"]: entry["command"] for entry in json.loads(Path(sys.argv[1]).read_text("utf-8"))}
    rules = b"".join(Path(name).read_bytes() for name in sys.argv[2:])
    for name in sys.stdin.read().split():
        digest = hashlib.sha256(rules + commands.get(str(Path(name).resolve()), "").encode())
        for path in seen_by(Path(name)):
            digest.update(path.as_posix().encode() + b"\0" + path.read_bytes())
        print(name, digest.hexdigest()[:20])


main()
