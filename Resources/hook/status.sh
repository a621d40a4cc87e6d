#!/bin/sh
# Writes what an agent session is doing into one small file that Mimkins reads. The client runs this on each
# of its events with a JSON document on standard input. Which event leads to which record is written down in
# Documentation/hook-events.md.
#
# It needs a POSIX shell, any awk, date and mv. It always reads its input to the end, prints nothing, starts
# nothing that outlives it, and ends with 0.

# shellcheck disable=SC2016,SC3028 # awk's $ is meant literally; EPOCHREALTIME may be empty

exec >/dev/null 2>&1
umask 077
case $0 in
*/*) sessions=${0%/*}/../sessions ;;
*) sessions=../sessions ;;
esac
# awk writes the record into a file with this prefix before the record's name. A hook of the same session that
# runs beside this one has another process number and so another file.
prefix=.$$.tmp.
trap 'set +f; rm -f "$sessions/$prefix"*; exit 0' HUP INT TERM PIPE
LC_ALL=C
PATH=${PATH:+$PATH:}/usr/bin:/bin
export LC_ALL PATH

# Without an input, the next file that is opened would take its number, and awk would read that.
if [ -t 0 ] || ! true 3<&0; then
    exit 0
fi
if [ ! -d "$sessions" ] || [ ! -w "$sessions" ]; then
    cat
    exit 0
fi

# What is no regular file could keep awk waiting for ever, so awk is told to leave it alone.
strange=/
for file in "$sessions"/*.json; do
    [ -f "$file" ] || strange=$strange${file##*/}/
done

# A clock of the shell goes on after the assignment; a variable that was inherited is empty.
EPOCHREALTIME=
now=$EPOCHREALTIME
case $now in
*[.,]??????)
    fraction=${now#*[.,]}
    now=${now%%[.,]*}${fraction%???}
    ;;
*) now='' ;;
esac

# awk reads the document and the former record, and writes the new one into the hidden file. It ends with
#
#     0   if the document leaves the record alone, is cut off or is no object
#     10  if the new record is whole
#     11  if it lacks the time of the event and the closing brace, because that time must be exact and awk has
#         whole seconds only; one more if since lacks too and is the same, and two more if beforeSince is
#     20  if the record is to go
#
# The input is split at its quotes, so that each of awk's records is either what stands between two strings or
# a piece of a string that ends at a quote. That keeps the work linear in the input whichever awk runs it: no
# string is ever taken apart character by character unless it is short and wanted.
set -f
now=$now prefix=$prefix sessions=$sessions strange=$strange awk '
BEGIN {
    RS = "\""
    limit = 8192
    bad = closed = inside = role = size = depth = keyed = 0
    count = split("session_id transcript_path cwd hook_event_name agent_id tool_name source trigger model" \
        " message notification_type prompt", names, " ")
    for (i = 1; i <= count; i++) wanted[names[i]] = 1
    inputs = split("description file_path notebook_path url pattern query command", input, " ")
    for (i = 1; i <= inputs; i++) wanted["tool_input." input[i]] = 1
    wanted["effort.level"] = 1
    count = split("SessionStart UserPromptSubmit PreToolUse PostToolUse PostToolUseFailure" \
        " PermissionRequest Notification PreCompact Stop SessionEnd", names, " ")
    for (i = 1; i <= count; i++) events[names[i]] = 1
    nul = sprintf("%c", 0)
    if (length(nul) != 1) nul = ""
}

# Between two strings, and, once the document has ended, for good.
!inside {
    if (bad || closed) {
        bad = 1
        next
    }
    inside = 1
    role = 0
    if (depth > 2 || (depth == 2 && outer == "")) {
        if ($0 == ":" || $0 == ",") next
        if ($0 !~ /[{}]|\[|\]/) next
    }
    between($0)
    if (bad) inside = 0
    text = ""
    size = 0
    next
}

# In a string.
{
    n = length($0)
    open = substr($0, n) == "\\" && oddBackslashes($0, n)
    if (role && size <= limit) {
        text = text substr($0, 1, limit - size) (open ? "\"" : "")
        size += n + open
    }
    if (open) next
    inside = 0
    if (role) endString()
}

# Whether a piece that ends in a backslash ends in an odd number of them, so that the quote behind it is a
# part of the string.
function oddBackslashes(piece, n,    run, some, step) {
    if (n < 2 || substr(piece, n - 1, 1) != "\\") return 1
    run = "\\"
    for (some = 1; 2 * some <= n && substr(piece, n - 2 * some + 1) == run run; some *= 2) run = run run
    for (step = some / 2; step >= 1; step /= 2)
        if (some + step <= n && substr(piece, n - some - step + 1, step) == substr(run, 1, step)) some += step
    return some % 2
}

