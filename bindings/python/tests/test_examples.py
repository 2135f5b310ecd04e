from __future__ import annotations

import re
import shutil
from html.parser import HTMLParser
from pathlib import Path

import pytest

import fill_from_csv
import report
from conftest import SAMPLES
from rulemesh import Designer


@pytest.fixture
def new_object(northwind: Path) -> Path:
    """The sample object as it was before anybody wrote a rule."""
    text = northwind.read_text(encoding="utf-8")
    northwind.write_text(re.sub(r'(<DUMP [^>]*[^/])>.*?</DUMP>', r"\1/>", text, flags=re.S), encoding="utf-8")
    return northwind


def test_a_new_object_is_filled_from_decisions(new_object: Path, tmp_path: Path, capsys: pytest.CaptureFixture[str]) -> None:
    decisions = tmp_path / "decisions.csv"
    decisions.write_text(
        'who,field,dump,rule\nAnn,salor101.order_no,10,"upper(ordrs001.orderid)"\nBob,salor101.customer,20,"""X"", ""Y"""\n',
        encoding="utf-8",
    )
    out = tmp_path / "filled.xml"
    assert fill_from_csv.main([str(new_object), str(decisions), str(out)]) == 0
    with Designer.open(out) as designer:
        assert designer.dumps[10].rules["order_no"] == "upper(ordrs001.orderid)"
        assert designer.dumps[20].rules["customer"] == '"X", "Y"'
        assert all(rule.strip() for dump in designer.dumps.values() for rule in dump.rules.values())
    assert capsys.readouterr().out == "2 rules decided, 64 guessed\n"  # 3 dumps of 22 fields


@pytest.mark.parametrize(
    "row, reason",
    [
        ("15,salor101.order_no,x", "row 3: the object has no dump '15'"),
        ("ten,salor101.order_no,x", "row 3: the object has no dump 'ten'"),
        ("10,salor101.fax,x", "row 3: dump 10 has no field 'salor101.fax'"),
        ("10,salor101.customer,x", "row 3: salor101.customer of dump 10 was decided above"),
    ],
)
def test_a_decision_that_fits_nothing_is_told_and_nothing_is_written(
    new_object: Path, tmp_path: Path, capsys: pytest.CaptureFixture[str], row: str, reason: str
) -> None:
    decisions = tmp_path / "decisions.csv"
    decisions.write_text(f"dump,field,rule\n10,salor101.customer,y\n{row}\n", encoding="utf-8")
    assert fill_from_csv.main([str(new_object), str(decisions), str(tmp_path / "out.xml")]) == 2
    assert reason in capsys.readouterr().err
    assert not (tmp_path / "out.xml").exists()


def test_a_table_without_its_columns_is_told(new_object: Path, tmp_path: Path, capsys: pytest.CaptureFixture[str]) -> None:
    decisions = tmp_path / "decisions.csv"
    decisions.write_text("dump,rule\n10,x\n", encoding="utf-8")
    assert fill_from_csv.main([str(new_object), str(decisions), str(tmp_path / "out.xml")]) == 2
    assert "row 1: there is no column field" in capsys.readouterr().err


class Cells(HTMLParser):
    """The texts of a page's cells, row by row."""

    def __init__(self) -> None:
        super().__init__()
        self.rows: list[list[str]] = []

    def handle_starttag(self, tag: str, attrs: list[tuple[str, str | None]]) -> None:
        if tag == "tr":
            self.rows.append([])
        elif tag in ("td", "th"):
            self.rows[-1].append("")

    def handle_data(self, data: str) -> None:
        if self.rows and self.rows[-1] and data.strip():
            self.rows[-1][-1] += data


def test_a_folder_of_objects_is_reported(tmp_path: Path) -> None:
    folder = tmp_path / "objects"
    (folder / "below").mkdir(parents=True)
    shutil.copy(SAMPLES / "northwind.xml", folder / "below")
    (folder / "bad.xml").write_text("<html><b></html>", encoding="utf-8")
    (folder / "notes.txt").write_text("no object", encoding="utf-8")
    assert report.main([str(folder), "-o", str(tmp_path / "report.html")]) == 1
    page = Cells()
    page.feed((tmp_path / "report.html").read_text(encoding="utf-8"))
    rows = page.rows[1:]
    assert [row[0] for row in rows] == ["bad.xml", "northwind.xml", "northwind.xml", "northwind.xml"]
    assert "not well-formed" in rows[0][1]
    assert [row[1] for row in rows[1:]] == ["10", "20", "30"]
    assert rows[1][2:4] == ["open and shipped orders", "salor101"]
    assert all(row[4].endswith(" of 22") for row in rows[1:])


def test_a_report_holds_texts_as_texts(tmp_path: Path) -> None:
    reports = [report.ObjectReport(Path("<a>.xml"), [report.DumpReport(1, "<b> & c", "t", 1, ["x<y"])])]
    page = report.as_html(reports)
    assert "&lt;b&gt; &amp; c" in page and "&lt;a&gt;.xml" in page and "x&lt;y" in page
    assert "<b>" not in page


def test_what_is_no_folder_is_told(tmp_path: Path, capsys: pytest.CaptureFixture[str]) -> None:
    assert report.main([str(tmp_path / "none"), "-o", str(tmp_path / "report.html")]) == 2
    assert "no folder" in capsys.readouterr().err
