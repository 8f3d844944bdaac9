import fcntl
import json
import math
import os
import pty
import re
import struct
import subprocess
import tempfile
import termios
import unittest
from pathlib import Path

from project import BUILD, PROGRAMS, SOURCES, output


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


def readings():
    """Ten minutes from nine in the morning, a line every five seconds: the processor grows hot, and cools down."""
    ticks = 120
    for tick in range(ticks):
        average = round(44 + 50 * math.sin(math.pi * tick / ticks) ** 2, 1)
        yield {"time": 1768467600 + 5 * tick, "minute": 540 + tick // 12,
               "temperatures": {"CPU average": average, "CPU hottest": round(average + 4, 1)}}


def chart():
    """The lines that are drawn of them in a terminal without Unicode and colours, as wide as a manual's text."""
    rows, columns = 40, 70
    window, terminal = pty.openpty()
    fcntl.ioctl(terminal, termios.TIOCSWINSZ, struct.pack("HHHH", rows, columns, 0, 0))
    with tempfile.TemporaryDirectory() as folder:
        trace = Path(folder) / "heat.jsonl"
        trace.write_text("".join(json.dumps(reading) + "\n" for reading in readings()), "utf-8")
        subprocess.run([str(PROGRAMS["tervalectl"]), "replay", "--profiles", str(SOURCES / "docs/dry-run.json"),
                        "--selection", "profile Quiet", "--chart", "-", str(trace)],
                       check=True, stdout=terminal, env=os.environ | {"LC_ALL": "C", "TERM": "dumb"})
    os.close(terminal)
    drawn = b""
    try:
        while part := os.read(window, 4096):
            drawn += part
    except OSError:
        # That is how the end of a terminal reads.
        pass
    os.close(window)
    return drawn.decode("ascii").replace("\r\n", "\n").rstrip("\n").split("\n")


def escaped(line):
    """As a manual's source has it, where these characters would be others."""
    for character, name in (("\\", "\\e"), ("-", "\\-"), ("'", "\\(aq"), ("^", "\\(ha"), ("~", "\\(ti")):
        line = line.replace(character, name)
    return "\\&" + line if line.startswith(".") else line


class Chart(unittest.TestCase):
    def test_is_in_the_manual_as_the_program_draws_it(self):
        lines = chart()
        self.assertEqual(lines[0], "Quiet, dry run")
        self.assertTrue(any("safety" in line for line in lines), lines)
        text = ".nf\n" + "\n".join(map(escaped, lines)) + "\n.fi\n"
        page = (BUILD / "packaging/linux/tervalectl.1").read_text("utf-8")
        self.assertTrue(text in page, "packaging/man/tervalectl.1.in is to hold these lines:\n" + text)
