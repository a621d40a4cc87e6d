"""The application on a screen, under the hands of a new user: connect, watch a session, disconnect, connect again."""

import json

from harness.answers import bash, say
from harness.application import BUTTON, LABEL, Application
from harness.home import Home
from harness.report import Checks
from harness.session import Session
from harness.turns import end_turn
from harness.waiting import expect, wait_for

WITH_APPLICATION = True
SCRIPTS = {
    "work": [bash("hold tool"), say("That is done.")],
    "more": [bash("hold more"), say("That is done as well.")],
    "again": [bash("hold again"), say("Done once more.")],
}
DISCONNECTED = "Disconnected. Mimkins' hook entries were removed; everything else is as it was."
# Of the drawer's pixels; a card is a tenth of the drawer, and most of its own pixels differ from the bare ground.
CARD_SHARE = 0.03


def run(session: Session, check: Checks, application: Application) -> None:
    connect(session, check, application)
    watch(session, check, application)
    disconnect(session, check, application)
    go_on(session, check, application)
    connect_again(session, check, application)


def connect(session: Session, check: Checks, application: Application) -> None:
    home = session.home
    with check("a new user is asked first, and nothing is connected"):
        application.start()
        application.sees(LABEL, "Welcome to Mimkins")
        application.sees(BUTTON, "Connect Claude Code")
        expect(settings(home) == home.users_settings, home.settings.read_text())
        expect(session.mimkin.status() == "notConnected", session.mimkin.last_answer)
        application.picture("1-welcome")
    with check("a click connects"):
        application.click("Connect Claude Code")
        wait_for("the connection", lambda: session.mimkin.status() == "connected")
        application.sees(LABEL, "You're connected!")
        application.picture("2-connected")
    with check("the next click leads to a drawer without pets"):
        application.click("Show my pets")
        application.sees(LABEL, "No pets out")


def watch(session: Session, check: Checks, application: Application) -> None:
    with check("the first session appears as a pet"):
        empty = application.stands_still()
        session.start()
        application.shows(session.appears())
        share = application.changed_share(empty)
        expect(share > CARD_SHARE, f"{share:.1%} of the drawer's pixels differ from those of the empty one")
        application.picture("3-first-session")
    with check("its pet works while the client does"):
        session.prompt("work")
        application.shows(session.reaches("working", tool="Bash", detail="hold tool"))
        application.picture("4-working")
    with check("its pet tells of the user's turn when the client's is over"):
        session.open("tool")
        application.shows(session.reaches("yourTurn"))
        application.picture("5-your-turn")


def disconnect(session: Session, check: Checks, application: Application) -> None:
    home = session.home
    with check("a click on the cog leads to the settings"):
        application.click("Settings")
        application.sees(LABEL, "Connected to Claude Code")
    with check("the wheel leads to the connection, and changes no setting on its way"):
        chosen = application.settings()
        application.scroll_to("Disconnect")
        expect(application.settings() == chosen, f"{application.settings()} was {chosen}")
        application.picture("6-connection")
    with check("a click there disconnects"):
        application.click("Disconnect")
        application.sees(LABEL, "Not connected to Claude Code")
        application.sees(LABEL, DISCONNECTED)
        application.sees(BUTTON, "Connect")
        expect(session.mimkin.status() == "notConnected", session.mimkin.last_answer)
        application.picture("7-disconnected")
    with check("nothing of ours remains in the client's settings, and all else is as it was"):
        expect(is_as_before(home), home.settings.read_text())


def go_on(session: Session, check: Checks, application: Application) -> None:
    home = session.home
    with check("the client goes on working, of which its registry still tells"):
        session.prompt("more")
        session.wait_event("PreToolUse", tool_input={"command": "hold more", "description": "hold more"})
        application.click("Settings")
        application.shows(session.reaches("working", tool=None))
        application.picture("8-working-without-a-hook")
        session.open("more")
        session.sees("That is done as well.")
        application.shows(session.reaches("yourTurn"))
    with check("nobody has connected again by themselves"):
        expect(is_as_before(home), home.settings.read_text())


def connect_again(session: Session, check: Checks, application: Application) -> None:
    with check("a click in the settings connects again, and the running client follows"):
        application.click("Settings")
        application.scroll_to("Connect")
        application.click("Connect")
        application.sees(LABEL, "Connected to Claude Code")
        application.click("Settings")
        session.prompt("again")
        application.shows(session.reaches("working", tool="Bash", detail="hold again"))
    end_turn(session, check, "again")
    with check("the exit takes the pet away"):
        session.type_line("/exit")
        session.is_over()
        session.is_gone()
        application.sees(LABEL, "No pets out")
        application.picture("9-nobody-left")


def settings(home: Home) -> dict:
    return json.loads(home.settings.read_text())


def is_as_before(home: Home) -> bool:
    return "mimkin" not in home.settings.read_text().lower() and settings(home) == home.users_settings
