"""What a program or library of the Mac says of itself, asked of LLVM's tools and of its signature."""

import hashlib
import os
import re
import shutil
import struct
import subprocess
from pathlib import Path

ARCHITECTURE = "arm64"
PROCESSOR = 0x0100000C

EMBEDDED_SIGNATURE = 0xFADE0CC0
CODE_DIRECTORY = 0xFADE0C02
SHA256 = 2
AD_HOC = 0x2
# Where a directory of hashes keeps those of other things than pages, counted backwards from the first page.
INFORMATION, REQUIREMENTS, RESOURCES = 1, 2, 3


class Malformed(Exception):
    """A file is not what it should be; the text says why."""


def tool(name):
    for candidate in [name] + [f"{name}-{version}" for version in range(30, 13, -1)]:
        path = shutil.which(candidate)
        if path:
            return path
    raise SystemExit(f"{name} is missing; './dev setup' installs it.")


def output(*command):
    """What a tool says; one that ends badly makes its file a malformed one."""
    result = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
    if result.returncode:
        raise Malformed(f"cannot be read: {result.stderr.strip().splitlines()[-1:]}")
    return result.stdout


def is_mach_o(path):
    with open(path, "rb") as file:
        return file.read(4) in (b"\xcf\xfa\xed\xfe", b"\xca\xfe\xba\xbe")


class Answers:
    """What the tools said of each content of a file; kept in a folder too if there is one."""

    def __init__(self):
        self.folder = None
        self.known = {}

    def ask(self, path, digest, name, *options):
        question = "-".join([digest, name, *options]).replace("/", "")
        if question not in self.known:
            self.known[question] = self.kept(question) or self.keep(question, output(tool(name), *options, str(path)))
        return self.known[question]

    def kept(self, question):
        kept = self.folder and self.folder / question
        return kept.read_text() if kept and kept.is_file() else None

    def keep(self, question, answer):
        if self.folder:
            # In one step, for those who look at the same time.
            unfinished = self.folder / f"{question}.{os.getpid()}"
            unfinished.write_text(answer)
            unfinished.replace(self.folder / question)
        return answer


answers = Answers()


