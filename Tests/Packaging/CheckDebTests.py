import importlib.machinery
import importlib.util
import os
import platform
import shutil
import subprocess
import tarfile
import tempfile
import unittest
from pathlib import Path

from project import LINUX, PROGRAMS

loader = importlib.machinery.SourceFileLoader("check_deb", str(LINUX / "check-deb"))
check_deb = importlib.util.module_from_spec(importlib.util.spec_from_loader("check_deb", loader))
loader.exec_module(check_deb)


def members():
    """Of a package that holds what it should."""
    result = []
    for path, mode in {"./usr": 0o755, **check_deb.expected_files()}.items():
        member = tarfile.TarInfo(path)
        member.mode, member.size = mode, 1
        if path == "./usr":
            member.type = tarfile.DIRTYPE
        result.append(member)
    return result


class Contents(unittest.TestCase):
    def faults_after(self, change):
        changed = members()
        change(changed)
        return list(check_deb.content_faults(changed))

    def test_are_right_as_listed(self):
        self.assertEqual(self.faults_after(lambda _: None), [])

    def test_are_wrong_without_any_one_of_them(self):
        for i in range(1, len(members())):
            self.assertEqual(len(self.faults_after(lambda changed, i=i: changed.pop(i))), 1)

    def test_are_wrong_with_another_file(self):
        self.assertEqual(self.faults_after(lambda changed: changed.append(tarfile.TarInfo("usr/bin/more"))),
                         ["usr/bin/more should not be there"])

    def test_are_wrong_with_another_mode_or_owner_or_nothing_in_them(self):
        for attribute, value in (("mode", 0o775), ("uid", 1000), ("gid", 1000)):
            for i in range(len(members())):
                faults = self.faults_after(
                    lambda changed, i=i: setattr(changed[i], attribute, value))
                self.assertEqual(len(faults), 1, faults)
        self.assertEqual(len(self.faults_after(lambda changed: setattr(changed[1], "size", 0))), 1)

    def test_are_wrong_with_a_link_in_the_place_of_a_file(self):
        faults = self.faults_after(lambda changed: setattr(changed[1], "type", tarfile.SYMTYPE))
        self.assertEqual(len(faults), 1)


@unittest.skipUnless(shutil.which("dpkg-architecture") or os.environ.get("CI") == "true",
                     "dpkg-dev is missing")
class Dependencies(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.root = Path(folder.name)
        (cls.root / "usr/bin").mkdir(parents=True)
        program = cls.root / "usr/bin/tervale-simulator"
        program.symlink_to(PROGRAMS["tervale-simulator"])
        cls.needed = sorted({check_deb.package_of(library)
                             for library in check_deb.libraries_of(program)})

    def faults(self, declared):
        return list(check_deb.dependency_faults(", ".join(declared), self.root))

    def test_are_right_when_they_are_those_of_the_programs_libraries(self):
        self.assertIn("libqt6core6", self.needed)
        self.assertEqual(self.faults(f"{package} (>= 1)" for package in self.needed), [])

    def test_are_wrong_without_any_one_of_them(self):
        for missing in self.needed:
            rest = [f"{package} (>= 1)" for package in self.needed if package != missing]
            self.assertEqual(len(self.faults(rest)), 1)

    def test_are_wrong_with_another_one(self):
        declared = [f"{package} (>= 1)" for package in [*self.needed, "bash"]]
        self.assertEqual(self.faults(declared), ["it depends on bash, which no program needs"])

    def test_are_wrong_of_any_version(self):
        declared = [f"{package} (>= 1)" for package in self.needed[1:]] + self.needed[:1]
        self.assertEqual(len(self.faults(declared)), 1)


@unittest.skipUnless(shutil.which("c++") and shutil.which("readelf") or os.environ.get("CI") == "true",
                     "a compiler is missing")
class Hardening(unittest.TestCase):
    # With as many functions as a program has, and a frame of two pages.
    PROGRAM = """#include <cstdio>
    #include <cstring>
    %s
    int main(int, char** arguments) {
        char text[8192];
        std::strcpy(text, arguments[0]);
        std::puts(text);
    }""" % "\n".join(f"int number{i}() {{ return {i}; }}" for i in range(200))
    ALL = ["-O2", "-fPIC", "-pie", "-fstack-protector-strong", "-U_FORTIFY_SOURCE", "-D_FORTIFY_SOURCE=2",
           "-Wl,-z,relro,-z,now,-z,noexecstack"]
    if platform.machine() == "x86_64":
        ALL += ["-fstack-clash-protection", "-fcf-protection=full"]

    # What only that processor's compiler has.
    PROCESSOR = (
        (["-fcf-protection=none"], "program may be led into the middle of a function"),
        (["-fno-stack-clash-protection"], "no program touches its stack page by page"),
    ) if platform.machine() == "x86_64" else ()

    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.root = Path(folder.name)
        (cls.root / "program.cpp").write_text(cls.PROGRAM)

    def faults(self, *more):
        program = self.root / "program"
        subprocess.run(["c++", *self.ALL, *more, str(self.root / "program.cpp"), "-o", str(program)], check=True)
        return list(check_deb.hardening_faults([program]))

    def test_is_right_with_every_measure(self):
        self.assertEqual(self.faults(), [])

    def test_is_wrong_without_any_one_of_them(self):
        for options, expected in (
                (["-no-pie"], "program is loaded at one address"),
                (["-Wl,-z,lazy"], "program looks its functions up when they are first called"),
                (["-Wl,-z,norelro"], "program leaves its tables writable"),
                (["-Wl,-z,execstack"], "program can run what lies on its stack"),
                (["-fno-stack-protector"], "program does not guard its stack"),
                (["-U_FORTIFY_SOURCE"], "no program checks the lengths that it copies"),
                *self.PROCESSOR):
            with self.subTest(expected):
                self.assertEqual(self.faults(*options), [expected])
