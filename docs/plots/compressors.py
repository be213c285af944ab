#!/usr/bin/python3
"""Draws compressors of the demonstration catalogue from its tables: envelope, capacity, power, COP and discharge
temperature of one model of a series with a refrigerant.

    docs/plots/compressors.py                     the pictures of docs/catalogue.md
    docs/plots/compressors.py FOLDER              one model of each series with its first and its last refrigerant
    docs/plots/compressors.py FOLDER SERIE REFRIGERANT [MODEL]

Needed by who remakes the pictures only: python3-matplotlib. Building and testing do without it.
"""

import pathlib
import re
import sys

import numpy as np
from matplotlib.path import Path
from PIL import Image

from look import INK, PICTURES, ROOT, plt, rows_of_file, set_look

SHOWN = [("TK-A", "R134A", "220"), ("GH", "R404A", "230H"), ("TK-D", "R1234ZE", "220")]

# Types of the lines of an envelope: name, colour, pen.
LINES = {
    -1: ("over", "#c0392b", (0, (5, 3))),
    0: ("application", "#222222", "-"),
    1: ("injection", "#e08a1e", "-"),
    2: ("oil cooling", "#2f78c4", "-"),
    3: ("small motor", "#b03ab0", "-"),
    4: ("25 %", "#7f7f7f", ":"),
    5: ("50 %", "#7f7f7f", "-."),
    6: ("75 %", "#7f7f7f", "--"),
    7: ("oil filter", "#2f9e44", "-"),
    8: ("H only", "#b8a000", "-."),
    9: ("H suggested", "#5fae2e", "-."),
    10: ("S suggested", "#3050c0", "-."),
    11: ("forbidden", "#e00000", "-"),
    12: ("50 Hz", "#6b4a1b", "-"),
    13: ("60 Hz", "#9a6a26", "--"),
    14: ("70 Hz", "#c99743", ":"),
}

set_look(9, 10, 110)


def table(name):
    return rows_of_file(ROOT / "content" / f"{name}.csv")


COMPRESSORS = table("tCompressors")
SURFACES = {(r["fPolynomialID"], int(r["fType"]), float(r["fField"])): [float(r[f"fC{i}"]) for i in range(1, 11)]
            for r in table("tPolynomials")}
LIMITS = {}
for r in table("tLimits"):
    LIMITS.setdefault(r["fLimitID"], []).append(
        (int(r["fType"]), np.array([[float(v) for v in p.split(",")] for p in r["fPoints"].split(";")])))


def cubic(c, x, y):
    return (c[0] + c[1]*x + c[2]*y + c[3]*x*x + c[4]*x*y + c[5]*y*y + c[6]*x**3 + c[7]*y*x*x + c[8]*x*y*y
            + c[9]*y**3)


def discharge(c, x, y):
    return (c[0] + c[1]*x + c[2]*x*x + c[3]*y + c[4]*y*y + c[5]*x*y + c[6]*x*x*y + c[7]*x*y*y
            + c[8]*x*x*y*y)


def rows_of(compressor, kind):
    name = compressor["fPolynomialQ0ID"]
    return sorted(field for (poly, type_, field) in SURFACES if poly == name and type_ == kind)


def surfaces_of(compressor, x, y):
    """Capacity and power at full load; of several volume ratios the best, of several speeds the first."""
    name = compressor["fPolynomialQ0ID"]
    fields = rows_of(compressor, 0)
    if 100 in fields:
        fields = [100]
    elif compressor["fSerieID"] == "NL-H":
        fields = fields[:1]
    capacity = np.array([cubic(SURFACES[name, 0, f], x, y) for f in fields])
    power = np.array([cubic(SURFACES[name, 1, f], x, y) for f in fields])
    best = np.argmax(capacity / power, axis=0)
    return (np.take_along_axis(capacity, best[None], 0)[0], np.take_along_axis(power, best[None], 0)[0])


