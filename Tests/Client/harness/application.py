"""The `mimkins` application on a screen of its own, looked at as a screen reader does and clicked with the mouse."""

import json
import shutil
import subprocess
from dataclasses import dataclass
from pathlib import Path
from typing import Optional

from .home import Home
from .screen import Screen
from .waiting import Missed, stays, wait_for

# The distribution's own Python has the bindings of the accessibility bus.
TREE = ["/usr/bin/python3", "-B", str(Path(__file__).resolve().parents[2] / "Desktop" / "accessible-tree.py")]
BUTTON = "push button"
LABEL = "label"
DRAWER = ("frame", "Mimkins")
BYTES_PER_PIXEL = 3
LOOK_SECONDS = 20
STILL_SECONDS = 1.5
WHEEL_STEPS = 3
WHEEL_TURNS = 60


@dataclass(frozen=True)
class Item:
    """One thing that shows, as assistive technology is told of it."""

    role: str
    name: str
    description: str
    parent: str
    window: str  # the name of the window that it stands in
    place: list[int]  # left, top, width and height on the screen
    checked: bool
    focused: bool

    def middle(self) -> tuple[int, int]:
        left, top, width, height = self.place
        return left + width // 2, top + height // 2

    def is_within(self, other: "Item") -> bool:
        left, top, width, height = self.place
        its_left, its_top, its_width, its_height = other.place
        across = its_left <= left and left + width <= its_left + its_width
        return across and its_top <= top and top + height <= its_top + its_height


class Application:
    """Nothing runs before `start`; `stop` ends the application and its screen."""

    def __init__(self, program: Path, home: Home, pictures: Path):
        self._program = program
        self._home = home
        self._pictures = pictures
        self._screen = Screen(home)
        self._process: Optional[subprocess.Popen] = None
        self._settings = home.path / ".config/mimkins/app.mimkins.json"

    def start(self) -> None:
        """Starts the screen and the application, and returns once its drawer stands at its place.

        The theme is one in which nothing but the pets moves, so that pictures can be compared. Those of an earlier
        run are taken away.
        """
        shutil.rmtree(self._pictures, ignore_errors=True)
        self._settings.parent.mkdir(parents=True)
        self._settings.write_text(json.dumps({"themeId": "midnight"}))
        self._screen.start()
        command = [str(self._program), "--home", str(self._home.path)]
        self._process = self._screen.begin(command, QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1")
        self._settled(*DRAWER)

    def is_running(self) -> bool:
        return self._process is not None and self._process.poll() is None

    def sees(self, role: str, name: str) -> Item:
        """What has this role and name, once it shows."""
        return wait_for(f"the {role} {name!r} on the screen", lambda: self._find(role, name))

    def shows(self, session: dict) -> Item:
        """The session's card, once it says what the command tells of it."""
        return self.sees(BUTTON, ", ".join(session[part] for part in ("petName", "moodLabel", "project")))

    def click(self, name: str) -> None:
        """Clicks on the button of this name, once it stands still."""
        self._screen.click(*self._settled(BUTTON, name).middle())
        self._screen.move_away()

    def scroll_to(self, name: str) -> None:
        """Turns the wheel over the drawer until all of the button stands in it."""
        drawer = self._settled(*DRAWER)
        for _ in range(WHEEL_TURNS):
            if self._settled(BUTTON, name).is_within(drawer):
                return
            self._screen.turn_wheel(*drawer.middle(), WHEEL_STEPS)
        raise Missed(f"the wheel doesn't lead to the button {name!r}")

    def stands_still(self) -> bytes:
        """The drawer's picture, after a while in which nothing has moved in it."""
        before = self._drawer_pixels()
        stays("the drawer's picture", lambda: self._drawer_pixels() == before, STILL_SECONDS)
        return before

    def changed_share(self, before: bytes) -> float:
        """How much of the drawer's picture differs from an earlier one, between 0 and 1."""
        now = self._drawer_pixels()
        if len(now) != len(before):
            raise Missed("the drawer has another size than before")
        pixels = range(0, len(now), BYTES_PER_PIXEL)
        changed = sum(now[at : at + BYTES_PER_PIXEL] != before[at : at + BYTES_PER_PIXEL] for at in pixels)
        return changed / len(pixels)

    def settings(self) -> dict:
        """What the application keeps of its user's choices; empty before there is a file."""
        return json.loads(self._settings.read_text()) if self._settings.exists() else {}

    def picture(self, name: str) -> Path:
        path = self._pictures / f"{name}.png"
        self._screen.picture(path)
        return path

    def evidence(self) -> str:
        """What a person needs to see why a check failed."""
        try:
            items = [f"{item.role} {item.name!r} {item.place}" for item in self._items()]
            shown = "\n".join([f"a picture of it is {self.picture('failed')}", *items])
        except (Missed, OSError, subprocess.TimeoutExpired) as error:
            shown = f"({error})"
        parts = {"application": shown, "what its screen's programs say": self._screen.log().rstrip()}
        return "\n".join(f"--- {name}\n{text}" for name, text in parts.items())

    def stop(self) -> None:
        self._screen.stop()

    def _settled(self, role: str, name: str) -> Item:
        """What has this role and name, once two looks find it at the same place."""
        seen = [self.sees(role, name)]

        def is_still() -> bool:
            seen.append(self.sees(role, name))
            return seen[-1].place == seen[-2].place

        wait_for(f"the {role} {name!r} to stand still", is_still)
        return seen[-1]

    def _drawer_pixels(self) -> bytes:
        return self._screen.pixels(self._settled(*DRAWER).place)

    def _find(self, role: str, name: str) -> Optional[Item]:
        return next((item for item in self._items() if (item.role, item.name) == (role, name)), None)

    def _items(self) -> list[Item]:
        """All that shows; nothing if it changed while it was read."""
        if not self.is_running():
            raise Missed("the application isn't running")
        environment = self._screen.environment()
        look = subprocess.run(TREE, env=environment, capture_output=True, text=True, timeout=LOOK_SECONDS)
        return [Item(**item) for item in json.loads(look.stdout)] if look.returncode == 0 else []