class MachO:
    """One file's load commands and symbols, for the Mac's own processor."""

    def __init__(self, path):
        self.path = Path(path)
        # The tools are not to be trusted with whatever else it may be.
        content = self.path.read_bytes()
        self.content = own_slice(content)
        self.digest = hashlib.sha256(content).hexdigest()
        text = self.ask("llvm-objdump", "--macho", f"--arch={ARCHITECTURE}", "--private-headers")
        header = re.search(r"^ ?\s*MH_MAGIC_64\s+(\S+)\s+\S+\s+\S+\s+(\S+)", text, re.MULTILINE)
        if not header:
            raise Malformed(f"holds nothing for {ARCHITECTURE}")
        self.architecture, self.kind = header.group(1).lower(), header.group(2)
        self.commands = [dict(re.findall(r"^\s*(\w+) (.+)$", part, re.MULTILINE))
                         for part in re.split(r"^Load command \d+\n", text, flags=re.MULTILINE)[1:]]

    def ask(self, name, *options):
        return answers.ask(self.path, self.digest, name, *options)

    def fields(self, command, field):
        return [re.sub(r" \(offset \d+\)$", "", entry[field]) for entry in self.commands
                if entry.get("cmd") == command]

    def libraries(self):
        return [name for command in ("LC_LOAD_DYLIB", "LC_LOAD_WEAK_DYLIB", "LC_REEXPORT_DYLIB")
                for name in self.fields(command, "name")]

    def run_paths(self):
        return self.fields("LC_RPATH", "path")

    def own_names(self):
        """What a library is found as; programs and most plugins have no such name."""
        return self.fields("LC_ID_DYLIB", "name")

    def least_versions(self):
        """Of macOS alone."""
        return [entry["minos"] for entry in self.commands
                if entry.get("cmd") == "LC_BUILD_VERSION" and entry["platform"] in ("macos", "1")] + [
                    entry["version"] for entry in self.commands
                    if entry.get("cmd") == "LC_VERSION_MIN_MACOSX"]

    def undefined(self):
        """A symbol, the short name of the library that it comes from or None, and whether it has to be there."""
        text = self.ask("llvm-nm", f"--arch={ARCHITECTURE}", "-m", "--undefined-only")
        found = []
        for line in text.splitlines():
            match = re.match(r"\s*\(undefined\)(.*?)external (\S+)(?: \((?:from (\S+)|.*)\))?$", line)
            if not match:
                raise Malformed(f"has a symbol of an unknown kind: {line.strip()}")
            found.append((match.group(2), match.group(3), "weak" not in match.group(1)))
        return found

    def exports(self):
        return set(self.ask("llvm-nm", f"--arch={ARCHITECTURE}", "--defined-only", "--extern-only", "-j").split())

    def check_signature(self):
        """Fails unless there is a signature and every page is what it was when it was signed."""
        offset, directory = self.signature()
        check_code_directory(self.content, directory, offset)

    def identity(self):
        """The hash by which the system knows what is signed so."""
        _, directory = self.signature()
        return hashlib.sha256(directory[:struct.unpack_from(">I", directory, 4)[0]]).digest()[:20]

    def bound(self, place):
        """The hash of another thing than a page that the signature holds; None if it holds none."""
        _, directory = self.signature()
        (hashes,) = struct.unpack_from(">I", directory, 16)
        (places,) = struct.unpack_from(">I", directory, 24)
        found = directory[hashes - 32 * place:hashes - 32 * (place - 1)] if place <= places else bytes(32)
        return found if any(found) else None

    def signature(self):
        """Where it begins, and its directory of hashes."""
        places = [(int(entry["dataoff"]), int(entry["datasize"])) for entry in self.commands
                  if entry.get("cmd") == "LC_CODE_SIGNATURE"]
        if len(places) != 1:
            raise Malformed("is not signed")
        offset, size = places[0]
        return offset, code_directory(self.content[offset:offset + size])


def own_slice(content):
    """The part of a file that is for this processor: all of it in most."""
    if content[:4] == b"\xcf\xfa\xed\xfe" and struct.unpack_from("<I", content, 4)[0] == PROCESSOR:
        return content
    if content[:4] == b"\xca\xfe\xba\xbe":
        for index in range(struct.unpack_from(">I", content, 4)[0]):
            processor, _, offset, size, _ = struct.unpack_from(">5I", content, 8 + 20 * index)
            if processor == PROCESSOR:
                return content[offset:offset + size]
    raise Malformed(f"holds nothing for {ARCHITECTURE}")


def code_directory(signature):
    magic, _, count = struct.unpack_from(">3I", signature)
    if magic != EMBEDDED_SIGNATURE:
        raise Malformed("has something else in the place of its signature")
    for index in range(count):
        _, offset = struct.unpack_from(">2I", signature, 12 + 8 * index)
        if struct.unpack_from(">I", signature, offset)[0] == CODE_DIRECTORY:
            return signature[offset:]
    raise Malformed("has a signature without hashes")


def check_code_directory(content, directory, signature_offset):
    (_, _, _, _, hashes, _, _, pages, limit, hash_size, hash_type, _, page_shift) = struct.unpack_from(
        ">9I4B", directory)
    if hash_type != SHA256:
        raise Malformed("is not signed with SHA-256")
    if limit != signature_offset:
        raise Malformed("has a signature that does not cover all of it")
    page = 1 << page_shift
    if pages != -(-limit // page):
        raise Malformed("has a signature with another number of pages")
    for index in range(pages):
        digest = hashlib.sha256(content[index * page:min((index + 1) * page, limit)]).digest()
        if digest[:hash_size] != directory[hashes + index * hash_size:hashes + (index + 1) * hash_size]:
            raise Malformed(f"was changed after it was signed, in page {index}")
