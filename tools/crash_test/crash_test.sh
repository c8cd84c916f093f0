#!/usr/bin/env bash
# crash_test.sh PROGRAM file|server|answers STEP: runs the test in a temporary folder, in memory if possible, because a
# scenario consists mostly of file accesses.
set -euo pipefail
folder=$(mktemp -d /dev/shm/crash-XXXXXX 2>/dev/null || mktemp -d)
trap 'rm -rf "$folder"' EXIT
"$1" "$folder/office" "$2" "$3"
