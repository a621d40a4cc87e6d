"""Plan mode: a plan that awaits the user's approval."""

from harness.answers import PLAN_FILE, call, held, say
from harness.turns import Asking, ask_and_answer

SCRIPTS = {
    "plan": [
        call("Write", file_path=PLAN_FILE, content="1. Measure\n2. Cut\n"),
        call("ExitPlanMode"),
        held("begun", say("All of it is done.")),
    ]
}


def run(session, check):
    session.start(permission_mode="plan")
    ask_and_answer(
        session, check, Asking("a plan", "plan", "Would you like to proceed", "plan", "ExitPlanMode", "begun")
    )
