"""Measures what the window costs while it is open, on a display of its own that nobody sees.

Usage: windowcost.py [--json] [--seconds S] [--starts N]

Every figure is of the window's process alone; the simulated Mac and the agent are processes beside it. Other
monitors are measured the same way where they are installed."""

import argparse
import contextlib
import ctypes
import json
import os
import re
import shutil
import statistics
import subprocess
import sys
import tempfile
import time
from pathlib import Path

BUILD = Path(__file__).resolve().parents[1] / "build/release"
SOURCES = BUILD / "Sources"

# What is measured: its name, the scenario, the pane, and whether the window is minimised.
CASES = [
    ("Overview", "work", "Overview", False),
    ("Sensors", "work", "Sensors", False),
    ("Profiles", "work", "Profiles", False),
    ("Settings", "work", "Settings", False),
    ("minimised", "work", "Overview", True),
    ("Overview, idle", "idle", "Overview", False),
]
PEERS = ["gnome-system-monitor", "mate-system-monitor", "xfce4-taskmanager", "lxtask",
         "plasma-systemmonitor", "ksysguard"]
# How long a window is given to open and to settle.
SETTLING = 4


# Arithmetic

def a_minute(seconds, measured):
    return seconds * 60 / measured


def memory_of(rollup):
    """Resident and proportional MiB, from /proc/PID/smaps_rollup, which is in kB of 1024 bytes."""
    return tuple(int(re.search(rf"^{name}:\s+(\d+) kB$", rollup, re.MULTILINE)[1]) / 1024
                 for name in ("Rss", "Pss"))


def start_of(line):
    """What a program tells at its first paint."""
    found = re.search(r", ([\d.]+) ms of processor, ([\d.]+) MiB resident, ([\d.]+) MiB proportional", line)
    return dict(zip(("processor_ms", "resident_mib", "proportional_mib"), map(float, found.groups())))


def medians(starts):
    return {name: statistics.median(start[name] for start in starts) for name in starts[0]}


def ratios(start, bare):
    return {name: start[name] / bare[name] for name in start}


# Processes

@contextlib.contextmanager
def running(*command, env=None, **options):
    """A process that ends with the block."""
    process = subprocess.Popen(list(map(str, command)), env=env, stderr=subprocess.DEVNULL, **options)
    try:
        yield process
    finally:
        process.terminate()
        try:
            process.wait(10)
        except subprocess.TimeoutExpired:
            process.kill()
            process.wait()


@contextlib.contextmanager
def display():
    """The name of a new one."""
    reading, writing = os.pipe()
    with running("Xvfb", "-displayfd", writing, "-screen", "0", "1920x1080x24", "-nolisten", "tcp",
                 pass_fds=[writing]):
        os.close(writing)
        with os.fdopen(reading) as names:
            yield f":{names.readline().strip()}"


@contextlib.contextmanager
def session(shown):
    """The environment of a session of its own, with a bus, that shares nothing with the user's."""
    with tempfile.TemporaryDirectory() as folder:
        env = {**os.environ, "DISPLAY": shown, "HOME": folder, "XDG_RUNTIME_DIR": folder,
               "XDG_CONFIG_HOME": f"{folder}/config", "LC_ALL": "C.UTF-8", "QT_QPA_PLATFORM": "xcb"}
        env.pop("WAYLAND_DISPLAY", None)
        with running("dbus-daemon", "--session", "--nofork", "--print-address", env=env,
                     stdout=subprocess.PIPE, text=True) as bus:
            yield {**env, "DBUS_SESSION_BUS_ADDRESS": bus.stdout.readline().strip()}


@contextlib.contextmanager
def machine(scenario, env):
    """The simulated Mac, and its agent with the profiles that it starts with."""
    with running(SOURCES / "tervale-simulator/tervale-simulator", "--scenario", scenario, "--seed", 1, env=env,
                 stdout=subprocess.PIPE, text=True) as simulator:
        # It says where its controller is.
        simulator.stdout.readline()
        with running(SOURCES / "tervale-agent/tervale-agent", env=env):
            time.sleep(1)
            yield


def processor_seconds(pid):
    """What a process has used, with its threads that have ended; the kernel has a clock of each process."""
    counts_in_nanoseconds = 2
    return time.clock_gettime((~pid << 3) | counts_in_nanoseconds)


