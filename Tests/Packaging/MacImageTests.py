import hashlib
import os
import plistlib
import shutil
import struct
import sys
import tempfile
import unittest
from pathlib import Path

from project import SOURCES

sys.path.insert(0, str(SOURCES / "packaging/macos"))

import seal  # noqa: E402
from fitting import fit, renamed  # noqa: E402
from image import IDENTITY, RUN_PATH, Image, kind, text, with_text  # noqa: E402
from machO import INFORMATION, RESOURCES, Malformed, MachO, own_slice  # noqa: E402
from signature import sign  # noqa: E402

LIBRARY, PROGRAM = 6, 2
CODE_AT, END_AT = 0x1000, 0x3000
SYSTEM = "/usr/lib/libSystem.B.dylib"
UNUSED = "/System/Library/Frameworks/AGL.framework/Versions/A/AGL"


def named(command, name):
    """A command that loads a library, or tells what the image is found as."""
    return with_text(struct.pack("<6I", command, 0, 24, 2, 0x10000, 0x10000), 24, name)


def segment(name, address, size, offset, sections=()):
    body = b"".join(struct.pack("<16s16s2QI7I", section, name, address, 16, place, 0, 0, 0, 0, 0, 0, 0)
                    for section, place in sections)
    return struct.pack("<2I16s4Q4I", 0x19, 72 + len(body), name, address, 0x4000, offset, size, 5, 5,
                       len(sections), 0) + body


def image_of(commands, room=CODE_AT, kind_of_file=LIBRARY):
    """Two pages of code, and one that nothing describes but the last segment."""
    every = b"".join([segment(b"__TEXT", 0, END_AT - 0x1000, 0, [(b"__text", room)]),
                      segment(b"__LINKEDIT", 0x4000, 0x1000 - 3, END_AT - 0x1000), *commands])
    header = struct.pack("<8I", 0xFEEDFACF, 0x0100000C, 0, kind_of_file, 2 + len(commands), len(every), 0, 0)
    content = header + every
    return content + bytes(i % 251 for i in range(len(content), END_AT - 3))


FRAMEWORK = image_of([named(IDENTITY, "/opt/qt/lib/QtSome.framework/Versions/A/QtSome"), named(0xC, SYSTEM),
                      named(0xC, "/opt/qt/lib/QtCore.framework/Versions/A/QtCore"), named(0xC, UNUSED),
                      with_text(struct.pack("<3I", RUN_PATH, 0, 12), 12, "/opt/qt/lib")])


class Commands(unittest.TestCase):
    def test_are_written_as_they_were_read(self):
        self.assertEqual(Image(FRAMEWORK).content(), FRAMEWORK)

    def test_change_without_moving_what_follows_them(self):
        image = Image(FRAMEWORK)
        for name in ("a", "/a/very/long/name" * 10):
            image.rename(lambda _, name=name: name)
            changed = image.content()
            self.assertEqual(len(changed), len(FRAMEWORK))
            self.assertEqual(changed[CODE_AT:], FRAMEWORK[CODE_AT:])
            self.assertEqual({text(command) for command in Image(changed).of({IDENTITY, 0xC})}, {name})

    def test_are_refused_where_there_is_no_room_for_them(self):
        image = Image(FRAMEWORK)
        image.rename(lambda name: name * 40)
        with self.assertRaisesRegex(Malformed, "no room"):
            image.content()

    def test_are_refused_when_they_were_cut_short(self):
        for offset, value in ((16, 99), (20, 40), (36, 4), (36, 0x7FFFFFF8)):
            content = bytearray(FRAMEWORK)
            struct.pack_into("<I", content, offset, value)
            with self.assertRaises(Malformed):
                Image(bytes(content))

    def test_are_those_of_the_macs_own_processor(self):
        fat = struct.pack(">7I", 0xCAFEBABE, 2, 0x01000007, 3, 0x100, 16, 0)
        fat += struct.pack(">5I", 0x0100000C, 0, 0x200, len(FRAMEWORK), 14)
        fat = fat.ljust(0x200, b"\0") + FRAMEWORK
        self.assertEqual(Image(fat).content(), FRAMEWORK)
        self.assertEqual(own_slice(fat), FRAMEWORK)
        with self.assertRaises(Malformed):
            Image(b"#!/bin/sh\n")


class Names(unittest.TestCase):
    def test_lead_into_the_bundle_but_for_those_of_the_system(self):
        for name, expected in (
                (SYSTEM, SYSTEM), (UNUSED, UNUSED),
                ("/opt/qt/lib/QtCore.framework/Versions/A/QtCore", "@rpath/QtCore.framework/Versions/A/QtCore"),
                ("@rpath/QtCore.framework/Versions/A/QtCore", "@rpath/QtCore.framework/Versions/A/QtCore"),
                ("/opt/lib/libpng.dylib", "@rpath/libpng.dylib")):
            self.assertEqual(renamed(name), expected)


class OnDisk(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)

    def keep(self, name, content):
        path = self.folder / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(content)
        return path


@unittest.skipUnless(shutil.which("llvm-objdump") or os.environ.get("CI") == "true", "llvm is missing")
class Fitting(OnDisk):
    def test_leads_a_library_into_the_bundle(self):
        frameworks = self.folder / "Contents/Frameworks"
        binary = MachO(fit(self.keep("Contents/PlugIns/platforms/libsome.dylib", FRAMEWORK), frameworks))
        self.assertEqual(binary.run_paths(), ["@loader_path/../../Frameworks"])
        self.assertEqual(binary.own_names(), ["@rpath/QtSome.framework/Versions/A/QtSome"])
        self.assertEqual(set(binary.libraries()), {SYSTEM, UNUSED, "@rpath/QtCore.framework/Versions/A/QtCore"})

    def test_lets_a_framework_be_missing_from_which_nothing_is_taken(self):
        path = fit(self.keep("Frameworks/libsome.dylib", FRAMEWORK), self.folder / "Frameworks")
        loaded = {text(command): kind(command) for command in Image(path.read_bytes()).of({0xC, 0x80000018})}
        self.assertEqual(loaded[UNUSED], 0x80000018)
        self.assertEqual(loaded[SYSTEM], 0xC)


