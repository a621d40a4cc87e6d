"""Looks at the edge tab's pixels, frame by frame, and checks that they are what the toolkit would paint.

Started by Tests/Desktop/tab on a screen of its own. The tab's frames go into its window past the toolkit, which shares
its pictures with the X server in memory: the bytes that are sent tell the two apart.
"""

import math
import os
import subprocess
import time

import screen
from pixels import Cover, Pixels
from reading import Checks, holds_soon

PROGRAM = os.environ["MIMKINS_PROGRAM"]
HOME = os.environ["MIMKINS_HOME"]
LOG = os.environ["MIMKINS_LOG"]
SCALE = os.environ["MIMKINS_SCALE"]
REPORTS = os.path.join(HOME, "Library/Application Support/Mimkins/sessions")
EPOCH = 978307200  # 1 January 2001
GLOW = 3.5  # radians of the glow a second
SHAKES = 2.2  # seconds between two, which are over after half a second
WIDTH, HEIGHT = round(28 * float(SCALE)), round(92 * float(SCALE))
# The corners are cut where nothing translucent can be shown, so the rows between them are looked at.
TOP, BOTTOM = HEIGHT // 4, HEIGHT - HEIGHT // 4
ROUNDING = 3  # of 255: of the picture file, which isn't premultiplied, and of the opacity

check = Checks()
pixels = Pixels()


def rendered(moment, name):
    """The tab as the toolkit paints it, as premultiplied blue, green and red of the rows that are looked at."""
    file = os.path.join(HOME, f"{name}.png")
    words = [PROGRAM, "render", "tab", "--home", HOME, "--at", str(round(moment * 1000)), "--scale", SCALE, "-o", file]
    subprocess.run(words, check=True, env={**os.environ, "QT_QPA_PLATFORM": "offscreen"}, timeout=60)
    raw = subprocess.run(["convert", file, "-depth", "8", "bgra:-"], check=True, stdout=subprocess.PIPE).stdout
    assert len(raw) == 4 * WIDTH * HEIGHT, f"a picture of another size: {len(raw)} bytes"
    inside = raw[4 * WIDTH * TOP : 4 * WIDTH * BOTTOM]
    return [inside[at + channel] * inside[at + 3] / 255 for at in range(0, len(inside), 4) for channel in range(3)]


def extreme(sign):
    """The last moment at rest at which the glow was at its strongest, or its weakest."""
    turns = math.floor((time.time() - EPOCH) * GLOW / (2 * math.pi)) - 1
    while ((sign * math.pi / 2 + 2 * math.pi * turns) / GLOW) % SHAKES < 0.6:
        turns -= 1
    return EPOCH + (sign * math.pi / 2 + 2 * math.pi * turns) / GLOW


def frame():
    left, top, _, _ = screen.frame(TAB)
    return frame_at(left, top)


def frame_at(left, top):
    rows = pixels.rows(left, top + TOP, WIDTH, BOTTOM - TOP)
    return b"".join(rows)


def colours(shot):
    return [shot[at + channel] for at in range(0, len(shot), 4) for channel in range(3)]


def is_glow(shot, low, high):
    """True if a frame at rest lies between the weakest and the strongest glow, the same part of the way everywhere."""
    found = colours(shot)
    spread, strongest = max((abs(b - a), index) for index, (a, b) in enumerate(zip(low, high)))
    assert spread > 40, "the glow changes nothing"
    part = (found[strongest] - low[strongest]) / (high[strongest] - low[strongest])
    return -0.05 <= part <= 1.05 and all(
        abs(value - (a + (b - a) * part)) <= ROUNDING for value, a, b in zip(found, low, high)
    )


def differ(shot, picture):
    return any(abs(value - wanted) > ROUNDING for value, wanted in zip(colours(shot), picture))


def watch(seconds):
    """The frames that the screen shows one after another, each once."""
    left, top, _, _ = screen.frame(TAB)
    shots = []
    until = time.monotonic() + seconds
    while time.monotonic() < until:
        shot = frame_at(left, top)
        if not shots or shots[-1] != shot:
            shots.append(shot)
        time.sleep(0.004)
    return shots


