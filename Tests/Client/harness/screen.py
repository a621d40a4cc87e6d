"""A virtual X screen of the scenario's own, with a window manager, a session bus, and a person's mouse."""

import os
import shutil
import subprocess
import tempfile
from pathlib import Path

from .home import Home
from .terminal import end
from .waiting import Missed, wait_for

SIZE = "1280x800x24"
GROUND = "#38506b"


class Screen:
    """Nothing runs before `start`; `stop` ends all of it, however far it came."""

    def __init__(self, home: Home):
        self._home = home
        self._started: list[subprocess.Popen] = []
        self._log = home.path / "screen.log"
        # Short, since the paths of sockets are, and nothing of this machine's user.
        self._runtime = Path(tempfile.mkdtemp(prefix="mimkins-screen-"))
        self._places = {"XDG_RUNTIME_DIR": str(self._runtime)}

    def environment(self, **more: str) -> dict[str, str]:
        """The whole environment of a program that shows on this screen."""
        return self._home.environment(**self._places, **more)

    def start(self) -> None:
        display = self._start_telling("Xvfb", "-screen", "0", SIZE, "-nolisten", "tcp", "-displayfd")
        self._places["DISPLAY"] = f":{display}"
        self._places["DBUS_SESSION_BUS_ADDRESS"] = self._start_telling(
            "dbus-daemon", "--session", "--nofork", "--nopidfile", "--print-address"
        )
        self.begin(["openbox"])
        wait_for("the window manager", self._is_managed)
        self.run("xsetroot", "-solid", GROUND)

    def begin(self, command: list[str], **more: str) -> subprocess.Popen:
        """Starts a program on the screen, which ends with it at the latest."""
        with open(self._log, "ab") as log:
            process = subprocess.Popen(command, env=self.environment(**more), stdout=log, stderr=log)
        self._started.append(process)
        return process

    def run(self, *command: str) -> str:
        """What a program prints that looks at the screen or acts on it. Raises Missed if it fails."""
        done = subprocess.run(command, env=self.environment(), capture_output=True, text=True, timeout=30)
        if done.returncode != 0:
            raise Missed(f"{' '.join(command)} ended with {done.returncode}: {done.stderr.strip()}")
        return done.stdout

    def click(self, x: int, y: int) -> None:
        self.run("xdotool", "mousemove", "--sync", str(x), str(y), "click", "1")

    def turn_wheel(self, x: int, y: int, steps: int) -> None:
        """Turns the wheel down over a place."""
        self.run("xdotool", "mousemove", str(x), str(y), "click", "--repeat", str(steps), "--delay", "30", "5")

    def move_away(self) -> None:
        """Puts the pointer where it changes the look of nothing."""
        self.run("xdotool", "mousemove", "40", "760")

    def picture(self, path: Path) -> None:
        path.parent.mkdir(parents=True, exist_ok=True)
        self.run("import", "-window", "root", str(path))

    def pixels(self, place: list[int]) -> bytes:
        """The colours within a place, given as left, top, width and height."""
        left, top, width, height = place
        part = f"{width}x{height}+{left}+{top}"
        command = ["import", "-window", "root", "-crop", part, "-depth", "8", "rgb:-"]
        return subprocess.run(command, env=self.environment(), capture_output=True, check=True, timeout=30).stdout

    def log(self) -> str:
        """What the programs on the screen have said."""
        return self._log.read_text(errors="replace") if self._log.exists() else ""

    def stop(self) -> None:
        for process in reversed(self._started):
            if process.poll() is None:
                end(process.pid)
            process.wait()
        shutil.rmtree(self._runtime, ignore_errors=True)

    def _start_telling(self, *command: str) -> str:
        """Starts a server that is told at its end which descriptor to write its address to."""
        reading, writing = os.pipe()
        with open(reading, encoding="utf-8") as answer, open(self._log, "ab") as log:
            try:
                words = [*command, str(writing)]
                self._started.append(
                    subprocess.Popen(words, env=self.environment(), stdout=log, stderr=log, pass_fds=[writing])
                )
            finally:
                os.close(writing)
            address = answer.readline().strip()
        if not address:
            raise Missed(f"{command[0]} didn't start")
        return address

    def _is_managed(self) -> bool:
        # xprop succeeds on a property that is missing too, so its words are looked at.
        return "window id" in self.run("xprop", "-root", "_NET_SUPPORTING_WM_CHECK")
