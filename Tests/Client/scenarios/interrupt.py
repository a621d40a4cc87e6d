"""The user interrupts. The client tells its hooks nothing of it; only its registry does."""

from harness.answers import bash, held, say
from harness.turns import end_turn

SCRIPTS = {
    "answer": [held("never", say("Nobody reads this."))],
    "tool": [bash("hold never"), say("Nobody reads this either.")],
    "after": [bash("hold after"), say("Back at work.")],
}


def run(session, check):
    session.start()
    with check("an interrupted answer leaves the user's turn"):
        session.prompt("answer")
        session.service.wait_held("never")
        session.reaches("working")
        session.press("Escape")
        session.settles("yourTurn")
    with check("an interrupted tool leaves the user's turn"):
        session.prompt("tool")
        session.wait_event("PreToolUse", tool_name="Bash")
        session.reaches("working", tool="Bash")
        session.press("Escape")
        session.settles("yourTurn")
    with check("the next prompt is worked on as usual"):
        session.prompt("after")
        session.reaches("working", tool="Bash", detail="hold after")
    end_turn(session, check, "after")
