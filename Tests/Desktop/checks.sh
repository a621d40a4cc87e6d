# Sourced beside screen.sh: what the desktop tests ask of windows, and how they act on them as a person would.

failures=0
check() {
    words=$1
    shift
    if "$@"; then
        echo "ok      $words"
    else
        echo "FAILED  $words"
        failures=$((failures + 1))
    fi
}

window() { xdotool search --onlyvisible --name "^$1\$" 2>/dev/null | head -n 1; }
# find_window NAME leaves the window's id in $found. A search can miss a window while others come and go, so it is
# repeated with the rest.
find_window() {
    found=$(window "$1")
    [ -n "$found" ]
}
shown() { [ -n "$(window "$1")" ]; }
hidden() { [ -z "$(window "$1")" ]; }
left_edge() { xwininfo -id "$1" | sed -n 's/.*Absolute upper-left X: *//p'; }
has_state() { xprop -id "$1" _NET_WM_STATE | grep -q "$2"; }
lacks_state() { ! has_state "$1" "$2"; }
stands_at() { [ "$(left_edge "$1")" = "$2" ]; }
focused() { xdotool getwindowfocus; }
has_focus() { [ "$(focused)" = "$1" ]; }
order_of() { xprop -root _NET_CLIENT_LIST_STACKING | tr ' ,' '\n\n' | grep -n "$(printf '0x%x' "$1")" | cut -d: -f1; }
is_above() { [ "$(order_of "$1")" -gt "$(order_of "$2")" ]; }
pixels() { import -window "$1" -depth 8 rgb:- | cksum; }
differs() { [ "$(pixels "$1")" != "$2" ]; }
click_tab() {
    patiently find_window 'Mimkins tab'
    eval "$(xdotool getwindowgeometry --shell "$found")"
    xdotool mousemove "$((X + 14))" "$((Y + 46))" click 1
}
# click_tray clicks on the status item, wherever the tray has put it.
tray_item() { xwininfo -root -tree | sed -n 's/^ *\(0x[0-9a-f]*\) "mimkins": ("mimkins" "mimkins") .*/\1/p' | head -n 1; }
has_tray_item() { [ -n "$(tray_item)" ]; }
click_tray() {
    patiently has_tray_item
    eval "$(xdotool getwindowgeometry --shell "$(tray_item)")"
    xdotool mousemove "$((X + 11))" "$((Y + 12))" click 1
}
# ticks_in SECONDS PID prints the processor time, in clock ticks, that a process takes meanwhile.
ticks() { sed 's/.*) //' "/proc/$1/stat" | cut -d ' ' -f 12,13 | tr ' ' '+'; }
ticks_in() {
    earlier=$(($(ticks "$2")))
    sleep "$1"
    echo $(($(ticks "$2") - earlier))
}
