"""Writes the switches into a source. All is inserted within its line, so that every line keeps its number."""

SPACE = "::strandline_mutants::"


def rewritten(text, points):
    closes, opens = 0, 2  # at one place: what ends there, then a comparison's sign, then what begins there
    pieces = []

    def wrap(order, point, before, after):
        pieces.append(((point["start"], opens, -point["end"], order), before))
        pieces.append(((point["end"], closes, -point["start"], -order), after))

    for order, point in enumerate(points):
        kind = point["kind"]
        number = point["number"] if point["early"] else f"{SPACE}InRun({point['number']})"
        if kind == "compare":
            pieces.append(((point["end"], 1, 0, 0), f" {SPACE}At({number}) {point['extra']}"))
        elif kind == "negate":
            wrap(order, point, f"{SPACE}Not({number}, ", ")")
        elif kind == "constant":
            wrap(order, point, f"{SPACE}Moved({number}, ", ")")
        elif kind == "label":
            wrap(order, point, f"{SPACE}Labelled({number}, ", f", {point['extra']})")
        else:
            wrap(order, point, f"({SPACE}On({number}) ? void() : void(", "))")

    pieces.sort(key=lambda piece: piece[0])
    parts, at = [], 0
    for (position, *_), piece in pieces:
        parts += [text[at:position], piece]
        at = position
    return "".join(parts + [text[at:]])