# These work on halves down to small pieces, because the work of gsub grows with the square of the number of
# matches in some awks, and that of substr with the length of the whole string in others.
function withoutSpace(s,    half) {
    if (length(s) <= 256) {
        gsub(/[ \t\r\n]+/, "", s)
        return s
    }
    half = int(length(s) / 2)
    return withoutSpace(substr(s, 1, half)) withoutSpace(substr(s, half + 1))
}

function countOf(brackets, s,    half) {
    if (length(s) <= 256) return gsub(brackets, "", s)
    half = int(length(s) / 2)
    return countOf(brackets, substr(s, 1, half)) + countOf(brackets, substr(s, half + 1))
}

# Takes what stands between two strings: follows the depth and decides what the string behind it is for
# (role): 1 and 2 are a key and a value of the document itself, 3 and 4 of an object in it that is wanted
# (outer).
function between(s,    closers, depthBefore, last, openers) {
    if (s == ": ") s = ":"
    if (s == ", ") s = ","
    openers = closers = 0
    if (s != ":" && s != ",") {
        s = withoutSpace(s)
        openers = countOf("[{]|\\[", s)
        closers = countOf("[}]|\\]", s)
    }
    if (depth && openers && closers >= depth) {
        match(s, "[{]|\\[")
        if (countOf("[}]|\\]", substr(s, 1, RSTART - 1)) >= depth) bad = 1
    }
    depthBefore = depth
    depth += openers - closers
    last = substr(s, length(s))
    if (depthBefore == 0) {
        if (s != "{") bad = 1
        role = 1
        return
    }
    if (depthBefore == 1 || (depthBefore == 2 && outer != "")) {
        if (keyed != (substr(s, 1, 1) == ":")) bad = 1
        if (depthBefore == 1) outer = (s == ":{" && (key == "effort" || key == "tool_input")) ? key : ""
    }
    keyed = 0
    if (depth < 1) {
        closed = 1
        if (depth < 0 || last != "}") bad = 1
    } else if (depth == 1) {
        if (s == ":") role = (key in wanted) ? 2 : 0
        else if (last == ",") role = 1
        else bad = 1
    } else if (depth == 2 && outer != "") {
        if (s == ":") role = ((outer "." key) in wanted) ? 4 : 0
        else role = 3
    }
    if (s == ":" && !role) keyed = 0
}

# A key makes what an earlier key of the same name held void.
function endString(    i) {
    if (role == 2 || role == 4) {
        found = (role == 2) ? key : outer "." key
        value[found] = text
        cutOff[found] = size > limit
        return
    }
    key = (size > 64) ? "" : text
    if (index(key, "\\")) key = restored(plain(key))
    keyed = 1
    if (role == 3) {
        delete value[outer "." key]
        return
    }
    delete value[key]
    if (key == "effort") delete value["effort.level"]
    if (key == "tool_input") for (i = 1; i <= inputs; i++) delete value["tool_input." input[i]]
}

# These two give their patterns as text, which some awks compile only where it is used.

# JSON text in one normal form, in which a backslash pair is the one character 001, printable ASCII is
# written as itself and half a surrogate pair is U+FFFD. Empty if it has control characters, wrong escapes or
# bad UTF-8.
function plain(s,    hex, i, n, piece, rest, sign, tail) {
    if (nul != "" && index(s, nul)) return ""
    if (s !~ /[\001-\037\177-\377]/ && !index(s, "\\")) return s
    if (s ~ "[\001-\037]") return ""
    if (s ~ "[\200-\377]") {
        rest = s
        tail = "[\200-\277]"
        gsub("[\302-\337]" tail "|\340[\240-\277]" tail "|[\341-\354\356\357]" tail tail \
            "|\355[\200-\237]" tail "|\360[\220-\277]" tail tail "|[\361-\363]" tail tail tail \
            "|\364[\200-\217]" tail tail, "", rest)
        if (rest ~ "[\200-\377]") return ""
    }
    if (!index(s, "\\")) return s
    gsub("\\\\\\\\", "\001", s)
    hex = "[0-9a-fA-F]"
    rest = s
    gsub("\\\\[\"/bfnrt]|\\\\u" hex hex hex hex, "", rest)
    if (index(rest, "\\")) return ""
    gsub("\\\\/", "/", s)
    if (!index(s, "\\u")) return s
    gsub("\\\\u0009", "\\t", s)
    gsub("\\\\u000[aA]", "\\n", s)
    gsub("\\\\u000[dD]", "\\r", s)
    while (match(s, "\\\\u00[2-7]" hex)) {
        sign = 16 * substr(s, RSTART + 4, 1) - 1
        sign += index("0123456789abcdef", tolower(substr(s, RSTART + 5, 1)))
        sign = (sign == 34) ? "\\\"" : (sign == 92) ? "\001" : sprintf("%c", sign)
        s = substr(s, 1, RSTART - 1) sign substr(s, RSTART + 6)
    }
    if (s !~ "\\\\u[dD][89a-fA-F]") return s
    gsub("\\\\u[dD][89abAB]" hex hex "\\\\u[dD][c-fC-F]" hex hex, "\002&", s)
    n = split(s, piece, "\002")
    for (i = 1; i <= n; i++) {
        rest = (i == 1) ? piece[i] : substr(piece[i], 13)
        gsub("\\\\u[dD][89a-fA-F]" hex hex, "\\ufffd", rest)
        s = (i == 1) ? rest : s substr(piece[i], 1, 12) rest
    }
    return s
}

