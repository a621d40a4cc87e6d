"""A terminal for the client: a tmux server of its own, that ends with the scenario."""

import itertools
import os
import re
import signal
import subprocess
import time
from pathlib import Path

from .home import Home
from .waiting import Missed, wait_for

ENDING_SECONDS = 5.0
NUMBERS = itertools.count(1)


class Terminal:
    """Runs one command in a window of 160 by 50 characters."""

    def __init__(self, home: Home, command: list[str], environment: dict[str, str]):
        self._name = f"mimkins-client-{os.getpid()}-{home.path.name}-{next(NUMBERS)}"
        self._environment = home.environment()
        variables = [f"{name}={value}" for name, value in environment.items()]
        self._tmux(
            "-f", "/dev/null", "start-server", ";", "set-option", "-g", "remain-on-exit", "on", ";",
            "new-session", "-d", "-x", "160", "-y", "50", "-c", str(home.project),
            "env", "-i", *variables, *command,
        )
        self._server = int(self._ask("pid"))
        self._command = int(self._ask("pane_pid"))
        self._socket = Path(self._ask("socket_path"))

    def type(self, text: str) -> None:
        """Types the text as it stands."""
        self._tmux("send-keys", "-l", text)

    def press(self, *keys: str) -> None:
        """Presses keys by their tmux names: Enter, Escape, Down, C-c."""
        self._tmux("send-keys", *keys)

    def screen(self) -> str:
        return self._tmux("capture-pane", "-p")

    def sees(self, text: str) -> None:
        """Returns once the text is on the screen; it may be broken over lines between its words."""
        wanted = re.compile(r"\s+".join(re.escape(word) for word in text.split()))
        wait_for(f"{text!r} on the screen", lambda: wanted.search(self.screen()))

    def is_over(self) -> bool:
        """Whether the command has ended by itself."""
        return self._ask("pane_dead") == "1"

    def stop(self) -> None:
        """Ends the command and the server, by their ids, and waits for both."""
        for process in [self._server] if self.is_over() else [self._command, self._server]:
            end(process)
        self._socket.unlink(missing_ok=True)

    def _ask(self, variable: str) -> str:
        return self._tmux("display-message", "-p", f"#{{{variable}}}").strip()

    def _tmux(self, *arguments: str) -> str:
        done = subprocess.run(
            ["tmux", "-L", self._name, *arguments], env=self._environment, capture_output=True, text=True
        )
        if done.returncode != 0:
            raise Missed(f"tmux {arguments[0]}: {done.stderr.strip()}")
        return done.stdout


def end(process: int) -> None:
    """Ends a process that this run has started: asks first, and insists after a while."""
    until = time.monotonic() + ENDING_SECONDS
    try:
        os.kill(process, signal.SIGTERM)
        while is_running(process):
            if time.monotonic() > until:
                os.kill(process, signal.SIGKILL)
            time.sleep(0.05)
    except ProcessLookupError:
        pass


def is_running(process: int) -> bool:
    """Whether there is such a process and it hasn't ended; one that only waits to be collected has."""
    try:
        return Path(f"/proc/{process}/stat").read_text().rpartition(")")[2].split()[0] != "Z"
    except (FileNotFoundError, ProcessLookupError):
        return False
