"""Where the tests find what they look at."""

import os
import re
import subprocess
from pathlib import Path

SOURCES = Path(__file__).resolve().parents[2]
BUILD = Path(os.environ["TERVALE_BUILD_FOLDER"])
LINUX = SOURCES / "packaging/linux"
ICONS = SOURCES / "packaging/icon"
PROGRAMS = {
    "tervale-window": BUILD / "Sources/TervaleWindow/Shell/tervale-window",
    "tervale-agent": BUILD / "Sources/tervale-agent/tervale-agent",
    "tervale-simulator": BUILD / "Sources/tervale-simulator/tervale-simulator",
    "tervalectl": BUILD / "Sources/tervalectl/tervalectl",
}
ID = "com.velnor.tervale.window"


def version():
    """The one that the project is given."""
    line = (SOURCES / "CMakeLists.txt").read_text("utf-8")
    return re.search(r"^project\(Tervale VERSION ([0-9]+\.[0-9]+\.[0-9]+) ", line, re.MULTILINE)[1]


def output(*command):
    return subprocess.run(command, check=True, stdout=subprocess.PIPE, text=True).stdout
