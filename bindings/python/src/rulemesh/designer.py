"""A designer with one mapping object open."""

from __future__ import annotations

import os
from types import TracebackType
from typing import Any, Callable, Sequence

from .answers import Answer, Box, Finding, Place
from .dumps import Dumps
from .errors import NotSupported
from .program import Program
from .scripts import Scripts


class Designer:
    """One designer with one mapping object open, in a program of its own.

    A context manager: leaving it ends the program; what was not saved is lost.
    """

    def __init__(
        self, program: str | os.PathLike[str] | None = None, *, on_box: Callable[[Box], None] | None = None
    ) -> None:
        """Start a designer with no object yet.

        ``program`` is the path of ``rulemesh``; left out, it is found by the variable RULEMESH or on the PATH. ``on_box``
        is told of each message, form and event as it comes.
        """
        self._program = Program(program)
        self._on_box = on_box
        self._members: frozenset[str] | None = None
        #: The file that the object was loaded from, or saved to last.
        self.path: str | None = None
        #: Everything that reached the user or the host since the start, or since somebody emptied the list.
        self.boxes: list[Box] = []

    @classmethod
    def open(
        cls,
        path: str | os.PathLike[str],
        *,
        edit: bool = True,
        program: str | os.PathLike[str] | None = None,
        on_box: Callable[[Box], None] | None = None,
    ) -> Designer:
        """Start a designer on the object in a file, whatever encoding it has.

        Raises Refused for a file that can't be read or holds no mapping object.
        """
        designer = cls(program, on_box=on_box)
        try:
            designer.load(path, edit=edit)
        except BaseException:
            designer.close()
            raise
        return designer

    @classmethod
    def from_text(
        cls,
        table: str,
        xml: str,
        *,
        program: str | os.PathLike[str] | None = None,
        on_box: Callable[[Box], None] | None = None,
    ) -> Designer:
        """Start a designer on an object in a text whose root element is named ``table``."""
        designer = cls(program, on_box=on_box)
        try:
            designer.request("let", name="TargetTable", value=table)
            designer.request("let", name="Edit", value=True)
            designer.request("let", name="MappingObjectXML", value=xml)
            designer.request("call", name="ShowControl")
        except BaseException:
            designer.close()
            raise
        return designer

    def load(self, path: str | os.PathLike[str], *, edit: bool = True) -> None:
        """Open the object in a file in place of the present one; with ``edit=False`` it can only be looked at."""
        self.request("create")
        self.request("load", file=os.fspath(path), edit=edit)
        self.path = os.fspath(path)

    def save(self, path: str | os.PathLike[str] | None = None) -> None:
        """Store the object as one act, in its file or in another one: either all of it stands there or the old text.

        Raises Failure 75 when it can't be written.
        """
        place = os.fspath(path) if path is not None else self.path
        if place is None:
            raise ValueError("this object has no file yet; name one")
        self.request("save", file=place)
        self.path = place

    def close(self) -> None:
        """End the designer. What was not saved is lost."""
        self._program.close()

    def __enter__(self) -> Designer:
        return self

    def __exit__(
        self, kind: type[BaseException] | None, error: BaseException | None, trace: TracebackType | None
    ) -> None:
        self.close()

    def request(self, do: str, **members: Any) -> Answer:
        """Send any request of the protocol (docs/drive.md) and return its answer.

        Raises Refused or Failure when it was not done.
        """
        answer = self._program.request(do, **members)
        self.boxes.extend(answer.happened)
        if self._on_box is not None:
            for box in answer.happened:
                self._on_box(box)
        return answer

    def answer(self, button: str) -> None:
        """Lay the answer to the next question with several buttons ready: "OK", "Cancel", "Yes" or "No"."""
        self.request("reply", to="message", button=button)

    @property
    def xml(self) -> str:
        """The document's text as it stands; nothing is saved or asked."""
        return str(self.request("xml").value)

    @property
    def target_table(self) -> str:
        """The code of the object's own target table, which names its root element."""
        return str(self.request("state").value["StrTargetTable"])

    @property
    def source_tables(self) -> list[str]:
        """The codes of the source tables."""
        tables = str(self.request("get", name="SourceTables").value)
        return tables.split(",") if tables else []

    @property
    def dumps(self) -> Dumps:
        """The dumps by number."""
        return Dumps(self)

    @property
    def scripts(self) -> Scripts:
        """The precondition, the main queries, the functions and the variables."""
        return Scripts(self)

    def undo(self) -> bool:
        """Take the last change back, with everything as it stood right before it; False when there is none."""
        return bool(self.request("call", name="Undo").value)

    def redo(self) -> bool:
        """Do again what was taken back last; False when there is nothing."""
        return bool(self.request("call", name="Redo").value)

    @property
    def undo_text(self) -> str:
        """What undo would take back, in a word or two; "" for nothing."""
        return str(self.request("get", name="UndoText").value)

    @property
    def redo_text(self) -> str:
        """What redo would do, in a word or two; "" for nothing."""
        return str(self.request("get", name="RedoText").value)

    def supports(self, member: str) -> bool:
        """Whether the program's designer has a property or method of that name."""
        if self._members is None:
            self._members = frozenset(self.request("hello").value["members"])
        return member in self._members

    def check(self) -> list[Finding]:
        """What is wrong with the object, or may be; it changes nothing. Raises NotSupported for an old program."""
        return [Finding(**finding) for finding in self._call("Check")]

    def find(self, text: str, options: str = "") -> list[Place]:
        """Every place of a text; ``options`` are words: case, word, wild, rules, scripts, notes.

        Raises NotSupported for an old program.
        """
        return [Place(**place) for place in self._call("Find", text, options)]

    def where_used(self, name: str) -> list[Place]:
        """Every place of ``table.field`` or ``table`` as a name. Raises NotSupported for an old program."""
        return [Place(**place) for place in self._call("WhereUsed", name)]

    def replace(self, text: str, by: str, options: str = "") -> int:
        """Replace a text everywhere, as one step, and tell how often. Raises NotSupported for an old program."""
        return int(self._call("Replace", text, by, options))

    def rename_field(self, old: str, new: str) -> int:
        """Rename ``table.field`` in all scripts and rules, as one step, and tell how often.

        Raises NotSupported for an old program.
        """
        return int(self._call("RenameField", old, new))

    def _call(self, name: str, *args: Any) -> Any:
        if not self.supports(name):
            raise NotSupported(f"this program's designer has no {name}; use a newer one")
        arguments: Sequence[Any] = list(args)
        return self.request("call", name=name, args=arguments).value

    def _show_tab(self, index: int) -> None:
        self.request("tab", index=index)

    # Leaving the box is what saves it.
    def _type(self, view: str, text: str) -> None:
        self.request("focus", view=view)
        self.request("type", view=view, text=text)
        self.request("leave")
