#!/bin/bash
# Tests the connection by keyboard alone: reached, canceled, through a proxy that is down, and denied.
. "$(dirname "$0")/support/drive.sh"
. "$(dirname "$0")/support/service.sh"

settings="Getting started: Connection settings"
failed="Getting started: The connection test failed"
passwordField=914 # of connection_settings.exv
password_ends_at() { probe | grep -q "^$passwordField .*selection=$1-$1 "; }
logFile=$(echo "$WINEPREFIX"/drive_c/users/*/Temp/pvn.log)

start_host --workflow 4 --language en_US
wait_until "the settings are shown" title_is "$settings"
press alt+t
wait_until "the service is reached" title_is "Getting started: The connection works"
service_said 'connection test: {"locale": "en_US"}' || fail "the service understood something else"
press alt+b
wait_until "Back leads to the settings" title_is "$settings"

for fault in silent stalls_in_body; do
    fail_with $fault
    press alt+t
    wait_until "the busy page is shown" title_is "Getting started: Testing the connection"
    wait_until "the service has the call" service_said "fails as told: $fault"
    press Escape
    wait_until "Esc leads back to the settings" title_is "$settings"
done

press alt+p # the user's own proxy
press alt+a
wait_until "Alt+A leads to the server" focus_is edit
xdotool type "localhost"
press alt+o
xdotool type "1"
press alt+e
xdotool type "ada"
press alt+w
xdotool type "Top9secret"
wait_until "the password is typed" password_ends_at 10
fail_with
press alt+t
wait_until "a proxy that is down is a failure" title_is "$failed"
wait_until "the words are about the connection" says "The connection could not be made"
wait_until "the code is shown" says "text=Error code 208:163"
grep -qF "proxy server  : localhost" "$logFile" || fail "the log does not name the proxy"
for file in "$logFile" "$serviceLog"; do
    grep -qF "Top9secret" "$file" && fail "the password is in $file"
done
press alt+b
wait_until "Back leads to the settings again" title_is "$settings"

press alt+s # the system's proxy
fail_with denied
press alt+t
wait_until "a denied test is a failure" says "The service answered, but it turned the test down."
press Escape # the failure stays the outcome
host_ends 1 "status 0x8501: The service denied the request."

fail_with
start_host --workflow 4 --language en_US
wait_until "the settings are shown" title_is "$settings"
press alt+t
wait_until "the service is reached" title_is "Getting started: The connection works"
press Return
host_ends 0 "status 0x0000"
