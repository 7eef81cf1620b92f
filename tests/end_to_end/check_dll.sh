#!/bin/sh
# check_dll.sh DLL or check_dll.sh BUILD: checks the exports, imports, flags and size of the finished library. Prints
# each problem; exit code 1 for any.
set -eu
dll=$1
[ ! -d "$dll" ] || dll=$dll/bin/pavane.dll
objdump=${OBJDUMP:-x86_64-w64-mingw32-objdump}
limit=2097152 # bytes
problems=0

problem() {
    echo "$(basename "$dll"): $*" >&2
    problems=1
}

headers=$("$objdump" -p "$dll")

wanted="Pavane_GetVersion Pavane_Info_GetErrorCode Pavane_Initialize Pavane_PreloadWorkflow Pavane_RunWorkflow Pavane_Terminate"
exported=$(echo "$headers" | sed -n '/Ordinal\/Name Pointer/,/^$/s/^[[:space:]]*\[ *[0-9]*\] *\([^ ]*\)$/\1/p' | sort | tr '\n' ' ')
[ "$exported" = "$wanted " ] || problem "exports are: $exported"

# Windows' own libraries; the last is the C runtime that is part of the system.
own="kernel32 user32 gdi32 advapi32 shell32 shlwapi ole32 oleaut32 oleacc comctl32 imm32 version winhttp gdiplus msimg32 msvcrt"
for library in $(echo "$headers" | sed -n 's/^.*DLL Name: \(.*\)\.[dD][lL][lL]$/\1/p' | tr '[:upper:]' '[:lower:]'); do
    case " $own " in
    *" $library "*) ;;
    *) problem "imports $library.dll" ;;
    esac
done

for flag in HIGH_ENTROPY_VA DYNAMIC_BASE NX_COMPAT; do
    echo "$headers" | grep -q "$flag" || problem "lacks $flag"
done

size=$(wc -c <"$dll")
[ "$size" -lt "$limit" ] || problem "has $size bytes, which is not below $limit"
! "$objdump" -h "$dll" | grep -q '\.debug_' || problem "is not stripped"

exit $problems
