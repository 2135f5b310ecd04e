from __future__ import annotations

import shutil
from pathlib import Path
from typing import Iterator

import pytest

from rulemesh import Designer

SAMPLES = Path(__file__).resolve().parents[3] / "samples"


@pytest.fixture
def northwind(tmp_path: Path) -> Path:
    """A copy of a sample object: three dumps of one target table."""
    return Path(shutil.copy(SAMPLES / "northwind.xml", tmp_path / "northwind.xml"))


@pytest.fixture
def designer(northwind: Path) -> Iterator[Designer]:
    with Designer.open(northwind) as opened:
        yield opened


SMALL = (
    "<partn101><SRCTBL>custs001</SRCTBL><PREC>migrate custs001</PREC>"
    '<QUERY ST="custs001">dump 1 | all customers\ndump 2</QUERY>'
    '<SRCTAB><CUSTS001><NAME FNo="1" TYPE="S" LENG="20"/><PHONE FNo="2" TYPE="S" LENG="9"/></CUSTS001></SRCTAB>'
    '<TARTAB><PARTN101><NAME No="1" FNo="1" TYPE="S" LENG="20"/><PHONE__1 No="2" FNo="2" TYPE="S" LENG="9"/>'
    "</PARTN101></TARTAB>"
    '<DUMP No="1" TT="partn101"><NAME TEXT="" TYPE="0">upper(custs001.name)</NAME></DUMP>'
    '<DUMP No="2" TT="partn101"/></partn101>'
)


@pytest.fixture
def small() -> Iterator[Designer]:
    """An object of two dumps with two fields; the first rule of the first dump is written."""
    with Designer.from_text("partn101", SMALL) as opened:
        yield opened
