"""Where the tests find what they look at."""

import sys
from pathlib import Path

SOURCES = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(SOURCES / "Benchmarks"))
