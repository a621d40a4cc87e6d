"""A command that the user has to allow."""

from harness.answers import bash, say
from harness.turns import Asking, ask_and_answer
from harness.waiting import expect

DIALOG = "Do you want to proceed"
SCRIPTS = {
    "allowed": [bash("touch new.txt && hold allowed"), say("The file is there.")],
    "refused": [bash("touch other.txt"), say("Then not.")],
}


def run(session, check):
    session.start()
    asked = ask_and_answer(
        session, check, Asking("a permission prompt", "allowed", DIALOG, "needsPermission", "Bash", "allowed")
    )
    with check("a second prompt needs the user's OK again, from a later time on"):
        session.prompt("refused")
        session.sees(DIALOG)
        again = session.reaches("needsPermission", tool="Bash")
        expect(again["since"] > asked["since"], f"{again['since']} is not later than {asked['since']}")
    with check("refused, it is the user's turn"):
        session.press("Escape")
        session.settles("yourTurn")
