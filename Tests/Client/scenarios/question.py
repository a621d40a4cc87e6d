"""A question with two answers to choose from."""

from harness.answers import call, held, say

COLOURS = [{"label": "Red", "description": "like a rose"}, {"label": "Blue", "description": "like the sky"}]
QUESTION = {"question": "Which colour?", "header": "Colour", "options": COLOURS, "multiSelect": False}
SCRIPTS = {"ask": [call("AskUserQuestion", questions=[QUESTION]), held("thanks", say("Red it is."))]}


def run(session, check):
    session.start()
    with check("a question reads as a question"):
        session.prompt("ask")
        session.sees("Which colour")
        session.reaches("question", tool="AskUserQuestion")
    with check("the notification that repeats it leaves it a question"):
        session.wait_event("Notification", notification_type="permission_prompt")
        session.keeps("question")
    with check("answered, it is working again"):
        session.press("Enter")
        session.service.wait_held("thanks")
        session.reaches("working")
        session.keeps("working")
    with check("it ends in the user's turn"):
        session.open("thanks")
        session.reaches("yourTurn")
