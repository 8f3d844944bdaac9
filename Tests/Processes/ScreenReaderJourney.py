"""The whole journey through the window by assistive technology: by names, actions and values, without a pointer.
Usage: ScreenReaderJourney.py SIMULATOR AGENT WINDOW"""

import os
import re
import subprocess
import sys
import unittest

from desktop import Desktop, missing_tool

PROGRAMS = sys.argv[1:4]


class ScreenReaderJourney(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.desktop = Desktop()
        cls.addClassCleanup(cls.desktop.close)
        simulator, agent, window = PROGRAMS
        mac = cls.desktop.start([simulator], stdout=subprocess.PIPE)
        assert mac.stdout.readline().startswith("Controller on ")
        cls.desktop.start([agent], stderr=subprocess.DEVNULL)
        cls.desktop.start([window])
        # The library finds the bus by the environment.
        os.environ.update(cls.desktop.environment)
        global Atspi, ScreenReader, until
        from screenreader import Atspi, ScreenReader, until

        cls.reader = ScreenReader("Tervale")

    def pane(self, name):
        self.reader.find(name, Atspi.Role.LIST_ITEM).press()

    def find(self, name, role=None, condition=lambda part: True):
        return self.reader.find(name, role, condition)

    def find_like(self, pattern):
        fits = re.compile(pattern).fullmatch
        return self.reader.find(None, condition=lambda part: fits(part.name))

    def field(self, name):
        return self.find(name, condition=lambda part: part.editable)

    def choose(self, button, *entries):
        """Opens the menu of a button and walks through it."""
        self.find(button).act("ShowMenu")
        for entry in entries[:-1]:
            self.find(entry, Atspi.Role.MENU_ITEM).act("ShowMenu")
        self.find(entries[-1], Atspi.Role.MENU_ITEM).press()

    def set(self, name, value):
        """Sets a value, and waits until it is that."""
        self.find(name).value = value
        self.find(name, condition=lambda part: round(part.value) == value)

    def test_journey(self):
        self.choose_a_speed()
        self.run_a_timer()
        self.filter_the_sensors()
        self.draw_a_curve()
        self.fill_a_schedule()
        self.save()
        self.follow_the_curve()
        self.launch_at_login()

    def choose_a_speed(self):
        # Once the agent has answered.
        self.find("Automatic", Atspi.Role.RADIO_BUTTON, lambda part: part.checked)
        self.find("50%", Atspi.Role.RADIO_BUTTON).press()
        self.find("50%", Atspi.Role.RADIO_BUTTON, lambda part: part.checked)
        self.set("Fan speed", 75)
        self.find("75%", Atspi.Role.RADIO_BUTTON, lambda part: part.checked)

    def run_a_timer(self):
        self.choose("Timer", "Max", "15 minutes")
        self.find_like(r"Max until .*, then 75%")
        self.find("Cancel").press()
        self.find("Timer")
        self.reader.wait_for_announcement("Timer ended, now 75%")

    def filter_the_sensors(self):
        self.pane("Sensors")
        self.find("CPU", Atspi.Role.LIST)
        self.field("Filter sensors").text = "gpu"
        until(lambda: not self.reader.look_for("CPU", Atspi.Role.LIST), "a list without the CPU")
        self.find("GPU", Atspi.Role.LIST)
        self.find("Clear").press()
        self.find("CPU", Atspi.Role.LIST)

    def draw_a_curve(self):
        self.pane("Profiles")
        self.choose("Add profile", "Temperature curve")
        self.field("Name").text = "Journey"
        self.find("Journey", Atspi.Role.LIST_ITEM)
        self.set("Fan speed, point 2", 50)
        self.set("Temperature, point 2", 62)
        self.find("Point 2 of 4, 62 °C, 50%").act("Add Point")
        self.find_like("Point 3 of 5, 71 °C, 6[23]%").act("Remove Point")
        self.find("Point 3 of 4, 80 °C, 75%")

    def fill_a_schedule(self):
        self.choose("Add profile", "Schedule")
        self.find("From, window 1 of 1")
        self.find("Add Window").press()
        self.set("From, window 2 of 2", 8 * 60)
        self.set("To, window 2 of 2", 17 * 60 + 30)
        self.find("Run, window 2 of 2").act("ShowMenu")
        self.find("Journey", Atspi.Role.LIST_ITEM, self.is_in_a_pop_up).press()
        self.find("Run, window 2 of 2", condition=lambda part: part.text == "Journey")

    @staticmethod
    def is_in_a_pop_up(row):
        above = row.accessible.get_parent().get_parent()
        return above.get_role() == Atspi.Role.COMBO_BOX

    def save(self):
        self.find("Save", condition=lambda part: part.enabled).press()
        self.reader.wait_for_announcement("The profiles are saved.")
        self.find("Save", condition=lambda part: not part.enabled)

    def follow_the_curve(self):
        self.pane("Overview")
        self.find("Profile", Atspi.Role.COMBO_BOX).act("ShowMenu")
        self.find("Journey", Atspi.Role.LIST_ITEM, self.is_in_a_pop_up).press()
        self.find("Profile", Atspi.Role.COMBO_BOX, lambda part: part.text == "Journey")
        self.find("Following the profile.")

    def launch_at_login(self):
        self.pane("Settings")
        box = self.find("Launch at login", Atspi.Role.CHECK_BOX)
        before = box.checked
        box.act("Toggle")
        self.find("Launch at login", Atspi.Role.CHECK_BOX, lambda part: part.checked != before)


if __name__ == "__main__":
    missing = missing_tool()
    if missing:
        print(f"{missing} is missing")
        sys.exit(1 if os.environ.get("CI") == "true" else 77)
    # The library's own.
    unittest.main(argv=sys.argv[:1], warnings="ignore")
