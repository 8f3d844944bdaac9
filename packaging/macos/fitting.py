"""Making a copy of a library one of a bundle's, as macdeployqt does."""

import os
from pathlib import Path

from image import Image
from machO import MachO

SYSTEM_LIBRARIES, SYSTEM_FRAMEWORKS = "/usr/lib/", "/System/Library/Frameworks/"


def renamed(name):
    """A library's name as it is found in a bundle: a framework from its own folder on, another by itself."""
    if name.startswith((SYSTEM_LIBRARIES, SYSTEM_FRAMEWORKS)):
        return name
    parts = Path(name).parts
    start = next((index for index, part in enumerate(parts) if part.endswith(".framework")), len(parts) - 1)
    return "@rpath/" + "/".join(parts[start:])


def fit(path, frameworks):
    """What the copy needs of others then begins with @rpath, which leads to the bundle's frameworks alone.

    A framework of the system from which nothing is taken may be missing. The signature is spoilt.
    """
    binary = MachO(path)
    used = {origin for _, origin, _ in binary.undefined()}
    image = Image(path.read_bytes())
    image.rename(renamed)
    image.set_run_paths([f"@loader_path/{os.path.relpath(frameworks, path.parent)}"])
    image.load_if_there({name for name in binary.libraries() if name.startswith(SYSTEM_FRAMEWORKS)
                         and Path(name).name not in used})
    path.write_bytes(image.content())
    return path
