import struct
import sys
import unittest
import xml.etree.ElementTree as ElementTree

from project import BUILD, ICONS

sys.path.insert(0, str(ICONS))
import icns  # noqa: E402

BUILT = BUILD / "packaging/icon"
XLINK = "{http://www.w3.org/1999/xlink}href"


class Drawing(unittest.TestCase):
    def test_is_well_formed_and_square_and_refers_only_to_what_it_defines(self):
        for name in ("tervale.svg", "tervale-small.svg"):
            with self.subTest(name):
                root = ElementTree.parse(ICONS / name).getroot()
                self.assertEqual(root.get("viewBox"), "0 0 1024 1024")
                defined = {element.get("id") for element in root.iter()} - {None}
                used = {element.get(XLINK)[1:] for element in root.iter() if element.get(XLINK)}
                for element in root.iter():
                    for attribute in ("fill", "stroke", "filter"):
                        value = element.get(attribute, "")
                        if value.startswith("url(#"):
                            used.add(value[5:-1])
                self.assertEqual(used, defined)


class Picture(unittest.TestCase):
    def test_is_as_wide_as_its_name_says(self):
        for width in (16, 24, 32, 48, 64, 128, 256, 512):
            with self.subTest(width):
                found = icns.png_lines((BUILT / f"{width}.png").read_bytes())
                self.assertEqual(found[:2], (width, width))

    def test_has_transparent_corners_and_an_opaque_middle(self):
        for width in (16, 24, 32, 48, 64, 128):
            with self.subTest(width):
                icns.check_picture(icns.png_pixels((BUILT / f"{width}.png").read_bytes()), width)

    def test_is_refused_when_it_is_cut_short_anywhere(self):
        picture = (BUILT / "16.png").read_bytes()
        for length in range(len(picture)):
            with self.assertRaises(icns.Malformed):
                icns.png_lines(picture[:length])

    def test_is_refused_when_a_byte_of_it_is_wrong(self):
        picture = (BUILT / "16.png").read_bytes()
        for position in range(len(picture)):
            wrong = bytearray(picture)
            wrong[position] ^= 1
            with self.assertRaises(icns.Malformed):
                icns.png_lines(bytes(wrong))


class Runs(unittest.TestCase):
    def test_are_those_of_the_format(self):
        self.assertEqual(icns.pack_runs(b"aaaa"), b"\x81a")
        self.assertEqual(icns.pack_runs(b"abc"), b"\x02abc")
        self.assertEqual(icns.pack_runs(b"abbbc"), b"\x00a\x80b\x00c")
        self.assertEqual(icns.pack_runs(b"x" * 130), b"\xffx")

    def test_unpack_to_what_was_packed(self):
        for channel in (b"", b"a", b"aa", b"aab", bytes(range(256)), b"x" * 1000, b"ab" * 300):
            self.assertEqual(icns.unpack_runs(icns.pack_runs(channel)), channel)

    def test_are_refused_when_they_end_within_one(self):
        for packed in (b"\x02ab", b"\x80", b"\x00"):
            with self.assertRaises(icns.Malformed):
                icns.unpack_runs(packed)


class IconFile(unittest.TestCase):
    def setUp(self):
        self.file = (BUILT / "Tervale.icns").read_bytes()

    def packed(self, contents):
        body = b"".join(kind + struct.pack(">I", 8 + len(data)) + data for kind, data in contents)
        return b"icns" + struct.pack(">I", 8 + len(body)) + body

    def test_holds_every_size(self):
        icns.validate(self.file)
        self.assertEqual(len(list(icns.elements(self.file))), 10)

    def test_holds_the_same_picture_in_runs_as_in_the_PNG_file(self):
        contents = dict(icns.elements(self.file))
        self.assertEqual(icns.argb_pixels(contents[b"ic05"], 32), icns.png_pixels(contents[b"ic11"]))
        self.assertEqual(icns.argb_pixels(contents[b"ic04"], 16),
                         icns.png_pixels((BUILT / "16.png").read_bytes()))

    def test_is_refused_when_a_size_is_missing_or_twice_there(self):
        contents = list(icns.elements(self.file))
        for wrong in (contents[1:], contents[:-1], contents + contents[:1], []):
            with self.assertRaises(icns.Malformed):
                icns.validate(self.packed(wrong))

    def test_is_refused_when_a_picture_has_another_size(self):
        contents = dict(icns.elements(self.file))
        for kind, other in ((b"ic07", b"ic08"), (b"ic10", b"ic09"), (b"ic04", b"ic05")):
            wrong = {**contents, kind: contents[other]}
            with self.assertRaises(icns.Malformed):
                icns.validate(self.packed(wrong.items()))

    def test_is_refused_when_it_is_cut_short(self):
        for length in (0, 3, 7, 8, 15, 100, len(self.file) - 1):
            with self.assertRaises(icns.Malformed):
                icns.validate(self.file[:length])
