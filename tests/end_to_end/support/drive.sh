# Sourced by the end-to-end scripts: starts the sample host and drives its dialogs by real keys and mouse clicks.
# Every step waits for a condition of the screen, never for a guess of time.

set -euo pipefail
build=$1
bin=$build/bin
output=$(mktemp)
hostProcess=
trap 'finish' EXIT

finish() {
    [ -z "$hostProcess" ] || kill "$hostProcess" 2>/dev/null || true
    rm -f "$output"
}

fail() {
    echo "FAILED: $*" >&2
    probe >&2 || true
    [ -z "${PAVANE_FAILURE_PICTURE:-}" ] || import -window root "$PAVANE_FAILURE_PICTURE"
    exit 1
}

# start_host ARGUMENT...: in the background, its words kept.
start_host() {
    : >"$output"
    (cd "$bin" && exec timeout 120 wine pavane-host.exe "$@" >"$output" 2>/dev/null) &
    hostProcess=$!
}

# host_ends CODE TEXT: the host ends with that exit code, having printed TEXT.
host_ends() {
    local code=0
    wait "$hostProcess" || code=$?
    hostProcess=
    [ "$code" = "$1" ] || fail "the host ended with $code instead of $1: $(cat "$output")"
    grep -qF "$2" "$output" || fail "the host did not say '$2' but: $(cat "$output")"
    echo "ok: the host ended with '$2'"
}

probe() { wine "$bin/window-probe.exe" 2>/dev/null | tr -d '\r'; }

# wait_until WHAT COMMAND...: repeats COMMAND until it succeeds.
wait_until() {
    local what=$1 end=$((SECONDS + 20))
    shift
    until "$@"; do
        [ "$SECONDS" -lt "$end" ] || fail "never came: $what"
        sleep 0.1
    done
    echo "ok: $what"
}

# The line of the visible control whose text is TEXT (its access key's & aside).
control() { probe | awk -v text="$1" 'NR > 1 { line = $0; for (i = 0; i < 7; ++i) sub(/^[^ ]* /, "", line);
    gsub(/&/, "", line); if (line == text) { print; exit } }'; }
states_of() { control "$1" | awk '{ print $7 }'; }
shows() { [ -n "$(control "$1")" ]; }
shows_no_more() { ! shows "$1"; }
is_focused() { case "$(states_of "$1")" in *F*) true ;; *) false ;; esac; }
is_default() { case "$(states_of "$1")" in *D*) true ;; *) false ;; esac; }
# focus_is CLASS: a control of that class has the focus.
focus_is() { probe | awk -v class="$1" 'NR > 1 && tolower($2) == class && $7 ~ /F/ { found = 1 } END { exit !found }'; }
# state_of_class CLASS NAME: a state of the visible edit control or combobox (see window_probe.c).
state_of_class() { probe | awk -v class="$1" -v name="$2" 'NR > 1 && tolower($2) == class { for (i = 8; i <= NF; ++i)
    if (index($i, name "=") == 1) print substr($i, length(name) + 2) }'; }
class_state_is() { [ "$(state_of_class "$1" "$2")" = "$3" ]; }
title_is() { [ "$(probe | sed -n '1s/^dialog [^ ]* [^ ]* [^ ]* [^ ]* //p')" = "$1" ]; }

press() { xdotool key --clearmodifiers "$1"; }
click() {
    local line
    line=$(control "$1")
    [ -n "$line" ] || fail "no control '$1' to click"
    # shellcheck disable=SC2046
    xdotool mousemove $(echo "$line" | awk '{ print $3, $4 }') click 1
}
# click_class CLASS [BELOW]: clicks the visible control of that class, or so many pixels below its centre.
click_class() {
    local line
    line=$(probe | awk -v class="$1" 'NR > 1 && tolower($2) == class { print $3, $4; exit }')
    [ -n "$line" ] || fail "no $1 to click"
    xdotool mousemove "${line% *}" "$((${line#* } + ${2:-0}))" click 1
}
