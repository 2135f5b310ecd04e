"""The small changes that tools/mutate makes: each one a place in a source file and what would stand there instead."""

import dataclasses
import re

TOKEN = re.compile(
    r"""(?P<comment>//[^\n]*|/\*.*?\*/)
    |(?P<directive>^[ \t]*\#[^\n]*)
    |(?P<text>(?:u8|u|U|L)?"(?:\\.|[^"\\\n])*")
    |(?P<character>(?:u|U|L)?'(?:\\.|[^'\\\n])+')
    |(?P<number>\b\d[\w.]*)
    |(?P<word>[A-Za-z_]\w*)
    |(?P<sign><=>|<<=|>>=|->|::|\+\+|--|&&|\|\||[-+*/%&|^!=<>]=|<<|>>|\S)
    |(?P<space>\s+)""",
    re.VERBOSE | re.MULTILINE | re.DOTALL,
)

COMPARISONS = {"<": ["<="], "<=": ["<"], ">": [">="], ">=": [">"], "==": ["!="], "!=": ["=="]}
SWAPPED = {"&&": ["||"], "||": ["&&"], "+": ["-"], "-": ["+"], "*": ["/"], "/": ["*"], "+=": ["-="], "-=": ["+="]}
COUNTING = {"++": ["--"], "--": ["++"]}

# Names of which one is as easily written as another.
ALTERNATIVES = [
    ["MessageIcon::Critical", "MessageIcon::Notice"],
    ["MessageIcon::Exclamation", "MessageIcon::Notice"],
    ["MessageIcon::Question", "MessageIcon::Notice"],
    ["MessageIcon::Notice", "MessageIcon::Exclamation"],
    ["MessageButton::Ok", "MessageButton::Cancel"],
    ["MessageButton::Cancel", "MessageButton::Ok"],
    ["MessageButton::Yes", "MessageButton::No"],
    ["MessageButton::No", "MessageButton::Yes"],
    ["Order::Ascending", "Order::Descending"],
    ["Order::Descending", "Order::Ascending"],
    ["Picture::ImgMax", "Picture::ImgMin"],
    ["Picture::ImgMin", "Picture::ImgMax"],
    ["TakesBack::Always", "TakesBack::WhenEditable"],
    ["TakesBack::WhenEditable", "TakesBack::Always"],
    ["Labels::TableAndDescription", "Labels::Table"],
    ["CarriageReturns::Kept", "CarriageReturns::AsLoaded"],
    ["XmlDocument_.firstChild", "XmlDocument_.documentElement"],
    ["Document().firstChild", "Document().documentElement"],
    ["FailureCode::Overflow", "FailureCode::TypeMismatch"],
    ["FailureCode::TypeMismatch", "FailureCode::Overflow"],
    ["FailureCode::ObjectVariableNotSet", "FailureCode::Overflow"],
    ["FailureCode::SubscriptOutOfRange", "FailureCode::Overflow"],
]

# What begins something else than an expression that stands alone.
BLOCK_BEFORE = {")", "]", ";", "else", "do", "try", "const", "noexcept", "override"}
DECLARATION = re.compile(r"[\w:]+(<[^;=()]*>)?\s*[&*]?\s+[&*]?\w+\s*[=;({]")
NO_EXPRESSION = {
    "return", "const", "constexpr", "static", "auto", "using", "namespace", "class", "struct", "enum", "template",
    "if", "for", "while", "do", "switch", "case", "default", "else", "throw", "public", "private", "protected",
    "friend", "virtual", "explicit", "typedef", "try", "catch", "bool", "int", "char16_t", "inline", "operator",
}  # fmt: skip


@dataclasses.dataclass(frozen=True)
class Token:
    kind: str
    text: str
    start: int

    @property
    def end(self):
        return self.start + len(self.text)


@dataclasses.dataclass(frozen=True)
class Mutant:
    """Text from `start` to `end` of a file replaced; `kind` names the sort of change."""

    kind: str
    start: int
    end: int
    replacement: str

    def applied_to(self, source):
        return source[: self.start] + self.replacement + source[self.end :]

    def line_in(self, source):
        return source.count("\n", 0, self.start) + 1

    def told_of(self, source):
        before = " ".join(source[self.start : self.end].split())
        line = source[source.rfind("\n", 0, self.start) + 1 :].split("\n", 1)[0].strip()
        return f"{self.kind}: {before or '(nothing)'} -> {self.replacement or '(nothing)'}   in: {line}"