# The JSON text of a normal form.
function restored(s,    i, n, piece) {
    if (!index(s, "\001")) return s
    n = split(s, piece, "\001")
    s = piece[1]
    for (i = 2; i <= n; i++) s = s "\\\\" piece[i]
    return s
}

# A name or path, which is of no use if it is not whole.
function whole(name, longest) {
    if (!(name in value) || cutOff[name] || length(value[name]) > longest) return ""
    return plain(value[name])
}

# A text, of which the beginning does. Up to 12 bytes at a cut may be the torn half of a character.
function beginning(name,    i, n, s) {
    if (!(name in value)) return ""
    n = length(value[name])
    for (i = 0; i <= (cutOff[name] ? 12 : 0); i++) {
        s = plain(substr(value[name], 1, n - i))
        if (s != "") break
    }
    return s
}

# The first characters of a normal form.
function shortened(s, most,    at, n, sign) {
    if (length(s) <= most) return s
    at = 1
    for (n = 0; n < most && at <= length(s); n++) {
        sign = substr(s, at, 4)
        if (substr(sign, 1, 2) == "\\u") at += (sign ~ "[dD][89abAB]$") ? 12 : 6
        else if (substr(sign, 1, 1) == "\\" || sign ~ "^[\300-\337]") at += 2
        else if (sign ~ "^[\340-\357]") at += 3
        else if (sign ~ "^[\360-\367]") at += 4
        else at++
    }
    return substr(s, 1, at - 1)
}

function firstLine(s) {
    sub(/^( |\\[nrt])+/, "", s)
    if (match(s, /\\[nr]/)) s = substr(s, 1, RSTART - 1)
    return s
}

function lastComponent(path,    n, piece) {
    n = split(path, piece, "/")
    while (n > 1 && piece[n] == "") n--
    return (piece[n] == "" && path != "") ? "/" : piece[n]
}

# The first of the tool inputs that has something to say.
function detailOfInput(    i, name, s) {
    for (i = 1; i <= inputs; i++) {
        name = "tool_input." input[i]
        s = (input[i] ~ /_path$/) ? lastComponent(whole(name, limit)) : beginning(name)
        s = firstLine(s)
        if (s != "") return shortened(s, 120)
    }
    return ""
}

# A file name that no id can lead astray and no two ids share.
function fileName(id,    code, i, name, sign) {
    name = id
    gsub(/[A-Za-z0-9-]/, "", name)
    if (name == "") return id
    name = ""
    for (i = 1; i < 256; i++) code[sprintf("%c", i)] = i
    for (i = 1; i <= length(id); i++) {
        sign = substr(id, i, 1)
        if (sign !~ /[A-Za-z0-9-]/ && (sign != "." || i == 1)) sign = "_" sprintf("%02x", code[sign])
        name = name sign
    }
    return name
}

# Takes in what the former record says: the texts of its members (was) and its times (at).
function readFormer(path,    inside, key, n, open, piece, text) {
    while ((getline piece < path) > 0) {
        if (!inside) {
            inside = 1
            text = ""
            if (piece == ":") continue
            if (key ~ "^(since|ts|beforeSince)$" && match(piece, "^:[1-9][0-9]*") && RLENGTH < 17)
                at[key] = substr(piece, 2, RLENGTH - 1)
            key = ""
            continue
        }
        n = length(piece)
        open = substr(piece, n) == "\\" && oddBackslashes(piece, n)
        text = text piece (open ? "\"" : "")
        if (open) continue
        inside = 0
        if (key == "") key = text
        else was[key] = text
    }
    close(path)
}

