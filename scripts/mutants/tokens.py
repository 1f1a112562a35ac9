"""The tokens of a C++ source that clang-format has laid out, with the brackets that belong together."""

import re
from dataclasses import dataclass

PATTERN = re.compile(
    r"""(?P<comment>//[^\n]*|/\*.*?\*/)
      | (?P<directive>^[ \t]*\#(?:[^\n\\]|\\.)*)
      | (?P<text>(?:u8|[uUL])?R"(?P<mark>[^(]*)\(.*?\)(?P=mark)"|(?:u8|[uUL])?"(?:[^"\\\n]|\\.)*")
      | (?P<character>(?:u8|[uUL])?'(?:[^'\\\n]|\\.)+')
      | (?P<number>(?:0[xXbB][\da-fA-F'.]+(?:[pP][-+]?\d+)?|\d[\d']*(?:\.\d*)?(?:[eE][-+]?\d+)?|\.\d+)[a-zA-Z]*)
      | (?P<word>[A-Za-z_]\w*)
      | (?P<sign><=>|->\*|<<=|>>=|\.\.\.|::|->|\+\+|--|<<|<=|>=|==|!=|&&|\|\||[-+*/%&|^]=|[^\s\w])""",
    re.VERBOSE | re.DOTALL | re.MULTILINE,
)

OPENING = {"(": ")", "[": "]", "{": "}"}


@dataclass
class Token:
    kind: str
    text: str
    start: int
    end: int
    is_after_space: bool
    is_before_space: bool
    match: int = -1
    """The place of the other bracket."""


def tokens_of(source):
    tokens = []
    for found in PATTERN.finditer(source):
        if found.lastgroup in ("comment", "directive"):
            continue
        kind = "text" if found.lastgroup == "mark" else found.lastgroup
        before = source[found.start() - 1 : found.start()]
        behind = source[found.end() : found.end() + 1]
        tokens.append(Token(kind, found.group(), found.start(), found.end(), before.isspace(), behind.isspace()))
    open_places = []
    for place, token in enumerate(tokens):
        if token.text in OPENING and token.kind == "sign":
            open_places.append(place)
        elif token.kind == "sign" and token.text in OPENING.values():
            token.match = open_places.pop()
            tokens[token.match].match = place
    return tokens
