"""The stand-in of the model service, as a process of this run."""

import json
import shutil
import subprocess
import urllib.request
from pathlib import Path
from urllib.parse import urlencode

from .answers import HOME_FOLDER, Step
from .home import Home
from .waiting import wait_for

MAIN = Path(__file__).resolve().parent.parent / "service" / "main.mjs"


class ModelService:
    """Listens on 127.0.0.1 from construction until `stop`."""

    def __init__(self, home: Home, scripts: dict[str, list[Step]]):
        self.log = home.path / "service.log"
        self.log.touch()
        path = home.path / "scripts.json"
        path.write_text(json.dumps(scripts).replace(HOME_FOLDER, str(home.path)))
        self._process = subprocess.Popen(
            [shutil.which("node") or "node", str(MAIN), str(path), str(self.log)],
            stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True, env=home.environment(),
        )
        self.url = f"http://127.0.0.1:{int(self._process.stdout.readline())}"

    def release(self, gate: str) -> None:
        """Lets the answer held at this gate go on."""
        self._ask("release", gate=gate)

    def wait_held(self, gate: str) -> None:
        """Returns once an answer waits at this gate: whatever came before it has happened."""
        wait_for(f"an answer held at {gate}", lambda: gate in self._ask("held")["held"])

    def stop(self) -> None:
        self._process.stdin.close()
        try:
            self._process.wait(5)
        except subprocess.TimeoutExpired:
            self._process.kill()
            self._process.wait()
        self._process.stdout.close()

    def _ask(self, what: str, **query: str) -> dict:
        with urllib.request.urlopen(f"{self.url}/driver/{what}?{urlencode(query)}", timeout=10) as answer:
            return json.load(answer)
