#!/usr/bin/python3
"""Draws the pictures of docs/fluids.md from the figures of marvello-fluids.

    docs/plots/fluids.py [build/app/marvello-fluids]

Needed by who remakes the pictures only: python3-matplotlib. Building and testing do without it.
"""

import pathlib
import subprocess
import sys
import tempfile

from look import PICTURES, ROOT, plt, rows_of_file, set_look

DATA = ROOT / "tests/fluids/data"

PURE, BLEND = "#1f6f8b", "#c8702a"
FLOOR = 1e-17  # where no deviation at all is drawn, which has no logarithm

set_look(10, 10.5, 150)


def run(tool, *arguments):
    """The rows that a command of the tool writes as CSV."""
    with tempfile.TemporaryDirectory() as folder:
        file = pathlib.Path(folder) / "rows.csv"
        subprocess.run([tool, *arguments, "--csv", file], check=True, stdout=subprocess.DEVNULL)
        return rows_of_file(file)


def blends():
    with open(DATA / "blends.csv", encoding="utf-8") as stream:
        names = [line.split(",")[0] for line in stream if not line.startswith("#")]
    return {name for name in names if names.count(name) > 1}


def scatter(axes, rows, x, title, unit):
    """Sizes of deviations, pure fluids and blends apart."""
    mixed = blends()
    for label, colour, marker, wanted in (("13 pure fluids", PURE, "o", False), ("13 blends", BLEND, "^", True)):
        own = [row for row in rows if (row["refrigerant"] in mixed) == wanted]
        axes.plot([float(row[x]) for row in own], [max(abs(float(row["deviation"])), FLOOR) for row in own],
                  marker, color=colour, markersize=3.2, markeredgewidth=0, alpha=0.65, label=label)
    axes.set_yscale("log")
    top = -8 if unit == "K" else -10
    axes.set_ylim(FLOOR / 3, 10**top)
    powers = range(-16, top + 1, 2)
    axes.set_yticks([FLOOR, *(10.0**power for power in powers)], ["none", *(f"$10^{{{power}}}$" for power in powers)])
    axes.minorticks_off()
    axes.set_title(title)
    axes.set_ylabel("size of the deviation" + (f", {unit}" if unit else ""))
    axes.set_xlabel({"T_reduced": "T / critical temperature", "reference": "quality, moles of vapour"}[x])


def pair(name, left, right):
    """Two plots side by side with one legend."""
    figure, axes = plt.subplots(1, 2, figsize=(9.6, 3.9), constrained_layout=True)
    for place, (rows, x, title, unit) in zip(axes, (left, right)):
        scatter(place, rows, x, title, unit)
    axes[1].legend(loc="upper right", ncols=2, markerscale=1.6, handletextpad=0.2, columnspacing=1.2)
    figure.savefig(PICTURES / name)
    plt.close(figure)


def accuracy(tool):
    rows = run(tool, "accuracy", "--data", DATA)

    def of(*names, two_phases=None):
        return [row for row in rows
                if row["name"] in names and (two_phases is None or (row["two_phases"] == "1") == two_phases)]

    def one_phase(name):
        return [row for row in of(name) if row["quantity"] in ("rho", "h,s")]

    pair("fluids-saturation.png",
         (of("bubble pressure", "dew pressure"), "T_reduced", "Bubble and dew pressure, relative", ""),
         (of("bubble liquid density", "dew vapour density"), "T_reduced",
          "Saturated liquid and vapour density, relative", ""))
    pair("fluids-single-phase.png",
         (one_phase("density"), "T_reduced", "Density in one phase, relative", ""),
         (one_phase("enthalpy"), "T_reduced", "Enthalpy in one phase / enthalpy of evaporation", ""))
    # The quality of a two-phase state stands in the row behind its temperature.
    inside = of("T(p,h)", two_phases=True)
    qualities = of("quality(p,h)")
    assert len(inside) == len(qualities)
    for row, quality in zip(inside, qualities):
        row["reference"] = quality["reference"]
    pair("fluids-flash.png",
         (of("T(p,h)", two_phases=False), "T_reduced", "T from p and h in one phase", "K"),
         (inside, "reference", "T from p and h in two phases", "K"))


def diagram(tool):
    """Pressure over enthalpy of R407C."""
    name = ("R407C", "--data", DATA)
    dome = run(tool, "table", *name, "--from", "-60", "--to", "86.1", "--step", "0.1")
    lines = run(tool, "isotherms", *name, "--from", "-40", "--to", "120", "--step", "20")
    figure, axes = plt.subplots(figsize=(8.4, 5.4), constrained_layout=True)
    for temperature in sorted({float(row["T"]) for row in lines}):
        own = [row for row in lines if float(row["T"]) == temperature]
        h = [float(row["h"]) for row in own]
        p = [float(row["p"]) for row in own]
        axes.plot(h, p, color=PURE, linewidth=1.0, zorder=2)
        inside = [i for i, row in enumerate(own) if 0 < float(row["quality"]) < 1]
        place = inside[int(0.45 * len(inside))] if inside else min(range(len(p)), key=lambda i: abs(p[i] - 36))
        label = f"{temperature:.0f} °C".replace("-", "\N{MINUS SIGN}")
        axes.annotate(label, (h[place], p[place]), ha="center", va="center", fontsize=8.5,
                      color=PURE, bbox={"boxstyle": "square,pad=0.12", "fc": "white", "ec": "none"}, zorder=3)
    liquid = [(float(row["h_liquid"]), float(row["p_bubble"])) for row in dome]
    vapour = [(float(row["h_vapour"]), float(row["p_dew"])) for row in dome]
    edge = liquid + vapour[::-1]
    axes.fill([h for h, _ in edge], [p for _, p in edge], color="#f4ede3", zorder=0)
    axes.plot([h for h, _ in edge], [p for _, p in edge], color=BLEND, linewidth=1.8, zorder=4)
    axes.annotate("bubble line", (211, 9.0), rotation=56, color=BLEND, ha="center", fontsize=9)
    axes.annotate("dew line", (388, 1.22), rotation=74, color=BLEND, ha="center", fontsize=9)
    axes.set_yscale("log")
    axes.set_ylim(0.5, 60)
    axes.set_xlim(130, 510)
    ticks = [0.5, 1, 2, 5, 10, 20, 50]
    axes.set_yticks(ticks, [f"{tick:g}" for tick in ticks])
    axes.minorticks_off()
    axes.set_xlabel("enthalpy, kJ/kg (200 for saturated liquid at 0 °C)")
    axes.set_ylabel("pressure, bar")
    axes.set_title("R407C (R32, R125, R134a with 23, 25 and 52 % of the mass): lines of constant temperature")
    figure.savefig(PICTURES / "fluids-ph-r407c.png")
    plt.close(figure)


def main():
    tool = sys.argv[1] if len(sys.argv) > 1 else ROOT / "build/app/marvello-fluids"
    accuracy(tool)
    diagram(tool)


if __name__ == "__main__":
    main()
