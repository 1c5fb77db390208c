"""python -m vostel: `view` opens a file in the viewer, `batch` measures many images."""

from __future__ import annotations

import argparse
import os
import shutil
import subprocess
import sys
from pathlib import Path
from typing import List, Optional

from . import _batch_command


def find_viewer() -> Optional[str]:
    """The viewer: of the search path, else of a build in a checkout."""
    found = shutil.which("vostel-viewer") or shutil.which("vostel-viewer-win32")
    if found:
        return found
    builds = (Path(__file__).parents[3] / "build" / build / "bin/vostel-viewer" for build in ("release", "demo"))
    return next((str(path) for path in builds if os.access(path, os.X_OK)), None)


def view(arguments: argparse.Namespace) -> int:
    if not os.path.isfile(arguments.file):
        print(f"vostel: cannot read {arguments.file}", file=sys.stderr)
        return 1
    viewer = find_viewer()
    if viewer is None:
        print("vostel: the viewer, vostel-viewer, is not installed", file=sys.stderr)
        return 1
    return subprocess.call([viewer, arguments.file])


def parser_of_all() -> argparse.ArgumentParser:
    parser = argparse.ArgumentParser(prog="python -m vostel", description="Image canvases from the command line.")
    commands = parser.add_subparsers(dest="command", required=True, metavar="COMMAND")
    viewing = commands.add_parser("view", help="open a file in the viewer")
    viewing.add_argument("file", metavar="FILE")
    viewing.set_defaults(run=view)
    _batch_command.add_parser(commands)
    return parser


def main(arguments: Optional[List[str]] = None) -> int:
    parsed = parser_of_all().parse_args(arguments)
    code: int = parsed.run(parsed)
    return code


if __name__ == "__main__":
    sys.exit(main())
