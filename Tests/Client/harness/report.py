"""Named checks, their count, and what is printed of them."""

import time
from contextlib import contextmanager
from typing import Callable, Iterator

from .waiting import Missed


class ScenarioOver(Exception):
    """A check has failed; what follows in its scenario builds on it and isn't run."""


class Report:
    def __init__(self) -> None:
        self.passed = 0
        self.failed = 0
        self._begun = time.monotonic()

    def scenario(self, name: str, evidence: Callable[[], str]) -> "Checks":
        print(f"== {name}", flush=True)
        return Checks(self, evidence)

    def broke(self, what: str) -> None:
        """A scenario that could not be carried through counts as one failure."""
        self.failed += 1
        print(f"FAIL {what}", flush=True)

    def finish(self) -> bool:
        """Prints the closing line; true if nothing failed and something ran."""
        print(f"== {time.monotonic() - self._begun:.0f} seconds")
        print(f"{self.passed} passed, {self.failed} failed", flush=True)
        return self.failed == 0 and self.passed > 0


class Checks:
    """Called with the name of a check, a block that raises Missed when it fails."""

    def __init__(self, report: Report, evidence: Callable[[], str]):
        self._report = report
        self._evidence = evidence

    @contextmanager
    def __call__(self, name: str) -> Iterator[None]:
        try:
            yield
        except Missed as missed:
            self._report.failed += 1
            print(f"FAIL {name}: {missed}\n{self._evidence()}", flush=True)
            raise ScenarioOver from missed
        self._report.passed += 1
        print(f"ok   {name}", flush=True)
