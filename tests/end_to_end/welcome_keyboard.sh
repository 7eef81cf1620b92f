#!/bin/bash
# Walks Welcome by keyboard alone: Enter, Tab, Shift+Tab, Space and Esc, and quits it by its alert.
. "$(dirname "$0")/support/drive.sh"

record_pages
start_host --workflow 1 --language en_US
wait_until "Welcome is shown" title_is "Getting started: Welcome"
wait_until "Continue has the focus" is_focused Continue
wait_until "Continue is the default button" is_default Continue
shows Back && fail "the first pane offers Back"

press Tab
wait_until "Tab leads to Quit" is_focused Quit
press Tab
wait_until "Tab wraps to the first control" is_focused "Learn more"
press Return
wait_until "Enter on the link opens the page" pages_opened 1 'en_US\welcome.html'
press space
wait_until "Space opens it too" pages_opened 2 'en_US\welcome.html'
title_is "Getting started: Welcome" || fail "a key of the link pressed a button"
press shift+Tab
wait_until "Shift+Tab wraps back" is_focused Quit
press shift+Tab
wait_until "Shift+Tab leads to Continue" is_focused Continue

press alt+l
wait_until "Alt+L opens the page" pages_opened 3 'en_US\welcome.html'
wait_until "the link has the focus then" is_focused "Learn more"
press alt+c
wait_until "Alt+C leads to Highlights" title_is "Getting started: What to expect"
wait_until "Continue has the focus there" is_focused Continue
press alt+b
wait_until "Alt+B leads back" title_is "Getting started: Welcome"
wait_until "Continue has the focus as before" is_focused Continue

press Return
wait_until "Enter leads to Highlights" title_is "Getting started: What to expect"
wait_until "Continue has the focus again" is_focused Continue
press shift+Tab
wait_until "Shift+Tab leads to Back" is_focused Back
press space
wait_until "Space presses Back" title_is "Getting started: Welcome"

wait_until "Continue has the focus" is_focused Continue
press Return
wait_until "Enter leads to Highlights" title_is "Getting started: What to expect"
wait_until "Continue has the focus" is_focused Continue
press space
wait_until "Space leads to Ready" title_is "Getting started: Everything is ready"
wait_until "Done has the focus" is_focused Done
wait_until "Done is the default button" is_default Done

wait_until "no pane that was shown again has opened the page" pages_opened 3 'en_US\welcome.html'
press Escape
wait_until "Esc asks whether to quit" title_is "Quit"
press Escape
wait_until "Esc stays" title_is "Getting started: Everything is ready"
wait_until "Done has the focus after the alert" is_focused Done
press Escape
wait_until "Esc asks again" title_is "Quit"
wait_until "Stay has the focus in the alert" is_focused Stay
wait_until "Stay is the default button" is_default Stay
press Return
wait_until "Enter stays" title_is "Getting started: Everything is ready"
press alt+q
wait_until "Alt+Q asks too" title_is "Quit"
wait_until "Stay has the focus there" is_focused Stay
press alt+s
wait_until "Alt+S stays" title_is "Getting started: Everything is ready"
press Escape
wait_until "Esc asks once more" title_is "Quit"
wait_until "Stay has the focus again" is_focused Stay
press Tab
wait_until "Tab leads to Quit" is_focused Quit
press space
host_ends 1 "status 0x8901"
