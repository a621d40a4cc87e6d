"""Waiting by looking again, with a limit after which the wait has failed."""

import time
from typing import Callable, Optional, TypeVar

Found = TypeVar("Found")
PATIENCE = 30.0
PAUSE = 0.15


class Missed(Exception):
    """What a check waited for did not come, or what should have stayed did not."""


def wait_for(what: str, look: Callable[[], Optional[Found]], seconds: float = PATIENCE) -> Found:
    """The first result of `look` that is not empty. Raises Missed, naming `what`, after `seconds`."""
    until = time.monotonic() + seconds
    while True:
        found = look()
        if found:
            return found
        if time.monotonic() > until:
            raise Missed(f"waited {seconds:g} seconds for {what}")
        time.sleep(PAUSE)


def stays(what: str, look: Callable[[], bool], seconds: float) -> None:
    """Returns if `look` was true each time within `seconds`. Raises Missed, naming `what`, when it was not."""
    until = time.monotonic() + seconds
    while time.monotonic() < until:
        if not look():
            raise Missed(f"did not stay: {what}")
        time.sleep(PAUSE)


def expect(true: bool, otherwise: str) -> None:
    """Raises Missed with these words unless the first argument is true."""
    if not true:
        raise Missed(otherwise)
