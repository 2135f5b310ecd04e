from __future__ import annotations

from pathlib import Path

import pytest

from rulemesh import Box, Designer, Failure, NotSupported, ProgramEnded, ProgramNotFound, Refused


def test_opens_an_object_by_the_name_of_its_root(designer: Designer) -> None:
    assert designer.target_table == "salor101"
    assert designer.source_tables == ["ordrs001", "ordde001", "custm001", "emply001", "shipp001", "prodc001"]


def test_an_untouched_object_is_saved_byte_for_byte(designer: Designer, northwind: Path, tmp_path: Path) -> None:
    designer.save(tmp_path / "copy.xml")
    assert (tmp_path / "copy.xml").read_bytes() == northwind.read_bytes()
    assert designer.path == str(tmp_path / "copy.xml")


@pytest.mark.parametrize("encoding", ["utf-8", "utf-16", "utf-32", "iso-8859-1", "windows-1252"])
def test_a_save_keeps_the_encoding_of_the_file(tmp_path: Path, encoding: str) -> None:
    path = tmp_path / "object.xml"
    text = (
        f'<?xml version="1.0" encoding="{encoding}"?>\n<!-- \u00e4 --><partn101><SRCTBL/><PREC>| \u00fc</PREC><DUMP No="0" TXT=""/></partn101>\n'
    )
    path.write_bytes(text.encode(encoding))
    with Designer.open(path) as designer:
        designer.scripts.precondition = "| \u00f6"
        designer.save()
    assert path.read_bytes().decode(encoding) == text.replace("\u00fc", "\u00f6")


def test_a_character_that_the_encoding_lacks_is_saved_as_a_reference(tmp_path: Path) -> None:
    path = tmp_path / "object.xml"
    path.write_bytes(b"<?xml version='1.0' encoding='iso-8859-1'?><partn101><PREC>\xe4</PREC></partn101>")
    with Designer.open(path) as designer:
        designer.scripts.precondition = "| \u20ac \u00e4"
        designer.save()
    assert b"| &#8364; \xe4" in path.read_bytes()


def test_a_save_that_can_not_be_written_leaves_the_old_text(tmp_path: Path, small: Designer) -> None:
    with pytest.raises(Failure) as failed:
        small.save(tmp_path / "missing" / "object.xml")
    assert failed.value.number == 75
    assert "No such file or directory" in failed.value.text
    assert list(tmp_path.iterdir()) == []


def test_an_object_without_a_file_must_be_given_one(small: Designer) -> None:
    with pytest.raises(ValueError):
        small.save()


@pytest.mark.parametrize(
    "content, reason",
    [
        (b"plain", "no root element"),
        (b"<html/>", '"html"'),
        (b"<partn101/>", "PREC"),
        (b"<partn101>\n<PREC>\n</partn101>", "line 3"),
        (b"<!DOCTYPE a><a/>", "document type declaration"),
        (b"<partn101>\n\xff</partn101>", "Line 2 holds a character that is not UTF-8"),
        (b"<?xml version='1.0' encoding='ebcdic'?><a/>", "ebcdic"),
    ],
)
def test_a_file_without_an_object_is_refused_with_the_reason(tmp_path: Path, content: bytes, reason: str) -> None:
    path = tmp_path / "object.xml"
    path.write_bytes(content)
    with pytest.raises(Refused, match=reason):
        Designer.open(path)


def test_a_missing_file_is_refused(tmp_path: Path) -> None:
    with pytest.raises(Refused, match="No such file"):
        Designer.open(tmp_path / "none.xml")


def test_an_object_that_is_opened_for_reading_keeps_its_rules(northwind: Path) -> None:
    with Designer.open(northwind, edit=False) as designer:
        with pytest.raises(Refused):
            designer.dumps[10].guess()
        assert designer.undo() is False


def test_undo_and_redo_tell_what_they_do(small: Designer) -> None:
    assert (small.undo(), small.undo_text) == (False, "")
    small.dumps[2].rules["name"] = "default()"
    assert small.undo_text == "Typing"
    assert small.undo() is True
    assert small.dumps[2].rules["name"].strip() == ""
    assert small.redo_text == "Typing"
    assert small.redo() is True
    assert small.dumps[2].rules["name"] == "default()"


def test_raw_requests_are_answered_or_raise(small: Designer) -> None:
    assert small.request("read", view="MainTab").value["tab"] == 0
    with pytest.raises(Refused, match="there is no verb") as refused:
        small.request("nonsense", more=1)
    assert refused.value.request == {"do": "nonsense", "more": 1}
    small.request("let", name="MappingObjectXML", value="<partn101/>")
    with pytest.raises(Failure) as failed:
        small.request("get", name="MappingObjectXML")
    assert failed.value.number == 91


