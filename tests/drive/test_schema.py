"""docs/drive.schema.json describes what the program takes and answers: held to every scenario."""

from __future__ import annotations

import json
import os
import subprocess
from pathlib import Path
from typing import Any

import pytest

jsonschema = pytest.importorskip("jsonschema")

ROOT = Path(__file__).resolve().parents[2]
SCHEMA = json.loads((ROOT / "docs" / "drive.schema.json").read_text(encoding="utf-8"))
PROGRAM = os.environ["RULEMESH"]


def validator(name: str) -> Any:
    return jsonschema.Draft202012Validator({**{"$defs": SCHEMA["$defs"]}, "$ref": f"#/$defs/{name}"})


REQUEST = validator("request")
ANSWER = validator("answer")


def answers_to(lines: list[str], folder: Path) -> list[Any]:
    text = "".join(line + "\n" for line in lines)
    done = subprocess.run([PROGRAM, "drive"], input=text, capture_output=True, encoding="utf-8", cwd=folder, check=True)
    return [json.loads(line) for line in done.stdout.splitlines()]


def scenarios() -> list[Path]:
    return sorted((ROOT / "tests" / "scenarios").rglob("*.session"))


def requests_of(scenario: Path) -> list[str]:
    lines = scenario.read_text(encoding="utf-8").split("\n")
    return [line for line in lines if line.strip() and not line.startswith(("#", "-> "))]


def test_the_schema_is_one() -> None:
    jsonschema.Draft202012Validator.check_schema(SCHEMA)
    assert len(scenarios()) > 900


@pytest.mark.parametrize("area", sorted({path.parent.name for path in scenarios()}))
def test_the_schema_fits_what_is_asked_and_answered(area: str, tmp_path: Path) -> None:
    for scenario in scenarios():
        if scenario.parent.name != area:
            continue
        folder = tmp_path / scenario.stem
        folder.mkdir()
        lines = requests_of(scenario)
        for line, answer in zip(lines, answers_to(lines, folder), strict=True):
            errors = [error.message for error in ANSWER.iter_errors(answer)]
            assert errors == [], f"{scenario}: {line}: {answer}"
            if "refused" not in answer:
                errors = [error.message for error in REQUEST.iter_errors(json.loads(line))]
                assert errors == [], f"{scenario}: {line}"


def test_verbs_and_members_are_those_of_the_program(tmp_path: Path) -> None:
    (answer,) = answers_to(['{"do":"hello"}'], tmp_path)
    hello = answer["value"]
    assert sorted(verb["title"] for verb in SCHEMA["$defs"]["request"]["oneOf"]) == hello["verbs"]
    properties = [name for kind in SCHEMA["$defs"]["property"]["oneOf"] for name in kind["properties"]["name"]["enum"]]
    methods = [method["title"] for method in SCHEMA["$defs"]["method"]["oneOf"]]
    (get,) = [verb for verb in SCHEMA["$defs"]["request"]["oneOf"] if verb["title"] == "get"]
    assert sorted({*properties, *methods, *get["properties"]["name"]["enum"]}) == hello["members"]


@pytest.mark.parametrize(
    "line",
    [
        '{"do":"nonsense"}',
        '{"view":"CmdGuess"}',
        '{"do":"click"}',
        '{"do":"click","view":3}',
        '{"do":"choose","view":"CmbDump"}',
        '{"do":"choose","view":"CmbDump","data":"20"}',
        '{"do":"row","view":"lstTargetFields","field":2}',
        '{"do":"tick","view":"lstSourceFields","row":1}',
        '{"do":"let","name":"Edit","value":"yes"}',
        '{"do":"let","name":"Nonsense","value":true}',
        '{"do":"call","name":"GetRowNumber"}',
        '{"do":"call","name":"Undo","args":[1]}',
        '{"do":"load"}',
        '{"do":"save","file":""}',
        '{"do":"reply","to":"nobody"}',
        '{"do":"reply","to":"form","steps":[{"do":"dance"}]}',
        '{"do":"focused","control":""}',
        '{"do":"focused","control":7}',
        '{"do":"get","name":"Editor"}',
        '{"do":"cell","view":"RulesGrid","row":0,"col":2}',
    ],
)
def test_what_does_not_fit_is_refused_by_the_program_too(line: str, tmp_path: Path) -> None:
    assert not REQUEST.is_valid(json.loads(line))
    (answer,) = answers_to([line], tmp_path)
    assert "refused" in answer


@pytest.mark.parametrize(
    "answer",
    [
        {"ok": True},
        {"happened": []},
        {"ok": True, "happened": [], "refused": "x"},
        {"ok": False, "happened": []},
        {"ok": False, "happened": [], "failure": {"number": "91", "text": "x"}},
        {"ok": True, "happened": [{"message": {}}]},
        {"ok": True, "happened": [], "value": {"kind": "grid"}},
        {"ok": True, "happened": [], "more": 1},
    ],
)
def test_what_no_answer_can_be_does_not_fit(answer: Any) -> None:
    assert not ANSWER.is_valid(answer)
