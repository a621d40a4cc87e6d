"""Tasks that the agent schedules for later: one for a moment, one for every week."""

from harness.answers import LAST_SCHEDULED, SOON, call, say
from harness.waiting import expect

ONCE = "Is the oven off?"
WEEKLY = "Weekly report, \"in full\""
SCRIPTS = {
    "schedule": [
        call("CronCreate", cron=SOON, prompt=ONCE, recurring=False),
        call("CronCreate", cron="0 9 * * 1", prompt=WEEKLY, recurring=True),
        say("Both are scheduled."),
    ],
    "cancel": [call("CronDelete", id=LAST_SCHEDULED), say("No more reports.")],
}

# The schedule is due within two minutes, and the client looks once in a while.
DUE_SECONDS = 180


def run(session, check):
    session.start()
    with check("both kinds of schedule show as work in the background"):
        session.prompt("schedule")
        session.wait_event("Stop")
        session.settles("background")
        shown = session.comes_to("both schedules", lambda now: waiting(now) == [(False, ONCE), (True, WEEKLY)])
        once, weekly = shown["background"]["items"]
        expect(weekly["fire"] is None, f"the weekly one has a date: {weekly}")
        expect(shown["background"]["nextFire"] == once["fire"], f"the next is {shown['background']}")
        expect(shown["message"].startswith("2 scheduled, next "), f"the message is {shown['message']!r}")
    with check("a cancelled schedule goes, and the other stays"):
        session.prompt("cancel")
        session.sees("No more reports.")
        session.comes_to("one schedule", lambda now: waiting(now) == [(False, ONCE)])
        session.keeps("background")
    with check("the schedule for one moment goes when that has come"):
        session.reaches("yourTurn", seconds=DUE_SECONDS, background=None)
        session.sees(ONCE)
        session.sees("Noted")
        session.settles("yourTurn", background=None)


def waiting(session: dict) -> list[tuple[bool, str]]:
    """Whether each scheduled task recurs, and its prompt, in the order in which they show."""
    items = (session["background"] or {}).get("items", [])
    return [(item["recurring"], item["prompt"]) for item in items]
