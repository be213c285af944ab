"""Installs into a folder of its own and starts the programs there: installed.py CMAKE BUILD_FOLDER APP_FOLDER"""

import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import time
import unittest

CMAKE, BUILD, APP = sys.argv[1], pathlib.Path(sys.argv[2]), pathlib.Path(sys.argv[3])
POINT = ["--refrigerant", "R134A", "--series", "TK-A", "--ted", "2", "--tcd", "40", "--format", "csv"]


def selection(command, **how):
    """What marvello-select prints for the point, with the environment of the system alone."""
    run = subprocess.run([command, *POINT], capture_output=True, text=True, check=False, env={}, **how)
    return run.stdout + run.stderr


def catalogue_in_use(process, deadline):
    """The catalogue that the process has opened; None when it ends or never opens one."""
    while time.monotonic() < deadline and process.poll() is None:
        for entry in pathlib.Path(f"/proc/{process.pid}/fd").glob("*"):
            try:
                target = os.readlink(entry)
            except FileNotFoundError:
                continue
            if target.endswith("db.mdb"):
                return target
        time.sleep(0.05)
    return None


class Installed(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.home = pathlib.Path(tempfile.mkdtemp(prefix="marvello-installed-"))
        cls.addClassCleanup(shutil.rmtree, cls.home)
        cls.prefix = cls.home / "Kälte; Wärme 选型"
        subprocess.run([CMAKE, "--install", BUILD, "--prefix", cls.prefix], stdout=subprocess.DEVNULL, check=True)
        cls.expected = selection(APP / "marvello-select", cwd="/")
        # The catalogue has ten models of the series and more; a line each and one of headings.
        assert cls.expected.count("\n") > 10, cls.expected

    def test_application_folder_is_complete(self):
        # What goes through a demonstration is for the builder of the tree.
        built = {entry.name for entry in APP.iterdir()} - {"marvello-demo"}
        installed = {entry.name for entry in (self.prefix / "lib" / "marvello").iterdir()}
        self.assertEqual(installed, built)
        links = {entry.name: os.readlink(entry) for entry in (self.prefix / "bin").iterdir()}
        self.assertEqual(links, {name: f"../lib/marvello/{name}" for name in built if name.startswith("marvello")})

    def test_started_from_anywhere(self):
        command = self.prefix / "bin" / "marvello-select"
        first, second = self.home / "first", self.home / "second"
        first.symlink_to(command)
        second.symlink_to("first")
        below = self.home / "below"
        below.mkdir()
        (below / "Fluids").mkdir()  # a folder of the user's own that has the name by chance
        ways = {
            "link": (command, {"cwd": "/"}),
            "link to a link": (second, {"cwd": "/"}),
            "relative": ("./marvello-select", {"cwd": command.parent}),
            "relative from below": (f"../{self.prefix.name}/bin/marvello-select", {"cwd": below}),
            "another name of its own": ("no-such-name", {"cwd": "/", "executable": command}),
        }
        for way, (name, how) in ways.items():
            with self.subTest(way):
                self.assertEqual(selection(name, **how), self.expected)

    def test_moved_and_copied(self):
        moved = self.home / "moved"
        shutil.copytree(self.prefix, self.home / "original", symlinks=True)
        (self.home / "original").rename(moved)
        self.assertEqual(selection(moved / "bin" / "marvello-select", cwd="/"), self.expected)
        alone = self.home / "alone"
        shutil.copytree(moved / "lib" / "marvello", alone)
        shutil.rmtree(moved)
        self.assertEqual(selection(alone / "marvello-select", cwd="/"), self.expected)

    def test_window_opens_its_own_catalogue(self):
        environment = {"QT_QPA_PLATFORM": "offscreen", "MARVELLO_SPLASH_MS": "10", "HOME": str(self.home),
                       "XDG_RUNTIME_DIR": str(self.home), "LANG": "C.UTF-8"}
        link = self.home / "window"
        link.symlink_to(self.prefix / "bin" / "marvello")
        with subprocess.Popen(["./window"], cwd=self.home, env=environment, stderr=subprocess.PIPE, text=True) as window:
            try:
                opened = catalogue_in_use(window, time.monotonic() + 120)
            finally:
                window.kill()
            self.assertEqual(opened, str(self.prefix / "lib" / "marvello" / "db.mdb"), window.stderr.read())


unittest.main(argv=sys.argv[:1])
