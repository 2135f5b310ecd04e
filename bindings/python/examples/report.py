"""Report on a folder of objects as HTML.

    python3 report.py FOLDER -o REPORT.html

One row for each dump of each object below the folder: how many fields its table has, how many rules are written, which
fields have none, and what the check finds where the program has one. Files that hold no object are told with the reason.
"""

from __future__ import annotations

import argparse
import html
import sys
from dataclasses import dataclass, field
from pathlib import Path

from rulemesh import Designer, Finding, RulemeshError

STYLE = (
    "body{font:14px sans-serif;margin:2em}table{border-collapse:collapse}"
    "th,td{border:1px solid #bbb;padding:.3em .6em;text-align:left;vertical-align:top}"
    ".number{text-align:right}.bad{color:#a00}"
)


@dataclass
class DumpReport:
    number: int
    comment: str
    table: str
    fields: int
    blank: list[str]


@dataclass
class ObjectReport:
    path: Path
    dumps: list[DumpReport] = field(default_factory=list)
    findings: list[Finding] = field(default_factory=list)
    trouble: str = ""


def look_at(path: Path) -> ObjectReport:
    """What there is to tell of one file."""
    report = ObjectReport(path)
    try:
        with Designer.open(path, edit=False) as designer:
            for number, dump in designer.dumps.items():
                rules = dict(dump.rules)
                blank = [name for name, rule in rules.items() if not rule.strip()]
                report.dumps.append(DumpReport(number, dump.comment, dump.table, len(rules), blank))
            if designer.supports("Check"):
                report.findings = designer.check()
    except RulemeshError as error:
        report.trouble = str(error)
    return report


def as_html(reports: list[ObjectReport]) -> str:
    """One page that stands alone."""
    rows = []
    for report in reports:
        name = html.escape(report.path.name)
        if report.trouble:
            rows.append(f'<tr><td>{name}</td><td class="bad" colspan="6">{html.escape(report.trouble)}</td></tr>')
        for dump in report.dumps:
            findings = [html.escape(f"{found.severity}: {found.text}") for found in report.findings if found.dump == dump.number]
            rows.append(
                f'<tr><td>{name}</td><td class="number">{dump.number}</td><td>{html.escape(dump.comment)}</td>'
                f'<td>{html.escape(dump.table)}</td><td class="number">{dump.fields - len(dump.blank)} of {dump.fields}</td>'
                f'<td>{html.escape(", ".join(dump.blank))}</td><td>{"<br>".join(findings)}</td></tr>'
            )
    heading = "".join(
        f"<th>{text}</th>" for text in ("Object", "Dump", "Comment", "Target table", "Rules", "Without a rule", "Findings")
    )
    return (
        '<!DOCTYPE html>\n<html lang="en"><head><meta charset="utf-8"><title>Mapping objects</title>'
        f"<style>{STYLE}</style></head><body><h1>Mapping objects</h1>\n<table>\n<tr>{heading}</tr>\n"
        + "\n".join(rows)
        + "\n</table></body></html>\n"
    )


def main(arguments: list[str]) -> int:
    parser = argparse.ArgumentParser(description="Report on a folder of objects as HTML.")
    parser.add_argument("folder", type=Path)
    parser.add_argument("-o", "--out", type=Path, required=True)
    names = parser.parse_args(arguments)
    if not names.folder.is_dir():
        print(f"report: {names.folder} is no folder", file=sys.stderr)
        return 2
    reports = [look_at(path) for path in sorted(names.folder.rglob("*.xml"))]
    try:
        names.out.write_text(as_html(reports), encoding="utf-8")
    except OSError as error:
        print(f"report: {error}", file=sys.stderr)
        return 2
    return 1 if any(report.trouble for report in reports) else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
