"""One session of the real client, as the scenarios speak of it."""

import uuid
from pathlib import Path
from typing import Callable, Optional

from .home import KEY, Home
from .mimkin import Mimkin
from .service import ModelService
from .terminal import Terminal
from .waiting import PATIENCE, Missed, stays, wait_for

# Keeps the client to the one address that it is given. The proxy is a port that nothing listens at, for whatever
# these switches don't cover.
QUIET = {
    "DISABLE_TELEMETRY": "1",
    "DISABLE_AUTOUPDATER": "1",
    "DISABLE_ERROR_REPORTING": "1",
    "CLAUDE_CODE_DISABLE_NONESSENTIAL_TRAFFIC": "1",
    "CLAUDE_CODE_DISABLE_OFFICIAL_MARKETPLACE_AUTOINSTALL": "1",
    "HTTP_PROXY": "http://127.0.0.1:9",
    "HTTPS_PROXY": "http://127.0.0.1:9",
    "NO_PROXY": "127.0.0.1",
}
SETTLED_SECONDS = 1.5


class Session:
    """A client in its terminal, with its home and its service. The hooks are connected before it starts."""

    def __init__(self, home: Home, client: Path, mimkin: Mimkin, service: ModelService):
        self.home = home
        self.mimkin = mimkin
        self.id = str(uuid.uuid4())
        self.service = service
        self._client = client
        self._terminal: Optional[Terminal] = None
        self._others: list["Session"] = []
        self.moods: list[str] = []

    def another(self) -> "Session":
        """A second session of the same user in the same project; it ends with this one."""
        other = Session(self.home, self._client, self.mimkin, self.service)
        self._others.append(other)
        return other

    def start(self, permission_mode: str = "default") -> None:
        """Starts the client and returns once it can be typed into."""
        environment = self.home.environment(
            ANTHROPIC_BASE_URL=self.service.url, ANTHROPIC_API_KEY=KEY, **QUIET
        )
        command = [str(self._client), "--session-id", self.id, "--permission-mode", permission_mode]
        self._terminal = Terminal(self.home, command, environment)
        self.sees("❯")

    def prompt(self, script: str) -> None:
        """Gives the client the prompt that makes the model follow this script."""
        line = f"script:{script}"
        self.type_line(line)
        self.wait_event("UserPromptSubmit", prompt=line)

    def type_line(self, text: str) -> None:
        """Types a line and sends it off once the client shows it."""
        self._terminal.type(text)
        self.sees(text)
        self._terminal.press("Enter")

    def press(self, *keys: str) -> None:
        self._terminal.press(*keys)

    def sees(self, text: str) -> None:
        self._terminal.sees(text)

    def open(self, gate: str) -> None:
        """Lets on whatever waits at the gate: a command (`hold NAME`) or an answer of the model."""
        self.home.open_gate(gate)
        self.service.release(gate)

    def now(self) -> dict:
        """The session as `mimkin sessions` tells of it at this moment; empty if it isn't in the list."""
        session = self.mimkin.session(self.id) or {}
        mood = session.get("mood", "(gone)")
        if self.moods[-1:] != [mood]:
            self.moods.append(mood)
        return session

    def reaches(self, *moods: str, seconds: float = PATIENCE, **fields) -> dict:
        """The session once it has one of these moods, and these fields. Raises Missed if that doesn't come."""
        what = " or ".join(moods) + (f" with {fields}" if fields else "")
        return wait_for(what, lambda: self._matching(moods, fields), seconds)

    def keeps(self, *moods: str, **fields) -> None:
        """Checks that the session has one of these moods, and these fields, for as long as late news may take."""
        stays(f"{' or '.join(moods)} with {fields}", lambda: self._matching(moods, fields) is not None, SETTLED_SECONDS)

    def settles(self, *moods: str, **fields) -> dict:
        """Reaches one of these moods, and these fields, and keeps them."""
        session = self.reaches(*moods, **fields)
        self.keeps(*moods, **fields)
        return session

    def comes_to(self, what: str, shows: Callable[[dict], bool], seconds: float = PATIENCE) -> dict:
        """The session once `shows` is true of it. Raises Missed, naming `what`, if that doesn't come."""
        return wait_for(what, lambda: self._showing(shows), seconds)

    def appears(self) -> dict:
        return wait_for("the session in the list", self.now)

    def is_gone(self) -> None:
        wait_for("the session to leave the list", lambda: not self.now())

    def wait_event(self, name: str, **fields) -> dict:
        """The session's latest event of this name and with these fields, once there is one."""
        return wait_for(f"the event {name} {fields or ''}", lambda: self._event(name, fields))

    def is_over(self) -> None:
        wait_for("the client to end", self._terminal.is_over)

    def stop(self) -> None:
        """Ends everything that the session has started, and the sessions beside it."""
        self.home.open_all_gates()
        for other in self._others:
            other.stop()
        if self._terminal:
            self._terminal.stop()

    def evidence(self) -> str:
        """What a person needs to see why a check failed."""
        events = [f"{event['hook_event_name']} {event}"[:300] for event in self.home.events()[-12:]]
        log = self.service.log.read_text().splitlines()[-15:]
        parts = {
            "screen": self._screen().rstrip(),
            "last answer of mimkin": self.mimkin.last_answer.rstrip(),
            "moods seen": " ".join(self.moods),
            "status files": "\n".join(self.home.status_records()),
            "registry": "\n".join(self.home.registry()),
            "last events": "\n".join(events),
            "model service": "\n".join(log),
        }
        return "\n".join(f"--- {name}\n{text}" for name, text in parts.items())

    def _screen(self) -> str:
        try:
            return self._terminal.screen() if self._terminal else "(the client was not started)"
        except Missed as missed:
            return f"({missed})"

    def _matching(self, moods: tuple[str, ...], fields: dict) -> Optional[dict]:
        session = self.now()
        fits = session.get("mood") in moods and all(session.get(name) == value for name, value in fields.items())
        return session if fits else None

    def _showing(self, shows: Callable[[dict], bool]) -> Optional[dict]:
        session = self.now()
        return session if session and shows(session) else None

    def _event(self, name: str, fields: dict) -> Optional[dict]:
        for event in reversed(self.home.events()):
            wanted = {"session_id": self.id, "hook_event_name": name, **fields}
            if all(event.get(key) == value for key, value in wanted.items()):
                return event
        return None
