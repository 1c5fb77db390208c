#!/usr/bin/env python3
"""build.py DOXYFILE OUT: makes the site in OUT/html of the pages in docs/ and of the comments in the public headers.

The pages are plain Markdown, to be read where they lie. Here they are laid out beside those from the top of the tree,
with links to match, get a table of contents, and the reference of the open interface is made from Doxygen's XML. The
reference of all headers is Doxygen's own, in OUT/html/headers. Anything that Sphinx or Doxygen warns of is an error.
"""

import os
import pathlib
import re
import shutil
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
SITE = pathlib.Path(__file__).resolve().parent

# Where some pages of other folders have their places on the site; pages of docs/ keep theirs, and so does what they link.
ELSEWHERE = {
    "CHANGELOG.md": "changelog.md",
    "CONTRIBUTING.md": "contributing.md",
    "SECURITY.md": "security.md",
    "README.md": "index.md",
    "README.zh-CN.md": "zh/index.md",
    "bindings/dotnet/README.md": "tutorials/csharp.md",
    "bindings/python/README.md": "python.md",
}

# The table of contents. What is linked and has no place here comes last.
CONTENTS = {
    "Five minutes": ["tutorials/cpp", "tutorials/c", "tutorials/python", "tutorials/csharp", "tutorials/qt"],
    "Guides": ["guides/viewer", "guides/coordinates", "guides/drawing", "guides/measuring", "guides/contrast",
               "guides/history", "guides/listeners", "events", "formats", "guides/threads", "guides/embedding"],
    "Reference": ["interface", "reference/c", "reference/cpp", "python", "hosting", "keys", "viewers",
                  "reference/headers"],
    "Gallery": ["gallery", "reconstruction"],
    "The library": ["building", "dependencies", "architecture", "performance", "reliability", "security",
                    "contributing", "changelog"],
    "中文": ["zh/index", "zh/tutorials/cpp", "zh/tutorials/c", "zh/tutorials/python", "zh/tutorials/csharp",
             "zh/tutorials/qt", "zh/guides/viewer", "zh/guides/coordinates", "zh/guides/measuring",
             "zh/guides/contrast", "zh/guides/history", "zh/formats"],
}

CLASSES = ("Canvas", "Object", "Error", "Points", "Plane", "ImageOf", "Profile", "Subscription", "Step")

LINK = re.compile(r"(!?\[[^\]]*\]\()([^)\s#]+)((?:#[^)\s]*)?\))")


def place_of(path):
    """Where a file of the tree stands on the site."""
    name = path.relative_to(ROOT).as_posix()
    if name in ELSEWHERE:
        return pathlib.PurePath(ELSEWHERE[name])
    if name.startswith("docs/"):
        return pathlib.PurePath(name[len("docs/"):])
    return pathlib.PurePath("files", name)


def lay_out(source, page):
    """Writes a page with links that lead where its targets stand on the site; returns those of them that are pages."""
    place = place_of(page)
    pages = set()

    def moved(link):
        before, target, after = link.groups()
        if re.match(r"[a-z][a-z0-9+.-]*:", target):
            return link[0]
        file = (page.parent / target).resolve()
        there = place_of(file)
        if file.suffix == ".md":
            if there.as_posix() not in ("index.md", "python.md"):    # pages of docs/ in the place of others
                pages.add(file)
        elif there.parts[0] == "files":    # a source: it comes along, to be looked at
            (source / there).parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(file, source / there)
        return before + os.path.relpath(there, place.parent) + after

    code = False
    lines = []
    for line in page.read_text(encoding="utf-8").split("\n"):
        code ^= line.startswith("```")
        lines.append(line if code else LINK.sub(moved, line))
    text = "\n".join(lines)
    if place.as_posix() == "tutorials/csharp.md":
        text = text.replace("# VostelObj for C#", "# Five minutes in C#", 1)
    target = source / place
    target.parent.mkdir(parents=True, exist_ok=True)
    target.write_text(text, encoding="utf-8")
    return pages


