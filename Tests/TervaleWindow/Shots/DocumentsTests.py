"""The pictures of the documents that are no scene are what the programs draw today."""

import os
import pathlib
import subprocess
import tempfile
import unittest

HERE = pathlib.Path(__file__).resolve().parent
DOCUMENTS = HERE.parents[2] / "docs"
BUILD = pathlib.Path(os.environ["TERVALE_BUILD_FOLDER"])
RENEW = "'./dev shots --moving' draws it anew"


def tools():
    """What draws letters here."""
    golden = BUILD / "Tests/TervaleWindow/Shots/tervale-golden"
    return subprocess.run([str(golden), "--tools"], check=True, stdout=subprocess.PIPE, text=True).stdout


class Documents(unittest.TestCase):
    def draw(self, what):
        """The texts of the files that are drawn, by their names."""
        with tempfile.TemporaryDirectory() as folder:
            subprocess.run([str(HERE / "draw-documents"), str(BUILD), folder, what], check=True)
            return {file.name: file.read_bytes() for file in pathlib.Path(folder).iterdir()}

    def compare(self, what, names):
        drawn = self.draw(what)
        self.assertEqual(sorted(drawn), names)
        for name, text in drawn.items():
            # Not assertEqual, which would print both.
            self.assertTrue(text == (DOCUMENTS / name).read_bytes(), f"docs/{name} differs: {RENEW}")

    def test_the_dry_run(self):
        self.compare("dry-run", ["dry-run.svg"])

    def test_the_dial(self):
        if os.environ.get("CI") != "true" and tools() != (HERE / "golden/drawn-with.txt").read_text("utf-8"):
            self.skipTest("the pictures were not drawn with " + tools())
        self.compare("dial", ["dial-dark.png", "dial-light.png"])
