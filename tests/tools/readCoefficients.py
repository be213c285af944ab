#!/usr/bin/env python3
"""Reads exported coefficients back with an evaluation of its own, and runs the scripts of docs/exports.md.

Usage: readCoefficients.py MARVELLO-SELECT SOURCE-FOLDER
"""

import ast
import contextlib
import csv
import io
import json
import os
import random
import re
import subprocess
import sys
import tempfile

SELECT, SOURCE = map(os.path.abspath, sys.argv[1:3])
QUANTITIES = ["capacity", "power", "current", "massFlow"]
SI = {"capacity": 1000, "power": 1000, "current": 1, "massFlow": 1}
# 1 Btu of the International Table = 1055.05585262 J, 1 lb = 0.45359237 kg
IP = {"capacity": 3600000 / 1055.05585262, "power": 1000, "current": 1, "massFlow": 1 / 0.45359237}
failures = []


def expect(holds, sentence):
    if not holds:
        failures.append(sentence)


def near(value, expected, tolerance):
    return abs(value - expected) <= tolerance


def run(arguments):
    done = subprocess.run([SELECT, "rating"] + arguments, capture_output=True, text=True)
    if done.returncode != 0:
        raise SystemExit(f"{arguments}: {done.stderr}")
    return done.stdout


def polynomial(c, s, d):
    """The terms in the order of AHRI 540, by their powers."""
    powers = [(0, 0), (1, 0), (0, 1), (2, 0), (1, 1), (0, 2), (3, 0), (2, 1), (1, 2), (0, 3)]
    return sum(k * s**i * d**j for k, (i, j) in zip(c, powers))


def coefficients(model, *more):
    return json.loads(run(model + ["--format", "json", "--coefficients"] + list(more)))


def calculated(model, conditions, teds, tcds):
    """Points of a table, which are plain selections."""
    text = run(model + conditions + ["--format", "csv", "--ted", ";".join(map(str, teds)), "--tcd", ";".join(map(str, tcds))])
    rows = csv.DictReader(io.StringIO(text))
    return [{k: v if k == "state" else float(v) for k, v in row.items() if v} for row in rows if row["state"] in ("ok", "warning")]


def inside(limit, s, d):
    """Whether a point is inside a closed line, by the ray to its right."""
    crossings = 0
    for (x1, y1), (x2, y2) in zip(limit, limit[1:] + limit[:1]):
        if (y1 > d) != (y2 > d) and s < x1 + (d - y1) / (y2 - y1) * (x2 - x1):
            crossings += 1
    return crossings % 2 == 1


def check_errors(model, rated, conditions, name):
    """Against the calculation at random points; the errors are those of a grid, so a little more is left."""
    (s0, s1), (d0, d1) = rated["range"]["ted"], rated["range"]["tcd"]
    teds = sorted(round(random.uniform(s0, s1), 3) for _ in range(12))
    tcds = sorted(round(random.uniform(d0, d1), 3) for _ in range(12))
    points = [p for p in calculated(model, conditions, teds, tcds) if inside(rated["limit"], p["ted"], p["tcd"])]
    expect(len(points) > 20, f"{name}: {len(points)} points")
    for point in points:
        for quantity in QUANTITIES:
            c = rated["coefficients"][quantity]
            if c is None:
                expect(point.get(quantity, 0) == 0, f"{name}: no {quantity}")
                continue
            error = rated["fit"][quantity]["max"] * 1.05 + 1e-6
            expect(near(polynomial(c, point["ted"], point["tcd"]), point[quantity] * SI[quantity], error),
                   f"{name}: {quantity} at {point['ted']}/{point['tcd']}")
    for point in rated["check"]:
        for quantity in QUANTITIES:
            if rated["coefficients"][quantity]:
                expect(near(polynomial(rated["coefficients"][quantity], point["ted"], point["tcd"]), point[quantity],
                            rated["fit"][quantity]["max"] * (1 + 1e-9) + 1e-6), f"{name}: check of {quantity}")


def check_ip(model, rated, name):
    ip = coefficients(model, "ahri540", "--units", "ip")
    for s, d in [(-10, 35), (0, 40), (5, 50)]:
        for quantity in QUANTITIES:
            if rated["coefficients"][quantity] is None:
                continue
            metric = polynomial(rated["coefficients"][quantity], s, d) / SI[quantity]
            value = polynomial(ip["coefficients"][quantity], s * 1.8 + 32, d * 1.8 + 32) / IP[quantity]
            expect(near(value, metric, 1e-9 * abs(metric)), f"{name}: {quantity} in IP")
    expect(ip["conditions"]["superheat"] == 18 and ip["conditions"]["subcooling"] == 9, f"{name}: conditions in IP")


