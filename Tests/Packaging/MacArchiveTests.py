import importlib.machinery
import importlib.util
import os
import struct
import tempfile
import unittest
import zipfile
from pathlib import Path
from unittest import mock

from project import SOURCES


def program(path):
    """A script without a suffix, as a module."""
    loader = importlib.machinery.SourceFileLoader(path.name.replace("-", "_"), str(path))
    module = importlib.util.module_from_spec(importlib.util.spec_from_loader(loader.name, loader))
    loader.exec_module(module)
    return module


archive = program(SOURCES / "packaging/macos/archive")
disk_image = program(SOURCES / "packaging/macos/disk-image")
check_archive = program(SOURCES / "packaging/macos/check-archive")
cask = program(SOURCES / "packaging/homebrew/cask")


class Packed(unittest.TestCase):
    """A bundle of our own making, and what was packed of it."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)
        self.app = self.folder / "Tervale.app"
        contents = self.app / "Contents"
        framework = contents / "Frameworks/Some.framework"
        for place in (contents / "MacOS", contents / "Resources", framework / "Versions/A"):
            place.mkdir(parents=True)
        (contents / "MacOS/Tervale").write_bytes(bytes(range(256)) * 300)
        (contents / "MacOS/Tervale").chmod(0o700)
        (contents / "Resources/LICENSE").write_text("Do this.\n")
        (framework / "Versions/A/Some").write_bytes(b"library")
        (framework / "Versions/Current").symlink_to("A")
        (framework / "Some").symlink_to("Versions/Current/Some")

    def faults(self):
        return list(check_archive.faults(self.archive, self.app))


class Archive(Packed):
    def setUp(self):
        super().setUp()
        self.archive = self.folder / "Tervale-1.2.3-macos-arm64.zip"
        archive.write(self.app, self.archive)

    def repack(self, change):
        """The archive with its entries changed: each is a pair of what is told of it and its content."""
        with zipfile.ZipFile(self.archive) as packed:
            entries = [(entry, packed.read(entry)) for entry in packed.infolist()]
        with zipfile.ZipFile(self.archive, "w") as packed:
            for entry, content in change(entries):
                packed.writestr(entry, content)

    def change(self, name, content=None, mode=None):
        def changed(entries):
            for entry, old in entries:
                if entry.filename == name and mode is not None:
                    entry.external_attr = mode << 16
                yield entry, content if entry.filename == name and content is not None else old
        self.repack(changed)

    def test_gives_back_links_modes_and_contents(self):
        self.assertEqual(self.faults(), [])

    def test_is_the_same_whoever_packs_it(self):
        with mock.patch.dict(os.environ, {"SOURCE_DATE_EPOCH": "1700000000"}):
            archive.write(self.app, self.folder / "first.zip")
            (self.app / "Contents/MacOS/Tervale").chmod(0o755)
            (self.app / "Contents/Resources/LICENSE").chmod(0o600)
            os.utime(self.app / "Contents/Resources/LICENSE", (0, 0))
            archive.write(self.app, self.folder / "second.zip")
        self.assertEqual((self.folder / "first.zip").read_bytes(), (self.folder / "second.zip").read_bytes())

    def test_is_wrong_with_a_link_that_became_a_file(self):
        self.change("Tervale.app/Contents/Frameworks/Some.framework/Some", mode=0o100644)
        self.assertEqual(self.faults(), ["Tervale.app/Contents/Frameworks/Some.framework/Some is a file, "
                                         "not a link to Versions/Current/Some"])

    def test_is_wrong_with_a_link_that_leads_elsewhere(self):
        self.change("Tervale.app/Contents/Frameworks/Some.framework/Versions/Current", content=b"B")
        self.assertEqual(self.faults(), ["Tervale.app/Contents/Frameworks/Some.framework/Versions/Current is "
                                         "a link to B, not a link to A"])

    def test_is_wrong_with_a_program_that_cannot_be_started(self):
        self.change("Tervale.app/Contents/MacOS/Tervale", mode=0o100644)
        self.assertEqual(self.faults(), ["Tervale.app/Contents/MacOS/Tervale is a file, not a program"])

    def test_is_wrong_with_another_content(self):
        self.change("LICENSE", content=b"Do that.\n")
        self.assertEqual(self.faults(), ["LICENSE has another content"])

    def test_is_wrong_without_a_file_or_with_one_more(self):
        self.repack(lambda entries: [pair for pair in entries if pair[0].filename != "LICENSE"])
        self.assertEqual(self.faults(), ["LICENSE is missing"])
        self.repack(lambda entries: [*entries, ("more.txt", b"")])
        self.assertEqual(self.faults(), ["LICENSE is missing", "more.txt should not be there"])

    def test_is_wrong_when_it_was_cut_short(self):
        whole = self.archive.read_bytes()
        for size in (0, 10, len(whole) // 3, len(whole) // 2, len(whole) - 1):
            self.archive.write_bytes(whole[:size])
            self.assertTrue(self.faults(), size)


class DiskImage(Packed):
    def setUp(self):
        super().setUp()
        # More than one sector of records, and a file of which there is nothing to store.
        for number in range(60):
            (self.app / f"Contents/Resources/Text number {number}.txt").write_text(f"{number}\n")
        (self.app / "Contents/Resources/empty").touch()
        self.archive = self.folder / "Tervale-1.2.3-macos-arm64.iso"
        self.write()

    def write(self):
        self.archive.write_bytes(disk_image.image(self.app, "Tervale 1.2.3"))

    def patch(self, old, new):
        content = self.archive.read_bytes()
        self.assertEqual((content.count(old), len(old)), (1, len(new)))
        self.archive.write_bytes(content.replace(old, new))

    def test_gives_back_links_modes_and_contents_and_a_link_to_the_applications(self):
        self.assertEqual(self.faults(), [])
        self.assertEqual(self.archive.read_bytes()[32808:32840].rstrip(), b"Tervale 1.2.3")

    def test_is_the_same_whoever_packs_it(self):
        with mock.patch.dict(os.environ, {"SOURCE_DATE_EPOCH": "1700000000"}):
            self.write()
            first = self.archive.read_bytes()
            (self.app / "Contents/MacOS/Tervale").chmod(0o755)
            os.utime(self.app / "Contents/Resources/LICENSE", (0, 0))
            self.write()
        self.assertEqual(self.archive.read_bytes(), first)

    def test_lists_each_folder_in_both_tables_of_paths(self):
        content = self.archive.read_bytes()
        descriptor = content[16 * 2048:17 * 2048]
        (size,) = struct.unpack_from("<I", descriptor, 132)
        for order, place in (("<", 140), (">", 148)):
            (sector,) = struct.unpack_from(order + "I", descriptor, place)
            table = content[sector * 2048:sector * 2048 + size]
            listed = []
            while table:
                length, _, folder, above = struct.unpack_from(order + "2BIH", table)
                listed.append((folder, above))
                table = table[8 + length + length % 2:]
            # A folder's first record tells of itself, and the second of the one above it.
            for folder, above in listed:
                own = content[folder * 2048:]
                parent = own[own[0]:]
                self.assertEqual(struct.unpack_from("<I", own, 2)[0], folder)
                self.assertEqual(struct.unpack_from("<I", parent, 2)[0], listed[above - 1][0])
            folders = 1 + sum(path.is_dir() and not path.is_symlink() for path in self.app.rglob("*")) + 1
            self.assertEqual(len({folder for folder, _ in listed}), folders)

    def test_is_wrong_with_a_link_that_leads_elsewhere(self):
        self.patch(b"SL\x15\1\0\x08\0\0\x0cApplications", b"SL\x15\1\0\x08\0\0\x0cApplicationZ")
        self.assertEqual(self.faults(), ["Applications is a link to /ApplicationZ, not a link to /Applications"])

    def test_is_wrong_with_a_program_that_cannot_be_started(self):
        content = bytearray(self.archive.read_bytes())
        # Of all files only the program is one.
        self.assertEqual(content.count(struct.pack("<I", 0o100755)), 1)
        content = content.replace(struct.pack("<I", 0o100755), struct.pack("<I", 0o100644))
        self.archive.write_bytes(content)
        self.assertEqual(self.faults(), ["Tervale.app/Contents/MacOS/Tervale is a file, not a program"])

    def test_is_wrong_with_another_content_or_another_name(self):
        self.patch(b"59\n", b"60\n")
        self.assertEqual(self.faults(), ["Tervale.app/Contents/Resources/Text number 59.txt has another content"])
        self.write()
        self.patch(b"Text number 59.txt", b"Text number 60.txt")
        self.assertEqual(self.faults(), ["Tervale.app/Contents/Resources/Text number 59.txt is missing",
                                         "Tervale.app/Contents/Resources/Text number 60.txt should not be there"])

    def test_is_wrong_when_it_was_cut_short(self):
        whole = self.archive.read_bytes()
        for size in (0, 10, 17 * 2048, len(whole) // 2, len(whole) - 2048):
            self.archive.write_bytes(whole[:size])
            self.assertTrue(self.faults(), size)

    def test_is_not_written_with_what_it_cannot_tell(self):
        longer = self.app / ("a" * 200)
        longer.touch()
        with self.assertRaises(SystemExit):
            self.write()
        longer.unlink()
        (self.app / "up").symlink_to("../elsewhere")
        with self.assertRaises(SystemExit):
            self.write()


class Cask(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.archive = Path(folder.name) / "Tervale-1.2.3-macos-arm64.zip"
        self.archive.write_bytes(b"an archive")
        self.text = cask.write(self.archive, "https://example.org/tervale/")

    def faults(self, text):
        return list(cask.faults(text, self.archive))

    def test_tells_the_name_and_the_hash_of_its_archive(self):
        self.assertEqual(self.faults(self.text), [])
        self.assertIn('  version "1.2.3"\n', self.text)
        self.assertIn('  url "https://example.org/tervale/Tervale-#{version}-macos-arm64.zip"\n', self.text)

    def test_is_wrong_for_another_archive(self):
        self.archive.write_bytes(b"another archive")
        self.assertEqual(len(self.faults(self.text)), 1)
        self.assertIn("sha256 is ", self.faults(self.text)[0])

    def test_is_wrong_for_another_version(self):
        self.archive = self.archive.rename(self.archive.with_name("Tervale-1.2.4-macos-arm64.zip"))
        self.assertEqual(self.faults(self.text)[0], "version is 1.2.3, not 1.2.4")

    def test_is_wrong_where_the_archive_is_not_downloaded(self):
        self.assertEqual(len(self.faults(self.text.replace("https:", "http:"))), 1)
        self.assertEqual(len(self.faults(self.text.replace("macos-arm64.zip", "macos.zip"))), 1)

    def test_is_wrong_for_other_processors_or_older_systems(self):
        for line in ("  depends_on arch: :arm64\n", '  depends_on macos: ">= :sonoma"\n', '  app "Tervale.app"\n'):
            self.assertEqual(len(self.faults(self.text.replace(line, ""))), 1, line)

    def test_is_wrong_with_a_value_that_is_not_filled_in(self):
        self.assertIn("a value is not filled in", self.faults(self.text.replace("1.2.3", "@version@")))

    def test_is_not_written_for_a_file_of_another_name(self):
        with self.assertRaises(SystemExit):
            cask.write(self.archive.with_name("Tervale.zip"), "https://example.org")
