# Runs the program for Windows under wine on a new office, together with the server stand-in.
source tools/dev/run.sh

OFFICE=office-windows

# A prefix of its own: programs that share one show their windows on the display of the first.
export ORV_WINE_PREFIX="$WINDOWS_CACHE/wine-screen"

# The drive O of wine. The sample's settings name the drive C, which is the prefix's own.
connectOffice() {
    tools/dev/wine.sh reg add 'HKLM\SOFTWARE\ZENTHA\ORV' /v InstallKey /d 'O:\ORV' /f /reg:32 >/dev/null
    ln -sfn "$PWD/$OFFICE/C" "$ORV_WINE_PREFIX/dosdevices/o:"
    LC_ALL=C sed -i 's/C:\\ORV/O:\\ORV/' "$OFFICE/C/ORV/SYS/system.ini"
}

# The open dialog is wine's, in the font of a Japanese Windows.
giveJapaneseFont() {
    tools/dev/wine.sh reg add 'HKCU\Software\Wine\Fonts\Replacements' /v 'MS UI Gothic' /d 'Noto Sans CJK JP' /f >/dev/null
}

windowsRun() {
    local argument="${1:-000004601,1,0}"
    buildWindows
    buildPreset dev suite_server ui_driver
    withServer
    tools/make_office.sh "$OFFICE" "$WINDOWS_BUILD/src/app/company_information.exe" "$(cat "$OFFICE-server/port")"
    cp "$WINDOWS_BUILD/programs/menu/KELT_MENU.EXE" "$OFFICE/C/ORV/BIN/"
    placeWindowsProgram "$OFFICE/C/ORV/BIN"
    connectOffice
    giveJapaneseFont
    if [ -n "${DISPLAY:-}" ]; then
        tools/dev/wine.sh 'O:\ORV\BIN\KELT_COS.EXE' "$argument"
        return
    fi
    ORV_RUN_WITH="tools/dev/wine.sh O:\\ORV\\BIN\\KELT_COS.EXE" build/dev/tools/ui_driver/ui_driver session "$OFFICE" "$OFFICE-pictures" "$argument"
    reportOffice "$argument"
    echo "== pictures of the pages: $OFFICE-pictures"
}
