"""What comes back from the program, as values with types."""

from __future__ import annotations

from dataclasses import dataclass
from typing import Any, Mapping


@dataclass(frozen=True)
class Box:
    """Something that reached the user or the host while a request was done.

    ``kind`` is "message", "input", "form", "event", "editor" or "wrote"; ``members`` is what docs/drive.md says of it.
    """

    kind: str
    members: Mapping[str, Any]

    @property
    def text(self) -> str:
        """The text of a message, the prompt of an input box, the caption of a form; "" for others."""
        for name in ("text", "prompt", "caption"):
            if self.kind in ("message", "input", "form") and name in self.members:
                return str(self.members[name])
        return ""

    @property
    def answer(self) -> str:
        """What the box was answered; "" for what takes no answer."""
        return str(self.members.get("answer", ""))


@dataclass(frozen=True)
class Answer:
    """The answer to a request that was done."""

    value: Any = None
    happened: tuple[Box, ...] = ()


@dataclass(frozen=True)
class Finding:
    """Something that the check found: what it is, where it stands, and in a sentence what to do about it.

    ``dump`` and ``line`` are 0, and ``field`` is "", where there is none.
    """

    kind: str
    severity: str
    dump: int
    table: str
    field: str
    line: int
    text: str


@dataclass(frozen=True)
class Place:
    """A place in a script, rule or note; ``line`` and ``column`` count from 1, ``text`` is the line."""

    place: str
    table: str
    dump: int
    field: str
    line: int
    column: int
    length: int
    text: str


@dataclass(frozen=True)
class Change:
    """A rule before and after something that may have changed it."""

    field: str
    old: str
    new: str
