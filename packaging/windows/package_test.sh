#!/usr/bin/env bash
# Installs, updates, rolls back and removes the program under wine, and checks every file each time:
# package_test.sh OLDER_TREE OLDER_INSTALLER TREE INSTALLER ZIP VERSION. The older version is 0.9.0. Needs a display.
set -euo pipefail

OLDER_TREE="$1"
OLDER="$2"
TREE="$3"
NEWER="$4"
ZIP="$5"
VERSION="$6"
SCRATCH=$(mktemp -d)
export ORV_WINE_PREFIX="$SCRATCH/wine"
DRIVE="$ORV_WINE_PREFIX/drive_c"
ORV="$DRIVE/ORV"
STORE="$ORV/MDB/ORVESTATE.MDB"
UNINSTALL='HKLM\Software\Microsoft\Windows\CurrentVersion\Uninstall\KELT_COS'

cleanUp() {
    endWine
    rm -rf "$SCRATCH"
}
trap cleanUp EXIT

TEST="windows package test"
source packaging/test_steps.sh

wine() { tools/dev/wine.sh "$@"; }

endWine() {
    exec 9>&-
    WINEPREFIX="$ORV_WINE_PREFIX" /usr/lib/wine/wineserver64 -k || true
}

# Wine starts anew for each command unless another one runs. The first command makes its folder.
startWine() {
    wine cmd /c exit
    runUntilClosed 9 more
}

# True if the command ends with the status: ends STATUS COMMAND...
ends() {
    local status=0
    "${@:2}" || status=$?
    [ "$status" -eq "$1" ] || { echo "exit status $status"; return 1; }
}

not() { ! "$@"; }

folders() { (cd "$1" && find . -type d | sort); }
sums() { (cd "$1" && find . -type f "${@:2}" -exec sha256sum {} + | sort -k 2); }

# The programs of an install, without the files that the installer makes itself.
programsIn() { (cd "$1" && sums . \( -path './BIN/*' -o -path './HLP/*' \) -not -path './BIN/DAT/*' -not -name help.hlp \
    -not -name KELT_MENU.EXE -not -name KELT_UNINST.EXE -not -name KELT_COS.LST); }

# Everything else.
dataIn() { (cd "$1" && sums . -not -path './BKUP/programs/*' \( -not -path './BIN/*' -o -path './BIN/DAT/*' -o -name KELT_MENU.EXE \) \
    \( -not -path './HLP/*' -o -name help.hlp \)); }

hasPrograms() { diff <(sums "$2/programs") <(programsIn "$1"); }
hasOffice() { diff <(sums "$2/office") <(dataIn "$1") && hasFolders "$@"; }
hasFolders() { [ -z "$(comm -23 <(folders "$2/office") <(folders "$1"))" ]; }
hasPrevious() { hasPrograms "$1/BKUP/programs" "$2"; }
dataIs() { diff "$SCRATCH/data" <(dataIn "$1"); }
# A running program writes its log and its working files.
lastingFilesIn() { sums "$1" -not -path './LOG/*' -not -path './TMP/*'; }
filesAre() { diff "$SCRATCH/files" <(lastingFilesIn "$1"); }

registryHas() { wine reg query "$1" /v "$2" "${@:4}" | tr -d '\r' | grep -qF "    $3"; }
isRegistered() { wine reg query $UNINSTALL; }
shortcuts() { find "$DRIVE/ProgramData" -name '*.lnk'; }

isLocked() { [ -n "$(sqlite3 "$1/MDB/ORVESTATE.MDB" 'select USER_ID from TBL_LOCK')" ]; }

# Starts the program of an install and waits until it has opened the company.
opens() {
    wine "$2" "000004601,1,0" >"$SCRATCH/program.log" 2>&1 &
    waitFor isLocked "$1" || { cat "$SCRATCH/program.log"; return 1; }
}

# Ends it and frees the company. Wine would keep the files of a program open that only a signal ends.
closes() {
    endWine
    startWine
    sqlite3 -bail "$1/MDB/ORVESTATE.MDB" 'delete from TBL_LOCK'
}

fillOffice() {
    sqlite3 -bail "$1/MDB/ORVESTATE.MDB" <sample/sql/companies.sql
    cp -r sample/C/ORV/IMG/. "$1/IMG/"
    echo "a log" >"$1/LOG/ERR/a.log"
    printf '; edited\r\n' >>"$1/SYS/system.ini"
}

