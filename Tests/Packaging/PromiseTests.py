import re
import unittest

from project import BUILD, SOURCES, output

TESTS = [line.split(": ", 1)[1] for line in output("ctest", "--test-dir", str(BUILD), "-N").splitlines()
         if re.match(r" *Test +#", line)]


def promised(page):
    """The tests that the tables of a page name, with "…" where the rest of a name is left out."""
    for line in (SOURCES / page).read_text("utf-8").splitlines():
        if not line.startswith("|"):
            continue
        suite = ""
        for name in re.findall(r"`([^`]+)`", line):
            if re.fullmatch(r"\.?…?[A-Z]\w*…?", name) and suite and name[0] in ".…":
                yield suite + "." + name.strip(".…")
            elif re.fullmatch(r"(?:[A-Z]\w+/)?[A-Z]\w+(?:\.\w+)?…?", name):
                # The fuzzers are no tests.
                if name.startswith("Fuzz"):
                    continue
                name = name.rstrip("…")
                suite = name.split(".", 1)[0]
                yield name


class Promises(unittest.TestCase):
    def test_are_shown_by_tests_that_there_are(self):
        for page in ("docs/RELIABILITY.md", "docs/SAFETY.md"):
            names = list(promised(page))
            self.assertGreater(len(names), 40, page)
            for name in names:
                with self.subTest(page=page, name=name):
                    self.assertTrue(any(f"/{name}" in f"/{test}" for test in TESTS))
