"""A turn that leaves uncommitted lines of its own in the project's repository."""

from harness.answers import HOME_FOLDER, call, say

PATH = f"{HOME_FOLDER}/shop/a.txt"
SCRIPTS = {
    "write": [
        call("Read", file_path=PATH),
        call("Write", file_path=PATH, content="hello\nmilk\nbread\n"),
        say("The list is written."),
    ],
}


def run(session, check):
    session.start(permission_mode="acceptEdits")
    with check("uncommitted lines of the session wait for their commit"):
        session.prompt("write")
        session.wait_event("Stop")
        session.reaches("commitWaiting", message="+2 −0 on main")
        session.keeps("commitWaiting")
    with check("committed, nothing waits any longer"):
        session.home.git("commit", "-q", "-a", "-m", "Write the list")
        session.reaches("yourTurn")
