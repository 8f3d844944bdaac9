import tempfile
import unittest

import benchmarks  # noqa: F401, so that the modules are found

import counting
import counts


class Instructions(unittest.TestCase):
    def test_are_what_callgrind_says_in_the_end(self):
        log = "==7== Events    : Ir\n==7== Collected : 1266762\n==7==\n"
        self.assertEqual(counting.instructions(log), 1266762)

    def test_are_refused_where_nothing_was_counted(self):
        for log in ("", "==7== Collected : 0\n", "valgrind: no such program\n"):
            with self.assertRaises(ValueError):
                counting.instructions(log)

    def test_are_counted_without_anything_of_the_users(self):
        with tempfile.TemporaryDirectory() as folder:
            env = counting.environment(folder)
        for name in ("HOME", "XDG_CONFIG_HOME", "XDG_RUNTIME_DIR", "FONTCONFIG_FILE"):
            self.assertTrue(env[name].startswith(folder), name)
        self.assertNotIn("DISPLAY", env)
        self.assertNotIn("DBUS_SESSION_BUS_ADDRESS", env)


class Comparison(unittest.TestCase):
    kept = {"polls": 1000}

    def test_lets_pass_what_is_within_a_tenth(self):
        for number in (901, 1000, 1099):
            self.assertEqual(counts.complaints({"polls": number}, self.kept), [], number)

    def test_complains_of_more_and_of_less(self):
        for number in (889, 1111):
            self.assertEqual(len(counts.complaints({"polls": number}, self.kept)), 1, number)

    def test_complains_of_a_figure_without_a_match(self):
        self.assertEqual(len(counts.complaints({"polls": 1000, "new": 1}, self.kept)), 1)
        self.assertEqual(len(counts.complaints({}, self.kept)), 1)

    def test_shows_every_figure_with_its_change(self):
        lines = counts.table({"polls": 1100, "new": 5}, self.kept).splitlines()
        self.assertEqual(len(lines), 2)
        self.assertIn("+10.0%", lines[0])
        self.assertIn("new", lines[1])

    def test_has_a_figure_for_every_task_in_the_tree(self):
        import json
        kept = json.loads(counts.FIGURES.read_text("utf-8"))
        self.assertEqual(set(kept), set(counts.TASKS))


if __name__ == "__main__":
    unittest.main()
