"""The package as others get it: typed, and a wheel that works where nothing but Python is."""

from __future__ import annotations

import importlib.util
import os
import shutil
import subprocess
import sys
import zipfile
from pathlib import Path

import pytest

HERE = Path(__file__).resolve().parents[1]


@pytest.mark.skipif(shutil.which("mypy") is None, reason="mypy is not installed")
def test_everything_has_types(tmp_path: Path) -> None:
    checked = subprocess.run(
        ["mypy", "--strict", "--cache-dir", str(tmp_path), "src", "examples", "tests"], cwd=HERE, capture_output=True, text=True
    )
    assert checked.returncode == 0, checked.stdout + checked.stderr


@pytest.mark.skipif(
    any(importlib.util.find_spec(name) is None for name in ("build", "setuptools", "wheel")),
    reason="build, setuptools or wheel is not installed",
)
def test_a_wheel_holds_all_that_is_needed(tmp_path: Path) -> None:
    source = tmp_path / "source"
    shutil.copytree(HERE, source, ignore=shutil.ignore_patterns("__pycache__", "*.egg-info", "build"))
    built = subprocess.run(
        [sys.executable, "-m", "build", "--wheel", "--no-isolation", "--outdir", str(tmp_path), str(source)],
        capture_output=True,
        text=True,
    )
    assert built.returncode == 0, built.stdout + built.stderr
    (wheel,) = tmp_path.glob("rulemesh-*-py3-none-any.whl")
    with zipfile.ZipFile(wheel) as files:
        names = files.namelist()
        metadata = files.read(next(name for name in names if name.endswith("METADATA"))).decode("utf-8")
    modules = {path.name for path in (HERE / "src" / "rulemesh").iterdir() if path.suffix in (".py", ".typed")}
    assert {name.partition("/")[2] for name in names if name.startswith("rulemesh/")} == modules
    assert "Requires-Dist" not in metadata
    # A wheel of pure Python runs from its file.
    used = subprocess.run(
        [sys.executable, "-I", "-c", f"import sys; sys.path.insert(0, {str(wheel)!r}); "
         "import rulemesh; d = rulemesh.Designer(); print(d.request('hello').value['program'])"],
        capture_output=True,
        text=True,
        cwd=tmp_path,
        env={"RULEMESH": os.environ["RULEMESH"], "PATH": os.environ["PATH"]},
    )
    assert used.stdout == "rulemesh\n", used.stderr
