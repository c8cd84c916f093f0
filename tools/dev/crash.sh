# Crash and fault-injection test: ./dev crash [STEP]. Runs a scenario on both kinds of store. Kills it, or makes a
# call fail at every call that accesses the store, the photos, the log or a connection. Then gives wrong
# answers of the suite's server. STEP 20 tests every twentieth call.

crash() {
    buildPreset dev crash_test
    local step="${1:-1}" part process status=0
    local -a running=()
    for part in file server answers; do
        crashPart "$part" "$step" &
        running+=($!)
    done
    for process in "${running[@]}"; do
        wait "$process" || status=1
    done
    awk '{ points += $1; faults += $3 } END { print points " points, " faults " faults" }' \
        <(tail -qn1 build/crash-{file,server,answers}.log)
    return "$status"
}

crashPart() { tools/crash_test/crash_test.sh build/dev/tools/crash_test/crash_test "$1" "$2" | tee "build/crash-$1.log"; }
