import re
import subprocess
import unittest

from project import BUILD, PROGRAMS, SOURCES, output

COMPLETIONS = SOURCES / "packaging/completions"


class CompletionOfTheAgent(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.help = output(str(PROGRAMS["tervale-agent"]), "--help")
        cls.options = sorted(re.findall(r"^  --([a-z][a-z-]*)", cls.help, re.MULTILINE))

    def test_has_the_options_of_the_programs_help_and_no_others_in_every_shell(self):
        self.assertIn("version", self.options)
        for name, pattern in (("tervale-agent.bash.in", r"--([a-z][a-z-]*)(?=[ '](?!\)))"),
                              ("_tervale-agent", r"--([a-z][a-z-]*)(?:\[|\}'\[)"),
                              ("tervale-agent.fish", r" -l ([a-z][a-z-]*) ")):
            with self.subTest(name):
                text = (COMPLETIONS / name).read_text("utf-8")
                self.assertEqual(sorted(re.findall(pattern, text)), self.options)

    def test_has_the_levels_of_the_log_in_every_shell(self):
        refused = subprocess.run([str(PROGRAMS["tervale-agent"]), "--log-level", "loud"], check=False,
                                 stderr=subprocess.PIPE, text=True).stderr
        levels = re.search(r"takes one of (.*), not 'loud'", refused)[1].split(", ")
        for name in ("tervale-agent.bash.in", "_tervale-agent", "tervale-agent.fish"):
            with self.subTest(name):
                self.assertRegex((COMPLETIONS / name).read_text("utf-8"), rf"['(]{' '.join(levels)}[')]")


class CompletionForBash(unittest.TestCase):
    def test_stands_alone_and_shares_one_text(self):
        shared = (COMPLETIONS / "offer.bash").read_text("utf-8").strip()
        for name in ("tervale-agent", "tervalectl"):
            with self.subTest(name):
                text = (BUILD / f"packaging/completions/{name}.bash").read_text("utf-8")
                self.assertEqual(text.count(shared), 1)
                self.assertEqual(text.count("< <(compgen"), 1)
                self.assertNotIn("@TERVALE", text)
