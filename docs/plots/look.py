"""What the drawing programs beside it share: where things are, how the pictures look, and their tables."""

import csv
import pathlib

import matplotlib

matplotlib.use("Agg")
import matplotlib.pyplot as plt  # noqa: E402

ROOT = pathlib.Path(__file__).resolve().parents[2]
PICTURES = ROOT / "docs/pictures"
INK, FAINT = "#333333", "#d8d8d8"


def set_look(size, title_size, dpi):
    """Text of these sizes in points, and files of this many dots per inch."""
    plt.rcParams.update({
        "font.size": size,
        "axes.edgecolor": INK,
        "axes.labelcolor": INK,
        "axes.titlesize": title_size,
        "axes.titlelocation": "left",
        "text.color": INK,
        "xtick.color": INK,
        "ytick.color": INK,
        "axes.spines.top": False,
        "axes.spines.right": False,
        "axes.grid": True,
        "axes.axisbelow": True,
        "grid.color": FAINT,
        "grid.linewidth": 0.6,
        "legend.frameon": False,
        "savefig.dpi": dpi,
    })


def rows_of_file(file):
    """The rows of a CSV file by the names of their columns."""
    with open(file, encoding="utf-8") as stream:
        return list(csv.DictReader(stream))