class Syntax:
    """The tokens of a source, with what the changes need to know of how they stand together."""

    def __init__(self, source):
        self.source = source
        self.tokens = [
            Token(match.lastgroup, match.group(), match.start())
            for match in TOKEN.finditer(source)
            if match.lastgroup not in ("comment", "space", "directive")
        ]
        self.partner = {}  # of each bracket
        self.around = []  # of each token the innermost bracket that it stands in, or None
        self.blocks = set()  # the braces that hold statements or members, not values
        opened = []
        for index, token in enumerate(self.tokens):
            if token.text in (")", "]", "}") and opened:
                self.partner[index] = opened.pop()
                self.partner[self.partner[index]] = index
            self.around.append(opened[-1] if opened else None)
            if token.text in ("(", "[", "{"):
                if token.text == "{" and self.opens_block(index):
                    self.blocks.add(index)
                opened.append(index)

    def text(self, index):
        return self.tokens[index].text if 0 <= index < len(self.tokens) else ""

    def opens_block(self, index):
        former = self.text(index - 1)
        if self.around[index] is not None and self.around[index] not in self.blocks and former not in (")", "]"):
            return False
        if former in BLOCK_BEFORE:
            return True
        if former in ("{", "}"):
            return self.around[index] is None or self.around[index] in self.blocks
        at = index - 1
        while at >= 0 and self.text(at) not in (";", "{", "}"):
            if self.text(at) in ("namespace", "class", "struct", "enum", "extern"):
                return True
            if self.text(at) == "->" and at == index - 2:
                return True
            at -= 1
        return False

    def begins_statement(self, index):
        if index == 0 or (self.around[index] is not None and self.around[index] not in self.blocks):
            return False
        former = self.text(index - 1)
        if former == "{":
            return index - 1 in self.blocks
        if former == "}":
            opening = self.partner.get(index - 1)
            return opening in self.blocks and not self.is_lambda(opening)
        if former in (";", "else", "do"):
            return True
        return former == ")" and self.text(self.partner.get(index - 1, 0) - 1) in ("if", "for", "while")

    def end_of_statement(self, index):
        """The index of the semicolon, or None where a block comes first."""
        at = index
        while at < len(self.tokens) and self.text(at) != ";":
            if self.text(at) == "}" or (at in self.blocks and not self.is_lambda(at)):
                return None
            at = self.partner[at] + 1 if self.text(at) in ("(", "[", "{") and at in self.partner else at + 1
        return at if at < len(self.tokens) else None

    def is_lambda(self, index):
        """Whether the block belongs to a lambda: [..](..) { or [..] {"""
        at = index - 1
        while self.text(at) in ("const", "noexcept", "mutable"):
            at -= 1
        if self.text(at) == ")":
            at = self.partner.get(at, 0) - 1
        return self.text(at) == "]"

    def declares(self, index, last):
        statement = self.source[self.tokens[index].start : self.tokens[last].end]
        first = self.text(index)
        return first in ("const", "constexpr", "static", "auto", "inline") or bool(DECLARATION.match(statement))


def mutants_of(source):
    """All mutants of a source text, in the order of their places."""
    syntax = Syntax(source)
    found = []
    for index in range(len(syntax.tokens)):
        found += of_token(syntax, index)
        found += of_condition(syntax, index)
        found += of_statement(syntax, index)
    for match in re.finditer(r"([\w.]+(?:\([^()]*\))?)\.empty\(\)", source):
        blank = f"(Text({match.group(1)}).find_first_not_of(u' ') == Text::npos)"
        found.append(Mutant("blank counts as empty", match.start(), match.end(), blank))
    for before, after in ALTERNATIVES:
        for match in re.finditer(r"\b" + re.escape(before) + r"\b", source):
            found.append(Mutant("another name", match.start(), match.end(), after))
    return sorted(set(found), key=lambda mutant: (mutant.start, mutant.end, mutant.replacement))


def of_token(syntax, index):
    token = syntax.tokens[index]
    source = syntax.source

    def changes(kind, replacements):
        return [Mutant(kind, token.start, token.end, replacement) for replacement in replacements]

    # The formatter sets operators of two sides between blanks, and nothing else of their letters.
    between = source[token.start - 1 : token.start] == " " and source[token.end : token.end + 1] in (" ", "\n")
    if token.text in COMPARISONS and between:
        return changes("comparison", COMPARISONS[token.text])
    if token.text in SWAPPED and between:
        return changes("operator", SWAPPED[token.text])
    if token.text in COUNTING:
        return changes("operator", COUNTING[token.text])
    if token.text == "!":
        return changes("negation dropped", [""])
    if token.text in ("true", "false"):
        return changes("constant", ["false" if token.text == "true" else "true"])
    if token.kind == "number" and token.text.isdigit():
        return changes("constant", [str(int(token.text) + 1)] + ([str(int(token.text) - 1)] if int(token.text) else []))
    if token.kind == "text":
        if token.text.endswith('""'):
            return changes("text", [token.text[:-1] + 'X"'])
        shorter = [token.text[:-2] + '"'] if token.text[-3] not in ('"', "\\") else []
        return changes("text", [token.text[: token.text.index('"') + 1] + '"', token.text[:-1] + 'X"', *shorter])
    if token.kind == "character":
        return changes("character", [token.text[: token.text.index("'")] + ("'Y'" if "'X'" in token.text else "'X'")])
    return []


def of_condition(syntax, index):
    """The condition of an `if` always and never true, and that of a `while` never."""
    if syntax.text(index) not in ("if", "while") or syntax.text(index + 1) != "(":
        return []
    last = syntax.partner[index + 1]
    if any(syntax.text(at) in (";", "=") for at in range(index + 2, last)):
        return []
    start, end = syntax.tokens[index + 1].end, syntax.tokens[last].start
    values = ["true", "false"] if syntax.text(index) == "if" else ["false"]
    return [Mutant("condition", start, end, value) for value in values]


def of_statement(syntax, index):
    """An expression that stands alone left out, a jump left out, and a value returned replaced by an empty one."""
    last = syntax.end_of_statement(index) if syntax.begins_statement(index) else None
    if last is None or last == index:
        return []
    start, end = syntax.tokens[index].start, syntax.tokens[last].end
    first = syntax.text(index)
    if first == "return" and last > index + 1:
        empty = syntax.source[start:end] in ("return {};", "return false;", "return 0;")
        return [] if empty else [Mutant("value returned", start, end, "return {};")]
    if first in ("continue", "break", "return"):
        return [Mutant("jump dropped", start, end, ";")]
    acts = any(syntax.text(at) in ("(", "=", "++", "--", "+=", "-=") for at in range(index, last))
    if first in NO_EXPRESSION or not acts or syntax.declares(index, last):
        return []
    return [Mutant("statement dropped", start, end, ";")]
