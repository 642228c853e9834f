#!/usr/bin/env python3
"""Each text of the sources is there in each language, whole.

Finds what is unfinished or empty, what the sources say and a language lacks or the other way round, texts
that nothing can translate, plural forms that are missing, and translations whose place markers (%1, %n,
%L1), line ends, leading and trailing blanks or mnemonics differ from the text's. Prints each fault and ends
with 1 where there is one. ./dev translations brings the files up to date. A folder as the only argument is
looked at instead of translations/.
"""
import re
import shutil
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as ElementTree
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
FORMS = {"en": 2, "pl": 3, "de": 2}
MARKER = re.compile(r"%(?:L?\d+|n)")
MNEMONIC = re.compile(r"&(?=\w)")


def messages(path):
    """(context, text) -> its element."""
    found = {}
    for context in ElementTree.parse(path).getroot().iter("context"):
        for message in context.iter("message"):
            found[context.findtext("name"), message.findtext("source"), message.findtext("comment")] = message
    return found


def edges(text):
    """What a text is joined to its neighbours by."""
    return text[:len(text) - len(text.lstrip())], text[len(text.rstrip()):], text.count("\n")


def faults_of(source, translation):
    if not translation:
        yield "is empty"
        return
    if sorted(MARKER.findall(source)) != sorted(MARKER.findall(translation)):
        yield f"has other place markers: {translation}"
    if edges(source) != edges(translation):
        yield f"has other blanks or lines: {translation!r}"
    if len(MNEMONIC.findall(source)) != len(MNEMONIC.findall(translation)):
        yield f"has a mnemonic where the text has none, or none: {translation}"


def faults(language, path):
    for (context, source, _), message in messages(path).items():
        element = message.find("translation")
        forms = [form.text or "" for form in element.iter("numerusform")]
        found = []
        if element.get("type"):
            found.append(f"is {element.get('type')}")
        elif message.get("numerus"):
            if len(forms) != FORMS[language]:
                found.append(f"has {len(forms)} plural forms, not {FORMS[language]}")
            for form in forms:
                found += faults_of(source, form)
        else:
            found += faults_of(source, element.text or "")
        for fault in found:
            yield f"{path.name}: {context}: {source!r} {fault}"


def differences(path, folder):
    """Against what the sources say now."""
    kept, fresh = messages(path), messages(Path(folder) / path.name)
    for context, source, _ in sorted(fresh.keys() - kept.keys(), key=str):
        yield f"{path.name}: {context}: {source!r} is missing; ./dev translations adds it"
    for context, source, _ in sorted(kept.keys() - fresh.keys(), key=str):
        yield f"{path.name}: {context}: {source!r} is obsolete; ./dev translations removes it"


def main():
    folder = Path(sys.argv[1]) if len(sys.argv) > 1 else ROOT / "translations"
    paths = {language: folder / f"varnelgraph_{language}.ts" for language in FORMS}
    found = []
    with tempfile.TemporaryDirectory() as fresh:
        for path in paths.values():
            shutil.copy(path, fresh)
        tool = subprocess.run([ROOT / "tools/translations.sh", fresh], check=True, stderr=subprocess.PIPE,
                              text=True)
        found += tool.stderr.splitlines()  # of texts without a class to look them up under
        for path in paths.values():
            found += differences(path, fresh)
    for language, path in paths.items():
        found += faults(language, path)
    print("\n".join(found) or f"translations: {len(messages(paths['pl']))} texts, no fault")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
