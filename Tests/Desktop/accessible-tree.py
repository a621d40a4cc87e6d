"""Reads the application's tree once over the bus of assistive technology.

    accessible-tree.py                      prints what is on the screen, as JSON
    accessible-tree.py ROLE NAME [PARENT]   presses the first thing with this role and name

One look is one process: what a client of the bus keeps of earlier looks can't mix with what it reads.
"""

import json
import sys
import warnings

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi  # noqa: E402

warnings.simplefilter("ignore", DeprecationWarning)  # the bindings warn of their own names


def describe(node, parent, window, states):
    area = Atspi.Component.get_extents(node, Atspi.CoordType.SCREEN)
    return {
        "role": node.get_role_name() or "",
        "name": node.get_name() or "",
        "description": node.get_description() or "",
        "parent": parent,
        "window": window,
        "place": [area.x, area.y, area.width, area.height],
        "checked": states.contains(Atspi.StateType.CHECKED),
        "focused": states.contains(Atspi.StateType.FOCUSED),
    }


def walk(node, parent, window):
    """All below a node that is showing, with the names of what holds it and of its window."""
    for index in range(node.get_child_count()):
        child = node.get_child_at_index(index)
        if child is None:
            continue
        name = child.get_name() or ""
        within = window or name
        states = child.get_state_set()
        if states.contains(Atspi.StateType.SHOWING):
            yield child, describe(child, parent, within, states)
        yield from walk(child, name, within)


def tree():
    desktop = Atspi.get_desktop(0)
    for index in range(desktop.get_child_count()):
        program = desktop.get_child_at_index(index)
        if program is not None and program.get_name() == "mimkins":
            yield from walk(program, "", "")


def press(role, name, parent):
    for node, item in tree():
        if item["role"] == role and item["name"] == name and parent in (None, item["parent"]):
            names = [Atspi.Action.get_action_name(node, each) for each in range(Atspi.Action.get_n_actions(node))]
            return Atspi.Action.do_action(node, names.index("Press"))
    return False


if len(sys.argv) > 1:
    sys.exit(0 if press(sys.argv[1], sys.argv[2], sys.argv[3] if len(sys.argv) > 3 else None) else 1)
json.dump([item for _, item in tree()], sys.stdout)
