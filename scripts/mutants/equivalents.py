"""Which mutations no test can notice, as the file `equivalent` tells."""

import re
from pathlib import Path

LIST = Path(__file__).parent / "equivalent"
ROOM = re.compile(r"[\w.>-]*\breserve\(")


def equivalent_numbers(project, mutations):
    """For each of them the reason. Each entry of the file has to be there for something: one that was left behind by a
    change of the library hides that the place it was meant for is looked at again."""
    lines = {path: (project / path).read_text().splitlines() for path in {m.path for m in mutations.values()}}
    found = {}
    for number, mutation in mutations.items():
        if ROOM.match(lines[mutation.path][mutation.line - 1].strip()):
            found[number] = "speed: room is made as it is needed"
    stale = []
    for place, path, change, part, reason in entries():
        here = [number for number, m in mutations.items() if m.path == path and begins_in(part, lines[path], m.line)]
        here = [number for number in here if is_meant(change, mutations[number])]
        if not here:
            stale.append(f"{LIST.relative_to(project)}:{place}: stale: {what_is_missing(path, change, part, lines)}")
        found |= dict.fromkeys(here, reason)
    if stale:
        raise SystemExit("\n".join(stale))
    return found


def is_meant(change, mutation):
    """A change may name the column, where a line has several that look the same."""
    beginning, _, column = change.partition(" at ")
    return mutation.change.startswith(beginning) and column in ("", str(mutation.column))


def begins_in(part, lines, number):
    """A part may go on in the next line."""
    line = lines[number - 1].strip()
    behind = lines[number].strip() if number < len(lines) else ""
    return 0 <= f"{line} {behind}".find(part) < len(line)


def what_is_missing(path, change, part, lines):
    if path not in lines:
        return f"no file {path} is mutated"
    if not any(begins_in(part, lines[path], number + 1) for number in range(len(lines[path]))):
        return f"{path} has no \"{part}\""
    return f"{path} has \"{part}\", but no mutation there is \"{change}\"" if change else f"\"{part}\" isn't mutated"


def entries():
    """The number of the line in the list, the file, the beginning of the change, the part, the reason."""
    path = change = part = ""
    place = 0
    for number, line in enumerate(LIST.read_text().splitlines(), 1):
        text = line.strip()
        if line.startswith("        "):
            yield place, path, change, part, text
        elif line.startswith("    "):
            place = number
            change, _, part = text.rpartition(" in ") if re.match(r"(drop [!`]|negate|\S+ -> )", text) else ("", "", text)
        elif text and not line.startswith("#"):
            path = text
