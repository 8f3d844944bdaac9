"""One program or library of the Mac as it lies in a file: its load commands, to be read and changed.

Offsets in what follows the commands stay as they are, so that changed commands have to fit before it.
"""

import struct

from machO import Malformed, own_slice

SEGMENT = 0x19
SIGNATURE = 0x1D
IDENTITY = 0xD
RUN_PATH = 0x8000001C
LOADS = {0xC: "always", 0x80000018: "if it is there", 0x8000001F: "and passes it on"}
LOAD, WEAK_LOAD = 0xC, 0x80000018
EXECUTABLE = 2

HEADER_SIZE = 32
# Where the text of a command begins, after the numbers of its kind.
LIBRARY_TEXT, PATH_TEXT = 24, 12


class Image:
    """For the Mac's own processor alone: what a file holds for others is left behind."""

    def __init__(self, content):
        content = own_slice(content)
        self.kind, count, size = struct.unpack_from("<3I", content, 12)
        self.header = content[:HEADER_SIZE]
        self.commands = list(split(content[HEADER_SIZE:HEADER_SIZE + size], count))
        self.rest = content[HEADER_SIZE + size:]
        self.size = len(content)

    def of(self, kinds):
        return [command for command in self.commands if kind(command) in kinds]

    def content(self):
        commands = b"".join(self.commands)
        start = self.size - len(self.rest)
        growth = HEADER_SIZE + len(commands) - start
        if growth > 0 and HEADER_SIZE + len(commands) > self.first_section():
            raise Malformed("has no room for longer paths")
        header = bytearray(self.header)
        struct.pack_into("<2I", header, 16, len(self.commands), len(commands))
        rest = self.rest[growth:] if growth >= 0 else bytes(-growth) + self.rest
        return bytes(header) + commands + rest

    def first_section(self):
        """Where the first of what the commands describe begins."""
        offsets = [struct.unpack_from("<I", command, place + 48)[0] for command in self.of({SEGMENT})
                   for place in range(72, len(command), 80)]
        return min(offset for offset in offsets if offset)

    def segment(self, name):
        """The number of the command, and the address, size, offset and size in the file that it tells."""
        for index, command in enumerate(self.commands):
            if kind(command) == SEGMENT and command[8:24].rstrip(b"\0") == name:
                return index, struct.unpack_from("<4Q", command, 24)
        raise Malformed(f"has no segment {name.decode()}")

    def rename(self, renamed):
        """What the image is found as and what it loads; `renamed` gives each its new name."""
        for index, command in enumerate(self.commands):
            if kind(command) in {IDENTITY, *LOADS}:
                self.commands[index] = with_text(command, LIBRARY_TEXT, renamed(text(command)))

    def set_run_paths(self, paths):
        self.commands = [command for command in self.commands if kind(command) != RUN_PATH] + [
            with_text(struct.pack("<3I", RUN_PATH, 0, PATH_TEXT), PATH_TEXT, path) for path in paths]

    def load_if_there(self, names):
        """Those libraries may be missing when the image is loaded."""
        for index, command in enumerate(self.commands):
            if kind(command) == LOAD and text(command) in names:
                self.commands[index] = struct.pack("<I", WEAK_LOAD) + command[4:]


def split(commands, count):
    place = 0
    for _ in range(count):
        if place + 8 > len(commands):
            raise Malformed("has fewer load commands than it says")
        (size,) = struct.unpack_from("<I", commands, place + 4)
        if size < 8 or place + size > len(commands):
            raise Malformed("has a load command of no possible size")
        yield commands[place:place + size]
        place += size


def kind(command):
    return struct.unpack_from("<I", command)[0]


def text(command):
    (start,) = struct.unpack_from("<I", command, 8)
    return command[start:].split(b"\0", 1)[0].decode()


def with_text(command, start, new):
    """The same command with another text; its size is a multiple of eight."""
    head = command[:8] + struct.pack("<I", start) + command[12:start]
    end = new.encode() + b"\0"
    end += bytes(-(len(head) + len(end)) % 8)
    return head[:4] + struct.pack("<I", len(head) + len(end)) + head[8:] + end
