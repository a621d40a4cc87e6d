"""A subagent that goes on in the background after the turn, and then needs the user's OK."""

from harness.answers import bash, call, held, say

SCRIPTS = {
    "send": [
        call(
            "Agent",
            description="Look around",
            prompt="script:look",
            subagent_type="general-purpose",
            run_in_background=True,
        ),
        say("It is on its way."),
    ],
    "look": [bash("hold look"), bash("touch found.txt"), held("thought", say("I have looked."))],
}

# The registry knows of the prompt before the hook is told, and speaks of a busy client once it is answered.
WAITS = ("needsPermission", "needsInput")
GOES_ON = ("background", "working")


def run(session, check):
    session.start()
    with check("a subagent in the background leaves the turn ended, and shows"):
        session.prompt("send")
        session.wait_event("Stop")
        session.reaches("background", message="1 subtask running")
        session.keeps("background", message="1 subtask running")
    with check("its permission prompt needs the user's OK"):
        session.open("look")
        session.sees("Do you want to proceed")
        session.reaches(*WAITS)
        session.keeps(*WAITS)
    with check("allowed, it goes on without the user"):
        session.press("Enter")
        session.service.wait_held("thought")
        session.reaches(*GOES_ON)
        session.keeps(*GOES_ON)
    with check("its end leaves the user's turn"):
        session.open("thought")
        session.sees("Noted")
        session.reaches("yourTurn")
        session.keeps("yourTurn")
