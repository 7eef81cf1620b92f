#!/bin/bash
# Walks Welcome by mouse, forth and back and to its end, in English and mirrored in Hebrew.
. "$(dirname "$0")/support/drive.sh"

# left_of A B: the control A stands left of the control B.
left_of() { [ "$(control "$1" | awk '{ print $3 }')" -lt "$(control "$2" | awk '{ print $3 }')" ]; }

start_host --workflow 1 --language en_US
wait_until "Welcome is shown" shows "Learn more"
click Continue
wait_until "Highlights is shown" title_is "Getting Started: Highlights"
shows "Learn more" && fail "the pane before is still there"
left_of Back Continue && left_of Continue Quit || fail "the buttons are not in order"
click Back
wait_until "Back leads to Welcome" title_is "Getting Started: Welcome"
click Continue
wait_until "Highlights is shown again" title_is "Getting Started: Highlights"
click Quit
wait_until "Quit asks" title_is "Quit"
click Stay
wait_until "Stay stays" title_is "Getting Started: Highlights"
click Continue
wait_until "Ready is shown" title_is "Getting Started: Ready"
shows_no_more Continue || fail "Ready still offers Continue"
click Done
host_ends 0 "status 0x0000"

word() { awk -F= -v key="\$\$\$$1" '{ sub(/^"/, ""); sub(/"$/, "") } $1 == key { print $2; exit }' \
    "$(dirname "$0")/../../resources/dictionaries/he_IL/guide.txt"; }
back=$(word /pvn/dlg/common/button/back)
forward=$(word /pvn/dlg/common/button/continue)
quit=$(word /pvn/dlg/common/button/quit)

start_host --workflow 1 --language he_IL
wait_until "Welcome is shown in Hebrew" shows "$forward"
click "$forward"
wait_until "Highlights is shown in Hebrew" shows "$back"
left_of "$quit" "$forward" && left_of "$forward" "$back" || fail "the buttons are not mirrored"
click "$forward"
wait_until "Ready is shown in Hebrew" shows "$(word /pvn/dlg/common/button/done)"
click "$(word /pvn/dlg/common/button/done)"
host_ends 0 "status 0x0000"
