"""Where a source can be mutated, and how: each mutation is chosen when the program runs."""

from dataclasses import dataclass

from .tokens import tokens_of

COMPARED = {
    "==": ("!=", "Equal", "NotEqual"),
    "!=": ("==", "NotEqual", "Equal"),
    "<": ("<=", "Less", "LessEqual"),
    "<=": ("<", "LessEqual", "Less"),
    ">": (">=", "Greater", "GreaterEqual"),
    ">=": (">", "GreaterEqual", "Greater"),
    "+": ("-", "Plus", "Minus"),
    "-": ("+", "Minus", "Plus"),
    "*": ("/", "Times", "DividedBy"),
    "/": ("*", "DividedBy", "Times"),
}
LOGICAL = {"&&": ("||", "both"), "||": ("&&", "either")}
RANKS = {"*": 5, "/": 5, "%": 5, "+": 6, "-": 6, "<<": 7, ">>": 7, "<=>": 8, "<": 9, "<=": 9, ">": 9, ">=": 9}
RANKS |= {"==": 10, "!=": 10, "&": 11, "^": 12, "|": 13, "&&": 14, "||": 15, "?": 16, ":": 16, "->": 17}
ASSIGNING = {"=", "+=", "-=", "*=", "/=", "%=", "&=", "|=", "^=", "<<=", ">>="}
RANKS |= dict.fromkeys(ASSIGNING, 16)
TIGHTEST = 0
STOPPING = {"return", "throw", "else", "do", "case", "co_return"}
STEERING = {"if", "while", "for", "switch", "catch"}
NO_STATEMENT = STOPPING | STEERING | {
    "using", "const", "constexpr", "static", "static_assert", "auto", "break", "continue", "default", "try", "public",
    "private", "protected", "friend", "template", "typename", "delete", "new", "goto", "namespace", "struct", "class",
}
FIXED = {"constexpr", "consteval", "static_assert", "using", "template", "case", "enum", "concept", "requires"}


@dataclass
class Mutation:
    path: str
    line: int
    change: str
    kind: str
    start: int
    end: int
    prefix: str
    suffix: str
    middle: tuple = ()
    """What stands instead of the text between two offsets: (start, end, text)."""
    column: int = 0


