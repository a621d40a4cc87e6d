"""A command that goes on in the background after the turn."""

from harness.answers import bash, say

SCRIPTS = {"background": [bash("hold background", run_in_background=True), say("It is running.")]}


def run(session, check):
    session.start()
    with check("a background command leaves the turn ended, and shows"):
        session.prompt("background")
        session.wait_event("Stop")
        session.settles("background", message="1 command running")
    with check("its end is answered, and leaves the user's turn"):
        session.open("background")
        session.sees("Noted")
        session.settles("yourTurn", background=None)
