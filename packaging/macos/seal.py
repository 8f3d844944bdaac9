"""The list of what a bundle holds beside the program that carries its signature.

The list lies in `_CodeSignature/CodeResources`, and the carrier's signature holds its hash: whatever is
changed, added or taken away later shows. A program, a library or a framework in the bundle has a signature
of its own, by whose hash it is listed. `FILES` are those lines for systems before 10.9, of resources alone.
"""

import hashlib
import os
import plistlib
from pathlib import Path

from machO import MachO, is_mach_o

FILES = {
    "^Resources/": True,
    "^Resources/.*\\.lproj/": {"optional": True, "weight": 1000.0},
    "^Resources/.*\\.lproj/locversion.plist$": {"omit": True, "weight": 1100.0},
    "^Resources/Base\\.lproj/": {"weight": 1010.0},
    "^version.plist$": True,
}
ALL_FILES = {
    "^.*": True,
    "^(.*/)?\\.DS_Store$": {"omit": True, "weight": 2000.0},
    "^(Frameworks|SharedFrameworks|PlugIns|Plug-ins|XPCServices|Helpers|MacOS"
    "|Library/(Automator|Spotlight|LoginItems))/": {"nested": True, "weight": 10.0},
    ".*\\.dSYM($|/)": {"weight": 11.0},
    "^Info\\.plist$": {"omit": True, "weight": 20.0},
    "^PkgInfo$": {"omit": True, "weight": 20.0},
    "^Resources/": {"weight": 20.0},
    "^Resources/.*\\.lproj/": {"optional": True, "weight": 1000.0},
    "^Resources/.*\\.lproj/locversion.plist$": {"omit": True, "weight": 1100.0},
    "^Resources/Base\\.lproj/": {"weight": 1010.0},
    "^[^/]+$": {"nested": True, "weight": 10.0},
    "^embedded\\.provisionprofile$": {"weight": 20.0},
    "^version\\.plist$": {"weight": 20.0},
}
PLACE = Path("_CodeSignature") / "CodeResources"


def parts(folder, carrier):
    """What the seal of the folder lists, from there: each file and link, and frameworks as one."""
    found = []
    for name, folders, files in os.walk(folder):
        place = Path(name)
        whole = [each for each in folders if each.endswith(".framework") and not (place / each).is_symlink()]
        links = [each for each in folders if (place / each).is_symlink()]
        folders[:] = sorted(set(folders) - set(whole) - set(links))
        found += [place / each for each in whole + links + files]
    left_out = {folder / carrier, folder / "Info.plist", folder / PLACE}
    return sorted(path.relative_to(folder) for path in found if path not in left_out)


def carrier_of(framework):
    """The library of a framework, and the folder that its seal covers."""
    library = (framework / framework.stem).resolve()
    return library, library.parent


def identity(path):
    """The hash by which a program, a library or a framework is known that has a signature of its own."""
    if path.is_dir():
        path = carrier_of(path)[0]
    return MachO(path).identity()


def has_own_signature(path):
    return path.suffix == ".framework" or is_mach_o(path)


def line(path):
    if path.is_symlink():
        return {"symlink": os.readlink(path)}
    if has_own_signature(path):
        known = identity(path)
        return {"cdhash": known, "requirement": f'cdhash H"{known.hex()}"'}
    return {"hash2": hashlib.sha256(path.read_bytes()).digest()}


def seal(folder, carrier):
    """The text of the list for a folder whose signature the carrier in it bears."""
    every = {str(part): line(folder / part) for part in parts(folder, carrier)}
    resources = {name: hashlib.sha1((folder / name).read_bytes()).digest() for name in every
                 if name.startswith("Resources/") and "hash2" in every[name]}
    return plistlib.dumps({"files": resources, "files2": every, "rules": FILES, "rules2": ALL_FILES})


def faults(folder, carrier):
    """Pairs of a place and of what is wrong with it, measured by the list that lies there."""
    listed = plistlib.loads((folder / PLACE).read_bytes())["files2"]
    present = {str(part) for part in parts(folder, carrier)}
    for name in sorted(present - listed.keys()):
        yield folder / name, "was added after the bundle was signed"
    for name in sorted(listed.keys() - present):
        if not (isinstance(listed[name], dict) and listed[name].get("optional")):
            yield folder / name, "was taken away after the bundle was signed"
    for name in sorted(present & listed.keys()):
        if not agrees(listed[name], line(folder / name)):
            yield folder / name, "is not what it was when the bundle was signed"


def agrees(listed, found):
    """An identity is known by its hash; what else a list requires of it only the system can tell."""
    return all(listed.get(key) == found[key] for key in ("symlink", "cdhash", "hash2") if key in found)