# Sets now to the present time in milliseconds and says in exact whether that is to the millisecond. Where the
# system has no clock but that of whole seconds, the former record may have what makes a time of the time since
# the machine started; else now is empty. latest is never before the present time.
function tellTime(ts,    line, second, told, words) {
    srand()
    second = sprintf("%.0f", srand())
    now = ENVIRON["now"]
    if (now == "" && (length(second) == 19 || length(second) == 16)) now = substr(second, 1, 13)
    exact = (now != "")
    latest = exact ? now + 0 : second * 1000 + 999
    if (exact || length(was["clock"]) > 30 || was["clock"] !~ "^[1-9][0-9]* [1-9][0-9]*$") return
    split(was["clock"], words, " ")
    if (second + 0 < words[2] || second + 0 > words[2] + 300) return
    getline line < "/proc/uptime"
    if (line !~ "^[1-9][0-9]*[.][0-9][0-9] ") return
    sub(" .*", "", line)
    told = sprintf("%.0f", words[1] + 1000 * line) + 0
    if (int(told / 1000) != second + 0) return
    if (told < ts && ts <= told + 20) told = ts
    if (told < ts) return
    now = sprintf("%.0f", told)
    latest = told
    clock = was["clock"]
}

# The tool that was in use still is.
function keepTool() {
    tool = plain(was["tool"])
    detail = plain(was["detail"])
}

# The state begins now unless it is the former one.
function become(successor) {
    begins = (former != successor || since + 0 > latest)
    state = successor
}

function member(name, s) {
    if (s != "") members = members ",\"" name "\":\"" restored(s) "\""
}

function time(name, milliseconds) {
    if (milliseconds != "") members = members ",\"" name "\":" milliseconds
}

# Whether the file has all of a text that ends in no quote. Not every awk tells of a write that failed.
function arrived(text, file,    piece, size) {
    size = -1
    while ((getline piece < file) > 0) size += length(piece) + 1
    return size == length(text)
}

# Sets the state, and whether it begins now, from the event and the former record.
function decide() {
    former = was["state"]
    since = at["since"]
    if (event == "Stop") become("done")
    else if (event == "SessionStart") {
        if (kind == "compact" && was["before"] != "" && at["beforeSince"] != "") {
            state = plain(was["before"])
            since = at["beforeSince"]
        } else if (kind == "compact" && former != "") {
            state = former
            notification = plain(was["notification"])
            keepTool()
        } else {
            if (kind != "resume" && kind != "compact") former = ""
            become((kind == "resume" && former == "done") ? "done" : "idle")
        }
    } else if (event == "PermissionRequest") {
        if (plain(was["tool"]) != tool || was["notification"] == "elicitation_dialog") former = ""
        become("waiting")
    } else if (event == "Notification") {
        elicited = (was["notification"] == "elicitation_dialog")
        if (kind == "elicitation_dialog") {
            if (former == "working" || (former == "waiting" && elicited)) keepTool()
            else former = ""
        } else if (former == "waiting" && !elicited) keepTool()
        else former = ""
        notification = kind
        become("waiting")
    } else {
        if (event == "UserPromptSubmit" && kind != "task") former = ""
        if (event == "PreCompact") remember()
        become("working")
    }
}

# What to go back to after a compaction.
function remember() {
    before = plain(was["before"])
    beforeSince = at["beforeSince"]
    if (before != "") return
    if (former == "idle" || former == "done") {
        before = former
        beforeSince = since
    } else if (kind == "auto") before = "working"
    else if (former == "") before = "idle"
    else {
        before = "done"
        beforeBegins = 1
    }
}

