"""Reads from the built programs how they are hardened: hardened.py APP_FOLDER BUILD_TYPE"""

import pathlib
import subprocess
import sys
import unittest

APP, BUILD_TYPE = pathlib.Path(sys.argv[1]), sys.argv[2]


def readelf(option, file):
    return subprocess.run(["readelf", "--wide", option, file], capture_output=True, text=True, check=True).stdout


class Hardened(unittest.TestCase):
    def test_every_program_and_library(self):
        binaries = [entry for entry in APP.iterdir() if entry.is_file() and entry.read_bytes()[:4] == b"\x7fELF"]
        self.assertGreaterEqual(len(binaries), 5)
        fortified = []
        for binary in binaries:
            with self.subTest(binary.name):
                # Position independent, so that its addresses differ from start to start.
                self.assertIn("DYN (", readelf("--file-header", binary))
                self.assertIn("GNU_RELRO", readelf("--program-headers", binary))
                self.assertIn("BIND_NOW", readelf("--dynamic", binary))
                calls = readelf("--dyn-syms", binary)
                self.assertIn("__stack_chk_fail", calls)
                if "_chk@" in calls.replace("__stack_chk_fail@", ""):
                    fortified.append(binary.name)
        if BUILD_TYPE != "Debug":
            # A program without a call that can be fortified shows nothing of it.
            self.assertIn("marvello-select", fortified)


unittest.main(argv=sys.argv[:1])
