"""What the tests that read the accessible tree share: looks at the tree and at what is in it."""

import json
import os
import subprocess
import sys
import time
from dataclasses import dataclass

TREE = [sys.executable, "-B", os.path.join(os.path.dirname(__file__), "accessible-tree.py")]
PATIENCE = 20  # seconds


@dataclass
class Item:
    """One object of the tree as it was read."""

    role: str
    name: str
    description: str
    parent: str  # the name of what holds it
    window: str  # the name of the window that it stands in
    place: list  # left, top, width and height on the screen
    checked: bool
    focused: bool

    def middle(self):
        left, top, width, height = self.place
        return left + width // 2, top + height // 2


class Checks:
    """Says how each check went, and counts those that failed."""

    failed = 0

    def __call__(self, words, holds):
        print(("ok      " if holds else "FAILED  ") + words, flush=True)
        self.failed += 0 if holds else 1
        return holds

    def end(self):
        print(f"{self.failed} failed")
        sys.exit(1 if self.failed else 0)


def read():
    """All that is on the screen; nothing if it changed while it was read."""
    look = subprocess.run(TREE, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, timeout=PATIENCE)
    return [Item(**item) for item in json.loads(look.stdout)] if look.returncode == 0 else []


def press(*what):
    return subprocess.run(TREE + list(what), stderr=subprocess.DEVNULL, timeout=PATIENCE).returncode == 0


def find(items, role, matches):
    for item in items:
        if item.role == role and matches(item):
            return item
    return None


def named(role, name):
    return lambda items: find(items, role, lambda item: item.name == name)


def holds_soon(look, pause=0.05):
    """Repeats a look until it gives something."""
    end = time.monotonic() + PATIENCE
    while True:
        found = look()
        if found or time.monotonic() > end:
            return found or None
        time.sleep(pause)


def patiently(look):
    """Repeats a look at the tree until it gives something."""
    return holds_soon(lambda: look(read()), 0.2)


def let_be_read():
    """Switches on what programs tell to assistive technology."""
    subprocess.run(
        ["gdbus", "call", "--session", "--dest", "org.a11y.Bus", "--object-path", "/org/a11y/bus", "--method",
         "org.freedesktop.DBus.Properties.Set", "org.a11y.Status", "IsEnabled", "<true>"],
        check=True, stdout=subprocess.DEVNULL,
    )
