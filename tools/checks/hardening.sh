#!/usr/bin/env bash
# hardening.sh PROGRAM: fails unless the program is built so that a fault in it is hard to exploit.
set -euo pipefail
program="$1"
status=0

expect() {
    local part="$1" text="$2" pattern="$3"
    grep -qE "$pattern" <<<"$text" || { echo "$program: $part is missing" >&2; status=1; }
}

header=$(readelf --wide --file-header --program-headers "$program" 2>&1)
dynamic=$(readelf --wide --dynamic "$program")
symbols=$(readelf --wide --dyn-syms "$program")
expect "position independence (PIE)" "$header" 'Type: +DYN'
expect "relocations made read-only (RELRO)" "$header" 'GNU_RELRO'
expect "binding at the start (full RELRO)" "$dynamic" '\bNOW\b'
expect "a stack that holds no code" "$header" 'GNU_STACK +(0x[0-9a-f]+ +){5}RW '
expect "the stack protector" "$symbols" '__stack_chk_fail'
expect "checked library calls (_FORTIFY_SOURCE)" "$symbols" '__[a-z]+_chk@'
# Counts the landing places in the code. A mark in the file's notes would also require the system's start files to have
# it, and Debian 12's do not. Without the option only the compiler's own few start routines have a landing place.
landings=$(objdump -d "$program" | grep -c endbr64 || true)
if [ "$(uname -m)" = x86_64 ] && [ "$landings" -lt 1000 ]; then
    echo "$program: control-flow protection is missing ($landings landing places)" >&2
    status=1
fi
exit "$status"