def minimise(shown, pid):
    """What a window manager does with every window of the process: unmaps it, and marks it as an icon."""
    x11 = ctypes.CDLL("libX11.so.6")
    x11.XOpenDisplay.restype = ctypes.c_void_p
    x11.XInternAtom.restype = ctypes.c_ulong
    x11.XDefaultRootWindow.restype = ctypes.c_ulong
    connection = ctypes.c_void_p(x11.XOpenDisplay(shown.encode()))
    atom = {name: ctypes.c_ulong(x11.XInternAtom(connection, name.encode(), 0))
            for name in ("_NET_WM_PID", "WM_STATE")}
    root = ctypes.c_ulong(x11.XDefaultRootWindow(connection))

    def owner(window):
        kind, form, count, left = ctypes.c_ulong(), ctypes.c_int(), ctypes.c_ulong(), ctypes.c_ulong()
        data = ctypes.POINTER(ctypes.c_ulong)()
        x11.XGetWindowProperty(connection, window, atom["_NET_WM_PID"], ctypes.c_long(0), ctypes.c_long(1), 0,
                               ctypes.c_ulong(0), ctypes.byref(kind), ctypes.byref(form), ctypes.byref(count),
                               ctypes.byref(left), ctypes.byref(data))
        return data[0] if count.value else None

    parent, children, number = ctypes.c_ulong(), ctypes.POINTER(ctypes.c_ulong)(), ctypes.c_uint()
    x11.XQueryTree(connection, root, ctypes.byref(ctypes.c_ulong()), ctypes.byref(parent),
                   ctypes.byref(children), ctypes.byref(number))
    windows = [ctypes.c_ulong(window) for window in children[:number.value]]
    found = [window for window in windows if owner(window) == pid]
    if not found:
        raise RuntimeError("the window is not on the display")
    iconic = (ctypes.c_ulong * 2)(3, 0)
    for window in found:
        x11.XUnmapWindow(connection, window)
        x11.XChangeProperty(connection, window, atom["WM_STATE"], atom["WM_STATE"], 32, 0, iconic, 2)
    x11.XSync(connection, 0)
    x11.XCloseDisplay(connection)


def measure(command, env, seconds, prepare=lambda process: None):
    """What a program that is open costs, once it has settled."""
    with running(*command, env=env, stdout=subprocess.DEVNULL) as process:
        time.sleep(SETTLING)
        prepare(process)
        time.sleep(1)
        before, began = processor_seconds(process.pid), time.monotonic()
        time.sleep(seconds)
        used, passed = processor_seconds(process.pid) - before, time.monotonic() - began
        resident, proportional = memory_of(Path(f"/proc/{process.pid}/smaps_rollup").read_text())
        return {"processor_s_a_minute": a_minute(used, passed), "resident_mib": resident,
                "proportional_mib": proportional}


def measure_starts(env, count):
    """Of the window and of a bare one by turns, so that both see the same machine."""
    def start(program, *arguments):
        command = [str(BUILD / "Benchmarks" / program), str(time.time_ns()), *arguments]
        return start_of(subprocess.run(command, env=env, check=True, stdout=subprocess.PIPE, text=True).stdout)

    pairs = [(start("tervale-startup", "--system"), start("tervale-bare-window")) for _ in range(count)]
    window, bare = medians([pair[0] for pair in pairs]), medians([pair[1] for pair in pairs])
    return {"window": window, "bare": bare, "ratio": ratios(window, bare)}


def measure_all(seconds, starts):
    result = {"seconds": seconds, "open": {}, "peers": {}}
    with display() as shown:
        for scenario in ("work", "idle"):
            with session(shown) as env, machine(scenario, env):
                for name, of, pane, minimised in CASES:
                    if of != scenario:
                        continue
                    hide = (lambda process: minimise(shown, process.pid)) if minimised else lambda process: None
                    command = [SOURCES / "TervaleWindow/Shell/tervale-window", "--pane", pane]
                    result["open"][name] = measure(command, env, seconds, hide)
                if scenario == "work":
                    result["start"] = measure_starts(env, starts)
        with session(shown) as env:
            for peer in filter(shutil.which, PEERS):
                result["peers"][peer] = measure([peer], env, seconds)
    return result


def report(result):
    lines = ["                        processor a minute   resident  proportional"]
    for name, cost in [*result["open"].items(), *result["peers"].items()]:
        lines.append(f"{name:24} {cost['processor_s_a_minute']:15.4f} s {cost['resident_mib']:6.1f} MiB"
                     f" {cost['proportional_mib']:9.1f} MiB")
    if not result["peers"]:
        lines.append("No other monitor is installed to be measured beside it.")
    lines += ["", "start to first paint           processor   resident  proportional"]
    for name in ("window", "bare"):
        cost = result["start"][name]
        lines.append(f"{name:24} {cost['processor_ms']:12.1f} ms {cost['resident_mib']:6.1f} MiB"
                     f" {cost['proportional_mib']:9.1f} MiB")
    ratio = result["start"]["ratio"]
    lines.append(f"{'times':24} {ratio['processor_ms']:12.2f} {ratio['resident_mib']:12.2f}"
                 f" {ratio['proportional_mib']:13.2f}")
    return "\n".join(lines)


def main(arguments):
    parser = argparse.ArgumentParser(prog="./dev bench --window", description=__doc__.split("\n", 1)[0])
    parser.add_argument("--json", action="store_true", help="write JSON")
    parser.add_argument("--seconds", type=float, default=30, help="that each is measured (30)")
    parser.add_argument("--starts", type=int, default=15, help="of each window (15)")
    options = parser.parse_args(arguments)
    result = measure_all(options.seconds, options.starts)
    print(json.dumps(result, indent=2) if options.json else report(result))
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