def bytes_sent(seconds):
    """How much the program sends meanwhile, which is to the X server."""
    file = os.path.join(HOME, "calls")
    words = ["strace", "-f", "-qq", "-e", "trace=writev,sendmsg", "-o", file, "-p", str(program.pid)]
    tracer = subprocess.Popen(words, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    time.sleep(seconds)
    tracer.terminate()
    tracer.wait(20)
    with open(file, encoding="utf-8", errors="replace") as calls:
        answers = [line.rpartition("= ")[2].split() for line in calls]
    return sum(int(words[0]) for words in answers if words and words[0].isdigit())


def stop_waiting():
    """All agents that wait are at work again."""
    for name in os.listdir(REPORTS):
        path = os.path.join(REPORTS, name)
        with open(path, encoding="utf-8") as file:
            record = file.read()
        if '"state":"waiting"' in record:
            with open(f"{path}.part", "w", encoding="utf-8") as file:
                file.write(record.replace('"state":"waiting"', '"state":"working"').replace("PermissionRequest", "PreToolUse"))
            os.rename(f"{path}.part", path)


def covered():
    cover = Cover(pixels, *screen.frame(TAB))
    return cover if holds_soon(lambda: set(colours(frame())) == {0xFF}) else None


def check_motion(low, high):
    shots = watch(7)
    glowing = [shot for shot in shots if is_glow(shot, low, high)]
    shaking = [shot for shot in shots if not is_glow(shot, low, high)]
    check(f"it glows: {len(set(glowing))} different frames at rest", len(set(glowing)) >= 10)
    check(f"no more than ten times a second: {len(glowing)} frames", len(glowing) <= 80)
    check(f"it shakes: {len(set(shaking))} different frames", len(set(shaking)) >= 10)
    check("no more than thirty times a second", len(shaking) <= 4 * 16)


def check_way():
    frames = bytes_sent(2) / (4 * WIDTH * HEIGHT)
    check(f"what moves goes straight to the X server: {frames:.1f} frames in two seconds", frames > 5)


def check_cover(low, high):
    cover = covered()
    check("something lies over it", cover)
    time.sleep(1)
    cover.go()
    check("laid bare, it is back", holds_soon(lambda: is_glow(frame(), low, high)))
    shots = watch(3)
    rest = sum(is_glow(shot, low, high) for shot in shots)
    check(f"and goes on glowing: {rest} frames at rest", rest >= 5)


def check_rest():
    stop_waiting()
    still = rendered(time.time(), "still")
    check("it is as it should be once nobody waits", holds_soon(lambda: not differ(frame(), still)))
    check("and stands still", len(watch(3)) == 1)
    cover = covered()
    cover.go()
    check("laid bare, it is as before", holds_soon(lambda: not differ(frame(), still)))
    check("and still stands still", len(watch(1)) == 1)


def check_loss():
    """Another program takes the tab's window away while its frames go there."""
    subprocess.run([os.path.join(os.path.dirname(__file__), "made-up-sessions"), HOME], check=True)
    check("it glows again", holds_soon(lambda: is_glow(frame(), LOW, HIGH)))
    pixels.destroy(int(TAB))
    check("its window goes", holds_soon(lambda: not screen.window("Mimkins tab")))
    time.sleep(1)


environment = {**os.environ, "QT_SCALE_FACTOR": SCALE}
with open(LOG, "wb") as log:
    program = subprocess.Popen([PROGRAM, "--home", HOME], stdout=log, stderr=log, env=environment)
try:
    TAB = holds_soon(lambda: screen.window("Mimkins tab"))
    check("the tab appears", TAB)
    screen.go((100, 400))  # the pointer is elsewhere
    LOW, HIGH = rendered(extreme(-1), "low"), rendered(extreme(1), "high")
    check("its first frame is right", holds_soon(lambda: is_glow(frame(), LOW, HIGH)))
    check_motion(LOW, HIGH)
    check_way()
    check_cover(LOW, HIGH)
    check_rest()
    check_loss()
    check("it is still alive", program.poll() is None)
finally:
    program.terminate()
    program.wait(20)
with open(LOG, encoding="utf-8", errors="replace") as words:
    check("the X server had nothing to object to", "XCB error" not in words.read())
check.end()
