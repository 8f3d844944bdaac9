"""Compares how many instructions the window executes with the figures in counts.json.

Usage: counts.py [--renew]. Exit status 1 if a figure is off by more than a tenth, in either direction:
what has become cheaper is renewed as well, so that it is kept."""

import json
import sys
from pathlib import Path

from counting import count_tasks

FIGURES = Path(__file__).with_name("counts.json")
TOLERANCE = 0.1
TASKS = {
    "start to first paint": ("first-paint", None),
    "60 polls with moving readings": ("polls", 60),
    "a drag of 100 moves with 40 profiles": ("drag", 40),
    "1,000 sensors filtered": ("filter", 1000),
}


def change(counted, kept):
    """By what share; 0.1 is a tenth more."""
    return counted / kept - 1


def complaints(counted, kept):
    """One line for each figure that is not what it was."""
    lines = []
    for name, number in counted.items():
        if name not in kept:
            lines.append(f"{name}: there is no figure to compare with")
        elif abs(change(number, kept[name])) > TOLERANCE:
            lines.append(f"{name}: {number:,} instructions, {change(number, kept[name]):+.1%} of {kept[name]:,}")
    return lines + [f"{name}: no longer counted" for name in kept if name not in counted]


def table(counted, kept):
    lines = []
    for name, number in counted.items():
        beside = f"{change(number, kept[name]):+7.1%}" if name in kept else "    new"
        lines.append(f"{name:38} {number:15,} {beside}")
    return "\n".join(lines)


def main(arguments):
    if arguments not in ([], ["--renew"]):
        print("usage: counts.py [--renew]", file=sys.stderr)
        return 2
    counted = dict(zip(TASKS, count_tasks(TASKS.values())))
    kept = json.loads(FIGURES.read_text("utf-8")) if FIGURES.exists() else {}
    print(table(counted, kept))
    if arguments:
        FIGURES.write_text(json.dumps(counted, indent=2) + "\n", "utf-8")
        return 0
    lines = complaints(counted, kept)
    if lines:
        print("Beyond a tenth; if that is meant, './dev counts --renew' takes it on:", *lines, sep="\n", file=sys.stderr)
    return 1 if lines else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
