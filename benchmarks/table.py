"""The table in a Markdown file that tells what was measured on which machine: a column for each."""
import os
import re

BEGIN = "<!-- bench -->"
END = "<!-- end of bench -->"
NOT_MEASURED = "-"


def machine():
    """What this machine is called: processor and cores."""
    try:
        with open("/proc/cpuinfo", encoding="ascii", errors="replace") as file:
            text = file.read()
    except OSError:
        text = ""
    found = {name: match.group(1).strip() for name in ("model name", "cpu MHz")
             if (match := re.search(rf"^{name}\s*:(.*)$", text, re.MULTILINE))}
    name = re.sub(r"\((R|TM|r|tm)\)| (Processor|CPU)\b", "", found.get("model name", os.uname().machine))
    clock = f", {float(found['cpu MHz']) / 1000:.1f} GHz" if "cpu MHz" in found else ""
    return f"{len(os.sched_getaffinity(0))} cores {name}{clock}"


def cells(line):
    return [cell.strip() for cell in line.strip().strip("|").split("|")]


def read(text):
    """[machine], {machine: {row: value}}"""
    lines = [cells(line) for line in text.splitlines() if line.startswith("|")]
    if not lines:
        return [], {}
    machines = lines[0][2:]
    return machines, {name: {line[0]: line[2 + column] for line in lines[2:]}
                      for column, name in enumerate(machines)}


def write(path, rows, values):
    """Puts `values`, {row: text}, into this machine's column of the table in the file; other columns stay,
    and what was not measured now. `rows`: [(row, goal or none)]."""
    before, rest = path.read_text(encoding="utf-8").split(BEGIN)
    old, after = rest.split(END)
    machines, columns = read(old)
    here = machine()
    if here not in machines:
        machines.append(here)
    columns.setdefault(here, {}).update(values)
    lines = [["", "goal", *machines], ["---", *["---:"] * (1 + len(machines))]]
    for row, goal in rows:
        lines.append([row, goal or "", *[columns[name].get(row, NOT_MEASURED) for name in machines]])
    body = "\n".join("| " + " | ".join(line) + " |" for line in lines)
    path.write_text(f"{before}{BEGIN}\n\n{body}\n\n{END}{after}", encoding="utf-8")
