"""The program behind the package: one process that answers requests."""

from __future__ import annotations

import json
import os
import shutil
import subprocess
import tempfile
from types import TracebackType
from typing import Any, Sequence

from .answers import Answer, Box
from .errors import Failure, ProgramEnded, ProgramNotFound, Refused

_ENVIRONMENT = "RULEMESH"
_SECONDS_TO_END = 10.0


def find_program(program: str | os.PathLike[str] | None = None) -> str:
    """The path of the program: the one that is named, else that of the variable RULEMESH, else the one on the PATH."""
    named = os.fspath(program) if program is not None else os.environ.get(_ENVIRONMENT) or "rulemesh"
    found = shutil.which(named)
    if found is None:
        raise ProgramNotFound(
            f"there is no program {named!r}; install Rulemesh, or name its program in the variable {_ENVIRONMENT}"
        )
    return found


class Program:
    """A running ``rulemesh drive``. Each request is answered before the next one is sent.

    A context manager: leaving it ends the program, as ``close`` does.
    """

    def __init__(self, program: str | os.PathLike[str] | None = None, arguments: Sequence[str] = ()) -> None:
        """Start the program, with further arguments such as "--window".

        Raises ProgramNotFound.
        """
        self._errors = tempfile.TemporaryFile()  # a pipe that nobody reads could fill up and stop the program
        try:
            self._process = subprocess.Popen(
                [find_program(program), "drive", *arguments],
                stdin=subprocess.PIPE,
                stdout=subprocess.PIPE,
                stderr=self._errors,
            )
        except BaseException:
            self._errors.close()
            raise
        self._number = 0

    def request(self, do: str, **members: Any) -> Answer:
        """Send one request and return its answer.

        Raises Refused or Failure when it was not done, and ProgramEnded when there is nobody to answer it.
        """
        self._number += 1
        request: dict[str, Any] = {"do": do, **members}
        answer = self._exchange({**request, "id": self._number})
        if "refused" in answer:
            raise Refused(answer["refused"], request)
        if "failure" in answer:
            raise Failure(answer["failure"]["number"], answer["failure"]["text"], request)
        happened = tuple(Box(kind, told) for entry in answer["happened"] for kind, told in entry.items())
        return Answer(answer.get("value"), happened)

    def close(self) -> None:
        """End the program. Whatever was not saved is lost."""
        if self._errors.closed:
            return
        assert self._process.stdin is not None and self._process.stdout is not None
        try:
            self._process.stdin.close()
        except BrokenPipeError:
            pass  # it has ended already
        self._process.stdout.close()
        try:
            self._process.wait(_SECONDS_TO_END)
        except subprocess.TimeoutExpired:
            self._process.kill()
            self._process.wait()
        self._errors.close()

    def __enter__(self) -> Program:
        return self

    def __exit__(
        self, kind: type[BaseException] | None, error: BaseException | None, trace: TracebackType | None
    ) -> None:
        self.close()

    def _exchange(self, request: dict[str, Any]) -> dict[str, Any]:
        if self._errors.closed:
            raise ProgramEnded("the program was closed")
        assert self._process.stdin is not None and self._process.stdout is not None
        # ASCII on the wire carries every text, half a surrogate pair included.
        line = json.dumps(request, ensure_ascii=True).encode("ascii") + b"\n"
        try:
            self._process.stdin.write(line)
            self._process.stdin.flush()
        except (BrokenPipeError, ValueError):
            self._raise_end()
        received = self._process.stdout.readline()
        if not received.endswith(b"\n"):
            self._raise_end()
        try:
            answer = json.loads(received)
        except ValueError:
            answer = None
        if not isinstance(answer, dict) or answer.get("id") != request["id"]:
            raise ProgramEnded("what answers is no `rulemesh drive` of this protocol")
        return answer

    def _raise_end(self) -> None:
        try:
            status: int | None = self._process.wait(_SECONDS_TO_END)
        except subprocess.TimeoutExpired:
            status = None
        self._errors.seek(0)
        said = self._errors.read().decode("utf-8", "replace").strip()
        raise ProgramEnded(f"the program ended with status {status}" + (f": {said}" if said else ""), status)
