#!/usr/bin/env python3
"""links.py HTML: every link of a site to a file of its own, or to a place in one, leads there.

Doxygen's pages are looked at for files only: it names places that it leaves out.
"""

import html.parser
import pathlib
import sys
import urllib.parse


class Page(html.parser.HTMLParser):
    """The links of a page and the places that links can name."""

    def __init__(self, text):
        super().__init__()
        self.links, self.places = [], set()
        self.feed(text)

    def handle_starttag(self, tag, attributes):
        for name, value in attributes:
            if name in ("id", "name") and value:
                self.places.add(value)
            elif name in ("href", "src") and value and tag != "base":
                self.links.append((self.getpos()[0], value))


def problems(site):
    pages = {path: Page(path.read_text(encoding="utf-8")) for path in sorted(site.rglob("*.html"))}
    if not pages:
        return [f"{site}: no pages"]
    found = []
    for path, page in pages.items():
        for line, link in page.links:
            parts = urllib.parse.urlsplit(link)
            if parts.scheme or parts.netloc:
                continue
            target = path
            if parts.path:
                target = (path.parent / urllib.parse.unquote(parts.path)).resolve()
            if not target.exists():
                found.append(f"{path.relative_to(site)}:{line}: no file {link}")
            elif parts.fragment and target in pages and "headers" not in target.relative_to(site).parts:
                if urllib.parse.unquote(parts.fragment) not in pages[target].places:
                    found.append(f"{path.relative_to(site)}:{line}: no place {link}")
    return found


def main():
    found = problems(pathlib.Path(sys.argv[1]).resolve())
    print("\n".join(found) if found else "all links lead somewhere")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
