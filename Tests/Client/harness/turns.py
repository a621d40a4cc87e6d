"""Stretches of a turn that several scenarios go through, with their checks."""

from dataclasses import dataclass

from .report import Checks
from .session import Session
from .waiting import expect


@dataclass
class Asking:
    """The model asks the user something, as a tool does that shows a dialog."""

    what: str  # in the names of the checks, such as "a question"
    script: str
    shows: str  # words of the dialog
    mood: str
    tool: str
    gate: str  # holds up what follows the answer


def ask_and_answer(session: Session, check: Checks, asking: Asking) -> dict:
    """Asks, takes the dialog's first answer, and ends the turn. Gives back the session as it was when it asked."""
    with check(f"{asking.what} reads as {asking.mood}"):
        session.prompt(asking.script)
        session.sees(asking.shows)
        asked = session.reaches(asking.mood, tool=asking.tool)
    with check("the notification that repeats it does not begin it anew"):
        session.wait_event("Notification", notification_type="permission_prompt")
        session.keeps(asking.mood, tool=asking.tool, since=asked["since"])
    with check("answered, it is working again"):
        session.press("Enter")
        session.settles("working")
    end_turn(session, check, asking.gate)
    return asked


def end_turn(session: Session, check: Checks, gate: str) -> None:
    """Lets on what the turn waits for."""
    with check("the end of the turn reads as the user's turn"):
        session.open(gate)
        session.settles("yourTurn")


def approve_subagent(session: Session, check: Checks, command: str, gate: str, *goes_on: str) -> None:
    """A subagent's command waits for the user's OK, and gets it; the subagent then goes on to the gate."""
    with check("a subagent's permission prompt needs the user's OK"):
        session.sees("Do you want to proceed")
        # The registry knows of the prompt before the hook is told.
        session.settles("needsPermission", "needsInput")
    with check("the approval is told with the subagent that waits for it"):
        asked = session.comes_to("an approval", lambda now: now["approval"] and now["mood"] == "needsPermission")
        (subtask,) = asked["subtasks"]
        expect(subtask["waitingForOK"], f"the subagent doesn't wait: {subtask}")
        told = [asked["approval"][name] for name in ("tool", "detail", "subtaskId")]
        expect(told == ["Bash", command, subtask["id"]], f"the approval is {asked['approval']}")
        expect(not asked["supervising"], "it doesn't only wait for its subagent")
    with check("allowed, the subagent goes on without the user"):
        session.press("Enter")
        session.service.wait_held(gate)
        session.settles(*goes_on, approval=None)
