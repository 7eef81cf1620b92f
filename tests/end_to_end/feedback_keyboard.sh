#!/bin/bash
# Sends feedback by keyboard alone to the example service: numbers corrected, a part of the log added and taken away,
# canceled, denied, and in the end confirmed.
. "$(dirname "$0")/support/drive.sh"
. "$(dirname "$0")/support/service.sh"

picture="Getting started: Your feedback"
capture="Getting started: Capture data"
storage="Getting started: What will be sent"
sending="Getting started: Sending your feedback"
problem="Getting started: The feedback is not confirmed"

start_host --workflow 5 --language en_US
wait_until "the first page is shown" title_is "$picture"
wait_until "the reader starts in the subject" focus_is edit
press alt+e # the comment
xdotool type "Too gray."
press Return # begins a line; in the subject it would be an alert
press Escape
host_ends 1 "status 0x8902"

start_host --workflow 5 --language en_US
wait_until "the first page is shown" title_is "$picture"
wait_until "the reader starts in the subject" focus_is edit
press Return
wait_until "a missing subject is refused" says "The subject is missing"
press Return
wait_until "the alert closes" title_is "$picture"
wait_until "the focus is in the field" focus_is edit
xdotool type "Gray sky"
press alt+c
wait_until "a missing category is refused" says "The category is missing"
press Return
wait_until "the focus is in the list" focus_is combobox
press p # Picture quality
press Tab
wait_until "Tab leads to the marked radio button" is_focused "Once so far"
press Down
wait_until "an arrow key leads to the next one" is_focused "Sometimes"
press Down
wait_until "and to the last one" is_focused "Every time"
press Down
wait_until "and round to the first one" is_focused "Once so far"
press Up
wait_until "and back" is_focused "Every time"
press Tab
wait_until "Tab leaves the group" focus_is edit
xdotool type "Too gray."
press Return # begins a line
xdotool type "See the corner."
press Tab
wait_until "Tab leaves the comment" is_focused "Continue"
press shift+Tab
wait_until "Shift+Tab leads back" focus_is edit
press alt+c

wait_until "the capture data are shown" title_is "$capture"
wait_until "the reader starts on the first check box" is_focused "Send (1): Image width:"
press Tab
wait_until "Tab passes the disabled field" is_focused "Send (2): Resolution:"
wait_until "Enter still goes on" is_default "Continue"
press shift+Tab
wait_until "Shift+Tab leads back" is_focused "Send (1): Image width:"
wait_until "Enter still goes on there" is_default "Continue"
press space
wait_until "it leads into its field" focus_is edit
xdotool type "4000" # in place of the example
press alt+6 # the check box of the exposure time
wait_until "its field has the focus" focus_is edit
press alt+a # the aperture, whose field is still disabled
wait_until "the label leads to the check box" is_focused "Send (5): Aperture:"
press space
wait_until "it leads into its field" focus_is edit
press alt+5
wait_until "the check box takes the focus out of its field" is_focused "Send (5): Aperture:"
press space
wait_until "and gives it back" focus_is edit
xdotool type "wide"
press alt+c
wait_until "a text that is no number is refused" says "This is not a number"
press Return
wait_until "the alert closes" title_is "$capture"
wait_until "the focus is in the field" focus_is edit
xdotool type "F/5.6"
press alt+c

wait_until "the list is shown" title_is "$storage"
wait_until "the reader starts on the slider" focus_is msctls_trackbar32
wait_until "no log is sent at first" shows "0 KB"
press Right
wait_until "the slider adds a part of the log" shows "1 KB"
press Home
wait_until "and takes it away" shows "0 KB"
press Right
wait_until "and adds it again" shows "1 KB"
# Enter sends nothing: the keys after it still reach this page.
press Return
press Home
wait_until "the slider is still there after Enter" shows "0 KB"
press Tab
wait_until "Tab leads to the list" focus_is listbox
press Return
press shift+Tab
press Right
wait_until "so is the list" shows "1 KB"
wait_until "the list is still shown" title_is "$storage"

fail_with silent
press alt+d
wait_until "the busy page is shown" title_is "$sending"
wait_until "the service has the call" service_said "fails as told: silent"
press alt+n
wait_until "Cancel leads back to the list" title_is "$storage"
wait_until "the choice is still there" shows "1 KB"

fail_with denied
press alt+d
wait_until "a denied call is a problem" title_is "$problem"
wait_until "the words are about the feedback" says "The service did not accept the feedback."
press alt+k
wait_until "the settings are near" title_is "Getting started: Connection settings"
press Escape
wait_until "Esc leads back to the problem" title_is "$problem"

fail_with
press alt+t
wait_until "Try again sends it" title_is "Getting started: Your feedback has arrived"
wait_until "the service understood it" service_said '"subject": "Gray sky", "category": "quality", "frequency": "always", "comment": 25, "pixelWidth": "4000", "resolution": "", "focalLength": "", "aspectRatio": "", "aperture": "5.6", "exposureTime": "1/250", "brightness": "", "locale": "en_US", "product": "Sample Host", "log": '
fields=$(sed -n 's/^service: feedback of \([0-9]*\) fields: .*/\1/p' "$serviceLog" | tail -n 1)
[ "$fields" = 10 ] || fail "not ten fields: $(cat "$serviceLog")"
calls=$(grep -c "^service: feedback of" "$serviceLog")
[ "$calls" = 3 ] || fail "not three calls: $(cat "$serviceLog")"
wait_until "the fields are confirmed" says "The service has confirmed 10 fields and"
wait_until "nothing is missing" says "That is everything that was sent."
press Return
host_ends 0 "status 0x0000"
