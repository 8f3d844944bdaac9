import gzip
import re
import subprocess
import tempfile
import unittest
import xml.etree.ElementTree as ElementTree
from pathlib import Path

from project import BUILD, ID, LINUX, SOURCES, output, version


class Installation(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(cls.folder.cleanup)
        cls.root = Path(cls.folder.name)
        subprocess.run(["cmake", "--install", str(BUILD), "--prefix", str(cls.root / "usr")],
                       check=True, stdout=subprocess.DEVNULL)

    def unpacked(self, path):
        return gzip.decompress((self.root / path).read_bytes()).decode("utf-8")

    def test_holds_the_files_of_the_list_with_their_modes_and_no_others(self):
        lines = (LINUX / "files").read_text("utf-8").splitlines()
        expected = {line for line in lines if not line.startswith("#")}
        found = {f"{path.stat().st_mode & 0o7777:04o} {path.relative_to(self.root)}"
                 for path in self.root.rglob("*") if not path.is_dir()}
        self.assertEqual(found, expected)

    def test_has_the_projects_version_everywhere(self):
        for program in (self.root / "usr/bin").iterdir():
            said = output(str(program), "--version")
            self.assertRegex(said, rf"^{program.name} {re.escape(version())} \(\d+\)\n$")
            manual = self.unpacked(f"usr/share/man/man1/{program.name}.1.gz")
            self.assertIn(f'"Tervale {version()}"', manual.splitlines()[0])
        metainfo = ElementTree.parse(self.root / f"usr/share/metainfo/{ID}.metainfo.xml")
        self.assertEqual([release.get("version") for release in metainfo.iter("release")], [version()])
        changes = self.unpacked("usr/share/doc/tervale/changelog.Debian.gz")
        self.assertRegex(changes, rf"^tervale \({re.escape(version())}-\d+\) ")
        package = (BUILD / "CPackConfig.cmake").read_text("utf-8")
        self.assertIn(f'set(CPACK_PACKAGE_VERSION "{version()}")', package)

    def test_has_the_version_written_down_in_one_place_only(self):
        for path in (SOURCES / "packaging").rglob("*"):
            if path.is_file() and path.suffix != ".svg" and path.parent.name != "__pycache__":
                self.assertNotRegex(path.read_text("utf-8"), rf"(?<![0-9.]){re.escape(version())}(?![0-9.])",
                                    str(path))

    def test_has_the_changes_of_its_version_under_a_heading_of_their_own(self):
        changes = (SOURCES / "CHANGELOG.md").read_text("utf-8")
        headings = re.findall(r"^## (.*)$", changes, re.MULTILINE)
        self.assertEqual(headings[0], "[Unreleased]")
        self.assertRegex(headings[1], rf"^\[{re.escape(version())}\] - \d{{4}}-\d\d-\d\d$")

    def test_has_its_version_from_one_header_in_the_programs(self):
        for path in [*(SOURCES / "Sources").rglob("*.*"), *(SOURCES / "Sources").rglob("CMakeLists.txt")]:
            text = path.read_text("utf-8")
            self.assertNotIn("TERVALE_VERSION", text, str(path))
            if path.name != "Version.h.in":
                self.assertNotIn("PROJECT_VERSION", text, str(path))

    def test_starts_a_program_that_is_there_from_the_desktop_with_an_icon_that_is_there(self):
        entry = (self.root / f"usr/share/applications/{ID}.desktop").read_text("utf-8")
        for program in re.findall(r"^(?:Try)?Exec=(\S+)", entry, re.MULTILINE):
            self.assertTrue((self.root / "usr/bin" / program).exists(), program)
        icon = re.search(r"^Icon=(.*)$", entry, re.MULTILINE)[1]
        hicolor = self.root / "usr/share/icons/hicolor"
        self.assertTrue((hicolor / f"scalable/apps/{icon}.svg").exists())
        self.assertTrue((hicolor / f"48x48/apps/{icon}.png").exists())

    def test_is_known_by_one_name_to_the_desktop_and_to_software_centres(self):
        metainfo = ElementTree.parse(self.root / f"usr/share/metainfo/{ID}.metainfo.xml")
        self.assertEqual(metainfo.findtext("id"), ID)
        launchable = metainfo.findtext("launchable")
        self.assertTrue((self.root / "usr/share/applications" / launchable).exists())
        programs = {binary.text for binary in metainfo.iter("binary")}
        self.assertEqual(programs, {path.name for path in (self.root / "usr/bin").iterdir()})

    def test_has_the_whole_licence_in_its_copyright_file(self):
        def words(text):
            return [word for word in text.split() if word != "."]

        copyright_file = (self.root / "usr/share/doc/tervale/copyright").read_text("utf-8")
        licence = (SOURCES / "LICENSE").read_text("utf-8")
        terms = licence[licence.index("Permission is") :]
        self.assertEqual(words(copyright_file[copyright_file.index(" Permission is") :]), words(terms))
        holder = re.search(r"Copyright \(c\) (.*)", licence)[1]
        self.assertIn(f"\nCopyright: {holder}\n", copyright_file)
