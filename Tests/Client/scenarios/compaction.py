"""The user has the conversation compacted. The words behind `/compact` reach the model, and so name the script."""

from harness.answers import held, say

SCRIPTS = {
    "talk": [say("Hello.")],
    "again": [say("Once more.")],
    "tidy": [held("tidied", say("<summary>We said hello.</summary>"))],
}


def run(session, check):
    session.start()
    with check("a compaction reads as compacting"):
        for prompt in ("talk", "again"):
            session.prompt(prompt)
            session.reaches("yourTurn")
        session.type_line("/compact script:tidy")
        session.service.wait_held("tidied")
        session.settles("compacting")
    with check("its end leaves no work behind"):
        session.open("tidied")
        session.sees("Compacted")
        session.settles("yourTurn", "idle")
