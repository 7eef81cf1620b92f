#!/bin/bash
# A workflow that the library does not have is refused with its status, and the host ends with code 1.
. "$(dirname "$0")/support/drive.sh"

for workflow in 99 65535; do # not the next numbers, which are for workflows of an author's own
    start_host --workflow "$workflow"
    host_ends 1 "status 0x8106"
    host_said "line: 394, value: 33030" # the line of the log beside the status
done
