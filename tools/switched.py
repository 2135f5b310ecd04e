"""Sources that hold many mutants at once, one of which an environment variable switches on.

Building costs far more than running, so every mutant is compiled next to the line that it changes:

    if (row > grid.Rows() - 1)    becomes    if (On(7) ? (row >= grid.Rows() - 1) : (row > grid.Rows() - 1))

A unit is what can be doubled like that: a condition, a step of a loop, an initial value, a statement.
"""

import dataclasses
import re

from mutants import NO_EXPRESSION, Syntax

VARIABLE = "RULEMESH_MUTANT"

HEADER = f"""#pragma once
#include <cstdlib>
namespace mutants {{
inline bool On(int number)
{{
    static const int active = [] {{
        const char* const value = std::getenv("{VARIABLE}");
        return value == nullptr ? 0 : std::atoi(value);
    }}();
    return active == number;
}}
}}
"""


@dataclasses.dataclass
class Unit:
    kind: str  # "condition", "step", "value", "return" or "statement"
    start: int
    end: int
    parts: list = dataclasses.field(default_factory=list)  # the units inside
    mutants: list = dataclasses.field(default_factory=list)  # (number, mutant)

    def holds(self, start, end):
        return self.start <= start and end <= self.end


def units_of(source):
    syntax = Syntax(source)
    units = []
    for index in range(len(syntax.tokens)):
        if syntax.text(index) in ("if", "while", "for") and syntax.text(index + 1) == "(":
            units += units_of_header(syntax, index)
        if syntax.begins_statement(index):
            units += units_of_statement(syntax, index)
    return [unit for unit in units if unit.start < unit.end]


def units_of_header(syntax, index):
    tokens = syntax.tokens
    last = syntax.partner[index + 1]
    stops = [at for at in range(index + 2, last) if syntax.text(at) == ";" and syntax.around[at] == index + 1]
    start, end = tokens[index + 1].end, tokens[last].start
    if syntax.text(index) == "for":
        if len(stops) != 2:
            return []
        return [
            Unit("condition", tokens[stops[0]].end, tokens[stops[1]].start),
            Unit("step", tokens[stops[1]].end, end),
            *initial_value(syntax, index + 2, stops[0]),
        ]
    if stops:
        return [Unit("condition", tokens[stops[0]].end, end), *initial_value(syntax, index + 2, stops[0])]
    declares = any(syntax.text(at) == "=" for at in range(index + 2, last))
    return [] if declares else [Unit("condition", start, end)]


def units_of_statement(syntax, index):
    last = syntax.end_of_statement(index)
    if last is None:
        return []
    first = syntax.text(index)
    start, end = syntax.tokens[index].start, syntax.tokens[last].end
    if first == "return":
        return [Unit("return", start, end)]
    if syntax.declares(index, last):
        return initial_value(syntax, index, last)
    if first in NO_EXPRESSION - {"throw"}:
        return []
    return [Unit("statement", start, end)]


def initial_value(syntax, first, last):
    at = first
    while at < last and syntax.text(at) != "=":
        at = syntax.partner[at] + 1 if syntax.text(at) in ("(", "[", "{") else at + 1
    if at >= last or syntax.text(at + 1) == "{":
        return []
    return [Unit("value", syntax.tokens[at + 1].start, syntax.tokens[last].start)]


def switched(source, numbered):
    """The source with all mutants that a unit can hold, the numbers of the lines on which each variant stands, and the
    numbers of the mutants left out."""
    root = Unit("file", 0, len(source))
    for unit in sorted(units_of(source), key=lambda unit: (unit.start, -unit.end)):
        holder = innermost(root, unit.start, unit.end)
        holder.parts.append(unit)
    left_out = []
    for number, mutant in numbered:
        unit = innermost(root, mutant.start, mutant.end)
        if unit is root:
            left_out.append(number)
        else:
            unit.mutants.append((number, mutant))
    text = rendered(source, root)
    # Nothing that a mutant may change is known at compile time any more.
    text = re.sub(r"\bconstexpr\b", "const", text)
    lines = {}
    for line, content in enumerate(text.split("\n"), start=1):
        marked = re.match(r"/\*(\d+)\*/", content)
        if marked:
            lines[line] = int(marked.group(1))
    return text, lines, left_out


def innermost(unit, start, end):
    for part in unit.parts:
        if part.holds(start, end):
            return innermost(part, start, end)
    return unit


def rendered(source, unit):
    """The text of a unit: its variants, each on a line of its own that begins with its number, and itself."""
    pieces = []
    at = unit.start
    for part in unit.parts:
        pieces.append(source[at : part.start])
        pieces.append(rendered(source, part))
        at = part.end
    own = "".join(pieces) + source[at : unit.end]
    if not unit.mutants:
        return own
    variants = [(number, variant(source, unit, mutant)) for number, mutant in unit.mutants]
    if unit.kind in ("return", "statement"):
        choices = "".join(f"\n/*{number}*/ if (::mutants::On({number})) {{ {text} }} else" for number, text in variants)
        return f"{{{choices}\n{{ {own} }} }}"
    cast = {"condition": "static_cast<bool>", "step": "static_cast<void>", "value": ""}[unit.kind]
    choices = "".join(f"\n/*{number}*/ ::mutants::On({number}) ? {cast}({text}) :" for number, text in variants)
    return f"({choices}\n{cast}({own}))"


def variant(source, unit, mutant):
    text = source[unit.start : mutant.start] + mutant.replacement + source[mutant.end : unit.end]
    return " ".join(re.sub(r"//[^\n]*", "", text).split("\n")).strip()
