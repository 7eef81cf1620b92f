#!/bin/bash
# Walks Privacy by keyboard alone: chooses a language, reads the statement, and accepts, declines and cancels.
. "$(dirname "$0")/support/drive.sh"

first_line() { state_of_class edit line | cut -d/ -f1; }
is_scrolled() { [ "$(first_line)" -gt 0 ]; }
is_at_top() { [ "$(first_line)" = 0 ]; }
# The last line is visible: the field shows at least 20 lines from the first visible one.
is_at_end() {
    local line
    line=$(state_of_class edit line)
    [ "$((${line%/*} + 20))" -ge "${line#*/}" ]
}

open_statement() {
    start_host --workflow 3 --language en_US
    wait_until "the choice is shown" title_is "Getting started: Your privacy"
    wait_until "the languages have the focus" focus_is combobox
    press Return
    wait_until "Enter leads to the statement" title_is "Getting started: Privacy statement"
    wait_until "the reader starts in the field" focus_is edit
}

start_host --workflow 3 --language en_US
wait_until "the choice is shown" title_is "Getting started: Your privacy"
wait_until "the languages have the focus" focus_is combobox
wait_until "Continue is the default button" is_default Continue
shows Back && fail "the first pane offers Back"
press Tab
wait_until "Tab leads to Continue" is_focused Continue
press Tab
wait_until "Tab leads to Cancel" is_focused Cancel
press alt+l
wait_until "Alt+L leads to the languages" focus_is combobox
press Tab
wait_until "Tab leads to Continue again" is_focused Continue
press Tab
wait_until "Tab leads to Cancel again" is_focused Cancel
press Tab
wait_until "Tab wraps to the languages" focus_is combobox
wait_until "the default button is Continue there" is_default Continue
for key in Escape Return; do
    press F4
    wait_until "F4 opens the list" class_state_is combobox list open
    press $key
    wait_until "$key closes the list" class_state_is combobox list closed
done
title_is "Getting started: Your privacy" || fail "a key of the list did more than close it"
press End
press Return
wait_until "Enter leads to the statement" title_is "Getting started: Privacy statement"
wait_until "the reader starts in the field" focus_is edit
wait_until "Arabic is shown from right to left" class_state_is edit direction rtl

xdotool keydown shift key Tab # held until the field has seen it
wait_until "Shift+Tab leaves the field" is_focused Cancel
xdotool keyup shift
press Tab
wait_until "Tab reaches the field" focus_is edit
wait_until "Tab selects nothing" class_state_is edit selection 0-0
for button in Back Accept Decline Cancel; do
    wait_until "$button is not the default button" is_no_default "$button"
done
press Tab
wait_until "Tab leaves the field" is_focused Back
press alt+s
wait_until "Alt+S leads to the field" focus_is edit
press Tab
wait_until "Tab leaves the field again" is_focused Back
press space
wait_until "Space presses Back" title_is "Getting started: Your privacy"
wait_until "the languages have the focus again" focus_is combobox
press Home
press Return
wait_until "Enter leads to the statement again" title_is "Getting started: Privacy statement"
wait_until "the reader starts in the field" focus_is edit
wait_until "English is shown from left to right" class_state_is edit direction ltr
wait_until "the statement starts at its first line" is_at_top
wait_until "no text is selected" class_state_is edit selection 0-0
press Next
wait_until "Page Down scrolls" is_scrolled
press ctrl+End
wait_until "Ctrl+End goes to the end" is_at_end
press ctrl+Home
wait_until "Ctrl+Home goes to the top" is_at_top
press Return # answers nothing: the run continues
press Tab
wait_until "Tab leads to Back" is_focused Back
press Tab
wait_until "Tab leads to Accept" is_focused Accept
press space
host_ends 0 "status 0x0000"

open_statement
press Tab
wait_until "Tab leads to Back" is_focused Back
press Tab
wait_until "Tab leads to Accept" is_focused Accept
press Tab
wait_until "Tab leads to Decline" is_focused Decline
press space
host_ends 1 "status 0x8903"

open_statement
press Escape
host_ends 1 "status 0x8902"

start_host --workflow 3 --language en_US
wait_until "the choice is shown" focus_is combobox
press Escape
host_ends 1 "status 0x8902"
