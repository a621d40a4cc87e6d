# Sourced: a virtual screen with a window manager and, if there is one, a tray; all of it ends with the script.

started=

# begin COMMAND... starts a program in the background that ends with this script.
begin() {
    "$@" >>"$work/programs.log" 2>&1 &
    started="$! $started"
}

end_all() {
    for process in $started; do
        kill "$process" 2>/dev/null || true
    done
    for process in $started; do
        wait "$process" 2>/dev/null || true
    done
    rm -rf "$work"
}

# patiently COMMAND... repeats a command until it succeeds, for ten seconds at most.
patiently() {
    tries=0
    until "$@" >/dev/null 2>&1; do
        tries=$((tries + 1))
        [ "$tries" -lt 100 ] || return 1
        sleep 0.1
    done
}

work=$(mktemp -d "${TMPDIR:-/tmp}/mimkins-screen-XXXXXX")
trap end_all EXIT
trap 'exit 1' INT TERM HUP
home=$work/home
mkdir -p "$home" "$work/runtime"
chmod 700 "$work/runtime"
# Nothing of the real user's: neither the home folder nor the session bus.
export HOME="$home" XDG_RUNTIME_DIR="$work/runtime"
unset DBUS_SESSION_BUS_ADDRESS WAYLAND_DISPLAY XDG_SESSION_TYPE QT_QPA_PLATFORM XDG_CONFIG_HOME || true

Xvfb -displayfd 3 -screen 0 1280x800x24 -nolisten tcp 3>"$work/display" >>"$work/programs.log" 2>&1 &
started="$! $started"
patiently test -s "$work/display" || {
    echo "The virtual screen doesn't start:" >&2
    cat "$work/programs.log" >&2
    exit 1
}
DISPLAY=:$(cat "$work/display")
export DISPLAY
begin openbox
# xprop succeeds on a property that is missing too, so its words are looked at.
patiently sh -c 'xprop -root _NET_SUPPORTING_WM_CHECK | grep -q "window id"'
xsetroot -solid '#38506b' 2>/dev/null || true
if command -v trayer >/dev/null; then
    begin trayer --edge top --align left --width 10 --widthtype percent --height 26
fi
