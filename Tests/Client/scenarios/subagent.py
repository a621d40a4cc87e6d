"""A subagent whose own events reach the same hook and must not be taken for the session's."""

from harness.answers import agent, bash, held, say
from harness.turns import approve_subagent, end_turn
from harness.waiting import expect

SCRIPTS = {
    "delegate": [agent("look"), held("summary", say("The subagent has looked."))],
    "look": [
        bash("hold look"),
        bash("cat none.txt"),
        held("failed", bash("touch found.txt")),
        held("thought", say("I have looked.")),
    ],
}


def run(session, check):
    session.start()
    with check("a session with a subagent is working, and not with the subagent's tool"):
        session.prompt("delegate")
        session.wait_event("PreToolUse", tool_name="Bash")
        tool = session.reaches("working").get("tool")
        expect(tool in (None, "Agent", "Task"), f"the tool is {tool}")
        session.keeps("working", tool=tool)
    with check("a failure within the subagent is no snag of the session"):
        session.open("look")
        session.service.wait_held("failed")
        session.wait_event("PostToolUseFailure")
        session.keeps("working", tool=tool)
    session.open("failed")
    approve_subagent(session, check, "touch found.txt", "thought", "working")
    with check("the end of the subagent is not the end of the turn"):
        session.open("thought")
        session.service.wait_held("summary")
        session.wait_event("SubagentStop")
        session.keeps("working")
    end_turn(session, check, "summary")
