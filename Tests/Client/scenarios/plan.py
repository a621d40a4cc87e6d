"""Plan mode: a plan that awaits the user's approval."""

from harness.answers import PLAN_FILE, call, held, say

SCRIPTS = {
    "plan": [
        call("Write", file_path=PLAN_FILE, content="1. Measure\n2. Cut\n"),
        call("ExitPlanMode"),
        held("begun", say("All of it is done.")),
    ]
}


def run(session, check):
    session.start(permission_mode="plan")
    with check("a plan reads as a plan to approve"):
        session.prompt("plan")
        session.sees("Would you like to proceed")
        session.reaches("plan", tool="ExitPlanMode")
    with check("the notification that repeats it leaves it a plan"):
        session.wait_event("Notification", notification_type="permission_prompt")
        session.keeps("plan")
    with check("approved, it is working again"):
        session.press("Enter")
        session.service.wait_held("begun")
        session.reaches("working")
    with check("it ends in the user's turn"):
        session.open("begun")
        session.reaches("yourTurn")