def contents(source):
    """The table of contents, which the sidebar shows."""
    listed = {entry for entries in CONTENTS.values() for entry in entries} | {"index"}
    pages = {page.relative_to(source).with_suffix("").as_posix() for page in source.rglob("*.md")}
    parts = [(source / "index.md").read_text(encoding="utf-8")]
    for caption, entries in CONTENTS.items():
        there = [entry for entry in entries if entry in pages]
        if caption == "The library":
            there += sorted(pages - listed)
        if there:
            parts.append("```{toctree}\n:hidden:\n:caption: " + caption + "\n\n" + "\n".join(there) + "\n```\n")
    (source / "index.md").write_text("\n".join(parts), encoding="utf-8")


def reference(source):
    """Pages of vostel.h by its families, and of the classes of vostel.hpp."""
    header = (ROOT / "include/vostel.h").read_text(encoding="utf-8")
    groups = re.findall(r"@defgroup (\w+) (.+)", header)
    folder = source / "reference"
    folder.mkdir()
    text = "# Calls in C\n\n" \
           "The families of `vostel.h`. [The open interface](../interface.md) has the rules for all of them.\n\n"
    for group, title in groups:
        text += f"## {title}\n\n```{{doxygengroup}} {group}\n:content-only:\n```\n\n"
    text += "## Records\n\n"
    for record in re.findall(r"typedef struct (\w+) {", header):
        text += f"```{{doxygenstruct}} {record}\n:members:\n```\n\n"
    (folder / "c.md").write_text(text, encoding="utf-8")
    text = "# Classes in C++\n\n`vostel.hpp`, C++17 over the calls in C, whose comments say what each of them does.\n\n"
    for name in CLASSES:
        text += f"## {name}\n\n```{{doxygenclass}} vostel::cpp::{name}\n:members:\n```\n\n"
    text = re.sub(r"doxygenclass} (vostel::cpp::(?:ImageOf|Profile)\b)", r"doxygenstruct} \1", text)
    (folder / "cpp.md").write_text(text, encoding="utf-8")
    (folder / "headers.md").write_text(
        "# All public headers\n\nThe canvas calls, routines, containers and desktop names of `VostelObj.h`, and the open "
        "interface, with their comments, as Doxygen lays them out: "
        "<a href=\"../headers/index.html\">headers</a>.\n", encoding="utf-8")


def main():
    doxyfile, out = pathlib.Path(sys.argv[1]).resolve(), pathlib.Path(sys.argv[2]).resolve()
    for made in "source", "html":
        shutil.rmtree(out / made, ignore_errors=True)
    source = out / "source"
    source.mkdir(parents=True)
    pages, done = set((ROOT / "docs").rglob("*.md")), set()
    while pages > done:
        page = min(pages - done)
        pages |= lay_out(source, page)
        done.add(page)
    shutil.copytree(ROOT / "docs/images", source / "images")
    reference(source)
    contents(source)

    settings = doxyfile.read_text(encoding="utf-8")
    settings += f'\nOUTPUT_DIRECTORY = "{out / "comments"}"\nGENERATE_XML = YES\n'
    (out / "comments").mkdir(exist_ok=True)
    subprocess.run(["doxygen", "-"], input=settings, text=True, check=True)
    version = re.search(r"^PROJECT_NUMBER\s*=\s*(\S+)", settings, re.MULTILINE)[1]
    subprocess.run(["sphinx-build", "-q", "-W", "--keep-going", "-j", "auto", "-b", "html",
                    "-c", str(SITE), "-d", str(out / "doctrees"), str(source), str(out / "html")],
                   env={**os.environ, "VOSTEL_VERSION": version, "VOSTEL_XML": str(out / "comments/xml"),
                        "PYTHONDONTWRITEBYTECODE": "1"}, check=True)
    shutil.copytree(out / "comments/html", out / "html/headers", dirs_exist_ok=True)


if __name__ == "__main__":
    main()
