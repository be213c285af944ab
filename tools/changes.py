#!/usr/bin/python3
"""Reads the list of changes, and writes it as the rich text that the program shows:

    changes.py CHANGELOG.md OUTPUT.rtf
"""

import datetime
import pathlib
import re
import sys

HEAD = """{\\rtf1\\ansi\\ansicpg1252\\uc1\\deff0\\deflang1033
{\\fonttbl{\\f0\\fswiss Roboto;}}
{\\colortbl;\\red14\\green106\\blue128;}
\\pard\\sa160\\fs30\\b Marvello builds\\b0\\par
"""


def releases(file):
    """(version, date, changes) of each release, the newest first. A release is a heading such as
    "## 1.0.0 – 21 November 2026", its changes are the points of the list below."""
    found = []
    for number, line in enumerate(file.read_text("utf-8").splitlines(), 1):
        if line.startswith("## "):
            version, dash, day = line[3:].partition(" – ")
            try:
                date = datetime.datetime.strptime(day, "%d %B %Y").replace(tzinfo=datetime.timezone.utc)
            except ValueError:
                sys.exit(f'{file}:{number}: "{line}" is no heading such as "## 1.0.0 – 21 November 2026"')
            found.append((version, date, []))
        elif line.startswith("- "):
            if not found:
                sys.exit(f"{file}:{number}: a change stands above the first version")
            found[-1][2].append(line[2:])
        elif line.startswith("  ") and found and found[-1][2]:
            found[-1][2][-1] += " " + line.strip()
    if not found:
        sys.exit(f"{file}: there is no heading with a version and a date")
    return found


def rich(text):
    """The text with the signs of rich text escaped, and those beyond ASCII by their UTF-16 units."""
    text = re.sub(r"([\\{}])", r"\\\1", text)
    units = lambda sign: memoryview(sign.encode("utf-16-le")).cast("h").tolist()
    return "".join(sign if sign.isascii() else "".join(f"\\u{unit}?" for unit in units(sign)) for sign in text)


def rich_list(builds):
    lines = []
    for version, date, changes in builds:
        lines.append(rf"\pard\sb160\sa60\fs22\cf1\b {rich(version)}\b0\cf0\fs20\tab {date.day} {date:%B %Y}\par")
        lines += [rf"\pard\fi-200\li300\sa40\fs20\bullet\tab {rich(change)}\par" for change in changes]
    return HEAD + "\n".join(lines) + "\n}\n"


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    pathlib.Path(sys.argv[2]).write_text(rich_list(releases(pathlib.Path(sys.argv[1]))), "ascii")
