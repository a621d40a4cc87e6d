"""The `mimkin` command, always with the scenario's home."""

import json
import subprocess
from pathlib import Path
from typing import Optional

from .home import Home
from .waiting import Missed


class Mimkin:
    def __init__(self, program: Path, home: Home):
        self._program = program
        self._home = home
        self.last_answer = ""

    def connect(self) -> None:
        self._run("hooks", "connect")

    def disconnect(self) -> None:
        self._run("hooks", "disconnect")

    def status(self) -> str:
        """The state of the connection, such as "connected"."""
        return self._run("hooks", "status")["status"]

    def session(self, session_id: str) -> Optional[dict]:
        """The session as the command tells of it; nothing if it isn't in the list."""
        sessions = self._run("sessions")["sessions"]
        return next((session for session in sessions if session["id"] == session_id), None)

    def _run(self, *words: str) -> dict:
        command = [str(self._program), *words, "--home", str(self._home.path), "--json"]
        done = subprocess.run(command, env=self._home.environment(), capture_output=True, text=True, timeout=20)
        self.last_answer = done.stdout
        if done.returncode != 0:
            said = done.stderr.strip() or done.stdout.strip()
            raise Missed(f"{' '.join(words)} ended with {done.returncode}: {said}")
        try:
            return json.loads(done.stdout)
        except json.JSONDecodeError as error:
            raise Missed(f"{' '.join(words)} printed no JSON ({error}): {done.stdout!r}") from error
