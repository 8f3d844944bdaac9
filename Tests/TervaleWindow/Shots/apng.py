"""Makes one moving PNG of still ones, whose names tell their number and place: NUMBER+X+Y.png.

Usage: apng.py FOLDER OUT [MILLISECONDS]
"""

import pathlib
import struct
import sys
import zlib


def chunk(kind, data):
    check = zlib.crc32(kind + data)
    return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", check)


def chunks(path):
    """The kind and the data of each chunk of a PNG file."""
    data = path.read_bytes()
    at = 8
    while at < len(data):
        length = struct.unpack_from(">I", data, at)[0]
        yield data[at + 4 : at + 8], data[at + 8 : at + 8 + length]
        at += 12 + length


def moving(files, milliseconds):
    """The text of the moving picture, which repeats without end."""
    text = b"\x89PNG\r\n\x1a\n"
    sequence = 0
    for number, path in enumerate(files):
        _, left, top = path.stem.split("+")
        parts = list(chunks(path))
        header = dict(parts)[b"IHDR"]
        width, height = struct.unpack_from(">II", header)
        if number == 0:
            text += chunk(b"IHDR", header)
            text += chunk(b"acTL", struct.pack(">II", len(files), 0))
        place = (sequence, width, height, int(left), int(top), milliseconds, 1000, 0, 0)
        text += chunk(b"fcTL", struct.pack(">IIIIIHHBB", *place))
        sequence += 1
        data = b"".join(part for kind, part in parts if kind == b"IDAT")
        if number == 0:
            text += chunk(b"IDAT", data)
        else:
            text += chunk(b"fdAT", struct.pack(">I", sequence) + data)
            sequence += 1
    return text + chunk(b"IEND", b"")


def main(folder, out, milliseconds="100"):
    files = sorted(pathlib.Path(folder).glob("*.png"))
    pathlib.Path(out).write_bytes(moving(files, int(milliseconds)))


if __name__ == "__main__":
    main(*sys.argv[1:])
