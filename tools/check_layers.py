#!/usr/bin/env python3
"""Holds the rules of the house: which folder may include which, no circles between units, every source in a
library.

A unit is a header with its sources. The rules are in RULES and EXCEPTIONS; HACKING.md says why they are so.
Prints what breaks them and ends with 1 where something does. --graph prints the includes between folders
instead.
"""
import argparse
import re
import sys
from pathlib import Path

# What each folder may include besides itself. A folder within a folder has a rule of its own.
RULES = {
    "data": set(),
    "data/records": {"data"},
    "protocol": {"data"},
    "ports": set(),
    "settings": {"ports"},
    "link": {"data", "settings", "ports"},
    "files/disk": set(),
    "files": {"data", "data/records", "protocol", "files/disk"},
    "journal": {"data", "protocol", "files", "files/disk"},
    "series": {"data", "data/records"},
    "logbook": {"data", "series", "files", "files/disk", "journal"},
    "widgets": set(),
    "printing": set(),
    "graph/curves": {"series"},
    "graph/scene": {"data", "settings", "series"},
    "graph/plot": {"data", "series", "widgets", "graph/curves", "graph/scene"},
    "graph": {"data", "settings", "series", "widgets", "graph/scene", "graph/plot"},
    "overlay/courses": {"series"},
    "overlay/scene": {"data", "series", "graph/scene", "overlay/courses"},
    "overlay": {"settings", "widgets", "printing", "graph/curves", "graph/scene", "graph/plot",
                "overlay/courses", "overlay/scene"},
    "logbook/window/table": {"data", "logbook", "widgets"},
    "logbook/window/course": {"data", "series", "logbook", "widgets", "printing", "graph/scene",
                              "logbook/window/table"},
    "logbook/window/dialogs": {"data", "logbook", "widgets"},
    "logbook/window": {"data", "settings", "files/disk", "logbook", "widgets", "printing",
                       "logbook/window/table", "logbook/window/course", "logbook/window/dialogs"},
    "displays": {"data", "settings", "widgets", "printing"},
    "dialogs": {"settings", "link", "ports", "widgets"},
    "desk": {"data", "settings", "journal", "files/disk", "widgets", "printing", "graph", "displays"},
    "machine": {"settings"},
    "devices": {"data", "settings", "ports", "link", "dialogs", "desk", "machine", "widgets"},
    "documents/choosing": {"files", "files/disk"},
    "documents": {"data", "data/records", "settings", "files", "journal", "series", "widgets",
                  "printing", "graph/scene", "graph/plot", "graph", "desk", "documents/choosing"},
    "app/process": set(),
    "app/batch": {"settings", "journal", "logbook", "documents", "app/process"},
    "app/tools": {"data", "settings", "journal", "logbook", "widgets", "graph", "overlay/scene",
                  "overlay", "logbook/window/course", "logbook/window/dialogs", "logbook/window",
                  "desk", "documents/choosing", "documents"},
    "resources": set(),
}
RULES["app"] = set(RULES)

# Single headers that a folder may include although it may not include theirs: the interfaces through which a
# lower object asks, which live with their user.
EXCEPTIONS = {
    "journal": {"link/recordinglog.h"},
    "desk": {"link/recordinglog.h"},
    "graph": {"graph/curves/pixels.h", "link/devicelink.h", "link/recordingwindow.h"},
}

LIBRARIES = ["varnel_data", "varnel_core", "varnel_gui"]  # each may include the ones before it
WIDGET_MODULES = re.compile(r"^Qt(Widgets|PrintSupport|Multimedia|Svg)/|^qwt_")
META_OBJECT = re.compile(r"^\s*Q_(OBJECT|GADGET|NAMESPACE)\b", re.MULTILINE)
INCLUDE = re.compile(r'^\s*#\s*include\s*(["<])([^">]+)[">]', re.MULTILINE)
VARIANTS = re.compile(r"_(win|unix|mac|linux)$")  # one source a system, behind one header


def unit_of(path):
    """'link/serialreader_unix.cpp' -> 'link/serialreader'"""
    return VARIANTS.sub("", path.rsplit(".", 1)[0])


def folder_of(path):
    """The longest folder with a rule that holds `path`; its own folder where there is none."""
    folders = [folder.as_posix() for folder in Path(path).parents]
    return next((folder for folder in folders if folder in RULES), folders[0])


def read_includes(src):
    """path -> [(quoted, included name)] of every header and source below src"""
    files = sorted(p for p in src.rglob("*") if p.suffix in (".h", ".cpp"))
    return {p.relative_to(src).as_posix():
            [(q == '"', name) for q, name in INCLUDE.findall(p.read_text("utf-8"))] for p in files}


def resolve(src, name):
    """The files that a name in a list stands for: one of each system's where a variable is part of it."""
    if "$" not in name:
        return [name]
    pattern = re.sub(r"\$\{\w+\}", "*", name)
    return [] if pattern.startswith("*") else [p.relative_to(src).as_posix() for p in src.glob(pattern)]


def read_libraries(src):
    """path -> library, from the lists in CMake; a variable stands for whatever any branch sets it to"""
    owners = {"app/main.cpp": LIBRARIES[-1]} if (src / "app/main.cpp").exists() else {}
    for cmake in src.rglob("sources.cmake"):
        text = re.sub(r"#.*", "", cmake.read_text("utf-8"))
        variables = {}
        for variable, value in re.findall(r"\bset\(\s*(\w+)\s+([^)]*)\)", text):
            variables.setdefault(f"${{{variable}}}", []).extend(value.split())
        for library, names in re.findall(r"target_sources\(\s*(\w+)\s+PRIVATE([^)]*)\)", text):
            for name in names.split():
                paths = variables.get(name) or resolve(src, name)
                owners.update((path, library) for path in paths if "$" not in path)
    return owners


