import os
import threading
import time
import unittest

import benchmarks  # noqa: F401, so that the modules are found

import windowcost

ROLLUP = """55d0c0000000-7ffd00000000 ---p 00000000 00:00 0 [rollup]
Rss:               37888 kB
Pss:               10240 kB
Pss_Anon:           8000 kB
"""


class Arithmetic(unittest.TestCase):
    def test_takes_the_time_of_a_process_with_its_threads_that_have_ended(self):
        before = windowcost.processor_seconds(os.getpid())
        thread = threading.Thread(target=lambda: sum(range(1_000_000)))
        thread.start()
        thread.join()
        self.assertGreater(windowcost.processor_seconds(os.getpid()), before)
        self.assertAlmostEqual(windowcost.processor_seconds(os.getpid()), time.process_time(), delta=0.05)

    def test_comes_to_a_minute(self):
        self.assertAlmostEqual(windowcost.a_minute(0.1, 30), 0.2)

    def test_tells_resident_from_proportional(self):
        self.assertEqual(windowcost.memory_of(ROLLUP), (37, 10))

    def test_reads_what_a_program_tells_at_its_first_paint(self):
        line = "start to first paint 71 ms, 38.2 ms of processor, 36.1 MiB resident, 10.0 MiB proportional\n"
        self.assertEqual(windowcost.start_of(line),
                         {"processor_ms": 38.2, "resident_mib": 36.1, "proportional_mib": 10.0})

    def test_takes_the_median_of_the_starts(self):
        starts = [{"processor_ms": value} for value in (40, 1000, 38)]
        self.assertEqual(windowcost.medians(starts), {"processor_ms": 40})

    def test_compares_with_the_bare_window(self):
        self.assertEqual(windowcost.ratios({"processor_ms": 60}, {"processor_ms": 40}), {"processor_ms": 1.5})


class Report(unittest.TestCase):
    cost = {"processor_s_a_minute": 0.2, "resident_mib": 36, "proportional_mib": 10}
    start = {"processor_ms": 60, "resident_mib": 36, "proportional_mib": 10}

    def report(self, peers):
        return windowcost.report({"open": {"Overview": self.cost}, "peers": peers,
                                  "start": {"window": self.start, "bare": self.start, "ratio": self.start}})

    def test_leaves_out_peers_that_are_not_there_and_says_so(self):
        self.assertIn("No other monitor", self.report({}))

    def test_sets_peers_beside_the_window(self):
        text = self.report({"gnome-system-monitor": self.cost})
        self.assertIn("gnome-system-monitor", text)
        self.assertNotIn("No other monitor", text)

    def test_measures_every_pane_in_one_of_the_scenarios(self):
        self.assertEqual({case[2] for case in windowcost.CASES}, {"Overview", "Sensors", "Profiles", "Settings"})
        self.assertEqual({case[1] for case in windowcost.CASES}, {"work", "idle"})


if __name__ == "__main__":
    unittest.main()
