"""Icons of the Mac: the one file that holds every size of an application's icon.

The file is a header and a row of elements. Each element begins with a type of four letters and its
length, 8 bytes of its own included, big endian. All sizes but the two smallest are PNG files; those two are
"ARGB" and the four channels of the picture one after the other, each in runs: a byte of 0 to 127 precedes
that many and one bytes as they are, one of 128 to 255 precedes a byte to be repeated, 125 times fewer.
"""

import struct
import zlib

# Type, width in pixels, and whether it is a PNG file. Twice a width is the same in points at double scale.
ELEMENTS = [
    (b"ic04", 16, False),
    (b"ic11", 32, True),  # 16 at double scale
    (b"ic05", 32, False),
    (b"ic12", 64, True),  # 32 at double scale
    (b"ic07", 128, True),
    (b"ic13", 256, True),  # 128 at double scale
    (b"ic08", 256, True),
    (b"ic14", 512, True),  # 256 at double scale
    (b"ic09", 512, True),
    (b"ic10", 1024, True),  # 512 at double scale
]
PNG_SIGNATURE = b"\x89PNG\r\n\x1a\n"


class Malformed(Exception):
    """A file is not what it should be; the text says why."""


def png_chunks(data):
    """The chunks of a PNG file, as pairs of type and content, each with its checksum right."""
    if not data.startswith(PNG_SIGNATURE):
        raise Malformed("no PNG signature")
    position = len(PNG_SIGNATURE)
    while True:
        if position + 12 > len(data):
            raise Malformed("the PNG ends within a chunk")
        (length,) = struct.unpack_from(">I", data, position)
        end = position + 8 + length
        if end + 4 > len(data):
            raise Malformed("a PNG chunk is longer than the file")
        kind, content = data[position + 4 : position + 8], data[position + 8 : end]
        if struct.unpack_from(">I", data, end)[0] != zlib.crc32(kind + content):
            raise Malformed("a PNG chunk has a wrong checksum")
        yield kind, content
        if kind == b"IEND":
            if end + 4 != len(data):
                raise Malformed("something follows the PNG's end")
            return
        position = end + 4


def paeth(left, up, corner):
    estimate = left + up - corner
    return min((left, up, corner), key=lambda neighbour: abs(estimate - neighbour))


