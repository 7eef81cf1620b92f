# Sourced by the end-to-end scripts: starts the sample host and drives its dialogs by real keys and mouse clicks.
# Every step waits for a condition of the screen, never for a guessed time. A pane shows its controls one by one, so
# every check waits as well: a condition must hold within the time limit of wait_until.

set -euo pipefail
build=$1
bin=$build/bin
hostFolder=$bin
hostProgram=pavane-host.exe
output=$(mktemp)
openedPages=$(mktemp)
browserKey='HKLM\Software\Microsoft\Windows\CurrentVersion\App Paths\iexplore.exe'
hostProcess=
formerBrowser=
isRecording=
trap 'finish' EXIT

finish() {
    [ -z "$hostProcess" ] || kill "$hostProcess" 2>/dev/null || true
    rm -f "$output" "$openedPages"
    [ -z "$isRecording" ] || set_browser "$formerBrowser"
}

fail() {
    echo "FAILED: $*" >&2
    probe >&2 || true
    [ -z "${PAVANE_FAILURE_PICTURE:-}" ] || import -window root "$PAVANE_FAILURE_PICTURE"
    exit 1
}

# start_host ARGUMENT...: starts the sample host in the background, in the folder $hostFolder, and keeps its output.
start_host() {
    : >"$output"
    (cd "$hostFolder" && exec timeout 240 wine "$hostProgram" "$@" >"$output" 2>/dev/null) &
    hostProcess=$!
}

# record_pages: from now on the browser only notes what it is to open. Call it before start_host.
record_pages() {
    PAVANE_OPENED_PAGES=$(winepath -w "$openedPages" 2>/dev/null)
    export PAVANE_OPENED_PAGES
    # The query fails without the key.
    formerBrowser=$({ wine reg query "$browserKey" /ve 2>/dev/null || true; } | tr -d '\r' | sed -n 's/^.*REG_SZ *//p')
    isRecording=yes
    set_browser "$(winepath -w "$bin/page-recorder.exe" 2>/dev/null)"
}
# set_browser PATH: that program is the browser; without a path none is registered.
set_browser() {
    if [ -n "$1" ]; then
        wine reg add "$browserKey" /ve /d "$1" /f >/dev/null 2>&1
    else
        wine reg delete "$browserKey" /ve /f >/dev/null 2>&1 || true
    fi
}
# pages_opened COUNT PAGE: that many pages were opened so far, the last of them PAGE.
pages_opened() { [ "$(wc -l <"$openedPages")" = "$1" ] && tail -n 1 "$openedPages" | grep -qF "$2\""; }

# host_ends CODE TEXT: the host ends with that exit code, after printing TEXT, or nothing at all if TEXT is empty.
host_ends() {
    local code=0
    wait "$hostProcess" || code=$?
    hostProcess=
    [ "$code" = "$1" ] || fail "the host ended with $code instead of $1: $(cat "$output")"
    host_said "$2"
}

# host_said TEXT: the host has printed TEXT, or nothing at all if TEXT is empty.
host_said() {
    if [ -z "$1" ]; then
        [ ! -s "$output" ] || fail "the host printed: $(cat "$output")"
        echo "ok: the host printed nothing"
        return
    fi
    grep -qF "$1" "$output" || fail "the host did not print '$1' but: $(cat "$output")"
    echo "ok: the host printed '$1'"
}

# probe: prints what window_probe prints, in one write, so that a reader that stops early does not break the pipe.
probe() {
    local dump
    dump=$(wine "$bin/window-probe.exe" 2>/dev/null | tr -d '\r') || true
    printf '%s\n' "$dump"
}

# window_message TITLE close, window_message TITLE command ID: see window_message.c.
window_message() { wine "$bin/window-message.exe" "$@" 2>/dev/null; }

# wait_until WHAT COMMAND...: repeats COMMAND until it succeeds.
wait_until() {
    local what=$1 end=$((SECONDS + 60))
    shift
    until "$@"; do
        [ "$SECONDS" -lt "$end" ] || fail "never true: $what"
        sleep 0.1
    done
    echo "ok: $what"
}

# control TEXT: the line of the visible control with that text, without the & of its access key.
control() { probe | awk -v text="$1" 'NR > 1 { line = $0; for (i = 0; i < 7; ++i) sub(/^[^ ]* /, "", line);
    gsub(/&/, "", line); if (line == text) { print; exit } }'; }
states_of() { control "$1" | awk '{ print $7 }'; }
has_a_dialog() { [ -n "$(probe)" ]; }
shows() { [ -n "$(control "$1")" ]; }
shows_no_more() { has_a_dialog && ! shows "$1"; }
is_focused() { case "$(states_of "$1")" in *F*) true ;; *) false ;; esac; }
is_default() { case "$(states_of "$1")" in *D*) true ;; *) false ;; esac; }
# focus_is CLASS: a control of that class has the focus.
focus_is() { probe | awk -v class="$1" 'NR > 1 && tolower($2) == class && $7 ~ /F/ { found = 1 } END { exit !found }'; }
# state_of_class CLASS NAME: a state of the visible edit control or combobox (see window_probe.c).
state_of_class() { probe | awk -v class="$1" -v name="$2" 'NR > 1 && tolower($2) == class { for (i = 8; i <= NF; ++i)
    if (index($i, name "=") == 1) print substr($i, length(name) + 2) }'; }
class_state_is() { [ "$(state_of_class "$1" "$2")" = "$3" ]; }
# left_of A B...: each control is left of the next one.
left_of() {
    local a b
    a=$(control "$1" | awk '{ print $3 }') b=$(control "$2" | awk '{ print $3 }')
    [ -n "$a" ] && [ -n "$b" ] && [ "$a" -lt "$b" ] || return 1
    shift
    [ $# = 1 ] || left_of "$@"
}
# says TEXT: a visible control has a text with TEXT in it.
says() { probe | tail -n +2 | sed 's/&//g' | grep -qF "$1"; }
is_no_default() { shows "$1" && ! is_default "$1"; }
title_is() { [ "$(probe | sed -n '1s/^dialog [^ ]* [^ ]* [^ ]* [^ ]* //p')" = "$1" ]; }

# word LOCALE KEY: the text of KEY in the shipped dictionary of that locale.
word() { awk -F= -v key="\$\$\$$2" '{ sub(/^"/, ""); sub(/"$/, "") } $1 == key { gsub(/&/, "", $2); print $2; exit }' \
    "$(dirname "$0")/../../resources/dictionaries/$1/guide.txt"; }

press() { xdotool key --clearmodifiers "$1"; }
# The next click is 10 pixels beside this one: two quick ones at one place are a double click, which no page takes from
# the page before it.
clickSide=5
click() {
    local line
    wait_until "'$1' can be clicked" shows "$1"
    line=$(control "$1")
    clickSide=$((-clickSide))
    # shellcheck disable=SC2046
    xdotool mousemove $(echo "$line" | awk -v side="$clickSide" '{ print $3 + side, $4 }') click 1
}
center_of_class() { probe | awk -v class="$1" 'NR > 1 && tolower($2) == class { print $3, $4; exit }'; }
shows_class() { [ -n "$(center_of_class "$1")" ]; }
# click_class CLASS [BELOW]: clicks the visible control of that class at its center, or that many pixels below it.
click_class() {
    local line
    wait_until "the $1 can be clicked" shows_class "$1"
    line=$(center_of_class "$1")
    xdotool mousemove "${line% *}" "$((${line#* } + ${2:-0}))" click 1
}
