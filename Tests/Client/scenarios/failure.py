"""A tool that fails, and a model that thinks about it for a while."""

from harness.answers import bash, held, say
from harness.turns import end_turn

SCRIPTS = {"fail": [bash("cat none.txt"), held("thought", bash("hold better")), say("It went well after all.")]}


def run(session, check):
    session.start()
    with check("a failed tool reads as a snag while the model still answers"):
        session.prompt("fail")
        session.service.wait_held("thought")
        session.settles("snag", tool="Bash")
    with check("the next tool ends the snag"):
        session.open("thought")
        session.reaches("working", tool="Bash", detail="hold better")
    end_turn(session, check, "better")
