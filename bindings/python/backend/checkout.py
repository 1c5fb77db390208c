"""Builds bindings/python when pip is called at the top of a checkout; the pyproject.toml there names this."""

import os
from pathlib import Path

os.chdir(Path(__file__).resolve().parents[1])

from setuptools.build_meta import *    # noqa: E402, F401, F403
