#!/usr/bin/env bash
# Installs a package in a bare Debian 12, works with an office, updates to another package and removes it:
# package_test.sh OLDER NEWER. Needs root and a mount namespace of its own.
set -euo pipefail

OLDER="$1"
NEWER="$2"
CACHE=build/package
mkdir -p "$CACHE"
SCRATCH=$(mktemp -d "$PWD/$CACHE/test-XXXXXX")
ROOT="$SCRATCH/root"
OFFICE=/srv/orv
STORE="$OFFICE/C/ORV/MDB/ORVESTATE.MDB"
COMPANY=000004601
RUNNING=()

cleanUp() {
    kill "${RUNNING[@]}" 2>/dev/null || true
    umount --lazy "$ROOT"/{proc,var/cache/apt/archives,tmp/.X11-unix} 2>/dev/null || true
    # Folders of the computer that are still mounted here must not be emptied.
    grep -qF " $ROOT/" /proc/self/mounts || rm -rf --one-file-system "$SCRATCH"
}
trap cleanUp EXIT

TEST="package test"
source packaging/test_steps.sh

# True if the command fails and prints each of the texts: refused TEXT... -- COMMAND...
refused() {
    local texts=() text
    while [ "$1" != -- ]; do texts+=("$1"); shift; done
    shift
    ! "$@" >"$SCRATCH/refusal" 2>&1 || return 1
    cat "$SCRATCH/refusal"
    for text in "${texts[@]}"; do grep -qF -- "$text" "$SCRATCH/refusal" || return 1; done
}

prints() { "${@:2}" >"$SCRATCH/printed" 2>&1; cat "$SCRATCH/printed"; grep -qF -- "$1" "$SCRATCH/printed"; }

inside() {
    chroot "$ROOT" env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/root LANG=C.UTF-8 DEBIAN_FRONTEND=noninteractive "$@"
}

installPackage() {
    cp "$1" "$ROOT/root/package.deb"
    inside apt-get install -y /root/package.deb
}

# The rows and files of the office, without its programs and logs.
contentOfOffice() {
    sqlite3 "$ROOT$STORE" .dump
    (cd "$ROOT$OFFICE" && find registry.txt C/ORV/{SYS,IMG,PHOTO} C/ORV/HLP/help.hlp -type f -exec sha256sum {} + | sort -k 2)
}

# One company of the sample is incomplete.
findings() { inside orv_store check $STORE || [ $? -eq 1 ]; }

filesOfOffice() { (cd "$ROOT$OFFICE" && find . -type f -exec sha256sum {} + | sort -k 2); }

bareSystem() {
    if [ ! -f $CACHE/bare.tar ]; then
        debootstrap --variant=minbase bookworm "$SCRATCH/bare" http://deb.debian.org/debian >"$SCRATCH/debootstrap.log"
        tar -C "$SCRATCH/bare" -cf $CACHE/bare.tar.new .
        mv $CACHE/bare.tar.new $CACHE/bare.tar
    fi
    mkdir -p "$ROOT" $CACHE/archives/partial
    tar -C "$ROOT" -xf $CACHE/bare.tar
    mkdir -p "$ROOT/tmp/.X11-unix" /tmp/.X11-unix
    mount -t proc proc "$ROOT/proc"
    mount --bind $CACHE/archives "$ROOT/var/cache/apt/archives"
    mount --bind /tmp/.X11-unix "$ROOT/tmp/.X11-unix"
    echo 'APT::Keep-Downloaded-Packages "true";' >"$ROOT/etc/apt/apt.conf.d/keep"
    echo force-unsafe-io >"$ROOT/etc/dpkg/dpkg.cfg.d/fast"
    cp /etc/resolv.conf "$ROOT/etc/resolv.conf"
}

# The UI driver runs outside and starts this command as the program of the office.
clerksOffice() {
    local program="$SCRATCH/office/C/ORV/BIN/KELT_COS.EXE"
    mkdir -p "$(dirname "$program")"
    ln -s "$ROOT$OFFICE/C/ORV/PHOTO" "$SCRATCH/office/C/ORV/PHOTO"
    cat >"$program" <<TEXT
#!/bin/sh
exec chroot $ROOT setpriv --reuid=clerk --regid=clerk --init-groups env -i PATH=/usr/bin:/bin HOME=/home/clerk \
LANG=ja_JP.UTF-8 LC_ALL=C.UTF-8 DISPLAY=\$DISPLAY QT_QPA_PLATFORM=xcb ORV_SCALE=1 ORV_COMPUTER_NAME=DESK-01 \
$OFFICE/C/ORV/BIN/KELT_COS.EXE "\$@"
TEXT
    chmod +x "$program"
}