END {
    if (bad || !closed) exit
    event = whole("hook_event_name", 256)
    if (!(event in events) || value["agent_id"] != "") exit
    id = whole("session_id", 128)
    name = fileName(restored(id))
    if (name == "" || length(name) > 200) exit
    name = name ".json"
    file = ENVIRON["sessions"] "/" ENVIRON["prefix"] name
    if (event == "SessionEnd") {
        printf "" > file
        exit 20
    }
    if (event == "Notification") {
        kind = whole("notification_type", 256)
        if (kind != "permission_prompt" && kind != "elicitation_dialog") exit
    } else if (event == "UserPromptSubmit")
        kind = (substr(beginning("prompt"), 1, 19) == "<task-notification>") ? "task" : "typed"
    else kind = whole((event == "PreCompact") ? "trigger" : "source", 256)
    if (event ~ "PreTool|Failure|Permission") {
        tool = whole("tool_name", 256)
        detail = detailOfInput()
    }

    if (!index(ENVIRON["strange"], "/" name "/")) readFormer(ENVIRON["sessions"] "/" name)
    ts = at["ts"] + 0
    tellTime(ts)
    if (at["since"] == "" || was["state"] !~ "^(idle|working|waiting|done)$" || ts > latest + 10000) {
        split("", was)
        split("", at)
    } else if (ts > latest) exit
    decide()

    model = whole("model", 256)
    effort = whole("effort.level", 256)
    if (event != "SessionStart" || (kind != "startup" && kind != "clear")) {
        title = plain(was["title"])
        if (model == "") model = plain(was["model"])
        if (effort == "") effort = plain(was["effort"])
    }
    if (!exact && (begins || beforeBegins)) now = ""
    if (begins) since = now
    if (beforeBegins || (before != "" && beforeSince == "")) {
        if (!beforeBegins) beforeBegins = begins
        beforeSince = beforeBegins ? now : since
    }
    member("event", event)
    member("tool", tool)
    member("detail", detail)
    member("notification", notification)
    if (event == "Notification") member("message", shortened(beginning("message"), 400))
    member("model", model)
    member("effort", effort)
    member("title", title)
    member("before", before)
    member("id", id)
    path = whole("cwd", limit)
    member("cwd", path)
    member("project", lastComponent(path))
    member("transcript", whole("transcript_path", limit))
    time("since", since)
    time("beforeSince", beforeSince)
    if (now != "") member("clock", clock)
    time("ts", now)
    members = "{\"state\":\"" state "\"" members (now == "" ? "\n" : "}\n")
    printf "%s", members > file
    if (close(file) || !arrived(members, file)) exit 1
    exit (now == "") ? 11 + begins + 2 * beforeBegins : 10
}
'
status=$?
set +f
set -- "$sessions/$prefix"*
record=$sessions/${1#"$sessions/$prefix"}

# Puts the hidden file into the place of the record and ends. The first of these programs loads no library, the
# second one only, the last is everywhere. (-f would make the first delete the record before it moves the file.)
move() {
    mover=/usr/lib/klibc/bin/mv
    [ -x "$mover" ] && "$mover" "$1" "$record" && exit 0
    rename.ul "$prefix" '' "$1" || busybox mv -f "$1" "$record" || mv -f "$1" "$record" || rm -f "$1"
    exit 0
}

case $status in
0) exit 0 ;;
10 | 1[1-4] | 20)
    # There are more if a hook was killed that had the same number.
    if [ $# -ne 1 ] || [ -d "$record" ]; then
        rm -f "$@"
        exit 0
    fi
    [ "$status" != 10 ] || move "$1"
    ;;
*)
    cat
    rm -f "$@"
    exit 0
    ;;
esac

# The shell has read no further than to here if the event is like most.

if [ "$status" = 20 ]; then
    rm -f "$1" "$record"
    exit 0
fi

# readUptime sets `uptime` to the milliseconds since the machine started, in steps of ten; to nothing where the
# system doesn't tell them.
readUptime() {
    read -r uptime </proc/uptime || uptime=''
    uptime=${uptime%% *}
    case $uptime in
    0* | *[!0-9.]* | *.*.* | ?????????????*) uptime='' ;;
    *.[0-9][0-9]) uptime=${uptime%.*}${uptime#*.}0 ;;
    *) uptime='' ;;
    esac
}

# The time comes from date, which has the fraction only in some of its versions. `clock` gets what the next event
# may tell the time by without starting a program: the time at which the machine started, never too late and by
# no more than 20 ms too early, and the second of this reading.
readUptime
earlier=$uptime clock=''
now=$(date +%s%3N)
readUptime
case $now in
*[!0-9]* | ?????????????????* | '') now=$(date +%s)000 ;;
?????????????) [ -z "$uptime" ] || [ "$uptime" != "$earlier" ] || clock="$((now - uptime - 10)) ${now%???}" ;;
esac
case $now in
0* | *[!0-9]*)
    rm -f "$1"
    exit 0
    ;;
esac
since='' beforeSince=''
case $status in
12 | 14) since=$now ;;
esac
case $status in
13 | 14) beforeSince=$now ;;
esac
printf '%s%s%s,"ts":%s}\n' "${since:+,\"since\":$since}" "${beforeSince:+,\"beforeSince\":$beforeSince}" \
    "${clock:+,\"clock\":\"$clock\"}" "$now" >>"$1" || rm -f "$1"
move "$1"
