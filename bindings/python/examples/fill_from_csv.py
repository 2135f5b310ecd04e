"""Fill a new object from a CSV of decisions.

    python3 fill_from_csv.py OBJECT DECISIONS.csv OUT

The table of decisions has the columns dump, field and rule, in any order, and a heading; more columns are passed over.
Each decision becomes the rule of its field; what nobody decided is guessed. A decision that fits no field is told by
its row, and then nothing is written.
"""

from __future__ import annotations

import argparse
import csv
import sys
from collections import defaultdict
from typing import Iterable

from rulemesh import Designer, RulemeshError

COLUMNS = ("dump", "field", "rule")


class BadDecision(Exception):
    """A row that can't be carried out; the heading is row 1."""


def read_decisions(lines: Iterable[str]) -> list[tuple[int, dict[str, str]]]:
    """The decisions with their rows."""
    table = csv.DictReader(lines)
    missing = [column for column in COLUMNS if column not in (table.fieldnames or [])]
    if missing:
        raise BadDecision(f"row 1: there is no column {', '.join(missing)}")
    return [(number, {column: row[column] or "" for column in COLUMNS}) for number, row in enumerate(table, 2)]


def fill(designer: Designer, decisions: list[tuple[int, dict[str, str]]]) -> tuple[int, int]:
    """Set the decided rules, guess the others, and tell how many there are of each."""
    rules: dict[int, dict[str, str]] = defaultdict(dict)
    dumps = {number: dump.fields for number, dump in designer.dumps.items()}
    for row, decision in decisions:
        number, field = decision["dump"].strip(), decision["field"].strip()
        if not number.isdigit() or int(number) not in dumps:
            raise BadDecision(f"row {row}: the object has no dump {number!r}")
        if field not in dumps[int(number)]:
            raise BadDecision(f"row {row}: dump {number} has no field {field!r}")
        if field in rules[int(number)]:
            raise BadDecision(f"row {row}: {field} of dump {number} was decided above")
        rules[int(number)][field] = decision["rule"]
    guessed = 0
    for dump in designer.dumps.values():
        dump.rules.update(rules[dump.number])
        guessed += len(dump.guess())
    return len(decisions), guessed


def main(arguments: list[str]) -> int:
    parser = argparse.ArgumentParser(description="Fill a new object from a CSV of decisions.")
    parser.add_argument("object")
    parser.add_argument("decisions")
    parser.add_argument("out")
    names = parser.parse_args(arguments)
    try:
        with open(names.decisions, encoding="utf-8-sig", newline="") as file:
            decisions = read_decisions(file)
        with Designer.open(names.object) as designer:
            decided, guessed = fill(designer, decisions)
            designer.save(names.out)
    except (BadDecision, RulemeshError, OSError, csv.Error, UnicodeDecodeError) as error:
        print(f"fill_from_csv: {error}", file=sys.stderr)
        return 2
    print(f"{decided} rules decided, {guessed} guessed")
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
