#!/usr/bin/env python3
"""papers.py [ROOT]: what the Markdown files of the tree point at exists.

That is each relative link with its heading, each path and file name in code, and in the pages of
NAMES_CHECKED each C++ name in code. Prints file and line of each that does not.
"""

import pathlib
import re
import sys

NOT_OURS = {"build", "out", "demo-output"}
NAMES_CHECKED = {"docs/architecture.md", "SECURITY.md"}
SOURCES = re.compile(r"\.(h|hpp|c|cpp|cmake|md|py|txt|sh)$")
PATH = re.compile(r"^[\w.+*{},/-]+$")
NAME = re.compile(r"^~?[A-Za-z_]\w*(::~?\w+)*(\(\))?$")
CODE = re.compile(r"`([^`]+)`")
LINK = re.compile(r"\]\(([^)\s]+)")
REFERENCE = re.compile(r"^\[[^\]]+\]:\s+(\S+)")
WRITTEN = re.compile(r"^`([\w.]+)`[:：]$", re.MULTILINE)    # files that a page has its reader write
SCHEME = re.compile(r"^[a-z][a-z0-9+.-]*:")


def walk(folder):
    """All files and folders of the tree but hidden and made ones."""
    for path in sorted(folder.iterdir()):
        if path.name.startswith(".") and path.name not in (".ci", ".clang-format", ".editorconfig"):
            continue
        yield path
        if path.is_dir() and not path.is_symlink():
            yield from walk(path)


def tree_of(root):
    paths = (path.relative_to(root) for path in walk(root))
    return [path for path in paths if path.parts[0] not in NOT_OURS]


def anchors(text):
    """The headings of a page as links name them."""
    found, fenced = set(), False
    for line in text.splitlines():
        fenced ^= line.startswith("```")
        if not fenced and line.startswith("#"):
            words = re.sub(r"[^\w\- ]", "", line.lstrip("#").strip().lower())
            found.add(words.replace(" ", "-"))
    return found


def expanded(token):
    """A token without braces: a.{h,cpp} gives two."""
    match = re.search(r"\{([^{}]*)\}", token)
    if not match:
        return [token]
    return [part for choice in match.group(1).split(",")
            for part in expanded(token[:match.start()] + choice + token[match.end():])]


class Tree:
    def __init__(self, root):
        self.root = root
        self.paths = tree_of(root)
        self.folders = {path.parts[0] for path in self.paths if len(path.parts) > 1}
        self.all_names = "\n".join("/" + path.as_posix() for path in self.paths) + "\n"
        self.words = set()
        for path in self.paths:
            if path.parts[0] in ("src", "include") and path.suffix in (".h", ".cpp"):
                self.words.update(re.findall(r"\w+", (root / path).read_text(encoding="utf-8")))

    def has(self, token):
        """A path from the top if its first folder stands there, else the end of any path."""
        pattern = re.escape(token.rstrip("/")).replace(r"\*", "[^/\n]*")
        start = "^/" if token.split("/")[0] in self.folders else "/"
        return re.search(start + pattern + "$", self.all_names, re.MULTILINE) is not None

    def link_problem(self, page, target):
        if SCHEME.match(target):
            return None
        path, _, anchor = target.partition("#")
        file = (self.root / page).parent / path if path else self.root / page
        if not file.exists():
            return f"no file {target}"
        if anchor and file.suffix == ".md" and anchor not in anchors(file.read_text(encoding="utf-8")):
            return f"no heading {target}"
        return None

    def path_problem(self, token, fenced):
        from_here = token.startswith("./")
        token = token[2:] if from_here else token
        top = token.split("/")[0]
        if not PATH.match(token) or token.startswith(("/", "-", ".")) or top in NOT_OURS:
            return None
        if not from_here and top not in self.folders and (
                fenced or not ("/" in token or SOURCES.search(token))):
            return None
        missing = [part for part in expanded(token)
                   if not ((self.root / part).exists() if from_here else self.has(part))]
        return f"no path {missing[0]}" if missing else None

    def name_problem(self, token):
        if not NAME.match(token) or not re.search(r"[A-Z]|::", token):
            return None
        missing = [word for word in re.findall(r"\w+", token) if word not in self.words | {"std"}]
        return f"no name {token} in src or include" if missing else None

    def page_problems(self, page):
        fenced = False
        lines = (self.root / page).read_text(encoding="utf-8").splitlines()
        written = set(WRITTEN.findall("\n".join(lines)))
        written |= {"./" + name.partition(".")[0] for name in written}    # programs of these sources
        for number, line in enumerate(lines, 1):
            if line.startswith("```"):
                fenced = not fenced
                continue
            code = [line] if fenced or line.startswith("    ") else CODE.findall(line)
            tokens = [token.strip(",;:()\"'") for span in code for token in span.split()]
            tokens = [token for token in tokens if token not in written]
            found = [self.path_problem(token, code == [line]) for token in tokens]
            if code != [line]:
                text = CODE.sub("", line)
                targets = LINK.findall(text) + REFERENCE.findall(text)
                found += [self.link_problem(page, target) for target in targets]
                if page.as_posix() in NAMES_CHECKED:
                    found += [self.name_problem(span) for span in code]
            yield from (f"{page}:{number}: {problem}" for problem in found if problem)


def problems(root):
    tree = Tree(root)
    pages = [path for path in tree.paths if path.suffix == ".md"]
    if not pages:
        return [f"{root}: no pages"]
    return [problem for page in pages for problem in tree.page_problems(page)]


def main():
    here = pathlib.Path(__file__).resolve()
    found = problems(pathlib.Path(sys.argv[1]) if len(sys.argv) > 1 else here.parents[2])
    print("\n".join(found) if found else "all links, paths and names exist")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
