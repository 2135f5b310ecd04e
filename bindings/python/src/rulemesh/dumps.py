"""The dumps of an object and their rules."""

from __future__ import annotations

from typing import TYPE_CHECKING, Any, Iterator, Mapping

from .answers import Change

if TYPE_CHECKING:
    from .designer import Designer

_RULES_TAB = 1
_RULE_COLUMN = 1
_TAB_KEY = 9


class Rules(Mapping[str, str]):
    """The rules of one dump by target field, in field order.

    A field is named as the designer shows it, ``partn101.phone(1)``, or without its table, ``phone(1)``. A rule that
    was never written reads as blank. Setting a rule types it into the grid, as a user does, and can be undone.
    """

    def __init__(self, dump: Dump) -> None:
        self._dump = dump

    def __getitem__(self, field: str) -> str:
        return self._all()[self._full(field)]

    def __setitem__(self, field: str, rule: str) -> None:
        designer = self._dump._show()
        row = designer.request("call", name="GetRowNumber", args=[self._full(field)]).value
        if row == -1:
            raise KeyError(field)
        designer.request("scroll", view="RulesGrid", top=row)
        designer.request("cell", view="RulesGrid", row=row, col=_RULE_COLUMN, double=True)
        designer.request("type", view="txtgrdline", text=rule)
        designer.request("key", view="txtgrdline", code=_TAB_KEY)

    def __iter__(self) -> Iterator[str]:
        return iter(self._all())

    def __len__(self) -> int:
        return len(self._all())

    def __contains__(self, field: object) -> bool:
        return isinstance(field, str) and self._full(field) in self._all()

    def __repr__(self) -> str:
        return f"Rules({self._all()!r})"

    def update(self, rules: Mapping[str, str]) -> None:
        """Set several rules; the ones that stand there already are left alone.

        Raises KeyError for a field that the dump's table doesn't have, before anything is set.
        """
        present = self._all()
        wanted = {self._full(field): rule for field, rule in rules.items()}
        for field in wanted:
            if field not in present:
                raise KeyError(field)
        for field, rule in wanted.items():
            if present[field] != rule:
                self[field] = rule

    def _all(self) -> dict[str, str]:
        grid = self._dump._show().request("read", view="RulesGrid").value
        return {row[0]: row[1] for row in grid["rows"]}

    def _full(self, field: str) -> str:
        return field if "." in field else f"{self._dump.table}.{field}"


class Dump:
    """One dump: a row of a target table for each time that a script names it."""

    def __init__(self, designer: Designer, number: int, comment: str) -> None:
        self._designer = designer
        self.number = number
        #: What the script says behind the dump's number.
        self.comment = comment

    @property
    def rules(self) -> Rules:
        """The rules by target field."""
        return Rules(self)

    @property
    def table(self) -> str:
        """The target table that the dump fills; "" for a table without fields."""
        rows = self._show().request("read", view="RulesGrid").value["rows"]
        return str(rows[0][0]).partition(".")[0] if rows else ""

    @property
    def fields(self) -> list[str]:
        """The target fields as the designer shows them, in field order."""
        return list(self.rules)

    def guess(self) -> list[Change]:
        """Let the designer propose a rule for each field whose rule is blank, and tell what it wrote."""
        before = dict(self.rules)
        self._designer.request("click", view="CmdGuess")
        after = dict(self.rules)
        return [Change(field, before.get(field, ""), rule) for field, rule in after.items() if rule != before.get(field)]

    def __repr__(self) -> str:
        return f"Dump({self.number}, {self.comment!r})"

    def _show(self) -> Designer:
        self._designer._show_tab(_RULES_TAB)
        shown = self._designer.request("read", view="CmbDump").value
        index = shown["index"]
        if index == -1 or shown["entries"][index]["data"] != self.number:
            self._designer.request("choose", view="CmbDump", data=self.number)
        return self._designer


class Dumps(Mapping[int, Dump]):
    """The dumps that the scripts name, by number, in the order of the scripts.

    Raises Refused while the designer keeps the rules shut: a table that the precondition migrates is missing from the
    source tables or the catalogue.
    """

    def __init__(self, designer: Designer) -> None:
        self._designer = designer

    def __getitem__(self, number: int) -> Dump:
        return self._all()[number]

    def __iter__(self) -> Iterator[int]:
        return iter(self._all())

    def __len__(self) -> int:
        return len(self._all())

    def __repr__(self) -> str:
        return f"Dumps({list(self._all().values())!r})"

    def _all(self) -> dict[int, Dump]:
        self._designer._show_tab(_RULES_TAB)
        entries: list[dict[str, Any]] = self._designer.request("read", view="CmbDump").value["entries"]
        dumps: dict[int, Dump] = {}
        for entry in entries:
            comment = entry["text"].partition("--")[2].lstrip("| \t").strip()
            dumps.setdefault(entry["data"], Dump(self._designer, entry["data"], comment))
        return dumps
