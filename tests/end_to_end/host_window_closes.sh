#!/bin/bash
# Closes the main window of the host while a workflow is open: the run ends as a cancel, and then the process ends.
. "$(dirname "$0")/support/drive.sh"

for workflow in 1 3; do
    start_host
    wait_until "the main window takes the command" window_message "Pavane Host" command $((100 + workflow))
    wait_until "the workflow is shown" has_a_dialog
    window_message "Pavane Host" close || fail "there is no main window"
    host_ends 0 "status 0x8902"
done

start_host
wait_until "the main window is closed" window_message "Pavane Host" close
host_ends 0 ""