# An install of the suite, with programs of its own.
makeSuite() {
    mkdir -p "$1"/{BIN,SYS,MDB,HLP}
    echo "the suite's program" | tee "$1"/BIN/{KELT_COS.EXE,KELT_ADD.EXE,KELT_MENU.EXE,other.dll} >"$1/HLP/help.hlp"
    echo "[PATH]" >"$1/SYS/system.ini"
    wine reg add 'HKLM\SOFTWARE\ZENTHA\ORV' /v InstallKey /d 'C:\SUITE\' /f /reg:32
}

# The files of the suite are as before, except those of the pattern.
suiteIs() { (cd "$1" && grep -v "$2" "$SCRATCH/files" | sha256sum --quiet -c); }

isGone() { not isRegistered && not test -e "$1/BIN/KELT_UNINST.EXE"; }
uninstalls() { wine "$2\\BIN\\KELT_UNINST.EXE" /S && waitFor isGone "$1"; }
rollsBack() { ends 0 wine "$1\\BIN\\KELT_UNINST.EXE" /S /ROLLBACK "_?=$1\\BIN"; }

# Runs a command of Windows until the end of its input, the file descriptor $1, is closed.
runUntilClosed() {
    rm -f "$SCRATCH/input$1"
    mkfifo "$SCRATCH/input$1"
    wine cmd /c "$2" <"$SCRATCH/input$1" >/dev/null 2>&1 &
    eval "exec $1>'$SCRATCH/input$1'"
}

# The state after a power failure in the middle of an update: one unit is moved, and the new one is in its place.
interruptUpdate() {
    local old="$ORV/BKUP/programs.old"
    mkdir -p "$old"/{BIN,HLP}
    cp "$ORV/BIN/KELT_COS.LST" "$old/units.txt"
    mv "$ORV/BIN/KELT_COS.EXE" "$old/BIN/"
    cp "$TREE/programs/BIN/KELT_COS.EXE" "$ORV/BIN/"
}

# The settings of a new office, with another text for the usual folder.
hasSettings() { LC_ALL=C sed "s/C:\\\\ORV/$2/" "$TREE/office/SYS/system.ini" | cmp - "$1/SYS/system.ini"; }

forgetSuite() { wine reg delete 'HKLM\SOFTWARE\ZENTHA' /f /reg:32; }

unzipped() {
    unzip -q "$ZIP" -d "$DRIVE/ZIP"
    diff <(sums "$TREE/programs"; sums "$TREE/office" -not -name system.ini) <(programsIn "$DRIVE/ZIP/ORV"; \
        dataIn "$DRIVE/ZIP/ORV" | grep -v /system.ini) && hasFolders "$DRIVE/ZIP/ORV" "$TREE"
}

startWine

expect "the older version is installed" ends 0 wine "$OLDER" /S
expect "each file of the programs is there, and no other" hasPrograms "$ORV" "$OLDER_TREE"
expect "each file of the office is there, and no other" hasOffice "$ORV" "$OLDER_TREE"
expect "its store is complete" test "$(sqlite3 "$STORE" 'pragma integrity_check; select count(*) from TBL_CUSTOMER_INFO')" = $'ok\n0'
expect "InstallKey is written" registryHas 'HKLM\SOFTWARE\ZENTHA\ORV' InstallKey 'InstallKey    REG_SZ    C:\ORV' /reg:32
expect "the version is registered" registryHas $UNINSTALL DisplayVersion 0.9.0
expect "the start menu has the program" test "$(shortcuts | wc -l)" = 1
fillOffice "$ORV"
expect "the program opens a company" opens "$ORV" 'C:\ORV\BIN\KELT_COS.EXE'
lastingFilesIn "$ORV" >"$SCRATCH/files"
expect "an update is refused while it runs" ends 3 wine "$NEWER" /S
expect "a removal is refused while it runs" ends 3 wine 'C:\ORV\BIN\KELT_UNINST.EXE' /S '_?=C:\ORV\BIN'
expect "both change nothing" filesAre "$ORV"
closes "$ORV"
dataIn "$ORV" >"$SCRATCH/data"
expect "the newer version is installed" ends 0 wine "$NEWER" /S
expect "its programs replace the older ones" hasPrograms "$ORV" "$TREE"
expect "the older ones are kept" hasPrevious "$ORV" "$OLDER_TREE"
expect "the data is kept" dataIs "$ORV"
expect "the newer version is registered" registryHas $UNINSTALL DisplayVersion "$VERSION"
expect "the newer program opens the company" opens "$ORV" 'C:\ORV\BIN\KELT_COS.EXE'
closes "$ORV"
dataIn "$ORV" >"$SCRATCH/data"
expect "the older version is restored" rollsBack 'C:\ORV'
expect "its programs replace the newer ones" hasPrograms "$ORV" "$OLDER_TREE"
expect "the newer ones are kept" hasPrevious "$ORV" "$TREE"
expect "the older version is registered" registryHas $UNINSTALL DisplayVersion 0.9.0
expect "the rollback is undone" rollsBack 'C:\ORV'
expect "the newer programs are there again" hasPrograms "$ORV" "$TREE"
expect "the data is kept by both" dataIs "$ORV"
expect "another folder than that of InstallKey is refused" ends 5 wine "$NEWER" /S '/D=C:\OTHER'
expect "the program is removed" uninstalls "$ORV" 'C:\ORV'
expect "no file of the programs is left" diff /dev/null <(programsIn "$ORV")
expect "nor a previous version" not test -e "$ORV/BKUP/programs"
expect "nor a shortcut" test -z "$(shortcuts)"
expect "the data is left" dataIs "$ORV"
expect "InstallKey is left" registryHas 'HKLM\SOFTWARE\ZENTHA\ORV' InstallKey 'InstallKey    REG_SZ    C:\ORV' /reg:32


