#!/bin/bash
# Walks Privacy by mouse: forward and back, accepts, declines and cancels, in English and mirrored in Hebrew.
. "$(dirname "$0")/support/drive.sh"

has_a_field() { [ -n "$(state_of_class edit direction)" ]; }
has_no_field() { has_a_dialog && ! has_a_field; }
is_scrolled() { [ "$(state_of_class edit line | cut -d/ -f1)" -gt 0 ]; }

locales=$("$(dirname "$0")/../../scripts/locales")
hebrew=$(($(echo "$locales" | grep -n he_IL | cut -d: -f1) - 1)) # its row in the list

start_host --workflow 3 --language en_US
wait_until "the choice is shown" shows Continue
wait_until "there is no field on the first pane" has_no_field
click Continue
wait_until "the statement is shown" has_a_field
wait_until "Continue is no longer there" shows_no_more Continue
wait_until "the buttons are in order" left_of Back Accept Decline Cancel
click_class edit
wait_until "the reader is in the field" focus_is edit
xdotool click 5
wait_until "the wheel scrolls" is_scrolled
click Back
wait_until "Back leads to the choice" shows Continue
wait_until "the field is hidden" has_no_field
click_class combobox
wait_until "a click opens the list" class_state_is combobox list open
click_class combobox $((10 + hebrew * $(state_of_class combobox row_height) + 6)) # the rows begin below the field
wait_until "a click chooses from it" class_state_is combobox row "$hebrew/$(echo "$locales" | wc -l)"
click Continue
wait_until "the statement is shown" has_a_field
wait_until "Hebrew is shown from right to left" class_state_is edit direction rtl
click Accept
host_ends 0 "status 0x0000"

start_host --workflow 3 --language en_US
wait_until "the choice is shown" shows Continue
click Continue
wait_until "the statement is shown" has_a_field
click Decline
host_ends 1 "status 0x8903"

start_host --workflow 3 --language en_US
wait_until "the choice is shown" shows Cancel
click Cancel
host_ends 1 "status 0x8902"

start_host --workflow 3 --language he_IL
forward=$(word he_IL /pvn/dlg/common/button/continue)
back=$(word he_IL /pvn/dlg/common/button/back)
accept=$(word he_IL /pvn/dlg/common/button/accept)
decline=$(word he_IL /pvn/dlg/common/button/decline)
cancel=$(word he_IL /pvn/dlg/common/button/cancel)
wait_until "the choice is shown in Hebrew" shows "$forward"
wait_until "the buttons are mirrored" left_of "$cancel" "$forward"
click "$forward"
wait_until "the statement is shown in Hebrew" has_a_field
wait_until "Hebrew is shown from right to left" class_state_is edit direction rtl
wait_until "the buttons are mirrored" left_of "$cancel" "$decline" "$accept" "$back"
click "$accept"
host_ends 0 "status 0x0000"
