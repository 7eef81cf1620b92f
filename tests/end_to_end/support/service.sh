# Sourced by the end-to-end scripts that call the service, after drive.sh: starts the example service, and has
# start_host start a copy of the host that calls it.

serviceFolder=$(mktemp -d)
serviceLog=$serviceFolder/log
serviceProcess=
servicePort=0
trap 'stop_service; finish; rm -rf "$serviceFolder"' EXIT

start_service() {
    python3 -B "$(dirname "$0")/../../examples/service/service.py" --port "$servicePort" \
        --control "$serviceFolder/control" >"$serviceFolder/address" 2>>"$serviceLog" &
    serviceProcess=$!
    wait_until "the service is there" test -s "$serviceFolder/address"
    servicePort=$(sed -n 's|^http://127\.0\.0\.1:\([0-9]*\)/$|\1|p' "$serviceFolder/address")
}
stop_service() {
    [ -z "$serviceProcess" ] || kill "$serviceProcess" 2>/dev/null || true
    [ -z "$serviceProcess" ] || wait "$serviceProcess" || true
    serviceProcess=
    : >"$serviceFolder/address"
}
# fail_with [FAULT]: from now on the service fails in this way, or not at all.
fail_with() { echo "${1:-}" >"$serviceFolder/control"; }
# service_said TEXT: the service has logged TEXT.
service_said() { grep -qF "$1" "$serviceLog"; }

start_service
"$(dirname "$0")/../../scripts/name_service" "http://127.0.0.1:$servicePort/" "$build" "$serviceFolder/bin"
hostFolder=$serviceFolder/bin