ORV="$DRIVE/My office"
forgetSuite
expect "the older version is installed in another folder" ends 0 wine "$OLDER" /S '/D=C:\My' office
expect "its programs are there" hasPrograms "$ORV" "$OLDER_TREE"
expect "the settings name that folder" hasSettings "$ORV" 'C:\\My office'
expect "InstallKey names it" registryHas 'HKLM\SOFTWARE\ZENTHA\ORV' InstallKey 'C:\My office' /reg:32
fillOffice "$ORV"
expect "the program opens a company there" opens "$ORV" 'C:\My office\BIN\KELT_COS.EXE'
closes "$ORV"
lastingFilesIn "$ORV" >"$SCRATCH/files"
runUntilClosed 8 'cd /d C:\My office\HLP\manual & echo >C:\ready & more'
waitFor test -e "$DRIVE/ready"
expect "an update is refused while a folder is in use" ends 4 wine "$NEWER" /S
exec 8>&-
endWine
startWine
expect "nothing is changed" filesAre "$ORV"
dataIn "$ORV" >"$SCRATCH/data"
interruptUpdate
expect "an interrupted update is repeated" ends 0 wine "$NEWER" /S
expect "its programs are complete" hasPrograms "$ORV" "$TREE"
expect "and those before it" hasPrevious "$ORV" "$OLDER_TREE"
expect "the data is kept" dataIs "$ORV"

ORV="$DRIVE/SUITE"
makeSuite "$ORV"
lastingFilesIn "$ORV" >"$SCRATCH/files"
expect "the program is installed in a suite" ends 0 wine "$NEWER" /S
expect "it replaces the suite's own" cmp "$TREE/programs/BIN/KELT_COS.EXE" "$ORV/BIN/KELT_COS.EXE"
expect "no other file of the suite is changed" suiteIs "$ORV" /KELT_COS.EXE
expect "the suite's own is kept" grep -q suite "$ORV/BKUP/programs/BIN/KELT_COS.EXE"
expect "it gets no second store" not test -e "$ORV/MDB/ORVESTATE.MDB"
expect "the suite's own is restored" rollsBack 'C:\SUITE'
expect "all files of the suite are there" suiteIs "$ORV" "^$"
expect "no version is registered" not isRegistered
expect "the program is installed again" ends 0 wine "$NEWER" /S
expect "and removed" uninstalls "$ORV" 'C:\SUITE'
expect "the suite's own can be restored by hand" grep -q suite "$ORV/BKUP/programs/BIN/KELT_COS.EXE"

forgetSuite
expect "the ZIP has the same files" unzipped
expect "its settings name their folders from that of the program" hasSettings "$DRIVE/ZIP/ORV" ..
fillOffice "$DRIVE/ZIP/ORV"
expect "its program opens a company" opens "$DRIVE/ZIP/ORV" 'C:\ZIP\ORV\BIN\KELT_COS.EXE'
