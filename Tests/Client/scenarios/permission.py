"""A command that the user has to allow."""

from harness.answers import bash, say
from harness.waiting import expect

DIALOG = "Do you want to proceed"
SCRIPTS = {
    "allowed": [bash("touch new.txt && hold allowed"), say("The file is there.")],
    "refused": [bash("touch other.txt"), say("Then not.")],
}


def run(session, check):
    session.start()
    with check("a permission prompt needs the user's OK"):
        session.prompt("allowed")
        session.sees(DIALOG)
        asked = session.reaches("needsPermission", tool="Bash")
    with check("the notification that repeats it does not begin it anew"):
        session.wait_event("Notification", notification_type="permission_prompt")
        session.keeps("needsPermission", tool="Bash", since=asked["since"])
    with check("allowed, it is working again"):
        session.press("Enter")
        session.reaches("working")
        session.keeps("working")
    with check("it ends in the user's turn"):
        session.open("allowed")
        session.reaches("yourTurn")
    with check("a second prompt needs the user's OK again, from a later time on"):
        session.prompt("refused")
        session.sees(DIALOG)
        again = session.reaches("needsPermission", tool="Bash")
        expect(again["since"] > asked["since"], f"{again['since']} is not later than {asked['since']}")
    with check("refused, it is the user's turn"):
        session.press("Escape")
        session.reaches("yourTurn")
        session.keeps("yourTurn")
