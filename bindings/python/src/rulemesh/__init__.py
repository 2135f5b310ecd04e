"""Work the Rulemesh designer from Python.

    from rulemesh import Designer

    with Designer.open("orders.xml") as designer:
        for dump in designer.dumps.values():
            dump.guess()
            dump.rules["salor101.status"] = '"N"'
        designer.save()

The package runs the program ``rulemesh drive`` and speaks its protocol, so the whole designer stands behind each call,
with all of its checks and warnings. It needs nothing but Python and that program.
"""

from .answers import Answer, Box, Change, Finding, Place
from .designer import Designer
from .dumps import Dump, Dumps, Rules
from .errors import Failure, NotSupported, ProgramEnded, ProgramNotFound, Refused, RulemeshError
from .program import Program
from .scripts import Queries, Scripts

__all__ = [
    "Answer",
    "Box",
    "Change",
    "Designer",
    "Dump",
    "Dumps",
    "Failure",
    "Finding",
    "NotSupported",
    "Place",
    "Program",
    "ProgramEnded",
    "ProgramNotFound",
    "Queries",
    "Refused",
    "RulemeshError",
    "Rules",
    "Scripts",
]
