#!/usr/bin/env python3
"""Renders the application's icon in every size that the systems ask for.

Usage: render_icons.py png WIDTH FILE       one picture
       render_icons.py icns FILE            the icon file of a Mac
       render_icons.py check-icns FILE      says what is wrong with one, if something is
"""

import subprocess
import sys
from pathlib import Path

import icns

HERE = Path(__file__).resolve().parent
# Up to this width the simpler drawing is the clearer one.
SMALL = 32


def png(width):
    drawing = HERE / ("tervale-small.svg" if width <= SMALL else "tervale.svg")
    rendered = subprocess.run(
        ["rsvg-convert", "--width", str(width), "--height", str(width), str(drawing)],
        check=True, stdout=subprocess.PIPE).stdout
    found = icns.png_lines(rendered)[:2]
    if found != (width, width):
        raise icns.Malformed(f"{drawing.name} came out {found[0]} x {found[1]} instead of {width}")
    return rendered


def main(arguments):
    if len(arguments) == 3 and arguments[0] == "png":
        Path(arguments[2]).write_bytes(png(int(arguments[1])))
    elif len(arguments) == 2 and arguments[0] == "icns":
        packed = icns.pack({width: png(width) for _, width, _ in icns.ELEMENTS})
        icns.validate(packed)
        Path(arguments[1]).write_bytes(packed)
    elif len(arguments) == 2 and arguments[0] == "check-icns":
        icns.validate(Path(arguments[1]).read_bytes())
    else:
        print(__doc__, file=sys.stderr)
        return 2
    return 0


if __name__ == "__main__":
    try:
        sys.exit(main(sys.argv[1:]))
    except icns.Malformed as fault:
        sys.exit(f"render_icons.py: {fault}")