def draw(compressor, file):
    lines = LIMITS[compressor["fLimitID"]]
    application = next(points for kind, points in lines if kind == 0)
    over = next(points for kind, points in lines if kind == -1)
    x, y = np.meshgrid(np.arange(over[:, 0].min(), over[:, 0].max() + 0.1, 0.25),
                       np.arange(over[:, 1].min(), over[:, 1].max() + 0.1, 0.25))
    inside = Path(application).contains_points(np.c_[x.ravel(), y.ravel()], radius=1e-6).reshape(x.shape)
    capacity, power = surfaces_of(compressor, x, y)
    heat = discharge(SURFACES[compressor["fPolynomialShID"], 3, 10.0], x, y)
    fields = [("Cooling capacity, kW", capacity), ("Absorbed power, kW", power), ("COP", capacity / power),
              ("Discharge temperature, °C", heat)]

    economized = compressor["fLimitEconomizedID"] not in ("", compressor["fLimitID"])
    figure, axes = plt.subplots(2, 3, figsize=(12, 7.4), constrained_layout=True)
    title = " ".join(compressor[c] for c in ("fSerieID", "fModelID")) + " with " + compressor["fRefrigerantID"]
    figure.suptitle(title, x=0.01, ha="left", fontweight="bold")
    envelope(axes[0, 0], lines, "Envelope")
    if economized:
        envelope(axes[1, 0], LIMITS[compressor["fLimitEconomizedID"]], "Envelope with economizer")
    else:
        axes[1, 0].axis("off")
    for axis, (name, values) in zip((axes[0, 1], axes[0, 2], axes[1, 1], axes[1, 2]), fields):
        shown = np.where(inside, values, np.nan)
        axis.contourf(x, y, shown, levels=12, cmap="YlGnBu", alpha=0.75)
        marks = axis.contour(x, y, shown, levels=12, colors=INK, linewidths=0.6)
        axis.clabel(marks, fontsize=7)
        axis.plot(application[:, 0], application[:, 1], color=INK, lw=1.2)
        axis.set_title(name + f"  ({np.nanmin(shown):.3g} to {np.nanmax(shown):.3g})")
    for axis in axes.flat:
        axis.set_xlabel("evaporating, °C dew")
        axis.set_ylabel("condensing, °C dew")
    figure.savefig(file)
    plt.close(figure)
    Image.open(file).quantize(128, dither=Image.Dither.NONE).save(file, optimize=True)
    print(file)


def envelope(axis, lines, title):
    for kind, points in lines:
        name, colour, pen = LINES[kind]
        axis.plot(points[:, 0], points[:, 1], color=colour, ls=pen, lw=2 if kind == 0 else 1.2, label=name)
    axis.set_title(title)
    left, right = axis.get_xlim()
    axis.set_xlim(left, right + 0.42 * (right - left))  # the legend stands beside the lines
    axis.legend(fontsize=7, loc="lower right")


def find(serie, refrigerant, model=None):
    found = [c for c in COMPRESSORS if c["fSerieID"] == serie and c["fRefrigerantID"] == refrigerant
             and model in (None, c["fModelID"])]
    if not found:
        sys.exit(f"The catalogue has no {serie} {model or ''} with {refrigerant}.")
    return found[len(found) // 2]


def file_name(compressor):
    text = "-".join(compressor[c] for c in ("fSerieID", "fRefrigerantID")).lower()
    return "compressor-" + re.sub("[^a-z0-9]+", "-", text).strip("-") + ".png"


def main(arguments):
    if not arguments:
        for serie, refrigerant, model in SHOWN:
            compressor = find(serie, refrigerant, model)
            draw(compressor, PICTURES / file_name(compressor))
        return
    folder = pathlib.Path(arguments[0])
    folder.mkdir(parents=True, exist_ok=True)
    if len(arguments) > 2:
        compressors = [find(*arguments[1:])]
    else:
        of_series = {}
        for c in COMPRESSORS:
            of_series.setdefault(c["fSerieID"], {})[c["fRefrigerantID"]] = True
        compressors = [find(serie, refrigerant) for serie, refrigerants in of_series.items()
                       for refrigerant in dict.fromkeys([list(refrigerants)[0], list(refrigerants)[-1]])]
    for compressor in compressors:
        draw(compressor, folder / file_name(compressor))


main(sys.argv[1:])
