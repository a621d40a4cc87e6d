"""Changes the settings with the mouse and the keyboard, and checks what becomes of it.

Started by Tests/Desktop/settings on a session bus of its own.
"""

import json
import os
import subprocess

import screen
from reading import Checks, find, holds_soon, let_be_read, patiently, read

PROGRAM = os.environ["MIMKINS_PROGRAM"]
HOME = os.environ["MIMKINS_HOME"]
LOG = os.environ["MIMKINS_LOG"]
PREFERENCES = os.path.join(HOME, ".config/mimkins/app.mimkins.json")
KEYS = os.path.join(HOME, "keys.log")
DRAWER = "Mimkins"
WINDOW = "Mimkins Settings"
PROMPT = "My quick prompt"
HEADER = 50  # the height at the top of the drawer that doesn't scroll
ROOM = 10  # between a control that is in sight and the edges
NOTCH = 60  # about how far the screen scrolls by one turn of the wheel
WORDS = """Run "the tests", then say: what's {wrong} & why? \\o/ #1 ~50% <a@b.c>"""

check = Checks()
started = []


def begin(words, output=LOG):
    with open(output, "ab") as log:
        process = subprocess.Popen(words, stdout=log, stderr=log)
    started.append(process)
    return process


def stored(key):
    try:
        with open(PREFERENCES, encoding="utf-8") as file:
            return json.load(file).get(key)
    except (OSError, ValueError):
        return None


def becomes(key, value):
    return bool(holds_soon(lambda: stored(key) == value))


def focus_goes_to(number):
    return bool(holds_soon(lambda: screen.focused() == number))


def typed_elsewhere():
    with open(KEYS, encoding="utf-8", errors="replace") as file:
        return file.read().count("KeyPress event")


def start(*more):
    return subprocess.run([PROGRAM, *more, "--home", HOME], stdout=subprocess.DEVNULL, timeout=60).returncode


def processes():
    """How many programs run with this home."""
    count = 0
    for number in filter(str.isdigit, os.listdir("/proc")):
        try:
            with open(f"/proc/{number}/cmdline", "rb") as file:
                words = file.read().split(b"\0")
        except OSError:
            continue
        count += words[0] == PROGRAM.encode() and HOME.encode() in words
    return count


