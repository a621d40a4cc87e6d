"""Connecting and disconnecting leaves the user's own settings as they were."""

import json

from harness.answers import say
from harness.home import Home
from harness.waiting import expect

SCRIPTS = {"hello": [say("Hello.")]}


def run(session, check):
    home = session.home
    with check("the hooks are connected"):
        expect(session.mimkin.status() == "connected", session.mimkin.last_answer)
    with check("connecting keeps the user's own hooks and permissions"):
        expect(keeps_the_users(home), home.settings.read_text())
    with check("the client takes the settings: its events reach the hook"):
        session.start()
        session.prompt("hello")
        session.reaches("yourTurn")
        expect(bool(home.status_records()), "there is no status file")
    with check("disconnecting leaves nothing of ours in the settings"):
        session.mimkin.disconnect()
        expect(json.loads(home.settings.read_text()) == home.users_settings, home.settings.read_text())
    with check("the status is then notConnected"):
        expect(session.mimkin.status() == "notConnected", session.mimkin.last_answer)


def keeps_the_users(home: Home) -> bool:
    settings = json.loads(home.settings.read_text())
    wanted = home.users_settings
    hooks = all(group in settings["hooks"][event] for event, groups in wanted["hooks"].items() for group in groups)
    return hooks and settings["permissions"] == wanted["permissions"]
