"""What an archive or a disk image of the bundle holds, and how each of it is told there."""

import os
import stat
import time

# The least date that an archive can tell.
EARLIEST = 315532800


def entries(app):
    """Names and what is there, folders before what they hold; the licence lies beside the bundle."""
    yield f"{app.name}/", app
    for path in sorted(app.rglob("*")):
        folder = "/" if path.is_dir() and not path.is_symlink() else ""
        yield f"{app.name}/{path.relative_to(app)}{folder}", path
    yield "LICENSE", app / "Contents" / "Resources" / "LICENSE"


def content(path):
    if path.is_symlink():
        return os.readlink(path).encode()
    return b"" if path.is_dir() else path.read_bytes()


def mode(path):
    """Whoever unpacks it may read it all, whatever the rights of who packed it were."""
    kept = path.lstat().st_mode
    if stat.S_ISLNK(kept):
        return stat.S_IFLNK | 0o755
    return stat.S_IFMT(kept) | (0o755 if kept & stat.S_IXUSR else 0o644)


def date():
    """Year, month, day, hour, minute and second that everything bears, so that the same gives the same."""
    return time.gmtime(max(int(os.environ.get("SOURCE_DATE_EPOCH", time.time())), EARLIEST))[:6]
