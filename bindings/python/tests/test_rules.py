from __future__ import annotations

import pytest

from rulemesh import Designer


def test_dumps_come_by_number_with_their_comments(designer: Designer) -> None:
    assert list(designer.dumps) == [10, 20, 30]
    assert designer.dumps[20].comment == "orders without an employee"
    assert 25 not in designer.dumps
    with pytest.raises(KeyError):
        designer.dumps[25]


def test_rules_read_as_a_mapping(small: Designer) -> None:
    rules = small.dumps[1].rules
    assert list(rules) == ["partn101.name", "partn101.phone(1)"]
    assert rules["partn101.name"] == rules["name"] == "upper(custs001.name)"
    assert len(rules) == 2
    assert "phone(1)" in rules and "phone" not in rules
    with pytest.raises(KeyError):
        rules["phone"]


def test_a_rule_is_typed_into_its_dump_and_no_other(small: Designer) -> None:
    first, second = small.dumps[1], small.dumps[2]
    second.rules["phone(1)"] = "custs001.phone"
    assert first.rules["phone(1)"].strip() == ""
    assert second.rules["phone(1)"] == "custs001.phone"
    assert '<PHONE__1 TEXT="" TYPE="0">custs001.phone</PHONE__1>' in small.xml


def test_a_rule_far_down_is_reached(designer: Designer) -> None:
    dump = designer.dumps[30]
    last = dump.fields[-1]
    dump.rules[last] = "one\r\ntwo"
    assert dump.rules[last] == "one\r\ntwo"
    assert dump.fields[-1] == last


def test_a_rule_of_an_unknown_field_is_an_error_and_nothing_is_set(small: Designer) -> None:
    before = small.xml
    with pytest.raises(KeyError):
        small.dumps[1].rules["fax"] = "x"
    with pytest.raises(KeyError):
        small.dumps[1].rules.update({"name": "x", "fax": "x"})
    assert small.dumps[1].rules["name"] == "upper(custs001.name)"
    assert small.xml == before


def test_update_leaves_what_stands_there_alone(small: Designer) -> None:
    rules = small.dumps[1].rules
    rules.update({"name": "upper(custs001.name)"})
    assert small.undo_text == ""
    rules.update({"name": "a", "partn101.phone(1)": "b"})
    assert dict(rules) == {"partn101.name": "a", "partn101.phone(1)": "b"}


def test_guess_tells_what_it_wrote(small: Designer) -> None:
    changes = small.dumps[1].guess()
    assert [(change.field, change.new) for change in changes] == [("partn101.phone(1)", "custs001.phone")]
    assert small.dumps[1].rules["name"] == "upper(custs001.name)"
    assert small.dumps[1].guess() == []


def test_scripts_are_read_and_written(designer: Designer) -> None:
    scripts = designer.scripts
    assert list(scripts.queries) == ["ordrs001", "ordde001"]
    assert "dump 30" in scripts.queries["ordde001"]
    with pytest.raises(KeyError):
        scripts.queries["custm001"]
    text = scripts.queries["ordde001"] + "\r\n| checked"
    scripts.queries["ordde001"] = text
    assert scripts.queries["ordde001"] == text
    scripts.functions = "function f(x)"
    scripts.variables = "int i"
    scripts.precondition = scripts.precondition + "\r\n| checked"
    assert (scripts.functions, scripts.variables) == ("function f(x)", "int i")
    assert designer.xml.count("| checked") == 2
    assert list(designer.dumps) == [10, 20, 30]


def test_looking_at_scripts_changes_nothing(designer: Designer) -> None:
    before = designer.xml
    scripts = designer.scripts
    assert scripts.functions and scripts.variables and scripts.precondition
    assert dict(scripts.queries)
    assert designer.xml == before
    assert designer.undo_text == ""
