"""A command that goes on in the background after the turn."""

from harness.answers import bash, say

SCRIPTS = {"background": [bash("hold background", run_in_background=True), say("It is running.")]}
TURN_IS_OVER = ("background", "yourTurn")


def run(session, check):
    session.start()
    with check("a background command leaves the turn ended"):
        session.prompt("background")
        session.wait_event("Stop")
        session.reaches(*TURN_IS_OVER)
        session.keeps(*TURN_IS_OVER)
    with check("its end is answered, and leaves the user's turn"):
        session.open("background")
        session.sees("Noted")
        session.reaches("yourTurn")
        session.keeps("yourTurn")
