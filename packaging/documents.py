#!/usr/bin/python3
"""Writes what an installed program comes with and what can be derived from files of the tree:

    documents.py VERSION CONTACT OUTPUT_FOLDER

marvello.svg    the emblem of the windows, white on a tile of its own colour: it shows on bars of any colour
*.metainfo.xml  with the names of the menu entry and the releases of the list of changes
changelog.gz    the list of changes as the package's log
*.1.gz          the manual pages with the version

The list of changes (CHANGELOG.md) tells the releases; a VERSION that is not its newest one is an error.
"""

import configparser
import gzip
import pathlib
import re
import sys
import textwrap
from xml.sax.saxutils import escape

HERE = pathlib.Path(__file__).resolve().parent
TREE = HERE.parent
sys.path.insert(0, str(TREE / "tools"))
sys.dont_write_bytecode = True
from changes import releases  # noqa: E402, the module stands beside the other tools


def changelog(builds, contact):
    entries = []
    for version, date, changes in builds:
        lines = [textwrap.fill(change, 78, initial_indent="  * ", subsequent_indent="    ") for change in changes]
        entries.append(
            f"marvello ({version}) stable; urgency=medium\n\n" + "\n".join(lines)
            + f"\n\n -- {contact}  {date:%a, %d %b %Y %H:%M:%S %z}\n")
    return "\n".join(entries)


def xml_elements(tag, texts):
    """One element a language; the key of the tree's own language is None."""
    return [f"<{tag}>{escape(text)}</{tag}>" if language is None
            else f'<{tag} xml:lang="{language}">{escape(text)}</{tag}>'
            for language, text in texts.items()]


def translations(entry, key):
    pattern = re.compile(re.escape(key) + r"(?:\[(\w+)\])?$")
    return {match[1]: text for name, text in entry.items() if (match := pattern.match(name))}


def metainfo(template, entry, builds):
    names = (xml_elements("name", translations(entry, "Name"))
             + xml_elements("summary", translations(entry, "Comment")))
    history = []
    for version, date, changes in builds:
        history += [f'<release version="{version}" date="{date:%Y-%m-%d}">', "  <description>", "    <ul>"]
        history += [f"      <li>{escape(change)}</li>" for change in changes]
        history += ["    </ul>", "  </description>", "</release>"]
    return template.replace("@NAMES@", "\n  ".join(names)).replace("@RELEASES@", "\n    ".join(history))


def icon(emblem):
    """The emblem at 5/8 of its size in the middle of a tile."""
    outline = re.search(r' d="([^"]+)"', emblem)
    colour = re.search(r' fill="(#[0-9A-Fa-f]{6})"', emblem)
    if not outline or not colour or 'viewBox="0 0 16 16"' not in emblem:
        sys.exit("emblem.svg: expected one path in one colour on 16 by 16")
    return ('<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 16 16" width="256" height="256">\n'
            f'<rect x=".5" y=".5" width="15" height="15" rx="3" fill="{colour[1]}"/>\n'
            f'<path transform="translate(3 3) scale(.625)" fill="#FFFFFF" d="{outline[1]}"/>\n</svg>\n')


def compressed(text):
    return gzip.compress(text.encode(), compresslevel=9, mtime=0)


def main(version, contact, folder):
    folder = pathlib.Path(folder)
    folder.mkdir(parents=True, exist_ok=True)
    file = TREE / "CHANGELOG.md"
    builds = releases(file)
    newest, date, _ = builds[0]
    if newest != version:
        sys.exit(f"{file}: the newest version is {newest}, but the version of the project in CMakeLists.txt is {version}")
    entry = configparser.RawConfigParser(delimiters="=")
    entry.optionxform = str
    entry.read(HERE / "marvello.desktop", "utf-8")
    template = (HERE / "marvello.metainfo.xml.in").read_text("utf-8")

    (folder / "marvello.svg").write_text(icon((TREE / "controls" / "icons" / "emblem.svg").read_text("utf-8")))
    (folder / "example.kestrom.marvello.metainfo.xml").write_text(
        metainfo(template, entry["Desktop Entry"], builds), "utf-8")
    (folder / "changelog.gz").write_bytes(compressed(changelog(builds, contact)))
    for page in (HERE / "man").glob("*.1.in"):
        text = page.read_text("utf-8").replace("@VERSION@", version).replace("@DATE@", f"{date:%Y-%m-%d}")
        (folder / (page.name.removesuffix(".in") + ".gz")).write_bytes(compressed(text))


if __name__ == "__main__":
    if len(sys.argv) != 4:
        sys.exit(__doc__)
    main(*sys.argv[1:])
