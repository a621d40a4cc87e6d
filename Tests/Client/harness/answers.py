"""The words in which a scenario writes down what the model answers: each function makes one step of a script."""

Step = dict

# The scenario's home folder, in any text of a script.
HOME_FOLDER = "{home}"

# The service puts the path in its place: the client makes it up and tells the model of it.
PLAN_FILE = "{plan file}"

# A schedule for the minute after the next, once and in the machine's own time; the service fills it in.
SOON = "{soon}"

# The id that the client gave to the task that was scheduled last.
LAST_SCHEDULED = "{last scheduled}"


def say(text: str) -> Step:
    """The model ends its turn with this text."""
    return {"text": text}


def call(name: str, **tool_input) -> Step:
    """The model calls one tool."""
    return {"tools": [{"name": name, "input": tool_input}]}


def bash(command: str, **more) -> Step:
    """The model runs a shell command, and describes it in the same words.

    `hold NAME` is the command that needs no permission and waits to be let on.
    """
    return call("Bash", command=command, description=command, **more)


def agent(script: str, **more) -> Step:
    """The model hands a task to a subagent, whose prompt names its script."""
    return call(
        "Agent", description="Look around", prompt=f"script:{script}", subagent_type="general-purpose", **more
    )


def held(gate: str, step: Step) -> Step:
    """The model is slow: the answer begins and goes on only when the scenario opens the gate."""
    return {**step, "hold": gate}
