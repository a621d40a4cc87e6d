"""A turn that leaves uncommitted lines of its own in the project's repository."""

from harness.answers import HOME_FOLDER, call, say

SCRIPTS = {
    "write": [
        call("Write", file_path=f"{HOME_FOLDER}/shop/list.txt", content="milk\nbread\n"),
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
        session.home.git("add", ".")
        session.home.git("commit", "-q", "-m", "Write the list")
        session.reaches("yourTurn")
