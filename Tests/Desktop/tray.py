"""Plays a desktop's tray on the session bus, and checks what the application puts into it.

Started by Tests/Desktop/tray on a bus of its own.
"""

import json
import os
import subprocess
import sys
import time

from gi.repository import Gio, GLib

PATIENCE = 20  # seconds
HOME = os.environ["MIMKINS_HOME"]
REPORTS = os.path.join(HOME, "Library/Application Support/Mimkins/sessions")
WATCHER = "org.kde.StatusNotifierWatcher"
ITEM = "org.kde.StatusNotifierItem"
MENU = "com.canonical.dbusmenu"
INTERFACE = """
<node><interface name="org.kde.StatusNotifierWatcher">
<method name="RegisterStatusNotifierItem"><arg type="s" direction="in"/></method>
<method name="RegisterStatusNotifierHost"><arg type="s" direction="in"/></method>
<property name="IsStatusNotifierHostRegistered" type="b" access="read"/>
<property name="RegisteredStatusNotifierItems" type="as" access="read"/>
<property name="ProtocolVersion" type="i" access="read"/>
<signal name="StatusNotifierItemRegistered"><arg type="s"/></signal>
<signal name="StatusNotifierHostRegistered"/>
</interface></node>
"""

bus = Gio.bus_get_sync(Gio.BusType.SESSION)
items = []
changes = []
failures = 0


def check(words, holds):
    global failures
    print(("ok      " if holds else "FAILED  ") + words, flush=True)
    failures += 0 if holds else 1
    return holds


def patiently(look):
    """Lets the bus go on until a look gives something."""
    end = time.monotonic() + PATIENCE
    context = GLib.MainContext.default()
    while time.monotonic() < end:
        while context.iteration(False):
            pass
        try:
            found = look()
            if found:
                return found
        except GLib.Error:
            pass
        time.sleep(0.1)
    return None


def open_tray():
    def called(_connection, sender, _path, _interface, method, arguments, invocation):
        if method == "RegisterStatusNotifierItem":
            name = arguments.unpack()[0]
            items.append((sender, name if name.startswith("/") else "/StatusNotifierItem"))
        invocation.return_value(None)

    def asked(_connection, _sender, _path, _interface, name):
        return {
            "IsStatusNotifierHostRegistered": GLib.Variant("b", True),
            "RegisteredStatusNotifierItems": GLib.Variant("as", []),
            "ProtocolVersion": GLib.Variant("i", 0),
        }[name]

    interface = Gio.DBusNodeInfo.new_for_xml(INTERFACE).interfaces[0]
    bus.register_object("/StatusNotifierWatcher", interface, called, asked, None)
    Gio.bus_own_name_on_connection(bus, WATCHER, Gio.BusNameOwnerFlags.NONE, None, None)
    bus.signal_subscribe(
        None, ITEM, None, None, None, Gio.DBusSignalFlags.NONE, lambda *signal: changes.append(signal[4])
    )


def call(interface, path, method, arguments=None):
    answer = bus.call_sync(
        items[0][0], path, interface, method, arguments, None, Gio.DBusCallFlags.NONE, 5000, None
    )
    return answer.unpack() if answer else None


def item_property(name):
    return call("org.freedesktop.DBus.Properties", items[0][1], "Get", GLib.Variant("(ss)", (ITEM, name)))[0]


def titles():
    """The rows of the menu, as the desktop shows it: what is about to show is filled first."""
    path = item_property("Menu")
    call(MENU, path, "AboutToShow", GLib.Variant("(i)", (0,)))
    layout = call(MENU, path, "GetLayout", GLib.Variant("(iias)", (0, -1, [])))[1]
    return [(row[0], row[1].get("label", "-").replace("_", "")) for row in layout[2]]


def choose(title):
    row = next(row for row, label in titles() if label == title)
    call(MENU, item_property("Menu"), "Event", GLib.Variant("(isvu)", (row, "clicked", GLib.Variant("s", ""), 0)))


def is_shown(window):
    found = subprocess.run(
        ["xdotool", "search", "--onlyvisible", "--name", f"^{window}$"], stdout=subprocess.PIPE
    )
    return bool(found.stdout.strip())


def tool_tip():
    return item_property("ToolTip")[2]


def check_item():
    check("it has a picture of several sizes", len(item_property("IconPixmap")) >= 3)
    check("it says who waits", patiently(lambda: tool_tip() == "Mimkins: 5 waiting on you"))
    check("the drawer is open", patiently(lambda: is_shown("Mimkins")))
    call(ITEM, items[0][1], "Activate", GLib.Variant("(ii)", (10, 10)))
    check("a click shuts the drawer", patiently(lambda: not is_shown("Mimkins")))
    call(ITEM, items[0][1], "Activate", GLib.Variant("(ii)", (10, 10)))
    check("another opens it", patiently(lambda: is_shown("Mimkins")))


def check_menu():
    wanted = [
        "Hide Mimkins", "Next Waiting  ⌥⌘P", "Wrap-up…", "-", "Open at Login", "-", "Quit Mimkins",
    ]
    check("its menu has the rows of the status item", patiently(lambda: [row[1] for row in titles()] == wanted))
    choose("Hide Mimkins")
    check("its first row shuts the drawer", patiently(lambda: not is_shown("Mimkins")))
    check("and reads otherwise then", patiently(lambda: titles()[0][1] == "Show Mimkins"))


def check_change():
    before = item_property("IconPixmap")
    changes.clear()
    now = int(time.time()) * 1000
    report = {"id": "m-permission", "state": "done", "since": now, "ts": now, "event": "Stop", "project": "shop"}
    with open(os.path.join(REPORTS, ".part"), "w", encoding="utf-8") as file:
        json.dump(report, file)
    os.rename(os.path.join(REPORTS, ".part"), os.path.join(REPORTS, "m-permission.json"))
    check("what changes is told to the tray", patiently(lambda: "NewIcon" in changes and "NewToolTip" in changes))
    check("the tool tip follows", patiently(lambda: tool_tip() == "Mimkins: 4 waiting on you"))
    check("and the count in the picture", item_property("IconPixmap") != before)


def run():
    open_tray()
    with open(os.environ["MIMKINS_LOG"], "ab") as log:
        program = subprocess.Popen([os.environ["MIMKINS_PROGRAM"], "--home", HOME], stdout=log, stderr=log)
    try:
        if check("an item comes into the tray", patiently(lambda: items)):
            check_item()
            check_menu()
            check_change()
            try:
                choose("Quit Mimkins")
            except GLib.Error:
                pass  # it may be gone before it answers
            check("its last row ends the application", patiently(lambda: program.poll() == 0 or None))
    finally:
        if program.poll() is None:
            program.terminate()
            program.wait()


run()
print(f"{failures} failed")
sys.exit(1 if failures else 0)
