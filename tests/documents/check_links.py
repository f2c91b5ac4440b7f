#!/usr/bin/env python3
"""Checks that what the pages of a folder point to is there: check_links.py FOLDER

Looks at README.md and its kin in the folder and at docs/: relative links with their headings, places in
docs/ and examples/ that a page names, and C++ that it shows, which is a quotation of an example.
The folder is the source tree or an installed share/doc/tessara."""
import re
import sys
from pathlib import Path

LINK = re.compile(r"\]\(([^()\s]+)\)")
NAMED_PLACE = re.compile(r"`((?:docs|examples)/[\w./-]+)`")
QUOTATION = re.compile(r"^```cpp\n(.*?)^```$", re.MULTILINE | re.DOTALL)
HEADING = re.compile(r"^#+ +(.+?) *$", re.MULTILINE)


def anchors(page):
    """The names by which the headings of a page can be linked to."""
    return {
        re.sub(r"[^\w -]", "", heading).strip().lower().replace(" ", "-")
        for heading in HEADING.findall(page.read_text(encoding="utf-8"))
    }


def is_there(page, link):
    path, _, anchor = link.partition("#")
    target = page.parent / path if path else page
    return target.exists() and (not anchor or anchor in anchors(target))


def faults(folder):
    """What is missing, a line for each."""
    examples = [path.read_text(encoding="utf-8") for path in sorted(folder.glob("examples/**/*.cpp"))]
    pages = sorted(folder.glob("*.md")) + sorted(folder.glob("docs/*.md"))
    if folder / "README.md" not in pages:
        yield f"{folder}: no README.md"
    for page in pages:
        text = page.read_text(encoding="utf-8")
        for link in LINK.findall(text):
            if not re.match(r"[a-z]+:", link) and not is_there(page, link):
                yield f"{page}: nothing at {link}"
        for place in NAMED_PLACE.findall(text):
            if not (folder / place).exists():
                yield f"{page}: names {place}, which is not there"
        for quotation in QUOTATION.findall(text):
            if not any(quotation in example for example in examples):
                yield f"{page}: no example has {quotation.splitlines()[0].strip()} and what follows"


def main():
    found = list(faults(Path(sys.argv[1])))
    print("\n".join(found), file=sys.stderr)
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
