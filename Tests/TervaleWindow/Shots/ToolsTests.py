"""The comparison with the pictures that are kept is refused where they were drawn with other tools."""

import os
import pathlib
import subprocess
import tempfile
import unittest

GOLDEN = pathlib.Path(os.environ["TERVALE_BUILD_FOLDER"]) / "Tests/TervaleWindow/Shots/tervale-golden"
DIFFERS = 1
SKIPPED = 77


class Tools(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.addCleanup(self.folder.cleanup)

    def compare(self, **environment):
        """The exit status and what is printed, with pictures of which there is the note alone."""
        done = subprocess.run(
            [str(GOLDEN), "1", self.folder.name, self.folder.name], check=False, text=True,
            stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
            env={name: value for name, value in os.environ.items() if name != "CI"} | environment)
        return done.returncode, done.stdout

    def note(self, text):
        (pathlib.Path(self.folder.name) / "drawn-with.txt").write_text(text, "utf-8")

    def test_another_toolkit_or_typeface_skips_it(self):
        here = subprocess.run([str(GOLDEN), "--tools"], check=True, text=True, stdout=subprocess.PIPE).stdout
        self.assertRegex(here, r"^Qt 6\.[0-9]+, .+\n$")
        for other in (here.replace("Qt 6.", "Qt 7."), here.replace(", ", ", Other ")):
            with self.subTest(other):
                self.note(other)
                status, output = self.compare()
                self.assertEqual(status, SKIPPED)
                self.assertEqual(output, "skipped: the pictures were not drawn with " + here)

    def test_it_fails_where_all_tools_are_expected(self):
        self.note("Qt 7.0, Other\n")
        status, output = self.compare(CI="true")
        self.assertEqual(status, DIFFERS)
        self.assertTrue(output.startswith("failed: the pictures were not drawn with Qt 6."), output)

    def test_it_fails_without_a_note(self):
        status, output = self.compare()
        self.assertEqual(status, DIFFERS)
        self.assertTrue(output.endswith("drawn-with.txt is missing\n"), output)
