#!/usr/bin/env bash
# windows_program.sh PROGRAM VERSION: fails unless a program for Windows has its icon, its version and its manifest.
set -euo pipefail
program="$1"
version="$2"
status=0
resources=$(x86_64-w64-mingw32-windres -J coff -i "$program" -O rc)

expect() {
    local part="$1"
    shift
    "$@" || { echo "$program: $part is missing" >&2; status=1; }
}

inResources() { grep -qF -- "$1" <<<"$resources"; }
inFile() { grep -qaF -- "$1" "$program"; }

expect "the icon of its windows" inResources '"IDI_ICON1" 14'
expect "version $version" inResources "FILEVERSION ${version//./, }, 0"
expect "the text of version $version" inResources "VALUE \"FileVersion\", \"$version\""
expect "the name of the product" inResources 'L"\x304a\x5ba2\x69d8\x60c5\x5831\x8a2d\x5b9a"'
expect "a start without other rights" inFile 'level="asInvoker"'
expect "the scale of each screen" inFile '>PerMonitorV2<'
expect "long paths" inFile '<longPathAware xmlns="http://schemas.microsoft.com/SMI/2016/WindowsSettings">true<'
expect "UTF-8 as its code page" inFile '>UTF-8<'
exit "$status"