@unittest.skipUnless(shutil.which("llvm-objdump") or os.environ.get("CI") == "true", "llvm is missing")
class Signing(OnDisk):
    def signed(self, **bound):
        return MachO(self.keep("libsome.dylib", sign(FRAMEWORK, "some", **bound)))

    def test_holds_the_hash_of_every_page(self):
        content = self.signed().content
        for place in (CODE_AT - 1, CODE_AT, END_AT - 1):
            changed = bytearray(content)
            changed[place] ^= 1
            with self.assertRaisesRegex(Malformed, f"was changed after it was signed, in page {place // 4096}"):
                MachO(self.keep("changed.dylib", bytes(changed))).check_signature()

    def test_is_read_back_as_it_was_written(self):
        self.signed().check_signature()

    def test_leaves_what_is_signed_as_it_was(self):
        content = self.signed().content
        self.assertEqual(content[CODE_AT:len(FRAMEWORK)], FRAMEWORK[CODE_AT:])

    def test_takes_the_place_of_an_earlier_one(self):
        once = sign(FRAMEWORK, "some")
        self.assertEqual(sign(once, "some"), once)
        again = MachO(self.keep("libsome.dylib", sign(once, "a name of another length")))
        again.check_signature()
        self.assertEqual(again.content[CODE_AT:len(FRAMEWORK)], FRAMEWORK[CODE_AT:])

    def test_reaches_to_the_end_of_the_last_segment(self):
        content = self.signed().content
        _, (_, in_memory, offset, in_file) = Image(content).segment(b"__LINKEDIT")
        self.assertEqual(offset + in_file, len(content))
        self.assertGreaterEqual(in_memory, in_file)

    def test_binds_what_belongs_to_a_bundle(self):
        self.assertIsNone(self.signed().bound(INFORMATION))
        self.assertIsNone(self.signed().bound(RESOURCES))
        binary = self.signed(information=b"information", resources=b"list")
        binary.check_signature()
        self.assertEqual(binary.bound(INFORMATION), hashlib.sha256(b"information").digest())
        self.assertEqual(binary.bound(RESOURCES), hashlib.sha256(b"list").digest())

    def test_knows_other_contents_by_other_hashes(self):
        first = self.signed().identity()
        self.assertEqual(len(first), 20)
        self.assertEqual(first, self.signed().identity())
        self.assertNotEqual(first, self.signed(information=b"information").identity())


@unittest.skipUnless(shutil.which("llvm-objdump") or os.environ.get("CI") == "true", "llvm is missing")
class Seals(OnDisk):
    CARRIER = Path("MacOS/Tervale")

    def setUp(self):
        super().setUp()
        self.keep("Info.plist", b"information")
        self.keep("MacOS/Tervale", b"the carrier")
        self.keep("Resources/text.txt", b"text")
        self.keep("MacOS/tool", sign(image_of([named(0xC, SYSTEM)], kind_of_file=PROGRAM), "tool"))
        self.keep("Frameworks/Some.framework/Versions/A/Some", sign(FRAMEWORK, "some"))
        framework = self.folder / "Frameworks/Some.framework"
        (framework / "Versions/Current").symlink_to("A")
        (framework / "Some").symlink_to("Versions/Current/Some")
        (self.folder / "link").symlink_to("Resources/text.txt")
        self.keep(str(seal.PLACE), seal.seal(self.folder, self.CARRIER))

    def faults(self):
        return [f"{path.relative_to(self.folder)} {what}" for path, what in seal.faults(self.folder, self.CARRIER)]

    def test_list_all_but_the_carrier_and_what_it_binds(self):
        self.assertEqual(self.faults(), [])
        listed = plistlib.loads((self.folder / seal.PLACE).read_bytes())
        self.assertEqual(sorted(listed["files2"]),
                         ["Frameworks/Some.framework", "MacOS/tool", "Resources/text.txt", "link"])
        self.assertEqual(list(listed["files"]), ["Resources/text.txt"])
        self.assertEqual(listed["files2"]["link"], {"symlink": "Resources/text.txt"})

    def test_are_broken_by_a_change(self):
        self.keep("Resources/text.txt", b"test")
        self.assertEqual(self.faults(), ["Resources/text.txt is not what it was when the bundle was signed"])

    def test_are_broken_by_a_file_more_or_less(self):
        (self.folder / "Resources/text.txt").rename(self.folder / "Resources/more.txt")
        self.assertEqual(self.faults(), ["Resources/more.txt was added after the bundle was signed",
                                         "Resources/text.txt was taken away after the bundle was signed"])

    def test_are_broken_by_a_link_that_leads_elsewhere(self):
        (self.folder / "link").unlink()
        (self.folder / "link").symlink_to("Info.plist")
        self.assertEqual(self.faults(), ["link is not what it was when the bundle was signed"])

    def test_are_broken_by_a_program_or_a_framework_that_was_signed_again(self):
        for name in ("MacOS/tool", "Frameworks/Some.framework/Versions/A/Some"):
            self.keep(name, sign((self.folder / name).read_bytes(), "another"))
        self.assertEqual(self.faults(), ["Frameworks/Some.framework is not what it was when the bundle was signed",
                                         "MacOS/tool is not what it was when the bundle was signed"])