def test_boxes_are_told_as_they_come(tmp_path: Path) -> None:
    told: list[Box] = []
    with Designer(on_box=told.append) as designer:
        designer.request("let", name="TargetTable", value="partn101")
        designer.request("let", name="Edit", value=True)
        designer.request(
            "let",
            name="MappingObjectXML",
            value="<partn101><SRCTBL>custs001</SRCTBL><PREC>migrate custs001</PREC>"
            '<QUERY ST="custs001">dump 1</QUERY><SRCTAB><CUSTS001><NAME/></CUSTS001></SRCTAB>'
            '<TARTAB><PARTN101><NAME No="1"/></PARTN101></TARTAB><DUMP No="1" TT="partn101"><NAME>x</NAME></DUMP></partn101>',
        )
        designer.request("call", name="ShowControl")
        assert designer.dumps[1].rules["name"] == "x"
        designer.answer("Cancel")
        designer.scripts.queries["custs001"] = "| nothing"
        assert told == designer.boxes
        assert [box.kind for box in told] == ["message", "message"]
        assert told[0].answer == "Cancel"
        assert "Dump number removed" in told[0].text
        assert designer.dumps[1].rules["name"] == "x"


def test_a_member_that_the_program_lacks_is_told(small: Designer) -> None:
    assert small.supports("Undo")
    assert not small.supports("Nonsense")
    if not small.supports("Find"):
        with pytest.raises(NotSupported, match="Find"):
            small.find("name")


def test_text_of_any_kind_comes_through(small: Designer) -> None:
    text = '| "\\ \u20ac \U0001f600 \u2028'
    small.scripts.precondition = text
    assert small.scripts.precondition == text


def test_a_program_that_is_not_there_is_told(tmp_path: Path, monkeypatch: pytest.MonkeyPatch) -> None:
    with pytest.raises(ProgramNotFound, match="nowhere"):
        Designer(program=tmp_path / "nowhere")
    monkeypatch.setenv("RULEMESH", str(tmp_path / "not there"))
    with pytest.raises(ProgramNotFound, match="not there"):
        Designer()


def test_a_program_that_ends_is_told_with_what_it_said(tmp_path: Path) -> None:
    program = tmp_path / "rulemesh"
    program.write_text("#!/bin/sh\necho 'no memory' >&2\nexit 5\n")
    program.chmod(0o755)
    designer = Designer(program=program)
    with pytest.raises(ProgramEnded, match="status 5: no memory") as ended:
        designer.request("hello")
    assert ended.value.status == 5
    designer.close()
    with pytest.raises(ProgramEnded):
        designer.request("hello")
    designer.close()


def test_what_is_no_such_program_is_told(tmp_path: Path) -> None:
    program = tmp_path / "rulemesh"
    program.write_text("#!/bin/sh\necho hello\ncat >/dev/null\n")
    program.chmod(0o755)
    with Designer(program=program) as designer, pytest.raises(ProgramEnded, match="no `rulemesh drive`"):
        designer.request("hello")


def test_findings_and_places_have_types(tmp_path: Path) -> None:
    # A program of a few lines stands for one that has these members, whatever the built one has.
    program = tmp_path / "rulemesh"
    program.write_text(
        "#!/usr/bin/env python3\n"
        "import json, sys\n"
        "VALUES = {'Check': [dict(kind='no-rule', severity='error', dump=1, table='partn101', field='name', line=0,"
        " text='x')], 'Find': [dict(place='rule', table='partn101', dump=1, field='name', line=1, column=2, length=3,"
        " text='abc')], 'Replace': 4, 'RenameField': 2}\n"
        "VALUES['WhereUsed'] = VALUES['Find']\n"
        "for line in sys.stdin:\n"
        "    request = json.loads(line)\n"
        "    value = {'members': list(VALUES)} if request['do'] == 'hello' else VALUES[request['name']]\n"
        "    print(json.dumps({'id': request['id'], 'ok': True, 'value': value, 'happened': []}), flush=True)\n"
    )
    program.chmod(0o755)
    with Designer(program=program) as designer:
        (finding,) = designer.check()
        assert (finding.kind, finding.severity, finding.dump, finding.field) == ("no-rule", "error", 1, "name")
        assert designer.find("b") == designer.where_used("partn101.name")
        assert designer.find("b")[0].column == 2
        assert designer.replace("b", "c") == 4
        assert designer.rename_field("custs001.name", "custs001.title") == 2
