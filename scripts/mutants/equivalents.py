"""Which mutations no test can notice, as the file `equivalent` tells."""

import re
from pathlib import Path

ROOM = re.compile(r"[\w.>-]*\breserve\(")


def equivalent_numbers(project, mutations):
    """For each of them the reason. Each entry of the file has to be there for something."""
    lines = {path: (project / path).read_text().splitlines() for path in {m.path for m in mutations.values()}}
    found = {}
    for number, mutation in mutations.items():
        if ROOM.match(lines[mutation.path][mutation.line - 1].strip()):
            found[number] = "speed: room is made as it is needed"
    for path, change, part, reason in entries():
        if path not in lines:
            raise SystemExit(f"scripts/mutants/equivalent: no file {path}")
        here = [number for number, m in mutations.items() if m.path == path and begins_in(part, lines[path], m.line)]
        here = [number for number in here if mutations[number].change.startswith(change)]
        if not here:
            raise SystemExit(f"scripts/mutants/equivalent: nothing in {path} is {change} {part}")
        found |= dict.fromkeys(here, reason)
    return found


def begins_in(part, lines, number):
    """A part may go on in the next line."""
    line = lines[number - 1].strip()
    return 0 <= f"{line} {lines[number].strip()}".find(part) < len(line)


def entries():
    path = change = part = ""
    for line in (Path(__file__).parent / "equivalent").read_text().splitlines():
        text = line.strip()
        if line.startswith("        "):
            yield path, change, part, text
        elif line.startswith("    "):
            change, _, part = text.rpartition(" in ") if re.match(r"(drop `|negate|\S+ -> )", text) else ("", "", text)
        elif text and not line.startswith("#"):
            path = text
