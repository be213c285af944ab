#!/usr/bin/env python3
"""Writes the text tables of a catalogue as a Jet database: jetContent.py FOLDER OUTPUT.mdb [3|4 [CODE PAGE]].

The columns have the types that a catalogue in such a database has.
"""
import csv
import json
import pathlib
import sys
import tempfile

import writeJet

WORDS = {"fhasInverter": "bool", "fhasFullSmallMotor": "bool", "fisSmallMotorStandard": "bool", "fMarket": "byte",
         "fCtsca": "single", "fhz": "int", "fPhase": "int", "fStartMode": "int", "fMotorID": "long",
         "fMotorFullID": "long", "fMotorSmallID": "long", "fParametersRowsID": "long", "fPoints": "memo",
         "fText": "memo", "fhelp": "memo", "fObjectPropertyValue": "memo", "fCitation": "memo"}
TEXTS = {"fModelID", "fVI", "fSequence", "FNominalPower", "fSafetyClass"}
LANGUAGES = {"tDictionary": "fLanguageID", "thelp": "flanguage"}


def type_of(table, column, values):
    if column == "fType":  # a number of surfaces and limits, a word of parameter sets
        return "text" if table == "tParametersHead" else "long"
    if column in WORDS:
        return WORDS[column]
    return "text" if column in TEXTS or not all(map(is_number, filter(None, values))) else "double"


def is_number(text):
    try:
        float(text)
    except ValueError:
        return False
    return True


def value_of(text, kind):
    if kind == "bool":
        return text == "True"
    if not text:
        return None
    if kind in ("text", "memo"):
        return text
    return float(text) if kind in ("single", "double") else int(text)


def read_tables(folder):
    tables = {}
    for file in sorted(folder.iterdir()):
        parts = file.name.split(".")
        if file.suffix == ".rtf":
            rows = [["flanguage", "ffield", "fhelp"],
                    [parts[1], parts[2], file.read_bytes().decode("utf-8")]]
        elif file.suffix == ".csv":
            with open(file, encoding="utf-8", newline="") as stream:
                rows = [row for row in csv.reader(stream) if row]
            if parts[0] in LANGUAGES:
                rows = [[LANGUAGES[parts[0]]] + rows[0]] + [[parts[1]] + row for row in rows[1:]]
        else:
            continue
        table = tables.setdefault(parts[0], (rows[0], []))
        places = [rows[0].index(column) for column in table[0]]
        table[1].extend([row[place] for place in places] for row in rows[1:])
    return tables


def main(folder, output, *version):
    csv.field_size_limit(1 << 30)
    tables = []
    for name, (columns, rows) in read_tables(pathlib.Path(folder)).items():
        kinds = [type_of(name, column, [row[i] for row in rows]) for i, column in enumerate(columns)]
        tables.append({"name": name, "columns": [list(pair) for pair in zip(columns, kinds)],
                       "rows": [[value_of(text, kind) for text, kind in zip(row, kinds)] for row in rows]})
    with tempfile.NamedTemporaryFile("w", suffix=".json", encoding="utf-8") as file:
        json.dump(tables, file)
        file.flush()
        writeJet.main(file.name, output, *version)


if __name__ == "__main__":
    main(*sys.argv[1:])
