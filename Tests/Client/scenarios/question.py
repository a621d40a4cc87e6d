"""A question with two answers to choose from."""

from harness.answers import call, held, say
from harness.turns import Asking, ask_and_answer

COLOURS = [{"label": "Red", "description": "like a rose"}, {"label": "Blue", "description": "like the sky"}]
QUESTION = {"question": "Which colour?", "header": "Colour", "options": COLOURS, "multiSelect": False}
SCRIPTS = {"ask": [call("AskUserQuestion", questions=[QUESTION]), held("thanks", say("Red it is."))]}


def run(session, check):
    session.start()
    ask_and_answer(
        session, check, Asking("a question", "ask", "Which colour", "question", "AskUserQuestion", "thanks")
    )
