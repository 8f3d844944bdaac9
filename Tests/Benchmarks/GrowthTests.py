import json
import unittest

import benchmarks  # noqa: F401, so that the modules are found

import growth


class Exponent(unittest.TestCase):
    sizes = [10, 20, 40, 80]

    def test_is_that_of_a_pure_power(self):
        for power in (0, 0.5, 1, 2):
            costs = [7 * size**power for size in self.sizes]
            self.assertAlmostEqual(growth.exponent(self.sizes, costs), power)

    def test_is_below_one_with_a_fixed_cost_and_above_with_a_factor_that_grows(self):
        self.assertLess(growth.exponent(self.sizes, [100 + size for size in self.sizes]), 1)
        self.assertGreater(growth.exponent(self.sizes, [size * (1 + size / 100) for size in self.sizes]), 1)

    def test_is_beyond_what_may_be_where_the_cost_grows_with_the_square(self):
        self.assertGreater(growth.exponent(self.sizes, [size**2 for size in self.sizes]), growth.MOST)


class Table(unittest.TestCase):
    def test_takes_the_place_of_the_one_before_and_of_nothing_else(self):
        document = "before\n" + growth.BEGIN + "old\n" + growth.END + "after\n"
        written = growth.replace_table(document, ["| a |"])
        self.assertTrue(written.startswith("before\n"))
        self.assertTrue(written.endswith("after\n"))
        self.assertNotIn("old", written)
        self.assertEqual(growth.replace_table(written, ["| a |"]), written)

    def test_has_its_place_in_the_document(self):
        text = growth.DOCUMENT.read_text("utf-8")
        self.assertEqual((text.count(growth.BEGIN), text.count(growth.END)), (1, 1))

    def test_names_sizes_costs_and_the_exponent(self):
        row = growth.row("discovery", "keys", [1000, 2000], [1.5, 3.0], "million instructions")
        self.assertEqual(row, "| discovery | 1,000, 2,000 keys | 1.5, 3.0 million instructions | 1.00 |")


class Trace(unittest.TestCase):
    def test_has_lines_of_their_own(self):
        lines = [json.loads(growth.trace_line(number)) for number in range(3)]
        self.assertEqual([line["time"] for line in lines], [0, 1, 2])


if __name__ == "__main__":
    unittest.main()