class Finder:
    """Finds the mutations of one file; `{}` in their texts is for their number."""

    def __init__(self, path, source):
        self.path = path
        self.source = source
        self.tokens = tokens_of(source)
        self.found = []

    def mutations(self):
        self.walk(0, len(self.tokens), "outer")
        return self.found

    def walk(self, begin, end, context):
        """Goes over what stands within one pair of braces, those inside it included."""
        place = first = begin  # `first` begins the statement or declaration
        while place < end:
            token = self.tokens[place]
            if token.text == "{" and token.kind == "sign":
                inner = self.context_of_braces(first, place, context)
                if inner:
                    self.walk(place + 1, token.match, inner)
                place = token.match + 1
                behind = self.tokens[place].text if place < end else ""
                if inner != "values" and behind not in (")", ",", ";", "."):
                    first = place
                continue
            if context == "body" and place == first:
                self.find_statement(place)
            if context in ("body", "values") and not self.is_fixed(first, place):
                self.find_at(place)
            elif context == "class":
                self.find_default(first, place)
            place += 1
            if token.kind == "sign" and token.text in (";", "}") or self.ends_label(place - 1):
                if not self.is_within_for(place - 1, begin):
                    first = place
            elif token.text == "else" or self.closes_steering(place - 1):
                first = place

    def context_of_braces(self, first, place, context):
        heading = self.tokens[first:place]
        words = {token.text for token in heading}
        previous = self.tokens[place - 1] if place else None
        if context in ("body", "values"):
            if self.is_fixed(first, place):
                return None
            if previous.text in ("=", ",", "(", "{", "return") or not self.tokens[place].is_after_space:
                return "values"
            return "body" if not words & {"enum", "struct", "class"} else None
        if "namespace" in words or "extern" in words and "(" not in words:
            return "outer"
        while heading and heading[0].text == "template":
            heading = self.behind_angles(heading[1:])
        words = {token.text for token in heading}
        if words & {"enum", "constexpr", "consteval", "concept"}:
            return None
        if words & {"class", "struct", "union"} and "(" not in words - {"gnu"}:
            return "class"
        if heading and heading[0].text in ("class", "struct", "union"):
            return "class"
        if previous.text == "=":
            return "values"
        return "body" if "(" in words else None

    @staticmethod
    def behind_angles(tokens):
        depth = 0
        for place, token in enumerate(tokens):
            depth += {"<": 1, ">": -1, ">>": -2}.get(token.text, 0)
            if depth <= 0:
                return tokens[place + 1 :]
        return []

    def is_fixed(self, first, place):
        return any(token.text in FIXED for token in self.tokens[first : place + 1])

    def ends_label(self, place):
        token = self.tokens[place]
        if token.text != ":" or token.is_after_space:
            return False
        back = place - 1
        while back >= 0 and self.tokens[back].text not in (";", "{", "}", "case", "default"):
            back -= 1
        return self.tokens[back].text in ("case", "default")

    def is_within_for(self, place, begin):
        back = place - 1
        while back >= begin:
            if self.tokens[back].text in (")", "]", "}"):
                back = self.tokens[back].match
            elif self.tokens[back].text in ("(", "["):
                return True
            back -= 1
        return False

    def closes_steering(self, place):
        token = self.tokens[place]
        if token.text != ")" or token.match < 1:
            return False
        before = token.match - 1
        return self.tokens[before].text in STEERING or self.tokens[before].text == "constexpr"

    # ---- what is found -------------------------------------------------------------------------------------------

    def find_at(self, place):
        token = self.tokens[place]
        if token.kind == "number":
            self.find_number(place)
        elif token.text in ("true", "false"):
            other = "false" if token.text == "true" else "true"
            self.add(place, "constant", f"{token.text} -> {other}", token.start, token.end, self.call("flipped"), ")")
        elif token.text in COMPARED and self.is_binary(place):
            self.find_operator(place)
        elif token.text in LOGICAL and self.is_binary(place):
            self.find_logical(place)
        elif token.text in ("+=", "-="):
            self.find_sum(place)
        elif token.text == "!" and token.kind == "sign":
            end = self.end_of_operand(place + 1)
            self.add(place, "condition", "drop !", token.start, end, self.call("flipped"), ")")
        elif token.text in ("if", "while") and self.tokens[place + 1].text == "(":
            self.find_condition(place)
        elif token.text == "?" and self.is_binary(place):
            start = self.start_of_operand(place, RANKS["?"] - 1)
            if not self.is_flipped_otherwise(start, place):
                self.add_flip(place, start, place)

    def find_default(self, first, place):
        """The constants that fields begin with."""
        tokens = self.tokens
        token = tokens[place]
        words = {other.text for other in tokens[first:place]}
        if tokens[place - 1].text != "=" or place + 1 == len(tokens) or tokens[place + 1].text != ";":
            return
        if words & {"(", "static"} or words & FIXED or tokens[place - 2].kind != "word":
            return
        if token.kind == "number" or token.text in ("true", "false"):
            self.find_at(place)
            self.found[-1].kind = "default"

    def find_number(self, place):
        token = self.tokens[place]
        before, behind = self.tokens[place - 1], self.tokens[place + 1]
        begins_arguments = before.text == "<" and not before.is_after_space
        ends_arguments = behind.text == ">" and not token.is_before_space
        if begins_arguments or ends_arguments or before.text == "operator":
            return
        other = {"0": "1", "1": "0"}.get(token.text, f"{token.text} + 1")
        if "." in token.text:
            other = f"{token.text} + 0.5"
        text = "(velto::mutants::isChosen({}) ? " + other + " : " + token.text + ")"
        change = f"{token.text} -> {other}"
        self.add(place, "constant", change, token.start, token.end, "", "", (token.start, token.end, text))

    def find_operator(self, place):
        token = self.tokens[place]
        other, usual_name, other_name = COMPARED[token.text]
        start, end = self.extent(place)
        if start is None:
            return
        prefix = self.call(f"operated<velto::mutants::{usual_name}, velto::mutants::{other_name}>")
        kind = "operator"
        self.add(place, kind, f"{token.text} -> {other}", start, end, prefix, ")", (token.start, token.end, ","))

    def find_logical(self, place):
        token = self.tokens[place]
        other, function = LOGICAL[token.text]
        start, end = self.extent(place)
        if start is None:
            return
        prefix = self.call(function) + "static_cast<bool>("
        middle = (token.start, token.end, "), [&]() -> bool { return static_cast<bool>(")
        self.add(place, "operator", f"{token.text} -> {other}", start, end, prefix, "); })", middle)

    def find_sum(self, place):
        token = self.tokens[place]
        end = self.end_of_operand(place + 1, RANKS["="] + 1)
        other = "-=" if token.text == "+=" else "+="
        prefix = " velto::mutants::operated<velto::mutants::Plus, velto::mutants::Minus>({}, 0, "
        self.add(place, "operator", f"{token.text} -> {other}", self.tokens[place + 1].start, end, prefix, ")")

    def find_condition(self, place):
        opening = place + 1
        closing = self.tokens[opening].match
        first = opening + 1
        for other in range(first, closing):
            if self.tokens[other].text == ";" and not self.is_within_for(other, first):
                first = other + 1
        name = self.declared_name(first, closing)
        if name and self.tokens[place].text == "while":
            return
        if name:
            text = "; velto::mutants::flipped({}, static_cast<bool>(" + name + "))"
            end = self.tokens[closing].start
            self.add(place, "condition", "negate", self.tokens[first].start, end, "", text)
        elif not self.is_flipped_otherwise(self.tokens[first].start, closing):
            self.add_flip(place, self.tokens[first].start, closing)

    def add_flip(self, place, start, behind):
        end = self.tokens[behind - 1].end
        self.add(place, "condition", "negate", start, end, self.call("flipped") + "static_cast<bool>(", "))")

    def declared_name(self, first, closing):
        depth_first = self.tokens[first].text
        place = first
        while place < closing:
            token = self.tokens[place]
            if token.text in ("(", "["):
                place = token.match
            elif token.text == "=" and token.is_before_space:
                declared = self.tokens[place - 1]
                return declared.text if place - first > 1 and depth_first != "(" and declared.kind == "word" else None
            place += 1
        return None

    def is_flipped_otherwise(self, start, closing):
        """Whether the condition is a single equality or negation, which has a mutation of its own."""
        place = next(number for number, token in enumerate(self.tokens) if token.start == start)
        signs = []
        is_negation = self.tokens[place].text == "!"
        while place < closing:
            token = self.tokens[place]
            if token.text in ("(", "[", "{"):
                place = token.match
            elif token.text in ("==", "!=", "&&", "||", "!", "?"):
                signs.append(token.text)
            place += 1
        return signs in (["=="], ["!="]) or is_negation and signs == ["!"]

    def find_statement(self, place):
        """A call or an assignment that can be dropped."""
        first = place
        token = self.tokens[place]
        if token.text in ("++", "--", "*"):
            place += 1
        token = self.tokens[place]
        if token.kind != "word" or token.text in NO_STATEMENT:
            return
        end = self.end_of_chain(place)
        behind = self.tokens[end]
        is_call = behind.text == ";" and self.tokens[end - 1].text in (")", "++", "--")
        is_step = behind.text == ";" and self.tokens[first].text in ("++", "--")
        if behind.text in ASSIGNING:
            while self.tokens[end].text != ";":
                end = self.tokens[end].match + 1 if self.tokens[end].text in ("(", "[", "{") else end + 1
        elif not is_call and not is_step:
            return
        start, stop = self.tokens[first].start, self.tokens[end].end
        words = " ".join(self.source[start:stop].split())
        prefix = "{ if (!velto::mutants::isChosen({})) "
        self.add(first, "statement", f"drop `{words}`", start, stop, prefix, " }")

    def end_of_chain(self, place):
        """Behind `name(...).name[...]->name<...>(...)`."""
        tokens = self.tokens
        place += 1
        while True:
            token = tokens[place]
            if token.text in ("(", "[") and not token.is_after_space:
                place = token.match + 1
            elif token.text in (".", "->", "::") or token.text in ("++", "--"):
                place += 1
            elif token.kind == "word" and tokens[place - 1].text in (".", "->", "::"):
                place += 1
            elif token.text == "<" and not token.is_after_space:
                place = self.end_of_angles(place)
                if tokens[place].text != "(":
                    return place
            else:
                return place

    def end_of_angles(self, place):
        depth = 0
        while place < len(self.tokens):
            depth += {"<": 1, ">": -1, ">>": -2}.get(self.tokens[place].text, 0)
            place += 1
            if depth <= 0:
                break
        return place

    # ---- operands ------------------------------------------------------------------------------------------------

    def is_binary(self, place):
        token = self.tokens[place]
        if token.kind != "sign" or not token.is_after_space or not token.is_before_space:
            return False
        before = self.tokens[place - 1]
        if "..." in (before.text, self.tokens[place + 1].text):
            return False
        return before.kind in ("word", "number", "text", "character") or before.text in (")", "]", "}", ">", "++", "--")

    def rank(self, place):
        token = self.tokens[place]
        if token.kind != "sign" or token.text not in RANKS or not (token.is_after_space and token.is_before_space):
            return None
        return RANKS[token.text]

    def extent(self, place):
        rank = RANKS[self.tokens[place].text]
        start = self.start_of_operand(place, rank)
        end = self.end_of_operand(place + 1, rank)
        if start is None or end is None or start >= self.tokens[place].start or end <= self.tokens[place].end:
            return None, None
        return start, end

    def start_of_operand(self, place, rank):
        first = place
        while first > 0:
            token = self.tokens[first - 1]
            other = self.rank(first - 1)
            if other is not None and other > rank or token.text in STOPPING:
                break
            if token.text in (")", "]", "}"):
                if token.text == "}" and self.tokens[token.match].is_after_space:
                    break
                first = token.match
                continue
            if token.kind == "sign" and token.text in ("(", "[", "{", ",", ";"):
                break
            first -= 1
        return self.tokens[first].start

    def end_of_operand(self, place, rank=TIGHTEST):
        """Without a rank, the end of an operand of `!`."""
        while place < len(self.tokens):
            token = self.tokens[place]
            other = self.rank(place)
            if other is not None and other >= rank or token.kind == "sign" and token.text in (")", "]", "}", ",", ";"):
                break
            if token.text in ("(", "[", "{"):
                if token.text == "{" and token.is_after_space:
                    break
                place = token.match + 1
                continue
            place += 1
        return self.tokens[place - 1].end

    @staticmethod
    def call(function):
        return f"velto::mutants::{function}(" + "{}, "

    def add(self, place, kind, change, start, end, prefix, suffix, middle=()):
        at = self.tokens[place].start
        line = self.source.count("\n", 0, at) + 1
        column = at - self.source.rfind("\n", 0, at)
        self.found.append(Mutation(self.path, line, change, kind, start, end, prefix, suffix, middle, column))


def mutations_of(path, source):
    return Finder(path, source).mutations()
