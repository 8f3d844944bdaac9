"""Counts the instructions that a program executes, so that any machine comes to the same number."""

import os
import re
import shutil
import subprocess
import tempfile
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

PROJECT = Path(__file__).resolve().parents[1]
BUILD = PROJECT / "build/release"

# The toolkit and the C library choose code by the processor's features; here they have the oldest.
PROCESSOR_FEATURES = "ssse3 sse4.1 sse4.2 popcnt avx f16c fma bmi bmi2 avx2 aes rdrnd rdseed movbe"
LIBRARY_FEATURES = "-SSSE3,-SSE4_1,-SSE4_2,-AVX,-AVX2,-AVX512F,-BMI1,-BMI2,-ERMS,-FSRM,-RTM"
CACHE_SIZES = {
    "x86_data_cache_size": 32768,
    "x86_shared_cache_size": 1048576,
    "x86_non_temporal_threshold": 786432,
    "x86_rep_movsb_threshold": 2048,
}
FONTS = """<?xml version="1.0"?>
<!DOCTYPE fontconfig SYSTEM "fonts.dtd">
<fontconfig>
  <dir>/usr/share/fonts/opentype/inter</dir>
  <cachedir>{folder}/fonts</cachedir>
</fontconfig>
"""


def environment(folder):
    """Of the programs that are counted: nothing of the user's, and none of the system's fonts but one."""
    fonts = Path(folder) / "fonts.conf"
    fonts.write_text(FONTS.format(folder=folder), "utf-8")
    tunables = [f"glibc.cpu.{name}={size}" for name, size in CACHE_SIZES.items()]
    tunables.append(f"glibc.cpu.hwcaps={LIBRARY_FEATURES}")
    return {
        "FONTCONFIG_FILE": str(fonts),
        "GLIBC_TUNABLES": ":".join(tunables),
        "HOME": str(folder),
        "LC_ALL": "C.UTF-8",
        "PATH": "/usr/bin:/bin",
        "QT_HASH_SEED": "0",
        "QT_NO_CPU_FEATURE": PROCESSOR_FEATURES,
        "QT_QPA_PLATFORM": "offscreen",
        "TZ": "UTC",
        "XDG_CONFIG_HOME": f"{folder}/config",
        "XDG_RUNTIME_DIR": str(folder),
    }


def instructions(log):
    """What callgrind says in the end that it has collected."""
    found = re.search(r"Collected : (\d+)", log)
    if not found or found[1] == "0":
        raise ValueError(f"nothing was counted:\n{log}")
    return int(found[1])


def count(folder, program, *arguments, function=None):
    """The instructions of a program, or those within one function of it."""
    command = [shutil.which("valgrind") or "valgrind", "--tool=callgrind", "--callgrind-out-file=/dev/null"]
    if function:
        command += ["--collect-atstart=no", f"--toggle-collect={function}"]
    run = subprocess.run(
        [*command, str(BUILD / "Benchmarks" / program), *map(str, arguments)],
        env=environment(folder), cwd=folder, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, text=True)
    if run.returncode != 0:
        raise RuntimeError(f"{program} {arguments} ended with status {run.returncode}:\n{run.stderr}")
    return instructions(run.stderr)


def count_task(name, size=None):
    """Those of a task of tervale-counts; "first-paint" is the whole start of the window."""
    with tempfile.TemporaryDirectory() as folder:
        if name == "first-paint":
            program, arguments, function = "tervale-startup", ["0"], None
        else:
            program, function = "tervale-counts", "countedWork"
            arguments = [name] if size is None else [name, size]
        # The first time, the cache of the fonts is made; by the window itself, since an empty one asks for none.
        subprocess.run([str(BUILD / "Benchmarks/tervale-startup"), "0"], env=environment(folder),
                       cwd=folder, check=True, capture_output=True)
        return count(folder, program, *arguments, function=function)


def count_tasks(tasks):
    """The same for a list of names and sizes, on all processors."""
    with ThreadPoolExecutor(os.cpu_count()) as pool:
        return list(pool.map(lambda task: count_task(*task), tasks))
