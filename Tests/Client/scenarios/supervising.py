"""A subagent that goes on in the background after the turn, and then needs the user's OK."""

from harness.answers import agent, bash, held, say
from harness.turns import approve_subagent

SCRIPTS = {
    "send": [agent("look", run_in_background=True), say("It is on its way.")],
    "look": [bash("hold look"), bash("touch found.txt"), held("thought", say("I have looked."))],
}


def run(session, check):
    session.start()
    with check("a subagent in the background leaves the turn ended, and shows"):
        session.prompt("send")
        session.wait_event("Stop")
        session.settles("background", message="1 subtask running", supervising=True)
    session.open("look")
    # The registry speaks of a busy client once the prompt is answered.
    approve_subagent(session, check, "touch found.txt", "thought", "background", "working")
    with check("its end leaves the user's turn"):
        session.open("thought")
        session.sees("Noted")
        session.settles("yourTurn")