def folder_faults(path, includes, files):
    folder = folder_of(path)
    if folder not in RULES:
        yield f"{path}: the folder {folder} has no rule in tools/check_layers.py"
        return
    for quoted, name in includes:
        if not quoted:
            continue
        if name not in files:
            if not name.startswith(("ui_", "moc_")) and not name.endswith(".moc"):
                yield f'{path}: "{name}" is no file below src; own headers are included by folder'
            continue
        target = folder_of(name)
        if target != folder and target not in RULES[folder] and name not in EXCEPTIONS.get(folder, ()):
            yield f"{path}: {folder} may not include {name}"


def library_faults(path, includes, owners, src):
    if path.endswith(".cpp") and path not in owners:
        yield f"{path}: in no list of sources.cmake"
    library = owners.get(path) or owners.get(unit_of(path) + ".cpp")
    if library not in LIBRARIES:
        return
    for quoted, name in includes:
        other = owners.get(name) or owners.get(unit_of(name) + ".cpp")
        if quoted and other in LIBRARIES and LIBRARIES.index(other) > LIBRARIES.index(library):
            yield f"{path}: {library} may not include {name} of {other}"
        if library != "varnel_gui" and not quoted and WIDGET_MODULES.search(name):
            yield f"{path}: {library} knows no widgets, but includes {name}"
    if library == "varnel_data" and META_OBJECT.search((src / path).read_text("utf-8")):
        yield f"{path}: {library} has no generated sources, but uses a Qt meta-object"


def circles(edges):
    """Strongly connected sets of more than one unit, by Tarjan's algorithm without recursion."""
    index, low, stack, on_stack, found = {}, {}, [], set(), []
    for start in edges:
        work = [(start, iter(()))] if start not in index else []
        while work:
            node, rest = work.pop()
            if node not in index:
                index[node] = low[node] = len(index)
                stack.append(node)
                on_stack.add(node)
                rest = iter(sorted(edges.get(node, ())))
            for following in rest:
                if following not in index:
                    work += [(node, rest), (following, iter(()))]
                    break
                if following in on_stack:
                    low[node] = min(low[node], index[following])
            else:
                if work:
                    parent = work[-1][0]
                    low[parent] = min(low[parent], low[node])
                if low[node] == index[node]:
                    circle = stack[stack.index(node):]
                    del stack[stack.index(node):]
                    on_stack.difference_update(circle)
                    if len(circle) > 1:
                        found.append(sorted(circle))
    return found


def unit_edges(files):
    edges = {}
    for path, includes in files.items():
        targets = {unit_of(name) for quoted, name in includes if quoted and name in files}
        edges.setdefault(unit_of(path), set()).update(targets - {unit_of(path)})
    return edges


def simulator_faults(root):
    """The simulated device writes its lines on its own, so that it can catch the parsers' faults."""
    for path in sorted((root / "tools" / "simulator").glob("*.[hc]*")):
        for quoted, name in INCLUDE.findall(path.read_text("utf-8")):
            if quoted == '"' and (root / "src" / name).exists():
                yield f"{path.relative_to(root)}: the simulated device may not include {name}"


def check(root):
    src = root / "src"
    files, owners = read_includes(src), read_libraries(src)
    faults = [f"src/{name}: in a list of {library}, but no such file" for name, library in owners.items()
              if name.endswith((".h", ".cpp")) and not (src / name).exists()]
    for path, includes in files.items():
        faults += folder_faults(path, includes, files)
        faults += library_faults(path, includes, owners, src)
        if not path.startswith("app/") and (True, "app/mainwindow.h") in includes:
            faults.append(f"{path}: nothing below app includes mainwindow.h")
    faults += [f"circle between units: {' <-> '.join(circle)}" for circle in circles(unit_edges(files))]
    faults += simulator_faults(root)
    return faults


def used_folders(files):
    """folder -> the other folders of which its files include something, and those headers"""
    used = {folder: ({}, set()) for folder in RULES}
    for path, includes in files.items():
        for quoted, name in includes:
            if quoted and name in files and folder_of(name) != folder_of(path):
                folders, headers = used[folder_of(path)]
                folders.setdefault(folder_of(name), set()).add(name)
                headers.add(name)
    return used


def unused_permissions(root):
    """What is allowed and not needed is taken back, before somebody gets used to it."""
    for folder, (folders, headers) in used_folders(read_includes(root / "src")).items():
        if folder == "app":
            continue
        for idle in sorted(RULES[folder] - set(folders)) + sorted(EXCEPTIONS.get(folder, set()) - headers):
            yield f"tools/check_layers.py: {folder} may include {idle}, and does not"


def print_graph(root):
    for folder, (folders, _) in used_folders(read_includes(root / "src")).items():
        through = EXCEPTIONS.get(folder, set())
        names = [name if name in RULES[folder] else ", ".join(sorted(folders[name] & through))
                 for name in sorted(folders)]
        print(f"{folder:13} -> {', '.join(names) or '-'}")


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--graph", action="store_true", help="print which folder includes which")
    parser.add_argument("root", nargs="?", type=Path, default=Path(__file__).resolve().parent.parent)
    arguments = parser.parse_args()
    if arguments.graph:
        print_graph(arguments.root)
        return 0
    faults = check(arguments.root) + list(unused_permissions(arguments.root))
    print("\n".join(faults) or "layers: no fault")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
