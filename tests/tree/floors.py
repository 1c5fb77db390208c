#!/usr/bin/env python3
"""floors.py [ROOT]: each folder of src/ includes only itself and the floors before it.

A public header counts with the floor that implements it: the one of the source that includes it first. So the
order leaves no loops between folders. Prints file and line of each include that goes the other way.
"""

import pathlib
import re
import sys

FLOORS = ["base", "platform", "foundation", "oshelpers", "dialogs", "imaging", "fileio", "output",
          "geometry", "canvas/view", "overlay", "instruments", "canvas", "document", "interchange", "canvas/exports", "open"]

# Public headers and folders of them that are not the first include of sources on just one floor.
WITHOUT_SOURCE = {
    "vostel/export.h": "base",
    "vostel/version.h": "base",
    "vostel.h": "base",
    "vostel/platform.h": "platform",
    "vostel/host.h": "platform",
    "vostel/version.h": "base",
    "vostel/desktop": "platform",
    "vostel/CanvasTypes.h": "canvas/view",
    "Tessik.h": "dialogs",
    "VostelObj.h": "canvas/exports",
}

INCLUDE = re.compile(r'\s*#\s*include\s*[<"]([^>"]+)[>"]')


def includes(path):
    """(line number, name) of each include."""
    lines = path.read_text(encoding="utf-8").splitlines()
    found = ((number, INCLUDE.match(line)) for number, line in enumerate(lines, 1))
    return [(number, match.group(1)) for number, match in found if match]


def read_all(folder):
    """Includes of all sources below a folder, by their path from there."""
    files = sorted(path for path in folder.rglob("*") if path.suffix in (".h", ".cpp"))
    return {path.relative_to(folder): includes(path) for path in files}


def innermost(path, places):
    """The place in a dictionary for a path or for the nearest folder around it; None for neither."""
    for part in (path, *path.parents):
        if part.as_posix() in places:
            return places[part.as_posix()]
    return None


def problems(root):
    sources, headers = read_all(root / "src"), read_all(root / "include")
    if not sources or not headers:
        return [f"{root}: no sources"]
    found = [f"src/{floor}: no such folder" for floor in FLOORS if not (root / "src" / floor).is_dir()]
    floors = {floor: floor for floor in FLOORS}

    users = {}
    for path, lines in sources.items():
        if path.suffix == ".cpp" and lines and pathlib.PurePath(lines[0][1]) in headers:
            users.setdefault(pathlib.PurePath(lines[0][1]), set()).add(innermost(path, floors))

    floor_of = {("src", path): innermost(path, floors) for path in sources}
    for path in headers:
        users_of = users.get(path, set())
        floor_of["include", path] = innermost(path, WITHOUT_SOURCE) or (
            users_of.pop() if len(users_of) == 1 else None)
    found += [f"{top}/{path}:1: belongs to no floor of tests/tree/floors.py"
              for (top, path), floor in floor_of.items() if floor is None]

    for (top, path), floor in floor_of.items():
        for line, name in (sources if top == "src" else headers)[path]:
            name = pathlib.PurePath(name)
            other = floor_of.get(("src", name)) or floor_of.get(("include", name))
            if floor and other and FLOORS.index(other) > FLOORS.index(floor):
                found.append(
                    f'{top}/{path}:{line}: {floor} includes "{name}" of {other}, which comes after it')
    return found


def main():
    here = pathlib.Path(__file__).resolve()
    found = problems(pathlib.Path(sys.argv[1]) if len(sys.argv) > 1 else here.parents[2])
    print("\n".join(found) if found else "all includes follow the order of the floors")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
