#!/bin/bash
# Registers by keyboard alone with the example service: canceled, denied, without a service, and in the end confirmed.
. "$(dirname "$0")/support/drive.sh"
. "$(dirname "$0")/support/service.sh"

busy="Getting started: Registering the product"
details="Getting started: Your details"
problem="Getting started: The registration is not confirmed"

start_host --workflow 2 --language en_US
wait_until "the introduction is shown" title_is "Getting started: Register the product"
press alt+c
wait_until "the details are shown" title_is "$details"
wait_until "the reader starts in the first field" focus_is edit
press alt+r
wait_until "missing details are refused" says "Your name is missing"
press Return
wait_until "the alert closes" title_is "$details"
wait_until "the focus is in the field" focus_is edit
xdotool type "Ada Example"
press alt+e
xdotool type "ada@example.org"
press alt+c
wait_until "Alt+C leads to the countries" focus_is combobox
press z # Zambia
press alt+s
wait_until "Alt+S leads to the serial number" focus_is edit
xdotool type "AB-1234"

press Return # registers nothing: the details are sent by Register alone
wait_until "the details are still shown" title_is "$details"

fail_with silent
press alt+r
wait_until "the busy page is shown" title_is "$busy"
wait_until "the service has the call" service_said "fails as told: silent"
press alt+n
wait_until "Cancel leads back to the details" title_is "$details"

fail_with denied
press alt+r
wait_until "a denied registration is a problem" title_is "$problem"
wait_until "the words are about the details" says "The service did not accept the registration."
wait_until "the code is shown" says "text=Error code 133:1"

stop_service
press alt+t
wait_until "a service that is down is a problem" says "The connection could not be made"
wait_until "the code of it is shown" says "text=Error code 208:163"

fail_with
start_service
press alt+t
wait_until "Try again registers" title_is "Getting started: The product is registered"
wait_until "the service understood the details" service_said '"name": "Ada Example", "organization": "", "email": "ada@example.org", "country": "ZM", "serial": "AB-1234", "news": "0", "locale": "en_US"'
number=$(sed -n 's/^service: registered as \([0-9A-F-]*\): .*/\1/p' "$serviceLog" | tail -n 1)
wait_until "its number $number is shown" says "text=$number"
[ "$(grep -c "registered as $number:" "$serviceLog")" = 3 ] || fail "not three calls with the same details: $(cat "$serviceLog")"
press Return
host_ends 0 "status 0x0000"
