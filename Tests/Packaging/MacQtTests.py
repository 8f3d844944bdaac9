import hashlib
import os
import shutil
import subprocess
import tempfile
import unittest
import zipfile
from pathlib import Path

from project import SOURCES

NAME = "PySide6_Essentials-6.4.2-cp37-abi3-macosx_10_9_universal2.whl"
INFORMATION = "PySide6_Essentials-6.4.2.dist-info"
CORE = "Qt/lib/QtCore.framework/Versions/A/QtCore"
USED = [CORE, "Qt/lib/QtCore.framework/Versions/A/Resources/Info.plist", "Qt/plugins/platforms/libqcocoa.dylib"]
UNUSED = ["Qt/lib/QtQml.framework/Versions/A/QtQml", "Qt/plugins/tls/libqopensslbackend.dylib", "QtCore.abi3.so",
          "Qt/lib/QtCore.framework/Resources/Info.plist"]


class FrameworksOfQt(unittest.TestCase):
    """As they are got from a package of our own making, without any network."""

    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.package = Path(folder.name) / NAME
        with zipfile.ZipFile(cls.package, "w") as package:
            for name in USED + UNUSED:
                package.writestr(f"PySide6/{name}", f"this is {name}")
            package.writestr(f"{INFORMATION}/METADATA", "Metadata-Version: 2.1\nName: PySide6-Essentials\nVersion: 6.4.2\n")
            package.writestr(f"{INFORMATION}/WHEEL", "Wheel-Version: 1.0\nTag: cp37-abi3-macosx_10_9_universal2\n")
            package.writestr(f"{INFORMATION}/RECORD", "")
        # Making one takes seconds.
        cls.pip = Path(folder.name) / "pip"
        subprocess.run(["python3", "-m", "venv", cls.pip], check=True)
        cls.hash = hashlib.sha256(cls.package.read_bytes()).hexdigest()

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)
        self.got = self.folder / "got"
        self.got.mkdir()
        (self.got / "pip").symlink_to(self.pip)
        shutil.copy(SOURCES / "cmake/mac/prepare-qt", self.folder)
        self.want(self.hash)

    def want(self, digest):
        (self.folder / "qt-requirements.txt").write_text(f"PySide6-Essentials==6.4.2 --hash=sha256:{digest}\n")

    def prepare(self, offered=True):
        """The status; with the package offered, or with nowhere to get it from."""
        environment = {**os.environ, "PIP_CONFIG_FILE": os.devnull, "PIP_NO_INDEX": "1",
                       "PIP_FIND_LINKS": str(self.package.parent if offered else self.folder)}
        result = subprocess.run([self.folder / "prepare-qt", self.got], env=environment, stdout=subprocess.PIPE,
                                stderr=subprocess.STDOUT, text=True)
        self.said = result.stdout
        return result.returncode

    def files(self):
        return sorted(str(path.relative_to(self.got)) for path in (self.got / "Qt").rglob("*") if path.is_file())

    def test_are_taken_out_of_the_package_and_checked_again_each_time(self):
        self.assertEqual(self.prepare(), 0, self.said)
        self.assertEqual(self.files(), sorted(USED))
        self.assertEqual((self.got / CORE).read_text(), f"this is {CORE}")
        self.assertEqual(self.prepare(offered=False), 0)
        (self.got / CORE).write_text("something else")
        self.assertEqual(self.prepare(), 0)
        self.assertEqual((self.got / CORE).read_text(), f"this is {CORE}")

    def test_cannot_be_had_without_the_package(self):
        self.assertEqual(self.prepare(offered=False), 77)
        self.assertFalse((self.got / "Qt").exists())

    def test_are_not_taken_from_another_package(self):
        self.assertEqual(self.prepare(), 0)
        self.want("0" * 64)
        self.assertEqual(self.prepare(), 1)
        self.assertIn("is not what it was", self.said)
        self.assertFalse((self.got / "Qt").exists())
