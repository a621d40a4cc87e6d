"""What a person sees of windows, and does with them: xdotool and its kind behind a few words."""

import subprocess


def run(*words):
    """What a command prints; a command that fails prints nothing."""
    done = subprocess.run(words, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, timeout=60)
    return done.stdout.decode("utf-8", "replace").strip()


def window(name):
    """The number of a window that is shown; nothing if there is none of this name."""
    return run("xdotool", "search", "--onlyvisible", "--name", f"^{name}$").partition("\n")[0]


def frame(number):
    """Left, top, width and height of a window."""
    words = dict(line.split("=") for line in run("xdotool", "getwindowgeometry", "--shell", number).split())
    return [int(words.get(key, 0)) for key in ("X", "Y", "WIDTH", "HEIGHT")]


def focused():
    return run("xdotool", "getwindowfocus")


def menus():
    """The numbers of the open menus of pickers, which have an ordinary window's type as only the settings' window has
    among the others."""
    shown = run("xdotool", "search", "--onlyvisible", "--class", "mimkins").split()
    kinds = {each: run("xprop", "-id", each, "_NET_WM_WINDOW_TYPE") for each in shown}
    return [each for each, kind in kinds.items() if kind.endswith("= _NET_WM_WINDOW_TYPE_NORMAL")]


def is_above(upper, lower):
    words = run("xprop", "-root", "_NET_CLIENT_LIST_STACKING").partition("#")[2]
    stack = [str(int(word, 16)) for word in words.split(",") if word.strip()]
    return lower in stack and upper in stack[stack.index(lower) + 1:]


def lightness(number):
    """The mean lightness of a window's picture, from 0 to 255."""
    words = ["import", "-window", number, "-colorspace", "gray", "-resize", "1x1!", "-depth", "8", "gray:-"]
    picture = subprocess.run(words, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, timeout=60).stdout
    return picture[0] if picture else 0


def go(place):
    run("xdotool", "mousemove", *(str(each) for each in place))


def click(place, button=1):
    go(place)
    run("xdotool", "click", str(button))


def wheel(place, turns):
    """Turns the wheel over a place, downwards if the number is positive."""
    go(place)
    run("xdotool", "click", "--repeat", str(abs(turns)), "--delay", "5", "5" if turns > 0 else "4")


def key(*names):
    run("xdotool", "key", *names)


def write(text):
    run("xdotool", "type", "--delay", "15", text)
