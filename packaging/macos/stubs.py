"""The texts that stand in for libraries when linking: what each of them exports."""

import re
from pathlib import Path


class Stub:
    """The first library of a text with all that it passes on from the ones after it."""

    def __init__(self, path):
        text = Path(path).read_text()
        self.install_name = re.search(r"^install-name:\s*'?([^'\n]+)'?", text, re.MULTILINE).group(1)
        self.version = re.search(r"^current-version:\s*(\S+)", text, re.MULTILINE).group(1)
        self.symbols = set()
        # The parts of each library's exports begin with the targets that they are for.
        for part in re.split(r"^  - (?=targets:)", text, flags=re.MULTILINE)[1:]:
            lists = dict(re.findall(r"([\w-]+):\s*\[([^\]]*)\]", part))
            if "arm64-macos" not in entries(lists["targets"]):
                continue
            for name in ("symbols", "weak-symbols", "thread-local-symbols"):
                self.symbols.update(entries(lists.get(name, "")))
            for name in entries(lists.get("objc-classes", "")):
                self.symbols.update({f"_OBJC_CLASS_$_{name}", f"_OBJC_METACLASS_$_{name}"})


def entries(text):
    return [entry.strip().strip("'") for entry in text.split(",") if entry.strip()]


def stubs_of(places):
    """Of files, and of folders that hold some; by install name."""
    found = {}
    for place in places:
        for path in Path(place).rglob("*.tbd") if Path(place).is_dir() else [place]:
            stub = Stub(path)
            if stub.install_name in found:
                raise SystemExit(f"There are two stubs of {stub.install_name}")
            found[stub.install_name] = stub
    return found
