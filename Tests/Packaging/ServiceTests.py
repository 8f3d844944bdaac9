import os
import re
import shutil
import subprocess
import tempfile
import unittest
from pathlib import Path

from project import LINUX, PROGRAMS, SOURCES

UNIT = LINUX / "tervale-agent.service"
MANUAL = SOURCES / "packaging/man/tervale-agent.1.in"
SAFETY = SOURCES / "docs/SAFETY.md"
SECTION = re.compile(r"\[(\w+)\]")


def settings():
    """Of the unit: the values by section and name; a name may come several times."""
    found, section = {}, None
    for line in UNIT.read_text("utf-8").splitlines():
        if heading := SECTION.fullmatch(line):
            section = heading[1]
        elif line and not line.startswith("#"):
            name, value = line.split("=", 1)
            found.setdefault((section, name), []).append(value)
    return found


def seconds_in(header, name):
    """A span of time that a header of the project gives."""
    text = (SOURCES / "Sources" / header).read_text("utf-8")
    kind, name_and_value = re.search(rf"std::chrono::(\w+) ({name}{{[0-9']+}})", text).groups()
    value = int(re.search(r"{([0-9']+)}", name_and_value)[1].replace("'", ""))
    return value / {"seconds": 1, "milliseconds": 1000}[kind]


def status_in(header, name):
    """An exit status that a header of the project gives."""
    text = (SOURCES / "Sources" / header).read_text("utf-8")
    return re.search(rf"int {name} = ([0-9]+);", text)[1]


class Service(unittest.TestCase):
    def setUp(self):
        self.settings = settings()

    def value(self, name, section="Service"):
        values = self.settings[section, name]
        self.assertEqual(len(values), 1, values)
        return values[0]

    def test_starts_a_program_that_is_installed_wherever_that_is(self):
        program = self.value("ExecStart")
        self.assertIn(f"0755 usr/bin/{program}", (LINUX / "files").read_text("utf-8").splitlines())

    def test_leaves_the_guard_alive_for_as_long_as_it_tries(self):
        # Asked to end, which it ignores; other ways to end a service kill it at once, or leave it behind.
        self.assertEqual(self.value("KillMode"), "control-group")
        self.assertNotIn(("Service", "KillSignal"), self.settings)
        self.assertEqual(self.value("WatchdogSignal"), "SIGTERM")
        self.assertGreater(int(self.value("TimeoutStopSec")), seconds_in("Platform/GuardDuty.h", "eagerTime"))

    def test_leaves_an_agent_that_hangs_to_its_guard_first(self):
        self.assertGreater(int(self.value("WatchdogSec")), seconds_in("Platform/GuardDuty.h", "hangLimit"))

    def test_starts_the_agent_again_however_often_it_fails(self):
        self.assertEqual(self.value("Restart"), "on-failure")
        self.assertEqual(self.value("StartLimitIntervalSec", "Unit"), "0")
        self.assertEqual(self.value("OOMPolicy"), "continue")

    def test_leaves_alone_what_another_start_would_not_mend(self):
        # Another agent that runs, and a wrong command line.
        final = [status_in("Base/Terminal.h", name) for name in ("failure", "wrongUsage")]
        self.assertEqual(self.value("RestartPreventExitStatus").split(), final)

    def test_starts_the_agent_again_where_fans_were_left(self):
        left = status_in("tervale-agent/AgentProgram.h", "notHandedBack")
        without_lock = status_in("tervale-agent/AgentProgram.h", "withoutLock")
        for status in (left, without_lock):
            self.assertNotIn(status, self.value("RestartPreventExitStatus").split())
        for name in ("RestartForceExitStatus", "SuccessExitStatus"):
            self.assertNotIn(("Service", name), self.settings)

    def test_ends_as_the_manual_page_says(self):
        page = MANUAL.read_text("utf-8").split(".SH EXIT STATUS\n")[1].split(".SH ")[0]
        told = dict(re.findall(r"^\.TP\n\.B ([0-9]+)\n(.*)$", page, re.MULTILINE))
        left = status_in("tervale-agent/AgentProgram.h", "notHandedBack")
        statuses = [status_in("Base/Terminal.h", name) for name in ("done", "failure", "wrongUsage")]
        without_lock = status_in("tervale-agent/AgentProgram.h", "withoutLock")
        self.assertEqual(list(told), [*statuses, left, without_lock])
        self.assertEqual([status for status in told if "could not be handed back" in told[status]], [left])
        safety = SAFETY.read_text("utf-8")
        self.assertIn(f"with status {left}: the guard tries on", " ".join(safety.split()))

    def test_is_a_whole_unit_to_the_service_manager(self):
        if not shutil.which("systemd-analyze"):
            self.skipTest("systemd-analyze is missing")
        with tempfile.TemporaryDirectory() as folder:
            unit = Path(folder) / UNIT.name
            # The program is not installed here.
            text = UNIT.read_text("utf-8")
            unit.write_text(text.replace("ExecStart=", f"ExecStart={PROGRAMS['tervale-agent'].parent}/"))
            verified = subprocess.run(
                ["systemd-analyze", "--user", "--man=no", "verify", str(unit)], check=False, text=True,
                stdout=subprocess.PIPE, stderr=subprocess.STDOUT, env={**os.environ, "XDG_RUNTIME_DIR": folder})
            self.assertEqual((verified.stdout, verified.returncode), ("", 0))
