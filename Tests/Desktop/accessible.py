"""Reads the application's accessible tree over the bus of assistive technology and checks what it says.

Started by Tests/Desktop/accessible on a session bus of its own.
"""

import json
import os
import subprocess
import time

from reading import Checks, find, let_be_read, named, patiently, press

HOME = os.environ["MIMKINS_HOME"]
REPORTS = os.path.join(HOME, "Library/Application Support/Mimkins/sessions")

SESSIONS = {
    "shop": "Needs your OK",
    "archive-of-forty-years-of-letters-and-postcards": "Has a question",
    "متجر": "Plan to approve",
    "weather-station": "Working",
    "🎉🎉": "Tidying up",
    "compiler": "Hit a snag",
    "корзина": "Maybe stuck",
    "blog": "Idle",
    "garden": "New reply",
    "kitchen": "Done",
    "orchestra": "In the background",
    "firmware": "Needs your input",
    "ledger": "Commit ready",
}

check = Checks()


def session(project, mood):
    def matches(item):
        parts = item.name.split(", ")
        return len(parts) == 3 and parts[0] and parts[1] == mood and parts[2] == project

    return lambda items: find(items, "push button", matches)


def check_drawer():
    for project, mood in SESSIONS.items():
        card = patiently(session(project, mood))
        check(f"{project} is a button that says {mood!r}", card is not None)
        if card and project == "shop":
            check("its description has the title", "Move the basket to the new checkout" in card.description)
            check("and the activity", "npm run migrate" in card.description)
    check("the cards stand in a list", patiently(named("list", "Sessions")) is not None)
    summary = patiently(named("label", "5 waiting on you"))
    check("the summary is a label", summary is not None)
    wrap_up = patiently(named("push button", "Wrap-up"))
    check(
        "the header's button says what it is for",
        wrap_up is not None and wrap_up.description == "Wrap-up: what's left before you log off",
    )
    tab = patiently(named("push button", "Hide Mimkins"))
    check(
        "the tab is a button that says who waits",
        tab is not None and tab.description == "5 waiting on you",
    )


def check_subtasks():
    card = patiently(session("weather-station", "Working"))
    pill = patiently(
        lambda items: find(
            items, "push button", lambda item: item.name == "Show subtasks" and item.parent == card.name
        )
    )
    if not check("a card with subtasks has a button for them", pill is not None):
        return
    check("it says how many run", pill.description == "5 running")
    press("push button", pill.name, card.name)
    check("the subtasks stand in a list", patiently(named("list", "Subtasks")) is not None)
    for words in (
        "Look up the datasheet of the anemometer",
        "ابحث عن ورقة البيانات الخاصة بجهاز الاستشعار",
        "Measure 📏 twice",
        "Cut once",
        "Sweep the floor",
    ):
        row = patiently(named("list item", words + ", Working"))
        check(f"{words!r} is a row that works", row is not None and "WebFetch: https" in row.description)
    finished = patiently(named("push button", "2 finished"))
    if check("the finished ones stand behind a button", finished is not None):
        check("it says what it does", finished.description == "Show finished subtasks")
        press("push button", finished.name)
        row = patiently(named("list item", "Sharpen the saw, Done"))
        check("it shows them", row is not None and "Took 10m" in row.description)


def check_change():
    now = int(time.time()) * 1000
    report = {
        "id": "m-snag", "state": "done", "since": now, "ts": now, "event": "Stop", "project": "compiler",
    }
    with open(os.path.join(REPORTS, ".part"), "w", encoding="utf-8") as file:
        json.dump(report, file)
    os.rename(os.path.join(REPORTS, ".part"), os.path.join(REPORTS, "m-snag.json"))
    check("a new mood is told", patiently(session("compiler", "New reply")) is not None)


def check_all_described():
    """Nothing that can be pressed or read in a row is nameless."""
    reached = patiently(
        lambda items: [item for item in items if item.role in ("push button", "list item")]
    )
    # The choices of a menu stand in a list without a name, and their words are all there is to say of them.
    rows = [item for item in reached if item.role != "list item" or item.parent]
    bare = [item for item in rows if not item.name or not item.description]
    for item in bare:
        print(f"        {item.role} {item.name!r} {item.description!r} in {item.parent!r}")
    check(f"each of the {len(rows)} buttons and rows has a name and a description", rows and not bare)


def check_wrap_up():
    press("push button", "Wrap-up")
    check("the wrap-up has headings", patiently(named("heading", "Waiting on you 7")) is not None)
    row = patiently(named("push button", "Move the basket to the new checkout"))
    check("and rows with a detail", row is not None and row.description.startswith("Needs your OK"))
    again = patiently(named("push button", "Check again"))
    check("and a button to look again", again is not None and again.description.startswith("Checked "))
    check_all_described()


def run():
    let_be_read()
    with open(os.environ["MIMKINS_LOG"], "ab") as log:
        program = subprocess.Popen(
            [os.environ["MIMKINS_PROGRAM"], "--home", HOME], stdout=log, stderr=log
        )
    try:
        if check("the application is on the bus", patiently(lambda items: items)):
            check_drawer()
            check_subtasks()
            check_change()
            check_all_described()
            check_wrap_up()
        check("the application is still there", program.poll() is None)
    finally:
        program.terminate()
        program.wait()


run()
check.end()
