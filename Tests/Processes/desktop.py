"""A desktop of a test's own: a display, a session bus and the accessibility bus, in a folder that goes with them."""

import ctypes
import importlib
import os
import pathlib
import shutil
import signal
import subprocess
import tempfile
import time

# A safety net alone: whatever is waited for comes within moments.
PATIENCE = 60

BUS = """<busconfig>
  <type>session</type>
  <listen>unix:path={place}/bus</listen>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
</busconfig>
"""
LAUNCHER_SERVICE = pathlib.Path("/usr/share/dbus-1/services/org.a11y.Bus.service")


def launcher():
    """The program that starts the accessibility bus, or nothing."""
    if not LAUNCHER_SERVICE.exists():
        return None
    for line in LAUNCHER_SERVICE.read_text().splitlines():
        if line.startswith("Exec="):
            program = line.removeprefix("Exec=").split()[0]
            return program if os.access(program, os.X_OK) else None
    return None


def missing_tool():
    """The first tool that this machine lacks, or nothing."""
    for tool in ("Xvfb", "dbus-daemon", "gdbus"):
        if not shutil.which(tool):
            return tool
    if not launcher():
        return "at-spi-bus-launcher"
    try:
        importlib.import_module("pyatspi")
    except (ImportError, ValueError):
        return "python3-pyatspi"
    return None


def adopt_orphans():
    """Whatever a process leaves behind becomes a child of this one, which then ends it."""
    set_child_subreaper = 36
    ctypes.CDLL(None).prctl(set_child_subreaper, 1, 0, 0, 0)


def children():
    """The processes that this one has started or adopted."""
    found = []
    for entry in os.listdir("/proc"):
        try:
            status = pathlib.Path("/proc", entry, "stat").read_text()
        except (OSError, UnicodeDecodeError):
            continue
        # The name, in brackets, may hold anything.
        state, parent = status.rpartition(")")[2].split()[:2]
        if int(parent) == os.getpid() and state != "Z":
            found.append(int(entry))
    return found


class Desktop:
    def __init__(self):
        adopt_orphans()
        self.processes = []
        self.place = pathlib.Path(tempfile.mkdtemp(prefix="tervale-desktop."))
        try:
            self._open()
        except BaseException:
            self.close()
            raise

    def _open(self):
        self.environment = dict(os.environ)
        for name in ("WAYLAND_DISPLAY", "AT_SPI_BUS_ADDRESS", "DBUS_SESSION_BUS_ADDRESS", "QT_QPA_PLATFORM"):
            self.environment.pop(name, None)
        for variable, folder in (("XDG_RUNTIME_DIR", "run"), ("XDG_CONFIG_HOME", "config"), ("HOME", "home")):
            (self.place / folder).mkdir(mode=0o700)
            self.environment[variable] = str(self.place / folder)
        self.environment.update(
            LC_ALL="C.UTF-8", GSETTINGS_BACKEND="memory", NO_AT_BRIDGE="0",
            QT_QPA_PLATFORM="xcb", QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1",
        )
        self.environment["DISPLAY"] = ":" + self._display()
        configuration = self.place / "bus.conf"
        configuration.write_text(BUS.format(place=self.place))
        bus = self.start(
            ["dbus-daemon", f"--config-file={configuration}", "--nofork", "--nopidfile", "--print-address"],
            stdout=subprocess.PIPE,
        )
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = bus.stdout.readline().strip()
        self.start([launcher(), "--launch-immediately"], stderr=subprocess.DEVNULL)
        subprocess.run(
            ["gdbus", "wait", "--session", "--timeout", str(PATIENCE), "org.a11y.Bus"],
            env=self.environment, check=True, timeout=2 * PATIENCE,
        )

    def _display(self):
        reading, writing = os.pipe()
        # It would begin anew when its last client has gone, and turn away who comes meanwhile.
        self.start(
            ["Xvfb", "-displayfd", str(writing), "-noreset", "-screen", "0", "1280x1024x24", "-nolisten", "tcp"],
            pass_fds=(writing,), stderr=subprocess.DEVNULL,
        )
        os.close(writing)
        with os.fdopen(reading) as says:
            return says.readline().strip()

    def start(self, command, **options):
        """Starts a program, which ends with the desktop."""
        process = subprocess.Popen(command, env=self.environment, start_new_session=True, text=True, **options)
        self.processes.append(process)
        return process

    def close(self):
        """Ends every process, the last one first, and waits for each."""
        for process in reversed(self.processes):
            process.terminate()
            try:
                process.wait(PATIENCE)
            except subprocess.TimeoutExpired:
                process.kill()
                process.wait()
            if process.stdout:
                process.stdout.close()
        self._end_orphans()
        shutil.rmtree(self.place, ignore_errors=True)

    @staticmethod
    def _end_orphans():
        deadline = time.monotonic() + PATIENCE
        while True:
            for process in children():
                os.kill(process, signal.SIGTERM if time.monotonic() < deadline else signal.SIGKILL)
            try:
                ended = os.waitpid(-1, os.WNOHANG)
            except ChildProcessError:
                return
            if ended == (0, 0):
                time.sleep(0.02)
