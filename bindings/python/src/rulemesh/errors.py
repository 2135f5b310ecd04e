"""What can go wrong, each with a type of its own."""

from __future__ import annotations

from typing import Any, Mapping


class RulemeshError(Exception):
    """The root of all errors of this package."""


class ProgramNotFound(RulemeshError):
    """The program ``rulemesh`` is not where it was looked for."""


class ProgramEnded(RulemeshError):
    """The program ended, or answered what is no answer, before a request was done.

    ``status`` is its exit status (negative for a signal, ``None`` while unknown), and the text holds what it said on
    standard error.
    """

    def __init__(self, text: str, status: int | None = None) -> None:
        super().__init__(text)
        self.status = status


class _RequestError(RulemeshError):
    """A request that was not carried out to its end; ``request`` is its members."""

    def __init__(self, text: str, request: Mapping[str, Any]) -> None:
        super().__init__(text)
        self.request = dict(request)


class Refused(_RequestError):
    """A request that can't be made: an unknown name, a view out of the user's reach, a file that can't be read.

    Nothing was changed by it.
    """


class Failure(_RequestError):
    """A failure that came out to the host. What was done before it stays done.

    ``number`` says which it was: 75 is a file that can't be written, 7 is memory that ran out; docs/drive.md lists all.
    """

    def __init__(self, number: int, text: str, request: Mapping[str, Any]) -> None:
        super().__init__(f"failure {number}: {text}", request)
        self.number = number
        self.text = text


class NotSupported(RulemeshError):
    """The program that runs is too old for what was asked."""
