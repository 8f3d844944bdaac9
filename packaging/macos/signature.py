"""Signatures that say nothing of who signed: the hashes of a program's pages, and of what belongs to it.

| bytes of a directory of hashes, all numbers big-endian | |
|---|---|
| 0 | what it is, its length, its version, what kind of signature it is (four bytes each) |
| 16 | where the hashes of the pages and where the name begins |
| 24 | how many hashes there are of other things, which stand before those of the pages, and of pages |
| 32 | how much of the file is signed |
| 36 | size and kind of a hash, platform, size of a page as a power of two (one byte each) |
| 40 | unused, but for the place of the code (eight bytes each from 64 on: offset, size, what it is) |
"""

import hashlib
import struct

from image import EXECUTABLE, SEGMENT, SIGNATURE, Image, kind
from machO import AD_HOC, CODE_DIRECTORY, EMBEDDED_SIGNATURE, INFORMATION, REQUIREMENTS, RESOURCES, SHA256

DIRECTORY_SIZE = 88
VERSION = 0x20400
PAGE_SHIFT = 12
SEGMENT_PAGE = 0x4000
MAIN_PROGRAM = 1

# In the list of parts.
SIGNER = 0x10000
NO_REQUIREMENTS = struct.pack(">3I", 0xFADE0C01, 12, 0)
NO_SIGNER = struct.pack(">2I", 0xFADE0B01, 8)


def digest(content):
    return hashlib.sha256(content).digest()


def sign(content, identifier, information=None, resources=None):
    """The image for the Mac's own processor with a signature in place of any that it had.

    `information` is the Info.plist of its bundle and `resources` the list of what else the bundle holds.
    """
    image = Image(content)
    limit, command = room(image)
    bound = {REQUIREMENTS: NO_REQUIREMENTS}
    if information is not None:
        bound[INFORMATION] = information
    if resources is not None:
        bound[RESOURCES] = resources
    name = identifier.encode() + b"\0"
    pages = -(-limit // (1 << PAGE_SHIFT))
    size = signature_size(len(name), max(bound), pages)
    image.commands[command] = struct.pack("<4I", SIGNATURE, 16, limit, size)
    cover(image, limit + size)
    signed = image.content()[:limit]
    signed += bytes(limit - len(signed))
    return signed + signature(signed, image, name, bound).ljust(size, b"\0")


def room(image):
    """How much of the file is signed, and the number of the command that tells where the signature is."""
    for index, command in enumerate(image.commands):
        if kind(command) == SIGNATURE:
            return struct.unpack_from("<I", command, 8)[0], index
    image.commands.append(struct.pack("<4I", SIGNATURE, 16, 0, 0))
    return -(-image.size // 16) * 16, len(image.commands) - 1


def cover(image, end):
    """The last segment reaches to the end of the signature."""
    index, (address, _, offset, _) = image.segment(b"__LINKEDIT")
    in_file = end - offset
    in_memory = -(-in_file // SEGMENT_PAGE) * SEGMENT_PAGE
    command = bytearray(image.commands[index])
    struct.pack_into("<4Q", command, 24, address, in_memory, offset, in_file)
    image.commands[index] = bytes(command)


def signature_size(name, places, pages):
    directory = DIRECTORY_SIZE + name + 32 * (places + pages)
    size = 12 + 3 * 8 + directory + len(NO_REQUIREMENTS) + len(NO_SIGNER)
    return -(-size // 16) * 16


def signature(signed, image, name, bound):
    parts = [(0, directory(signed, image, name, bound)), (REQUIREMENTS, NO_REQUIREMENTS), (SIGNER, NO_SIGNER)]
    offset = 12 + 8 * len(parts)
    index, blobs = b"", b""
    for place, part in parts:
        index += struct.pack(">2I", place, offset + len(blobs))
        blobs += part
    return struct.pack(">3I", EMBEDDED_SIGNATURE, offset + len(blobs), len(parts)) + index + blobs


def directory(signed, image, name, bound):
    places = max(bound)
    page = 1 << PAGE_SHIFT
    hashes = [digest(bound[place]) if place in bound else bytes(32) for place in range(places, 0, -1)]
    hashes += [digest(signed[start:start + page]) for start in range(0, len(signed), page)]
    first = DIRECTORY_SIZE + len(name) + 32 * places
    _, (_, _, code, code_size) = image.segment(b"__TEXT")
    head = struct.pack(">9I4B", CODE_DIRECTORY, DIRECTORY_SIZE + len(name) + 32 * len(hashes), VERSION, AD_HOC,
                       first, DIRECTORY_SIZE, places, len(hashes) - places, len(signed), 32, SHA256, 0, PAGE_SHIFT)
    head += bytes(24) + struct.pack(">3Q", code, code_size, MAIN_PROGRAM if image.kind == EXECUTABLE else 0)
    return head + name + b"".join(hashes)
