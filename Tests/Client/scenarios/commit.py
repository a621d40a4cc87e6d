"""A turn that leaves uncommitted lines of its own in the project's repository, and a session beside it that doesn't."""

from harness.answers import HOME_FOLDER, call, say

PATH = f"{HOME_FOLDER}/shop/a.txt"
SCRIPTS = {
    "write": [
        call("Read", file_path=PATH),
        call("Write", file_path=PATH, content="hello\nmilk\nbread\n"),
        say("The list is written."),
    ],
    "read": [call("Read", file_path=PATH), say("The list is read.")],
}
READY = {"moodLabel": "Commit ready", "message": "+2 −0 on main"}


def run(session, check):
    session.start(permission_mode="acceptEdits")
    with check("uncommitted lines of the session wait for their commit"):
        session.prompt("write")
        session.wait_event("Stop")
        session.settles("commitWaiting", **READY)
    with check("another session in the repository has nothing to commit"):
        other = session.another()
        other.start()
        other.prompt("read")
        other.wait_event("Stop")
        other.settles("yourTurn", repository=None)
    with check("the one that made the lines still has"):
        session.settles("commitWaiting", **READY)
    with check("committed, nothing waits any longer"):
        session.home.git("commit", "-q", "-a", "-m", "Write the list")
        session.settles("yourTurn")
        other.settles("yourTurn")