# A company and its photos, the address of the stand-in for the suite's server, and a clerk.
fillOffice() {
    local orv="$ROOT$OFFICE/C/ORV" port="$1"
    sqlite3 -bail "$ROOT$STORE" <sample/sql/companies.sql
    cp sample/C/ORV/IMG/1/*.jpg "$orv/IMG/1/"
    cp sample/C/ORV/IMG/2/*.jpg "$orv/IMG/2/"
    chmod 0660 "$orv"/IMG/*/*.jpg
    LC_ALL=C sed -i "s/127\.0\.0\.1:18080/127.0.0.1:$port/" "$orv/SYS/system.ini"
    inside useradd -m clerk
    inside usermod -aG orv clerk
}

startServer() {
    mkdir "$SCRATCH/server"
    build/dev/tools/suite_server/suite_server --port 0 --folder "$SCRATCH/server" >/dev/null &
    RUNNING+=($!)
    waitFor test -s "$SCRATCH/server/port"
}

session() {
    build/dev/tools/ui_driver/ui_driver session "$SCRATCH/office" "$CACHE/pictures" "$COMPANY,1,0" &&
        [ "$(sqlite3 "$ROOT$STORE" "select TANTO_NAME from TBL_CUSTOMER_INFO where USER_ID = '$COMPANY'")" = "操作　花子" ] &&
        grep -q "POST /cussend/register" "$SCRATCH/server/requests.log"
}

isLocked() { [ -n "$(sqlite3 "$ROOT$STORE" 'select USER_ID from TBL_LOCK')" ]; }

# The process that the last refusal has listed.
listedProcess() { sed -n 's/^process \([0-9]*\) of clerk: .*/\1/p' "$SCRATCH/refusal"; }

bareSystem
expect "the lists of Debian are read" inside apt-get update
expect "the older package is installed in a bare system" installPackage "$OLDER"
expect "an office is created" prints "Next:" inside orv-office create $OFFICE
expect "it has nothing to report" inside orv_store check $STORE
expect "it is not created twice" refused "exists already" -- inside orv-office create $OFFICE
startServer
fillOffice "$(cat "$SCRATCH/server/port")"
clerksOffice
expect "a clerk opens a company, works on all pages and saves it" session
contentOfOffice >"$SCRATCH/saved"
findings >"$SCRATCH/found"
expect "the newer package is installed" installPackage "$NEWER"
xvfb-run -a -s -ac "$SCRATCH/office/C/ORV/BIN/KELT_COS.EXE" "$COMPANY,1,0" &
RUNNING+=($!)
expect "the older program runs" waitFor isLocked
expect "an update is refused while it runs" refused DESK-01 KELT_COS.EXE -- inside orv-office update $OFFICE
kill -KILL "$(listedProcess)"
expect "an update is refused while a company is locked" refused DESK-01 -- inside orv-office update $OFFICE
inside orv_store unlock $STORE DESK-01 --yes >/dev/null
expect "the office is updated" prints "replaces 0.9.0" inside orv-office update $OFFICE
contentOfOffice >"$SCRATCH/updated"
expect "its data is kept" diff "$SCRATCH/saved" "$SCRATCH/updated"
findings >"$SCRATCH/found-later"
expect "its check reports nothing new" diff "$SCRATCH/found" "$SCRATCH/found-later"
expect "the clerk works with the newer program" session
expect "the office is rolled back" prints "version 0.9.0 replaces" inside orv-office rollback $OFFICE
expect "the rollback is undone" prints "replaces 0.9.0" inside orv-office rollback $OFFICE
sqlite3 "$ROOT$STORE" 'alter table TBL_CUSTOMER_DATE drop column LAST_SEND_DATE'
expect "an update adds a missing column" prints "LAST_SEND_DATE: added" inside orv-office update $OFFICE
filesOfOffice >"$SCRATCH/before"
inside dpkg -L company-information >"$SCRATCH/installed"
expect "the package is removed" inside apt-get purge -y company-information
filesOfOffice >"$SCRATCH/after"
expect "the office is untouched" diff "$SCRATCH/before" "$SCRATCH/after"
isGone() { while read -r file; do [ ! -f "$ROOT$file" ] || { echo "$file"; return 1; }; done <"$SCRATCH/installed"; }
expect "no file of the package is left" isGone