def unfilter(kind, line, above):
    """A line of pixels of four bytes, from its filtered bytes and the line above."""
    for i, byte in enumerate(line):
        left, corner = (line[i - 4], above[i - 4]) if i >= 4 else (0, 0)
        up = above[i]
        prediction = (0, left, up, (left + up) // 2, paeth(left, up, corner))[kind]
        line[i] = (byte + prediction) & 0xFF
    return line


def png_lines(data):
    """Width, height, and every line's bytes, still filtered, the filter's kind before them."""
    chunks = list(png_chunks(data))
    if chunks[0][0] != b"IHDR" or len(chunks[0][1]) != 13:
        raise Malformed("the PNG does not begin with its header")
    width, height, depth, colour, _, _, interlace = struct.unpack(">IIBBBBB", chunks[0][1])
    if (depth, colour, interlace) != (8, 6, 0):
        raise Malformed("the PNG is not of four channels of 8 bits, line by line")
    try:
        raw = zlib.decompress(b"".join(content for kind, content in chunks if kind == b"IDAT"))
    except zlib.error as error:
        raise Malformed(f"the PNG's pixels cannot be unpacked: {error}") from error
    step = 1 + 4 * width
    if len(raw) != step * height:
        raise Malformed("the PNG has not as many pixels as its header says")
    if max(raw[::step]) > 4:
        raise Malformed("the PNG has a filter that there is not")
    return width, height, [raw[start : start + step] for start in range(0, len(raw), step)]


def png_pixels(data):
    """The red, green, blue and opacity of every pixel, row by row."""
    width, _, lines = png_lines(data)
    above, pixels = bytearray(4 * width), b""
    for line in lines:
        above = unfilter(line[0], bytearray(line[1:]), above)
        pixels += above
    return pixels


def pack_runs(channel):
    packed, literal, i = bytearray(), bytearray(), 0

    def flush():
        for start in range(0, len(literal), 128):
            part = literal[start : start + 128]
            packed.append(len(part) - 1)
            packed.extend(part)
        literal.clear()

    while i < len(channel):
        run = 1
        while run < 130 and i + run < len(channel) and channel[i + run] == channel[i]:
            run += 1
        if run >= 3:
            flush()
            packed += bytes((run + 125, channel[i]))
        else:
            literal += channel[i : i + run]
        i += run
    flush()
    return bytes(packed)


def unpack_runs(packed):
    channel, i = bytearray(), 0
    while i < len(packed):
        count = packed[i]
        taken = packed[i + 1 : i + 2 + count] if count < 128 else packed[i + 1 : i + 2]
        if len(taken) != (count + 1 if count < 128 else 1):
            raise Malformed("the runs end within one")
        channel += taken if count < 128 else taken * (count - 125)
        i += 1 + len(taken)
    return bytes(channel)


def argb(png):
    pixels = png_pixels(png)
    return b"ARGB" + b"".join(pack_runs(pixels[channel::4]) for channel in (3, 0, 1, 2))


def argb_pixels(data, width):
    """As png_pixels gives them."""
    if not data.startswith(b"ARGB"):
        raise Malformed("no 'ARGB' at its begin")
    channels, size = unpack_runs(data[4:]), width * width
    if len(channels) != 4 * size:
        raise Malformed(f"{len(channels)} bytes of pixels instead of {4 * size}")
    opacity, red, green, blue = (channels[i * size : (i + 1) * size] for i in range(4))
    return b"".join(map(bytes, zip(red, green, blue, opacity)))


def pack(png_of_width):
    """The icon file, of PNG files by their widths."""
    body = b""
    for kind, width, is_png in ELEMENTS:
        content = png_of_width[width] if is_png else argb(png_of_width[width])
        body += kind + struct.pack(">I", 8 + len(content)) + content
    return b"icns" + struct.pack(">I", 8 + len(body)) + body


def elements(data):
    if data[:4] != b"icns" or len(data) < 8:
        raise Malformed("it does not begin with 'icns' and a length")
    if struct.unpack_from(">I", data, 4)[0] != len(data):
        raise Malformed("its length is not the one that it says")
    position = 8
    while position < len(data):
        if position + 8 > len(data):
            raise Malformed("it ends within an element's header")
        kind, (length,) = data[position : position + 4], struct.unpack_from(">I", data, position + 4)
        if length < 8 or position + length > len(data):
            raise Malformed(f"{kind!r} says that it is {length} bytes long")
        yield kind, data[position + 8 : position + length]
        position += length


def check_picture(pixels, width):
    opacity = pixels[3::4]
    if opacity[0] or opacity[-1]:
        raise Malformed("its corners are not transparent")
    if opacity[width * width // 2 + width // 2] != 255:
        raise Malformed("its middle is not opaque")


def check_element(content, width, is_png):
    if not is_png:
        check_picture(argb_pixels(content, width), width)
        return
    found = png_lines(content)[:2]
    if found != (width, width):
        raise Malformed(f"{found[0]} x {found[1]} pixels instead of {width} x {width}")
    # Working out the pixels of the larger ones takes Python seconds.
    if width <= 128:
        check_picture(png_pixels(content), width)


def validate(data):
    """Throws unless this is an icon file with a picture of every size."""
    found = list(elements(data))
    kinds, wanted = [kind for kind, _ in found], [kind for kind, _, _ in ELEMENTS]
    if sorted(kinds) != sorted(wanted):
        raise Malformed(f"it holds {kinds} instead of {wanted}")
    contents = dict(found)
    for kind, width, is_png in ELEMENTS:
        try:
            check_element(contents[kind], width, is_png)
        except Malformed as fault:
            raise Malformed(f"{kind.decode('ascii')}: {fault}") from fault
