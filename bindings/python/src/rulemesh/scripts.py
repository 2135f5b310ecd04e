"""The scripts of an object."""

from __future__ import annotations

from typing import TYPE_CHECKING, Iterator, Mapping

if TYPE_CHECKING:
    from .designer import Designer

_SCRIPTS_TAB = 0
_MIGRATE = "migrate "


class Queries(Mapping[str, str]):
    """The main queries by migrate table.

    Setting one brings the dumps in line with it, as in the designer; a dump that would be lost is asked about, and the
    question is answered by what ``Designer.answer`` has laid ready, else by OK.
    """

    def __init__(self, designer: Designer) -> None:
        self._designer = designer

    def __getitem__(self, table: str) -> str:
        self._show(table)
        return str(self._designer.request("read", view="txtMainQuery").value["text"])

    def __setitem__(self, table: str, text: str) -> None:
        self._show(table)
        self._designer._type("txtMainQuery", text)

    def __iter__(self) -> Iterator[str]:
        return iter(self._rows())

    def __len__(self) -> int:
        return len(self._rows())

    # The rows of the list by table; blank rows stand between the tables.
    def _rows(self) -> dict[str, int]:
        self._designer._show_tab(_SCRIPTS_TAB)
        rows = self._designer.request("read", view="lstMigrateSource").value["rows"]
        texts = [str(row[0]) for row in rows]
        return {text[len(_MIGRATE) :]: place for place, text in enumerate(texts, 1) if text.startswith(_MIGRATE)}

    def _show(self, table: str) -> None:
        row = self._rows()[table]
        if self._designer.request("read", view="txtMainQuery").value["tag"] != table:
            self._designer.request("row", view="lstMigrateSource", row=row)


class Scripts:
    """Precondition, main queries, functions and variables, each a text as the designer holds it."""

    def __init__(self, designer: Designer) -> None:
        self._designer = designer

    @property
    def precondition(self) -> str:
        """The precondition. Setting it saves it, with the questions that the designer asks then."""
        return str(self._designer.request("read", view="txtPreCondition").value["text"])

    @precondition.setter
    def precondition(self, text: str) -> None:
        self._designer._show_tab(_SCRIPTS_TAB)
        self._designer._type("txtPreCondition", text)

    @property
    def queries(self) -> Queries:
        """The main queries by migrate table."""
        return Queries(self._designer)

    @property
    def functions(self) -> str:
        """The text of the functions."""
        return self._panel("CmdFunction", "txtFunctions", None)

    @functions.setter
    def functions(self, text: str) -> None:
        self._panel("CmdFunction", "txtFunctions", text)

    @property
    def variables(self) -> str:
        """The text of the variables and includes."""
        return self._panel("CmdVariables", "txtVariables", None)

    @variables.setter
    def variables(self, text: str) -> None:
        self._panel("CmdVariables", "txtVariables", text)

    # The panel is open only while it is looked at: as long as it is, its text is in no document.
    def _panel(self, button: str, view: str, text: str | None) -> str:
        designer = self._designer
        designer._show_tab(_SCRIPTS_TAB)
        designer.request("click", view=button)
        try:
            if text is not None:
                designer.request("type", view=view, text=text)
            shown = str(designer.request("read", view=view).value["text"])
        except BaseException:
            designer.request("click", view="CmdCancel")
            raise
        designer.request("click", view="CmdCancel" if text is None else "CmdOk")
        return shown
