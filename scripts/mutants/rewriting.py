"""Writes sources in which each of many mutations can be chosen at run time; lines stay where they were."""


def rewritten(source, mutations):
    """`mutations` are pairs of a number and a mutation."""
    events = []
    for number, mutation in mutations:
        extent = mutation.end - mutation.start
        is_inner = bool(mutation.middle)  # of two with the same extent
        if mutation.prefix:
            text = mutation.prefix.replace("{}", str(number))
            events.append((mutation.start, 1, -extent, is_inner, number, mutation.start, text))
        if mutation.suffix:
            text = mutation.suffix.replace("{}", str(number))
            events.append((mutation.end, 0, extent, not is_inner, -number, mutation.end, text))
        if mutation.middle:
            start, end, text = mutation.middle
            events.append((start, 2, 0, False, number, end, text.replace("{}", str(number))))
    parts = []
    place = 0
    for start, _, _, _, _, end, text in sorted(events):
        parts += [source[place:start], text]
        place = end
    return "".join(parts) + source[place:]
