"""A session from its start to its exit, with a tool that needs no permission in between."""

from harness.answers import bash, say
from harness.turns import end_turn

SCRIPTS = {"work": [bash("hold tool"), say("That is done.")]}


def run(session, check):
    with check("the session appears after the start"):
        session.start()
        session.appears()
        session.keeps("idle", "yourTurn", project="shop")
    with check("a running tool reads as working"):
        session.prompt("work")
        session.wait_event("PreToolUse", tool_name="Bash")
        session.reaches("working", tool="Bash", detail="hold tool")
        session.keeps("working", tool="Bash")
    end_turn(session, check, "tool")
    with check("the exit takes the session away"):
        session.type_line("/exit")
        session.wait_event("SessionEnd")
        session.is_over()
        session.is_gone()
