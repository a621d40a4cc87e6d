"""A throw-away home folder that holds everything one scenario writes."""

import json
import shutil
import subprocess
import tempfile
from pathlib import Path

KEY = "stand-in-key-that-opens-nothing-at-all"
EVENTS = [
    "SessionStart", "UserPromptSubmit", "PreToolUse", "PostToolUse", "PostToolUseFailure", "PermissionRequest",
    "Notification", "PreCompact", "Stop", "SessionEnd", "SubagentStart", "SubagentStop",
]

# Waits until the scenario has made the file, or has taken the folder away.
HOLD = """#!/bin/sh
until [ -e "{home}/gates/$1" ] || [ ! -d "{home}/gates" ]; do sleep 0.1; done
"""

# The user's own hook: keeps one line for each event, so that a failed check can show what the client said.
RECORD = """#!/bin/sh
exec flock "{home}/events.lock" sh -c 'cat >> "{home}/events.jsonl"; echo >> "{home}/events.jsonl"'
"""

# Would read this machine's user's keys, whatever HOME says.
SSH = """#!/bin/sh
echo "There is no network here." >&2
exit 255
"""


class Home:
    """Files: `shop` (a git repository, the project), `bin` (hold, record-event), `gates`, `events.jsonl`."""

    def __init__(self, parent: Path):
        parent.mkdir(parents=True, exist_ok=True)
        self.path = Path(tempfile.mkdtemp(prefix="home-", dir=parent))
        self.project = self.path / "shop"
        self.settings = self.path / ".claude" / "settings.json"
        self.sessions = self.path / "Library/Application Support/Mimkins/sessions"
        (self.path / "gates").mkdir()
        self._write_programs()
        self._write_project()
        self.users_settings = self._users_settings()
        self._write_json(self.settings, self.users_settings)
        self._write_json(self.path / ".claude.json", self._client_state())

    def environment(self, **more: str) -> dict[str, str]:
        """The whole environment of a process of the scenario: nothing of this machine's user comes through."""
        return {
            "HOME": str(self.path),
            "PATH": f"{self.path}/bin:/usr/local/bin:/usr/bin:/bin",
            "TERM": "xterm-256color",
            "LANG": "C.UTF-8",
            "TMPDIR": str(self.path / "tmp"),
            **more,
        }

    def open_gate(self, name: str) -> None:
        """Lets `hold NAME` end."""
        (self.path / "gates" / name).touch()

    def open_all_gates(self) -> None:
        """Lets every `hold` end, now and later."""
        shutil.rmtree(self.path / "gates", ignore_errors=True)

    def git(self, *words: str) -> None:
        """Runs git in the project, as its user."""
        who = ["-c", "user.name=Kim", "-c", "user.email=kim@example.org"]
        subprocess.run(["git", *who, *words], cwd=self.project, env=self.environment(), check=True)

    def events(self) -> list[dict]:
        """What the client has told its hooks so far, oldest first."""
        return [json.loads(line) for line in self._lines(self.path / "events.jsonl")]

    def status_records(self) -> list[str]:
        """The status files as they stand, each with its name."""
        return [f"{path.name}: {path.read_text()}" for path in sorted(self.sessions.glob("*.json"))]

    def registry(self) -> list[str]:
        """The client's registry as it stands."""
        return [f"{path.name}: {path.read_text()}" for path in sorted((self.path / ".claude/sessions").glob("*.json"))]

    def remove(self) -> None:
        shutil.rmtree(self.path, ignore_errors=True)

    def _write_programs(self) -> None:
        (self.path / "tmp").mkdir()
        (self.path / "bin").mkdir()
        for name, text in {"hold": HOLD, "record-event": RECORD, "ssh": SSH}.items():
            program = self.path / "bin" / name
            program.write_text(text.format(home=self.path))
            program.chmod(0o755)

    def _write_project(self) -> None:
        self.project.mkdir()
        (self.project / "a.txt").write_text("hello\n")
        self.git("init", "-q", "-b", "main")
        self.git("add", ".")
        self.git("commit", "-q", "-m", "Start the shop")

    def _users_settings(self) -> dict:
        recorder = {"hooks": [{"type": "command", "command": f"{self.path}/bin/record-event"}]}
        return {
            "permissions": {"allow": ["Bash(hold:*)"]},
            "hooks": {event: [recorder] for event in EVENTS},
        }

    def _client_state(self) -> dict:
        """Answers the client's first-run dialogs beforehand: look, key and trust in the project."""
        return {
            "hasCompletedOnboarding": True,
            "theme": "dark",
            "customApiKeyResponses": {"approved": [KEY[-20:]], "rejected": []},
            "projects": {str(self.project): {"hasTrustDialogAccepted": True, "hasCompletedProjectOnboarding": True}},
        }

    @staticmethod
    def _write_json(path: Path, value: dict) -> None:
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(json.dumps(value, indent=2) + "\n")

    @staticmethod
    def _lines(path: Path) -> list[str]:
        """The complete lines of a file that may be growing; none if there is no such file."""
        if not path.exists():
            return []
        return [line for line in path.read_text().splitlines(keepends=True) if line.endswith("\n") and line.strip()]
