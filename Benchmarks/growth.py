"""Measures how costs grow with what there is, over four sizes each, and fits the exponent.

Usage: growth.py [--renew]. --renew writes the table into docs/RELIABILITY.md. Exit status 1 if a cost grows
faster than it may, or if the longest replay needs more memory than the shortest."""

import json
import math
import os
import subprocess
import sys
import tempfile
from pathlib import Path

from counting import BUILD, PROJECT, count_tasks

DOCUMENT = PROJECT / "docs/RELIABILITY.md"
BEGIN, END = "<!-- growth: './dev growth --renew' writes this table -->\n", "<!-- end of growth -->\n"

# What grows, in what, the task that is counted, and the sizes.
SERIES = [
    ("discovery", "keys", "discovery", [1000, 2000, 4000, 8000]),
    ("a minute of polls", "groups of 30 sensors", "poll", [1, 2, 4, 6]),
    ("the Sensors pane, opened and read anew", "sensors", "sensors-pane", [500, 1000, 2000, 3000]),
    ("the Profiles pane, opened", "profiles", "profiles-pane", [40, 80, 160, 320]),
]
REPLAY_LINES = [125_000, 250_000, 500_000, 1_000_000]
MOST = 1.15
MOST_MEMORY_GROWTH = 1.05


def exponent(sizes, costs):
    """Of the power of the size that comes closest to the costs: the slope of their logarithms."""
    xs, ys = [math.log(size) for size in sizes], [math.log(cost) for cost in costs]
    mean_x, mean_y = sum(xs) / len(xs), sum(ys) / len(ys)
    return (sum((x - mean_x) * (y - mean_y) for x, y in zip(xs, ys))
            / sum((x - mean_x) ** 2 for x in xs))


def row(what, where, sizes, costs, unit):
    """One of the table."""
    figures = ", ".join(f"{cost:,.1f}" for cost in costs)
    of = ", ".join(f"{size:,}" for size in sizes)
    # Adding zero takes the sign from one that is rounded to nothing.
    power = round(exponent(sizes, costs), 2) + 0.0
    return f"| {what} | {of} {where} | {figures} {unit} | {power:.2f} |"


def trace_line(number):
    temperatures = {"CPU hottest": 60 + number % 40, "CPU average": 50 + number % 30}
    return json.dumps({"time": number, "minute": number // 60 % 1440, "load": number % 100,
                       "temperatures": temperatures, "fans": []}) + "\n"


def replay(lines):
    """Seconds of processor and the most MiB that were resident, of a replay of so many lines."""
    with tempfile.TemporaryDirectory() as folder:
        trace = Path(folder) / "trace.jsonl"
        with trace.open("w", encoding="utf-8") as file:
            file.writelines(map(trace_line, range(lines)))
        profiles = Path(folder) / "profiles.json"
        profiles.write_text("[]", "utf-8")
        process = subprocess.Popen(
            [BUILD / "Sources/tervalectl/tervalectl", "replay", "--json", "--profiles", profiles,
             "--selection", "40%", trace],
            stdout=subprocess.DEVNULL, env={**os.environ, "LC_ALL": "C.UTF-8"})
        _, status, usage = os.wait4(process.pid, 0)
        if status != 0:
            raise RuntimeError(f"the replay ended with status {status}")
        return usage.ru_utime + usage.ru_stime, usage.ru_maxrss / 1024


def replace_table(text, rows):
    """The document with these rows between its marks."""
    before, rest = text.split(BEGIN)
    after = rest.split(END)[1]
    head = ["| what | of | cost | exponent |", "|---|---|---|---|"]
    return before + BEGIN + "\n".join(head + rows) + "\n" + END + after


def main(arguments):
    if arguments not in ([], ["--renew"]):
        print("usage: growth.py [--renew]", file=sys.stderr)
        return 2
    counted = count_tasks([(task, size) for _, _, task, sizes in SERIES for size in sizes])
    rows, faults = [], []
    for index, (what, where, _, sizes) in enumerate(SERIES):
        costs = [number / 1e6 for number in counted[4 * index:4 * index + 4]]
        rows.append(row(what, where, sizes, costs, "million instructions"))
        if exponent(sizes, costs) > MOST:
            faults.append(f"{what} grows with an exponent of {exponent(sizes, costs):.2f}")
    seconds, memory = zip(*map(replay, REPLAY_LINES))
    rows.append(row("a replay", "lines", REPLAY_LINES, seconds, "s of processor"))
    rows.append(row("its memory", "lines", REPLAY_LINES, memory, "MiB resident at most"))
    if exponent(REPLAY_LINES, seconds) > MOST:
        faults.append("a replay takes more and more for a line")
    if memory[-1] > memory[0] * MOST_MEMORY_GROWTH:
        faults.append("a longer replay needs more memory")
    print(*rows, sep="\n")
    if arguments:
        DOCUMENT.write_text(replace_table(DOCUMENT.read_text("utf-8"), rows), "utf-8")
    print(*faults, sep="\n", end="", file=sys.stderr)
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
