# Crash and fault-injection test: ./dev prove [STEP]. Runs a scenario on both kinds of store. Kills it, or makes a
# call fail at every call that accesses the store, the photos, the log or a connection. Then changes each answer of the
# suite's server at every byte. STEP 20 tests every twentieth of them.

prove() {
    buildPreset dev prove
    local step="${1:-1}" part process status=0
    local -a running=()
    for part in file server answers; do
        provePart "$part" "$step" &
        running+=($!)
    done
    for process in "${running[@]}"; do
        wait "$process" || status=1
    done
    awk '{ points += $1; faults += $3 } END { print points " points, " faults " faults" }' \
        <(tail -qn1 build/prove-{file,server,answers}.log)
    return "$status"
}

provePart() { tools/prove/prove.sh build/dev/tools/prove/prove "$1" "$2" | tee "build/prove-$1.log"; }