class Place:
    """Where a control stands: by role and name, the name of what holds it, and its window."""

    def __init__(self, role, name, parent=None, window=DRAWER, scrolls=True):
        self.role, self.name, self.parent = role, name, parent
        self.window, self.scrolls = window, scrolls

    def of(self, items):
        return find(
            items, self.role,
            lambda item: item.name == self.name and item.window == self.window
            and self.parent in (None, item.parent),
        )

    def wait(self):
        return patiently(self.of)

    def has_focus(self):
        return bool(patiently(lambda items: (item := self.of(items)) and item.focused))

    def gone(self):
        return bool(holds_soon(lambda: self.of(read()) is None))

    def in_sight(self):
        """The control once it has been scrolled into sight; nothing if there is none."""
        left, top, width, height = screen.frame(screen.window(self.window))
        bottom = top + height
        top += HEADER
        for _ in range(12):
            item = self.wait()
            if item is None or not self.scrolls:
                return item
            above = top + ROOM - item.place[1]
            below = item.place[1] + item.place[3] + ROOM - bottom
            if above <= 0 and below <= 0:
                return item
            turns = -(above // NOTCH + 1) if above > 0 else below // NOTCH + 1
            screen.wheel((left + width // 2, (top + bottom) // 2), turns)
        return None

    def click(self):
        item = self.in_sight()
        if item is None:
            return False
        screen.click(item.middle())
        return True


def opened_by_the_cog(other):
    cog = Place("push button", "Settings", scrolls=False)
    check("the header has a cog", cog.wait() is not None)
    cog.click()
    check("a click on it opens the settings", Place("text", PROMPT).wait() is not None)
    check("which leaves the keyboard where it was", screen.focused() == other)
    return cog


def change_by_mouse(other):
    switch = Place("check box", "Idle antics")
    before = switch.in_sight()
    check("a switch is on", before is not None and before.checked)
    switch.click()
    check("a click turns it off", becomes("antics", False))
    item = switch.wait()
    check("which shows", item is not None and not item.checked)

    drawer = screen.window(DRAWER)
    Place("radio button", "Wide", "Drawer width").click()
    check("a click chooses another width", becomes("drawerWidth", "wide"))
    check("and the drawer has it", holds_soon(lambda: screen.frame(drawer)[0] == 900 and screen.frame(drawer)[2] == 380))

    dark = screen.lightness(drawer)
    Place("radio button", "Paper", "Theme").click()
    check("a click chooses another theme", becomes("themeId", "paper"))
    check("and the drawer shows it", holds_soon(lambda: screen.lightness(drawer) > dark + 80))
    check("all this leaves the keyboard where it was", screen.focused() == other)


def drag_the_slider(other):
    tab = screen.window("Mimkins tab")
    slider = Place("slider", "Tab height").in_sight()
    if not check("there is a slider", slider is not None):
        return
    left, top, width, height = slider.place
    at = top + height // 2
    tops = []
    screen.go((left + width // 2, at))
    screen.run("xdotool", "mousedown", "1")
    for x in (left + width // 4, left + width * 3 // 4):
        before = screen.frame(tab)[1]
        screen.go((x, at))
        holds_soon(lambda: screen.frame(tab)[1] != before)
        tops.append(screen.frame(tab)[1])
    check(f"the tab follows the slider while it is dragged (to {tops})", tops[0] > tops[1] + 100)
    screen.run("xdotool", "mouseup", "1")
    check("where it is let go is stored", holds_soon(lambda: (stored("tabHeight") or 0) > 0.6))
    check("a slider leaves the keyboard where it was", screen.focused() == other)


def choice(name):
    """A row of the menu that opens. Those of one that was never open are in the tree too, but nowhere in the drawer."""
    if not holds_soon(screen.menus):
        return None
    left = screen.frame(screen.window(DRAWER))[0]
    return patiently(lambda items: find(items, "list item", lambda item: item.name == name and item.place[0] > left))


def choose_from_menus(other):
    Place("combo box", "⌥⌘P").click()
    item = choice("⌃⌥Space")
    if check("a click opens a menu", item is not None):
        screen.click(item.middle())
    check("a click chooses from it", becomes("hotkey", "ctrlOptSpace"))

    Place("check box", "Chirp when a pet needs you").click()
    check("a click turns the chirp on", becomes("chirp", True))
    Place("combo box", "Pop").click()
    check("which has a menu of sounds", choice("Purr") is not None)
    screen.key("Down", "Return")
    check("keys choose from an open menu", becomes("chirpSound", "Purr"))
    check("a menu leaves the keyboard where it was", screen.focused() == other)


def write_and_leave(other, cog):
    drawer = screen.window(DRAWER)
    prompt = Place("text", PROMPT)
    prompt.click()
    check("a click into the text brings the keyboard to the drawer", focus_goes_to(drawer))
    before = typed_elsewhere()
    screen.write(WORDS)
    check("what is typed is stored letter for letter", becomes("customPrompt", WORDS))
    screen.key("Return")
    screen.write("and then stop")
    check("on more than one line", becomes("customPrompt", WORDS + "\nand then stop"))
    check("and nothing of it goes elsewhere", typed_elsewhere() == before)

    Place("check box", "Wiggle the tab").click()
    check("a click on something else turns that", becomes("wiggleTab", False))
    check("and gives the keyboard back", focus_goes_to(other))
    screen.key("x")
    check("to where the next key goes", holds_soon(lambda: typed_elsewhere() > before))
    check("and not into the text", stored("customPrompt") == WORDS + "\nand then stop")

    prompt.click()
    check("another click brings the keyboard again", focus_goes_to(drawer))
    screen.key("Tab")
    party = Place("push button", "Throw a party")
    check("Tab goes on to the next control", party.has_focus())
    check("with the keyboard", screen.focused() == drawer)
    screen.key("shift+Tab", "ctrl+End")
    screen.write("!")
    check("and back", becomes("customPrompt", WORDS + "\nand then stop!"))
    screen.key("Tab")
    check("Tab leaves the text once more", party.has_focus())
    cog.click()
    check("the cog leads back to the pets", prompt.gone())
    check("which gives the keyboard back", focus_goes_to(other))


def open_menus_while_writing(other, cog):
    drawer = screen.window(DRAWER)
    cog.click()
    Place("text", PROMPT).click()
    check("the text takes the keyboard once more", focus_goes_to(drawer))
    Place("combo box", "Purr").click()
    check("a menu opens while something is written", choice("Tink") is not None)
    screen.key("Down", "Return")
    check("and takes the keys", becomes("chirpSound", "Tink"))
    check("the keyboard is back where it was", focus_goes_to(other))
    Place("combo box", "Tink").click()
    check("a menu opens again", choice("Pop") is not None)
    screen.key("Escape")
    check("Escape shuts it", holds_soon(lambda: not screen.menus()))
    check("and neither chooses nor shuts the drawer", stored("chirpSound") == "Tink" and screen.window(DRAWER))


def ask_for_the_keyboard(other):
    drawer = screen.window(DRAWER)
    check("a start may ask for the keyboard", start("--keyboard") == 0 and focus_goes_to(drawer))
    screen.run("xdotool", "windowactivate", "--sync", other)
    focus_goes_to(other)
    Place("check box", "Name tags").click()
    check("once another window has it, a click turns a switch", becomes("nameTags", False))
    check("and leaves the keyboard there", screen.focused() == other)


def escape_shuts(other):
    drawer = screen.window(DRAWER)
    Place("text", PROMPT).click()
    check("the drawer has the keyboard", focus_goes_to(drawer))
    screen.key("Escape")
    check("Escape shuts the drawer", holds_soon(lambda: not screen.window(DRAWER)))
    check("and gives the keyboard back", focus_goes_to(other))


def second_start(program, other):
    check("a second start ends with 0", start("--settings") == 0)
    check("it opens the settings in a window", holds_soon(lambda: screen.window(WINDOW)))
    window = screen.window(WINDOW)
    check("which has the keyboard", focus_goes_to(window))
    check("no second process stays", processes() == 1)
    text = Place("text", PROMPT, window=WINDOW)
    text.click()
    screen.key("ctrl+End")
    screen.write(" Or go on?")
    check("it can be written in", becomes("customPrompt", WORDS + "\nand then stop! Or go on?"))
    screen.run("xdotool", "windowactivate", "--sync", other)
    check("another window may lie over it", holds_soon(lambda: screen.is_above(other, window)))
    check("another start ends with 0", start("--settings") == 0)
    check("it raises the window", holds_soon(lambda: screen.is_above(window, other)))
    check("and gives it the keyboard", focus_goes_to(window))
    check("there is one window of settings", len(screen.run("xdotool", "search", "--name", f"^{WINDOW}$").split()) == 1)
    screen.key("Escape")
    check("Escape closes the window", holds_soon(lambda: not screen.window(WINDOW)))
    check("the application goes on", program.poll() is None and screen.window("Mimkins tab"))
    check("the drawer stays shut", not screen.window(DRAWER))


def first_start(other):
    program = begin([PROGRAM, "--settings", "--home", HOME])
    check("a first start opens the window too", holds_soon(lambda: screen.window(WINDOW)))
    check("beside the tab", holds_soon(lambda: screen.window("Mimkins tab")))
    check("with the keyboard", focus_goes_to(screen.window(WINDOW)))
    kept = Place("radio button", "Paper", "Theme", WINDOW).wait()
    check("what was chosen is still chosen", kept is not None and kept.checked)
    screen.key("alt+F4")
    check("the window manager closes it", holds_soon(lambda: not screen.window(WINDOW)))
    check("the keyboard is where it was", focus_goes_to(other))
    check("the application goes on without it", program.poll() is None and start() == 0)
    check("and opens its drawer", holds_soon(lambda: screen.window(DRAWER)))
    return program


def end(program):
    program.terminate()
    return holds_soon(lambda: program.poll() is not None)


def run_all():
    let_be_read()
    begin(["stdbuf", "-oL", "xev", "-name", "other", "-geometry", "500x700+100+60", "-event", "keyboard"], KEYS)
    holds_soon(lambda: screen.window("other"))
    other = screen.window("other")
    screen.run("xdotool", "windowactivate", "--sync", other)
    focus_goes_to(other)
    program = begin([PROGRAM, "--home", HOME])
    if not check("the drawer opens", holds_soon(lambda: screen.window(DRAWER))):
        return
    cog = opened_by_the_cog(other)
    change_by_mouse(other)
    drag_the_slider(other)
    choose_from_menus(other)
    write_and_leave(other, cog)
    open_menus_while_writing(other, cog)
    ask_for_the_keyboard(other)
    escape_shuts(other)
    second_start(program, other)
    check("the application is still there", program.poll() is None)
    end(program)
    end(first_start(other))


try:
    run_all()
finally:
    for each in started:
        if each.poll() is None:
            each.terminate()
            each.wait()
check.end()
