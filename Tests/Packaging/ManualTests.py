import re
import unittest

from project import BUILD, PROGRAMS, output


def options_of_help(program):
    return set(re.findall(r"--[a-z][a-z-]*", output(str(program), "--help")))


def options_of_manual(name):
    """Those that the manual describes, each at the head of a paragraph of its own."""
    page = (BUILD / f"packaging/linux/{name}.1").read_text("utf-8").replace(r"\-", "-")
    return set(re.findall(r"^\.TP\n\.BI? (--[a-z][a-z-]*)", page, re.MULTILINE))


class Manual(unittest.TestCase):
    def test_describes_the_options_of_the_programs_help_and_no_others(self):
        # Those of tervalectl are a command's each; its own tests compare them with the manual.
        for name in ("tervale-window", "tervale-agent", "tervale-simulator"):
            with self.subTest(name):
                self.assertIn("--version", options_of_manual(name))
                self.assertEqual(options_of_manual(name), options_of_help(PROGRAMS[name]))

    def test_names_the_scenarios_of_the_simulators_help(self):
        line = re.search(r"--scenario NAME +.*: (.*) \(", output(str(PROGRAMS["tervale-simulator"]), "--help"))
        page = (BUILD / "packaging/linux/tervale-simulator.1").read_text("utf-8")
        section = page[page.index("What the Mac does:") : page.index(r"\-\-seed")]
        self.assertEqual(re.findall(r"^\.B ([a-z]+)$", section, re.MULTILINE), line[1].split(", "))
