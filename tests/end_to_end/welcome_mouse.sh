#!/bin/bash
# Walks Welcome by mouse, forward and back and to its end, in English and mirrored in Hebrew.
. "$(dirname "$0")/support/drive.sh"

record_pages
start_host --workflow 1 --language en_US
wait_until "Welcome is shown" shows "Learn more"
click "Learn more"
wait_until "the link opens the page" pages_opened 1 'en_US\welcome.html'
click Continue
wait_until "Highlights is shown" title_is "Getting started: What to expect"
wait_until "the former pane is hidden" shows_no_more "Learn more"
wait_until "the buttons are in order" left_of Back Continue Quit
click Back
wait_until "Back leads to Welcome" title_is "Getting started: Welcome"
click Continue
wait_until "Highlights is shown again" title_is "Getting started: What to expect"
click Quit
wait_until "Quit asks" title_is "Quit"
click Stay
wait_until "Stay stays" title_is "Getting started: What to expect"
click Continue
wait_until "Ready is shown" title_is "Getting started: Everything is ready"
wait_until "Ready offers no Continue" shows_no_more Continue
click Done
host_ends 0 "status 0x0000"

back=$(word he_IL /pvn/dlg/common/button/back)
forward=$(word he_IL /pvn/dlg/common/button/continue)
quit=$(word he_IL /pvn/dlg/common/button/quit)

start_host --workflow 1 --language he_IL
wait_until "Welcome is shown in Hebrew" shows "$forward"
click "$forward"
wait_until "Highlights is shown in Hebrew" shows "$back"
wait_until "the buttons are mirrored" left_of "$quit" "$forward" "$back"
click "$forward"
wait_until "Ready is shown in Hebrew" shows "$(word he_IL /pvn/dlg/common/button/done)"
click "$(word he_IL /pvn/dlg/common/button/done)"
host_ends 0 "status 0x0000"
