"""The manual pages tell the options that the programs have, and no others: manuals.py APP_FOLDER MAN_FOLDER"""

import pathlib
import re
import subprocess
import sys

OPTION = re.compile(r"(?<![\w-])--[a-z][a-z-]*")


def options_of(program):
    """The options that the help of a program and of its commands names."""
    def help_of(*command):
        return subprocess.run([program, *command, "--help"], capture_output=True, text=True, check=True).stdout

    general = help_of()
    commands = re.findall(r"^  (\w+) ", general.partition("\nSubcommands:\n")[2], re.MULTILINE)
    return {option for text in (general, *map(help_of, commands)) for option in OPTION.findall(text)}, commands


def main(app, manuals):
    faults = []
    for name in ("marvello-select", "marvello-catalogue", "marvello-fluids"):
        options, commands = options_of(app / name)
        assert len(options) >= 5, f"{name} --help names {options}"
        page = (manuals / f"{name}.1.in").read_text("utf-8").replace("\\-", "-")
        headings = {option for entry in re.findall(r"^\.TP\n(.+)", page, re.MULTILINE) for option in OPTION.findall(entry)}
        faults += [f"{name}: {option} is not in the manual page" for option in options - headings]
        faults += [f"{name}: the manual page tells of {option}, which --help does not" for option in headings - options]
        faults += [f"{name}: the command {command} is not in the manual page"
                   for command in commands if f".TP\n.B {command}\n" not in page]
    sys.exit("\n".join(sorted(faults)) or 0)


main(*map(pathlib.Path, sys.argv[1:]))
