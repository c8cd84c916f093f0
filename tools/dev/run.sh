# Runs the program on a separate office, together with the server stand-in.

OFFICE=office

withServer() {
    mkdir -p "$OFFICE-server"
    rm -f "$OFFICE-server/port"
    build/dev/tools/suite_server/suite_server --port 0 --folder "$OFFICE-server" >/dev/null &
    SERVER=$!
    trap 'kill $SERVER 2>/dev/null || true' EXIT
    waitForFile "$OFFICE-server/port"
}

# Fails when the file is still empty after three minutes.
waitForFile() {
    local tries
    for tries in $(seq 3600); do
        [ -s "$1" ] && return
        sleep 0.05
    done
    echo "Nothing has been written to $1." >&2
    return 1
}

# Prints the content of the store, the server and the log after the session.
reportOffice() {
    local store="$OFFICE/C/ORV/MDB/ORVESTATE.MDB" user="${1%%,*}"
    echo "== store: $user"
    sqlite3 -line "$store" "select A.USER_ID, COMPANY_NAME, TANTO_NAME, UPDATE_DATE, PWD_CHG_FLG, DAY_OFF, PHOTO_FILE1,
        PHOTO_FILE2, SEND_FLAG from TBL_CUSTOMER_INFO A join TBL_CUSTOMER_ADD B on A.USER_ID = B.USER_ID
        where A.USER_ID = '$user'"
    echo "== locks"
    sqlite3 "$store" "select USER_ID, PROPERTY_TYPE_CODE, LOCAL_INFO, INSERT_DATE from TBL_LOCK"
    echo "== server"
    cat "$OFFICE-server/requests.log" 2>/dev/null || true
    echo "== photos that have arrived as they are stored"
    local stored
    for stored in "$OFFICE"/C/ORV/IMG/[12]/"$user"*; do
        cmp -s "$stored" "$OFFICE-server/photos/$(basename "$stored")" && ls -l "$stored"
    done
    echo "== err log"
    find "$OFFICE/C/ORV/LOG" -name '*_err.log' -exec iconv -f CP932 -t UTF-8 {} +
    echo "== menu"
    waitForFile "$OFFICE/C/ORV/LOG/menu_started.log" && cat "$OFFICE/C/ORV/LOG/menu_started.log"
}

run() {
    local keep=no
    if [ "${1:-}" = --keep ]; then
        keep=yes
        shift
    fi
    local argument="${1:-000004601,1,0}"
    buildPreset dev company_information searches suite_server ui_driver
    withServer
    local program=build/dev/src/app/company_information port
    port=$(cat "$OFFICE-server/port")
    if [ "$keep" = yes ] && [ -d "$OFFICE" ]; then
        cp "$program" "$OFFICE/C/ORV/BIN/KELT_COS.EXE"
        LC_ALL=C sed -i "s/127\.0\.0\.1:[0-9]*/127.0.0.1:$port/" "$OFFICE/C/ORV/SYS/system.ini"
    else
        tools/make_office.sh "$OFFICE" "$program" "$port"
    fi
    if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
        "$OFFICE/C/ORV/BIN/KELT_COS.EXE" "$argument"
        return
    fi
    build/dev/tools/ui_driver/ui_driver session "$OFFICE" "$OFFICE-pictures" "$argument"
    reportOffice "$argument"
    echo "== pictures of the pages: $OFFICE-pictures"
}
