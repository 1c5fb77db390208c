#!/usr/bin/env python3
"""writes.py [ROOT]: no source of src/ makes, opens for writing, moves or copies a file but those that are named here.

All others save through FileReplacement and SavePicture, which cost nobody the file before. Prints file and line of
each call that writes.
"""

import pathlib
import re
import sys

# With what they are there for.
WRITERS = {
    "platform/FileSaving.cpp": "files that take the place of others when they are whole",
    "platform/PictureSaving.cpp": "pictures of framework classes through them",
    "platform/portable/PortableFiles.cpp": "files of the system",
    "platform/win32/Win32Files.cpp": "files of the system",
    "platform/portable/PortableDirectoryWalk.cpp": "copies, beside their place",
    "platform/win32/Win32DirectoryWalk.cpp": "copies, beside their place",
    "platform/win32/Win32Image.cpp": "GDI+ writes by name, beside",
    "fileio/ParameterFiles.cpp": "streams that hosts write line by line",
    "dialogs/win32/ParameterFile.cpp": "the last answers of dialogs",
}

WRITES = re.compile(
    r'\b\w*(?:fopen|OpenFile|OpenUtf8File|freopen)(?:_s)?\s*\([^;]*"(?:[wa]|r\w*\+)'
    r'|\b(?:OpenFile|CreateFileLike)\(.*,\s*mode\)|\bios(?:_base)?::(?:out|app)\b|\bo?fstream\b|\bcreat\s*\(|\bO_(?:WRONLY|RDWR|CREAT)\b|\bGENERIC_WRITE\b|\bCREATE_(?:ALWAYS|NEW)\b'
    r'|\bstd::rename\b|\bcopy_file\b|\b(?:Copy|Move)FileW?\b|\bMoveFileExW\b|\bWritePrivateProfileStringW\b'
    r'|[.>]Save\s*\(')


def problems(root):
    files = sorted(path for path in (root / "src").rglob("*") if path.suffix in (".h", ".cpp"))
    if not files:
        return [f"{root}: no sources"]
    found = []
    unused = set(WRITERS)
    for path in files:
        name = path.relative_to(root / "src").as_posix()
        for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
            if not WRITES.search(line.split("//")[0]):
                continue
            if name in WRITERS:
                unused.discard(name)
            else:
                found.append(f"src/{name}:{number}: writes a file by itself")
    return found + [f"src/{name}: writes no file any more" for name in sorted(unused)]


def main():
    here = pathlib.Path(__file__).resolve()
    found = problems(pathlib.Path(sys.argv[1]) if len(sys.argv) > 1 else here.parents[2])
    print("\n".join(found) if found else "all files are written where they take the place of others when they are whole")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