def check_unchanged(rated, surface, name):
    """Against the text tables of the catalogue."""
    with open(f"{SOURCE}/content/tPolynomials.csv", encoding="utf-8") as file:
        rows = {row["fType"]: row for row in csv.DictReader(file) if row["fPolynomialID"] == surface and float(row["fField"]) == 100}
    for quantity, kind in [("capacity", "0"), ("power", "1")]:
        for i, c in enumerate(rated["coefficients"][quantity]):
            stored = float(rows[kind][f"fC{i + 1}"]) * 1000
            expect(near(c, stored, 1e-14 * abs(stored)), f"{name}: c{i + 1} of {quantity}")
        expect(rated["fit"][quantity]["source"] == "catalogue", f"{name}: {quantity} is of the catalogue")


def run_documented_scripts(model):
    """Each script of the page next to its file, against the calculation at -10/45."""
    text = open(f"{SOURCE}/docs/exports.md", encoding="utf-8").read()
    commands = re.findall(r"^    marvello-select rating (--.*--coefficients.*) > (\S+)$", text, re.M)
    scripts = re.findall(r"```python\n(.*?)```", text, re.S)
    expect(len(commands) == len(scripts) == 3, "the page has three files and their scripts")
    subcooling = {"coefficients.csv": "0", "coefficients.json": "5", "compressor.idf": "5"}
    for (arguments, file), script in zip(commands, scripts):
        with open(file, "w", encoding="utf-8") as out:
            out.write(run(arguments.split()))
        printed = io.StringIO()
        with contextlib.redirect_stdout(printed):
            exec(compile(script, file, "exec"), {})
        point, = calculated(model, ["--sc", subcooling[file]], [-10], [45])
        for quantity, value in ast.literal_eval(printed.getvalue()).items():
            factor = IP if file.endswith("json") else SI
            expected = point[quantity] * factor[quantity]
            expect(near(value, expected, 1e-3 * expected), f"{file}: {quantity} {value}, {expected}")


random.seed(21)
tk = ["--refrigerant", "R134A", "--series", "TK-A", "--models", "220"]
MODELS = {
    "standard": tk,
    "60 Hz": tk + ["--hz", "60", "--voltage", "460"],
    "half capacity": tk + ["--step", "50"],
    "inverter": ["--refrigerant", "R134A", "--series", "TK-D", "--models", "140", "--frequency", "37.5"],
    "open": ["--refrigerant", "R134A", "--series", "NL-H", "--models", "*"],
    "blend": ["--refrigerant", "R404A", "--series", "MV-A", "--models", "*"],
}
first = {}
for name, model in MODELS.items():
    if model[-1] == "*":  # the first one of the series
        listing = subprocess.run([SELECT, "--list"], capture_output=True, text=True, check=True).stdout
        line = next(l for l in listing.splitlines() if l.startswith(f"{model[1]}  {model[3]}  "))
        model = model[:-1] + [line.split("  ")[2].split(";")[0]]
    own = coefficients(model, "ahri540")
    check_errors(model, own, ["--sh", "10", "--sc", "5"], name)
    check_ip(model, own, name)
    check_errors(model, coefficients(model, "en12900"), ["--sc", "0"], name + " EN 12900")
    form = ["--sh", "15", "--sh-type", "1", "--sc", "3"]
    check_errors(model, coefficients(model + form, "ahri540", "--rating", "form"), form, name + " at 15 C suction gas")
    first[name] = own
check_unchanged(first["standard"], "TK-A-R134A-220", "standard")
expect(first["open"]["coefficients"]["current"] is None, "an open compressor has no current")
expect(first["half capacity"]["conditions"]["step"] == 50, "the step is named")
expect(first["inverter"]["conditions"]["frequency"] == 37.5, "the frequency is named")
with tempfile.TemporaryDirectory() as folder:
    os.chdir(folder)
    run_documented_scripts(tk)
    os.chdir(SOURCE)
for failure in failures[:20]:
    print(failure)
sys.exit(f"{len(failures)} failures" if failures else 0)
