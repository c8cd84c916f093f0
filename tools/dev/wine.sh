#!/usr/bin/env bash
# wine.sh PROGRAM ARGUMENT...: runs a Windows program under wine, in its own prefix. Its temporary folder is on the drive T.
set -euo pipefail
wine=/usr/lib/wine/wine64
compiler=$(dirname "$(x86_64-w64-mingw32-g++-posix -print-file-name=libstdc++-6.dll)")
export WINEPREFIX="${ORV_WINE_PREFIX:-${XDG_CACHE_HOME:-$HOME/.cache}/orv-windows/wine}" WINEDEBUG="${WINEDEBUG:--all}" WINEARCH=win64
export WINEDLLOVERRIDES="mscoree,mshtml,winemenubuilder.exe="
export WINEPATH="Z:$compiler;Z:/usr/x86_64-w64-mingw32/lib${ORV_WINE_PATH:+;$ORV_WINE_PATH}"
# The code page of a Japanese Windows.
locales="${XDG_CACHE_HOME:-$HOME/.cache}/orv-windows/locale"
if [ ! -e "$locales/ja_JP.UTF-8" ]; then
    mkdir -p "$locales"
    localedef -i ja_JP -f UTF-8 "$locales/ja_JP.UTF-8"
fi
if [ ! -e "$WINEPREFIX/system.reg" ]; then
    mkdir -p "$(dirname "$WINEPREFIX")"
    DISPLAY="" "$wine" wineboot --init >/dev/null 2>&1
fi
if [ ! -e "$WINEPREFIX/dosdevices/t:" ]; then
    mkdir -p "$WINEPREFIX/temporary"
    for name in TEMP TMP; do
        "$wine" reg add 'HKCU\Environment' /v $name /d 'T:\' /f >/dev/null
    done
    ln -s ../temporary "$WINEPREFIX/dosdevices/t:"
fi
exec env LOCPATH="$locales" LC_ALL=ja_JP.UTF-8 "$wine" "$@"
