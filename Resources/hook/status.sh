#!/bin/sh
# Writes what an agent session is doing into one small file that Mimkins reads. The client runs this on each
# of its events with a JSON document on standard input. Which event leads to which record is written down in
# Documentation/hook-events.md.
#
# It needs a POSIX shell, any awk, date and mv. It always reads its input to the end, prints nothing, starts
# nothing that outlives it, and ends with 0, save for what Documentation/hook-events.md says of its last step.

# shellcheck disable=SC1010,SC1083,SC2016,SC3028 # "done" is a state, a brace and awk's $ are meant literally

trap 'exit 0' HUP INT TERM PIPE
exec >/dev/null 2>&1
umask 077
LC_ALL=C
PATH=${PATH:+$PATH:}/usr/bin:/bin
export LC_ALL PATH

# Without an input, the pipe to awk would take its number, and awk would wait for itself.
if [ -t 0 ] || ! true 3<&0; then
    exit 0
fi
case $0 in
*/*) sessions=${0%/*}/../sessions ;;
*) sessions=../sessions ;;
esac
if [ ! -d "$sessions" ] || [ ! -w "$sessions" ]; then
    cat
    exit 0
fi

# Reads the document and prints what the rest of the script needs, one "=" and value to a line: the name of
# the record's file, event, kind of event, tool, detail, model, effort, the members of the record that depend on
# nothing else, and the time as awk knows it. Values are JSON text. Prints nothing for an event that leaves the record alone, and
# for a document that is cut off or is no object.
#
# The input is split at its quotes, so that each record is either what stands between two strings or a piece
# of a string that ends at a quote. That keeps the work linear in the input whichever awk runs it: no string
# is ever taken apart character by character unless it is short and wanted.
facts=$(awk '
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

function openersIn(s,    half) {
    if (length(s) <= 256) return gsub(/[{]|\[/, "", s)
    half = int(length(s) / 2)
    return openersIn(substr(s, 1, half)) + openersIn(substr(s, half + 1))
}

function closersIn(s,    half) {
    if (length(s) <= 256) return gsub(/[}]|\]/, "", s)
    half = int(length(s) / 2)
    return closersIn(substr(s, 1, half)) + closersIn(substr(s, half + 1))
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
        openers = openersIn(s)
        closers = closersIn(s)
    }
    if (depth && openers && closers >= depth) {
        match(s, /[{]|\[/)
        if (closersIn(substr(s, 1, RSTART - 1)) >= depth) bad = 1
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

function member(name, s) {
    if (s != "") members = members ",\"" name "\":\"" restored(s) "\""
}

END {
    if (bad || !closed) exit
    event = whole("hook_event_name", 256)
    if (!(event in events)) exit
    if (value["agent_id"] != "") exit
    id = restored(whole("session_id", 128))
    name = fileName(id)
    if (name == "" || length(name) > 200) exit

    if (event == "Notification") {
        kind = whole("notification_type", 256)
        if (kind != "permission_prompt" && kind != "elicitation_dialog") exit
        member("message", shortened(beginning("message"), 400))
    }
    if (event == "UserPromptSubmit")
        kind = (substr(beginning("prompt"), 1, 19) == "<task-notification>") ? "task" : "typed"
    if (event == "SessionStart") kind = whole("source", 256)
    if (event == "PreCompact") kind = whole("trigger", 256)
    if (event ~ /Tool|Permission/) {
        tool = whole("tool_name", 256)
        detail = detailOfInput()
    }
    members = members ",\"id\":\"" id "\""
    path = whole("cwd", limit)
    member("cwd", path)
    member("project", lastComponent(path))
    member("transcript", whole("transcript_path", limit))
    print "=" name
    print "=" event
    print "=" restored(kind)
    print "=" restored(tool)
    print "=" restored(detail)
    print "=" restored(whole("model", 256))
    print "=" restored(whole("effort.level", 256))
    print "=" members
    srand()
    printf "=%.0f\n", srand()
}
') || cat
set -f
IFS='
'
# shellcheck disable=SC2086 # the words are the lines
set -- $facts
[ $# -eq 9 ] || exit 0
name=${1#=} event=${2#=} kind=${3#=} tool=${4#=} detail=${5#=} model=${6#=} effort=${7#=} members=${8#=} seed=${9#=}
record=$sessions/$name.json
temporary=$sessions/.$name.$$.tmp
if [ -d "$record" ]; then
    exit 0
fi

if [ "$event" = SessionEnd ]; then
    rm -f "$record"
    exit 0
fi

# endsOpen PIECE: whether it ends in an odd number of backslashes, so that the quote behind it is part of the
# string.
endsOpen() {
    run=${1##*[!\\]}
    while :; do
        case $run in
        \\\\*) run=${run#??} ;;
        \\) return 0 ;;
        *) return 1 ;;
        esac
    done
}

# What the former record says, as JSON text. What each event needs stands in its first line, and in the second
# what some need. The text is split at its quotes, as searching it for each member costs the square of its length.
first='' second='' ts='' was='' since='' wasTool='' wasDetail='' wasNotification='' before='' beforeSince=''
title='' wasModel='' wasEffort='' clock=''
if [ -f "$record" ]; then
    case $event in
    PermissionRequest | Notification | SessionStart) { read -r first && read -r second; } <"$record" ;;
    *) read -r first <"$record" ;;
    esac
fi
IFS='"'
key='' text='' inside=''
for piece in $first$second; do
    if [ -z "$inside" ]; then
        inside=1 text=''
        case $piece in
        :) continue ;;
        :[1-9]*)
            text=${piece#:}
            text=${text%%[!0-9]*}
            [ ${#text} -gt 15 ] || case $key in
            since) since=$text ;;
            ts) ts=$text ;;
            beforeSince) beforeSince=$text ;;
            esac
            text=''
            ;;
        esac
        key=''
        continue
    fi
    text=$text$piece
    case $piece in
    *\\) if endsOpen "$piece"; then
        text=$text\"
        continue
    fi ;;
    esac
    inside=''
    case $key in
    '') key=$text ;;
    state) was=$text ;;
    tool) wasTool=$text ;;
    detail) wasDetail=$text ;;
    notification) wasNotification=$text ;;
    before) before=$text ;;
    model) wasModel=$text ;;
    effort) wasEffort=$text ;;
    title) title=$text ;;
    clock) clock=$text ;;
    esac
done
: "${ts:=0}"

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

# tellTime sets `now` to the time in milliseconds by date, which has the fraction only in some of its versions.
# `clock` gets what the next event may tell the time by without starting a program: the time at which the
# machine started, never too late and by no more than 20 ms too early, and the second of this reading. The record
# has the program that moved it there as a third word.
tellTime() {
    [ -z "$exact" ] || return 0
    exact=1 clock=''
    readUptime
    earlier=$uptime
    now=$(date +%s%3N)
    readUptime
    case $now in
    *[!0-9]* | ?????????????????* | '') now=$(date +%s)000 ;;
    ?????????????) [ -z "$uptime" ] || [ "$uptime" != "$earlier" ] || clock="$((now - uptime - 10)) ${now%???}" ;;
    esac
    case $now in
    0* | *[!0-9]*) exit 0 ;;
    esac
}

# tellTimeByUptime sets `now` from the former record's clock, if that was read in the last five minutes and
# agrees with the second that awk has read; else it leaves `now` empty. As the former event was before the
# present one, a time that is less than the clock's error before it is put off to it.
tellTimeByUptime() {
    now=''
    case $clock in
    [1-9]*' '[1-9]*' mv' | [1-9]*' '[1-9]*' busybox') ;;
    *) return 0 ;;
    esac
    mover=${clock##* } clock=${clock% *}
    started=${clock% *} read=${clock#* }
    case $started$read$seed in
    *[!0-9]* | ??????????????????????????????????*) return 0 ;;
    esac
    if [ "$seed" -lt "$read" ] || [ "$seed" -gt $((read + 300)) ]; then
        return 0
    fi
    readUptime
    [ -z "$uptime" ] || now=$((started + uptime))
    if [ "${now%???}" != "$seed" ]; then
        now=''
    elif [ "$now" -lt "$ts" ] && [ "$ts" -le $((now + 20)) ]; then
        now=$ts
    fi
}

# A clock of the shell goes on after the assignment; a variable that was inherited is empty.
EPOCHREALTIME=
now=$EPOCHREALTIME exact=1
case $now in
*[.,]??????)
    fraction=${now#*[.,]}
    now=${now%%[.,]*}${fraction%???} clock=''
    ;;
*)
    exact='' now=''
    case $seed in
    *[!0-9]*) ;;
    [1-9]??????????????????) now=${seed%??????} exact=1 clock='' ;;
    [1-9]???????????????) now=${seed%???} exact=1 clock='' ;;
    *) tellTimeByUptime ;;
    esac
    if [ -z "$now" ] || [ "$ts" -gt "$now" ]; then
        tellTime
    fi
    ;;
esac

if [ -z "$since" ] || [ "$ts" -gt $((now + 10000)) ]; then
    was=''
elif [ "$ts" -gt "$now" ]; then
    exit 0
fi
if [ -z "$was" ]; then
    since='' wasTool='' wasDetail='' wasNotification='' before='' beforeSince='' title='' wasModel='' wasEffort=''
fi
if [ "$event$kind" = SessionStartstartup ] || [ "$event$kind" = SessionStartclear ]; then
    title=''
else
    model=${model:-$wasModel}
    effort=${effort:-$wasEffort}
fi

# keepDetail takes the tool and detail of the former record over.
keepDetail() {
    tool=$wasTool
    detail=$wasDetail
}

# become STATE: the state begins now unless it is the former one.
become() {
    if [ "$was" != "$1" ] || [ "$since" -gt "$now" ]; then
        tellTime
        since=$now
    fi
    state=$1
}

notification='' extra=''
case $event in
SessionStart)
    case $kind in
    compact)
        if [ -n "$before" ] && [ -n "$beforeSince" ]; then
            state=$before since=$beforeSince
        elif [ -n "$was" ]; then
            state=$was notification=$wasNotification
            keepDetail
        else
            become idle
        fi
        ;;
    resume)
        if [ "$was" = done ]; then
            become done
        else
            become idle
        fi
        ;;
    *)
        was=
        become idle
        ;;
    esac
    ;;
UserPromptSubmit)
    [ "$kind" = task ] || was=
    become working
    ;;
PreToolUse | PostToolUseFailure)
    become working
    ;;
PostToolUse)
    tool='' detail=''
    become working
    ;;
PermissionRequest)
    if [ "$wasTool" != "$tool" ] || [ "$wasNotification" = elicitation_dialog ]; then
        was=
    fi
    become waiting
    ;;
Notification)
    notification=$kind
    if [ "$kind" = elicitation_dialog ]; then
        if [ "$was" = working ] || [ "$was$wasNotification" = waitingelicitation_dialog ]; then
            keepDetail
        else
            was=
        fi
    elif [ "$was" = waiting ] && [ "$wasNotification" != elicitation_dialog ]; then
        keepDetail
    else
        was=
    fi
    become waiting
    ;;
PreCompact)
    if [ -z "$before" ]; then
        case $was$kind in
        idle* | done*) before=$was beforeSince=$since ;;
        *auto) before=working ;;
        working* | waiting*)
            tellTime
            before=done beforeSince=$now
            ;;
        *) before=idle ;;
        esac
    fi
    become working
    extra=",\"before\":\"$before\",\"beforeSince\":${beforeSince:-$since}"
    ;;
Stop)
    become done
    ;;
esac

often="{\"state\":\"$state\",\"since\":$since,\"ts\":$now"
seldom=$extra${model:+,\"model\":\"$model\"}${effort:+,\"effort\":\"$effort\"}${title:+,\"title\":\"$title\"}
seldom="$seldom
${tool:+,\"tool\":\"$tool\"}${detail:+,\"detail\":\"$detail\"}${notification:+,\"notification\":\"$notification\"}"

# write MOVER: writes the record into the temporary file.
write() {
    printf '%s%s%s\n,"event":"%s"%s}\n' "$often" "${clock:+,\"clock\":\"$clock $1\"}" "$seldom" "$event" \
        "$members" >"$temporary"
}

# Where the time took no program, a record of a state that goes on replaces a file that was put in the same
# place by the same mover. So that one runs in the place of the shell, which saves starting a process.
if [ -z "$exact" ] && [ -f "$record" ] && [ -O "$record" ]; then
    trap '' HUP INT TERM PIPE
    if write "$mover"; then
        [ "$mover" = mv ] || exec busybox mv -f "$temporary" "$record"
        exec mv -f "$temporary" "$record"
    fi
fi

# Busybox loads fewer libraries than coreutils. A hook of the same session that runs beside this one has another
# process number and so another file.
trap 'rm -f "$temporary"; exit 0' HUP INT TERM PIPE
if write busybox && busybox mv -f "$temporary" "$record"; then
    exit 0
fi
if ! write mv || ! mv -f "$temporary" "$record"; then
    rm -f "$temporary"
fi
exit 0
